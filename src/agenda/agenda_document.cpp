#include "agenda/agenda_document.h"

#include "base/conversions.h"
#include "base/error.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::attributeText;

constexpr const char* agendaPath = "/Vellumark/agenda";
constexpr const char* formatPath = "/Vellumark/agenda/format";
constexpr const char* subtitlePath = "/Vellumark/agenda/subtitle";
constexpr const char* itemListPath = "/Vellumark/agenda/items";
constexpr const char* itemPath = "/Vellumark/agenda/items/item";

/// An agenda has seven levels. Deeper documents are refused, because removing a subtree takes a stack frame
/// for each of its levels.
constexpr int deepest = 64;

bool isTooDeep(pugi::xml_document& document) {
  struct Walker : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node&) override { return depth() <= deepest; }
  };
  Walker walker;
  return !document.traverse(walker);
}

pugi::xml_node required(const pugi::xml_node& node) {
  if (!node) base::raise(base::errors::objectNotSet);
  return node;
}

/// Puts a copy of the template's child of that name in the place of the agenda's.
void replaceChild(pugi::xml_node agenda, const char* name, const pugi::xml_node& look) {
  const pugi::xml_node old = required(agenda.child(name));
  agenda.insert_copy_before(required(look.child(name)), old);
  agenda.remove_child(old);
}

}  // namespace

bool AgendaDocument::keepIfSensible(bool wellFormed) {
  if (wellFormed && !isTooDeep(document_)) return true;
  clear();
  return false;
}

bool AgendaDocument::parse(const std::string& xmlText) {
  return keepIfSensible(core::parseXml(document_, xmlText));
}

bool AgendaDocument::load(const std::string& path) { return keepIfSensible(core::loadXml(document_, path)); }

const pugi::xml_document& AgendaDocument::loaded() const {
  if (empty()) base::raise(base::errors::objectNotSet);
  return document_;
}

std::string AgendaDocument::text() const { return core::xmlText(loaded()); }

pugi::xml_node AgendaDocument::agenda() const {
  return required(core::selectSingleNode(loaded(), agendaPath).node());
}

pugi::xml_node AgendaDocument::format() const {
  return required(core::selectSingleNode(loaded(), formatPath).node());
}

pugi::xml_node AgendaDocument::itemList() const {
  return required(core::selectSingleNode(loaded(), itemListPath).node());
}

pugi::xml_node AgendaDocument::subtitle() const {
  return core::selectSingleNode(loaded(), subtitlePath).node();
}

pugi::xml_node AgendaDocument::style(std::int16_t level, std::int16_t selected, std::int16_t isBreak) const {
  return core::selectSingleNode(loaded(), "/Vellumark/agenda/styles/style[@level='" + std::to_string(level) +
                                              "' and @selected='" + std::to_string(selected) +
                                              "' and @break='" + std::to_string(isBreak) + "']")
      .node();
}

pugi::xml_node AgendaDocument::item(const std::string& slideID) const {
  return core::selectSingleNode(loaded(), std::string(itemPath) + "[@slideID='" + slideID + "']").node();
}

std::vector<pugi::xml_node> AgendaDocument::items() const {
  std::vector<pugi::xml_node> items;
  for (const pugi::xpath_node& found : core::selectNodes(loaded(), itemPath)) items.push_back(found.node());
  return items;
}

std::vector<std::string> AgendaDocument::values(const std::string& xpath) const {
  std::vector<std::string> values;
  for (const pugi::xpath_node& found : core::selectNodes(loaded(), xpath)) {
    values.emplace_back(found.attribute() ? found.attribute().value() : found.node().text().get());
  }
  return values;
}

bool AgendaDocument::has(const std::string& xpath) const {
  return static_cast<bool>(core::selectSingleNode(loaded(), xpath));
}

void AgendaDocument::applyStyle(const AgendaDocument& look) {
  pugi::xml_node own = agenda();
  const pugi::xml_node from = look.agenda();
  replaceChild(own, "format", from);
  if (own.child("subtitle")) {
    replaceChild(own, "subtitle", from);
  } else {
    own.append_copy(required(from.child("subtitle")));
  }
  replaceChild(own, "styles", from);
}

std::int16_t integer(const pugi::xml_node& element, const char* attribute) {
  return base::toInt16(attributeText(element, attribute));
}

double number(const pugi::xml_node& element, const char* attribute) {
  return base::val(attributeText(element, attribute));
}

bool flag(const pugi::xml_node& element, const char* attribute) { return integer(element, attribute) != 0; }

bool optionalFlag(const pugi::xml_node& element, const char* attribute) {
  return element.attribute(attribute) && flag(element, attribute);
}

void set(const pugi::xml_node& element, const char* attribute, const std::string& value) {
  pugi::xml_node target = required(element);
  pugi::xml_attribute place = target.attribute(attribute);
  if (!place) place = target.append_attribute(attribute);
  place.set_value(value.c_str());
}

void set(const pugi::xml_node& element, const char* attribute, std::int32_t value) {
  set(element, attribute, std::to_string(value));
}

}  // namespace vellumark::agenda
