#include "agenda_editor.h"

#include <algorithm>

#include "arguments.h"
#include "core/xml.h"
#include "failure.h"

namespace vellumark::app {
namespace {

constexpr const char* nodePrefix = "s_";

std::string idOf(const pugi::xml_node& item) { return core::attributeText(item, "slideID"); }

AgendaItem readItem(const pugi::xml_node& item) {
  return {.level = agenda::integer(item, "level"),
          .text = core::attributeText(item, "text"),
          .responsible = core::attributeText(item, "responsible"),
          .minutes = agenda::integer(item, "duration"),
          .isBreak = agenda::flag(item, "break"),
          .shown = agenda::flag(item, "showAgendaItem"),
          .ownSlide = agenda::flag(item, "generateAgendaSlide")};
}

}  // namespace

std::vector<AgendaItem> itemsOf(const agenda::AgendaDocument& document) {
  std::vector<AgendaItem> items;
  for (const pugi::xml_node& item : document.items()) items.push_back(readItem(item));
  return items;
}

AgendaEditor::AgendaEditor() {
  wizard_.load();
  if (wizard_.abortDialog) {
    throw Failure(Exit::refused, "agenda: the Agenda Wizard can't open; the message above says why");
  }
}

void AgendaEditor::setOptions(const AgendaOptions& options) {
  if (options.style) chooseStyle(*options.style);
  if (options.title) write(wizard_.tbTitle, *options.title, "--title");
  if (options.subtitle) {
    if (!wizard_.tbSubtitle.enabled()) {
      throw Failure(Exit::usage, "--subtitle: the style \"" + wizard_.agendaStyle +
                                     "\" has no subtitle; take another --style, or leave it out");
    }
    write(wizard_.tbSubtitle, *options.subtitle, "--subtitle");
  }
  if (options.start) write(wizard_.tbStart, *options.start, "--start");
  if (options.numbers) tick(wizard_.cbShowItemNumbers, *options.numbers);
  if (options.responsible) tick(wizard_.cbShowResponsible, *options.responsible);
  if (options.times) tick(wizard_.cbShowTimeSlots, *options.times);
  if (options.pages) tick(wizard_.cbShowPageNumbers, *options.pages);
}

/// The style is taken over when its field is left.
void AgendaEditor::chooseStyle(const std::string& style) {
  const int index = wizard_.cbStyle.find(style);
  if (index < 0) {
    std::vector<std::string> names;
    for (const ui::ListItem& item : wizard_.cbStyle.items()) names.push_back(item.text);
    refuseName("--style", "style", style, names);
  }
  wizard_.focus(wizard_.cbStyle);
  wizard_.cbStyle.listIndex(index);
  if (!wizard_.focus(wizard_.tbTitle)) {
    throw Failure(Exit::refused, "--style: \"" + style + "\" can't be applied; the message above says why");
  }
}

/// A value is checked when its field is left.
void AgendaEditor::write(ui::TextBox& box, const std::string& text, const char* option) {
  wizard_.focus(box);
  box.text(text);
  if (!wizard_.focus(wizard_.tvItems)) {
    throw Failure(Exit::usage,
                  std::string(option) + " " + text + ": is refused; the message above says what is wanted");
  }
}

void AgendaEditor::tick(ui::CheckBox& box, bool on) {
  if (box.value() != on) wizard_.click(box);
}

void AgendaEditor::select(const std::string& id) { wizard_.tvItems.select(nodePrefix + id); }

std::vector<std::string> AgendaEditor::ids() const {
  std::vector<std::string> ids;
  for (const pugi::xml_node& item : wizard_.agendaDoc.items()) ids.push_back(idOf(item));
  return ids;
}

void AgendaEditor::setItems(const std::vector<AgendaItem>& items) {
  const std::vector<std::string> matches = matchItems(items);
  deleteOthers(matches);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (matches[i].empty()) {
      addItem(i);
    } else {
      const std::vector<std::string> now = ids();
      moveUp(matches[i], static_cast<std::size_t>(std::ranges::find(now, matches[i]) - now.begin()), i);
    }
    fillIn(ids()[i], items[i]);
  }
}

/// For each of the new items the id of the old one that it is, empty where it is new.
std::vector<std::string> AgendaEditor::matchItems(const std::vector<AgendaItem>& items) const {
  std::vector<pugi::xml_node> left = wizard_.agendaDoc.items();
  std::vector<std::string> matches;
  for (const AgendaItem& item : items) {
    const auto found = std::ranges::find_if(left, [&](const pugi::xml_node& old) {
      const AgendaItem known = readItem(old);
      return known.text == item.text && known.level == item.level;
    });
    matches.push_back(found == left.end() ? std::string() : idOf(*found));
    if (found != left.end()) left.erase(found);
  }
  return matches;
}

void AgendaEditor::deleteOthers(const std::vector<std::string>& kept) {
  for (const std::string& id : ids()) {
    if (std::ranges::find(kept, id) != kept.end()) continue;
    select(id);
    wizard_.click(wizard_.btnDeleteItem);
  }
}

/// A new item comes right behind the selected one, so that the first is moved up from there.
void AgendaEditor::addItem(std::size_t position) {
  const std::vector<std::string> before = ids();
  if (!before.empty()) select(before[position == 0 ? 0 : position - 1]);
  wizard_.click(wizard_.btnAddItem);
  if (position == 0 && !before.empty()) moveUp(ids()[1], 1, 0);
}

void AgendaEditor::moveUp(const std::string& id, std::size_t from, std::size_t to) {
  if (from <= to) return;
  select(id);
  for (; from > to; --from) wizard_.click(wizard_.btnUp);
}

void AgendaEditor::fillIn(const std::string& id, const AgendaItem& item) {
  select(id);
  const int level = agenda::integer(wizard_.agendaDoc.item(id), "level");
  if (level != item.level) wizard_.click(item.level == 2 ? wizard_.btnRight : wizard_.btnLeft);
  write(wizard_.tbAgendaItem, item.text, "--items");
  write(wizard_.tbResponsible, item.responsible, "--items");
  write(wizard_.tbDuration, std::to_string(item.minutes), "--items");
  tick(wizard_.cbBreak, item.isBreak);
  tick(wizard_.cbShowAgendaItem, item.shown);
  tick(wizard_.cbGenerateAgendaSlide, item.ownSlide);
}

void AgendaEditor::finish() { wizard_.OK(); }

}  // namespace vellumark::app
