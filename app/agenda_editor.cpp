#include "agenda_editor.h"

#include <algorithm>

#include "agenda_matching.h"
#include "arguments.h"
#include "base/text.h"
#include "console.h"
#include "core/globals.h"
#include "core/xml.h"
#include "failure.h"
#include "platform/ansi.h"

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

namespace {

std::string quoted(const AgendaItem& item) { return "\"" + oneLine(item.text) + "\""; }

/// What a user may want to know of the old items: which were taken for another one, and which went.
std::string whatBecame(const std::vector<AgendaItem>& before, const std::vector<AgendaItem>& after,
                       const std::vector<std::optional<std::size_t>>& matches) {
  std::string lines;
  std::vector<bool> stays(before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (!matches[i]) continue;
    const AgendaItem& old = before[*matches[i]];
    stays[*matches[i]] = true;
    if (old.text != after[i].text) {
      lines += quoted(old) + " is now " + quoted(after[i]) + " and keeps its slide\n";
    } else if (old.level != after[i].level) {
      lines += quoted(old) + " is now on level " + std::to_string(after[i].level) + " and keeps its slide\n";
    }
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!stays[i])
      lines += quoted(before[i]) + " is gone" + (before[i].ownSlide ? " with its slide\n" : "\n");
  }
  return lines;
}

}  // namespace

// The dialog begins with the current style. That the deck has its own style is not to be changed by this.
AgendaEditor::AgendaEditor(const std::string& newStyle) {
  core::Globals& globals = core::globals();
  const std::string current = globals.currentStyle;
  for (const std::string& name : globals.styleNames) {
    if (base::equalsIgnoreCase(name, newStyle)) globals.currentStyle = name;
  }
  wizard_.load();
  globals.currentStyle = current;
  if (wizard_.abortDialog) {
    throw Failure(Exit::refused, "agenda: the Agenda Wizard can't open; the message above says why");
  }
}

void AgendaEditor::setOptions(const AgendaOptions& options) {
  if (options.style) chooseStyle(*options.style);
  if (options.title) write(wizard_.tbTitle, platform::fromAnsiOrUtf8(*options.title), "--title");
  if (options.subtitle) {
    if (!wizard_.tbSubtitle.enabled()) {
      throw Failure(Exit::usage, "--subtitle: the style \"" + wizard_.agendaStyle +
                                     "\" has no subtitle; take another --style, or leave it out");
    }
    write(wizard_.tbSubtitle, platform::fromAnsiOrUtf8(*options.subtitle), "--subtitle");
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
  if (!isOneLine(text)) {
    throw Failure(Exit::usage,
                  std::string(option) +
                      ": holds a line break, a tab or another control character; write it on one "
                      "line");
  }
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

std::string AgendaEditor::setItems(const std::vector<AgendaItem>& items) {
  const std::vector<pugi::xml_node> nodes = wizard_.agendaDoc.items();
  const std::vector<AgendaItem> before = itemsOf(wizard_.agendaDoc);
  const std::vector<std::optional<std::size_t>> matches = matchItems(before, items);
  std::vector<std::string> kept;
  for (const auto& match : matches) kept.push_back(match ? idOf(nodes[*match]) : std::string());
  deleteOthers(kept);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (kept[i].empty()) {
      addItem(i);
    } else {
      const std::vector<std::string> now = ids();
      moveUp(kept[i], static_cast<std::size_t>(std::ranges::find(now, kept[i]) - now.begin()), i);
    }
    fillIn(ids()[i], items[i]);
  }
  return whatBecame(before, items, matches);
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

void AgendaEditor::finish() {
  const auto all = itemsOf(wizard_.agendaDoc);
  if (std::ranges::none_of(all, &AgendaItem::ownSlide)) {
    throw Failure(
        Exit::refused,
        "agenda: no item has a slide of its own, so that nothing would be left of the agenda; nothing "
        "is written: give an item one (column \"own slide\")");
  }
  wizard_.OK();
}

}  // namespace vellumark::app
