// The tree of items, as it is built from the document after every change.

#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::attributeText;
using core::trap;

/// In front of an item's id, the key of its node.
constexpr std::string_view keyPrefix = "s_";

std::string keyOf(const std::string& slideID) { return std::string(keyPrefix) + slideID; }

/// What stands before an item's text. A main number has a dot and a blank behind it, one of a break or of the
/// second level in a continuous numbering stands alone.
std::string numberPart(AgendaNumbers& numbers, const pugi::xml_node& item, const NumberRules& rules) {
  if (!flag(item, "showAgendaItem")) return "[HIDDEN] ";
  const auto kind = numbers.count(integer(item, "level"), flag(item, "break"), rules);
  const std::string text = numbers.text(kind);
  switch (kind) {
    case AgendaNumbers::Kind::main:
      return text + ". ";
    case AgendaNumbers::Kind::sub:
      return text + " ";
    default:
      return text;
  }
}

std::string detailPart(const std::string& responsible, const std::string& time) {
  if (responsible.empty() && time.empty()) return "";
  return " (" + responsible + (responsible.empty() || time.empty() ? "" : ", ") + time + ")";
}

}  // namespace

void AgendaWizard::LockControl(ui::Control& control, bool lock) { control.redraw(!lock); }

pugi::xml_node AgendaWizard::selectedItem() const {
  const std::string& key = tvItems.selectedKey();
  return key.empty() ? pugi::xml_node() : agendaDoc.item(key.substr(keyPrefix.size()));
}

void AgendaWizard::selectNode(const pugi::xml_node& item) {
  const std::string key = keyOf(attributeText(item, "slideID"));
  if (!tvItems.find(key)) return;
  building_ = true;
  tvItems.select(key);
  building_ = false;
}

void AgendaWizard::xml2treeview(bool selectAndFill, const std::string& wantedID) {
  trap(
      "AgendaWizard, xml2treeview",
      [&] {
        readNumberRules();
        const std::string wantedKey = wantedID.empty() ? tvItems.selectedKey() : keyOf(wantedID);
        building_ = true;
        LockControl(tvItems, true);
        tvItems.clear();
        lEnd.caption(addNodes(wantedKey));
        const auto& top = tvItems.root().children;
        if (!top.empty() && tvItems.selectedKey().empty()) tvItems.select(top.front()->key);
        if (selectAndFill) {
          fillingControls = true;
          fillItem();
          fillingControls = false;
        }
        LockControl(tvItems, false);
        building_ = false;
      },
      [&](const base::Error&) {
        if (selectAndFill) fillingControls = false;
        LockControl(tvItems, false);
        building_ = false;
        return false;
      });
}

/// Adds a node for each item and selects that of the key, if there is one. The answer is the end of the
/// agenda: items that aren't shown and breaks take their time too.
std::string AgendaWizard::addNodes(const std::string& wantedKey) {
  std::int16_t clock = base::toInt16(static_cast<double>(-udStart.value()));
  AgendaNumbers numbers;
  std::string lastMainKey;
  for (const pugi::xml_node& item : agendaDoc.items()) {
    const std::int16_t duration = integer(item, "duration");
    const std::int16_t begin = clock;
    clock = base::add16(clock, duration);
    const std::string number = cbShowItemNumbers.value() ? numberPart(numbers, item, *this) : "";
    const std::string responsible = cbShowResponsible.value() ? attributeText(item, "responsible") : "";
    const std::string time =
        cbShowTimeSlots.value() && duration > 0 ? timeText(begin) + " - " + timeText(clock) : "";
    const std::string text = number + attributeText(item, "text") + detailPart(responsible, time);
    const std::string key = keyOf(attributeText(item, "slideID"));
    const std::int16_t level = integer(item, "level");
    if (level != 1 && level != 2) continue;
    tvItems.add(level == 2 ? lastMainKey : "", key, text);
    if (level == 1) lastMainKey = key;
    if (key == wantedKey) tvItems.select(key);
  }
  return timeText(clock);
}

void AgendaWizard::fillItem() {
  if (tvItems.root().children.empty()) {
    tbAgendaItem.text("");
    tbResponsible.text("");
    udDuration.value(-30);
    cbBreak.value(false);
    cbGenerateAgendaSlide.value(true);
    cbShowAgendaItem.value(true);
    enableAgendaItemControls(false);
    return;
  }
  const pugi::xml_node item = selectedItem();
  tbAgendaItem.text(attributeText(item, "text"));
  tbResponsible.text(attributeText(item, "responsible"));
  udDuration.value(-integer(item, "duration"));
  cbBreak.value(flag(item, "break"));
  cbGenerateAgendaSlide.value(flag(item, "generateAgendaSlide"));
  cbShowAgendaItem.value(flag(item, "showAgendaItem"));
  enableAgendaItemControls(true);
}

void AgendaWizard::enableAgendaItemControls(bool enabled) {
  trap("AgendaWizard, enableAgendaItemControls", [&] {
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &tbAgendaItem, &tbResponsible, &tbDuration, &udDuration, &cbBreak, &cbGenerateAgendaSlide,
             &cbShowAgendaItem, &btnLeft, &btnUp, &btnRight, &btnDown}) {
      control->enabled(enabled);
    }
  });
}

void AgendaWizard::tvItems_NodeClick() {
  trap("AgendaWizard, tvItems_NodeClick", [&] { xml2treeview(true, ""); });
}

/// The tree always shows all of its items.
void AgendaWizard::tvItems_Collapse(const std::string& key) {
  trap("AgendaWizard, tvItems_Collapse", [&] {
    LockControl(tvItems, true);
    tvItems.setExpanded(key, true);
    LockControl(tvItems, false);
  });
}

}  // namespace vellumark::agenda
