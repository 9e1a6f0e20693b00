#pragma once
// An agenda as one XML document: what the user typed, the switches and the whole look of the agenda slides.
//
// Vellumark/agenda holds switches, title and start time as attributes, below it the look (format, subtitle,
// styles) and the flat list of items, whose levels are an attribute alone. The order of elements is free.
// Nothing here has a trap: what is missing raises 91, and the dialog's procedures report it.

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace vellumark::agenda {

class AgendaDocument {
 public:
  /// Takes the document from its text or from a file. False, and the document is empty, where it is no
  /// well-formed document or nested deeper than an agenda ever is.
  bool parse(const std::string& xmlText);
  bool load(const std::string& path);
  void clear() { document_.reset(); }
  bool empty() const { return !document_.document_element(); }

  /// The document as one line of XML; 91 where it is empty.
  std::string text() const;

  // Elements. 91 where there is no document, or none of the name.
  pugi::xml_node agenda() const;
  pugi::xml_node format() const;
  /// The list of items, not the items.
  pugi::xml_node itemList() const;

  // Elements that may be missing.
  pugi::xml_node subtitle() const;
  /// The look of a row.
  pugi::xml_node style(std::int16_t level, std::int16_t selected, std::int16_t isBreak) const;
  /// The item with that id.
  pugi::xml_node item(const std::string& slideID) const;
  std::vector<pugi::xml_node> items() const;

  /// The string values of what an expression selects.
  std::vector<std::string> values(const std::string& xpath) const;
  /// Whether an expression selects anything.
  bool has(const std::string& xpath) const;

  /// Takes the look from a template; what the agenda says stays. 91 where the template has no subtitle, when
  /// its format is taken over already.
  void applyStyle(const AgendaDocument& look);

 private:
  const pugi::xml_document& loaded() const;
  bool keepIfSensible(bool wellFormed);

  pugi::xml_document document_;
};

// Attributes, all of them texts; 91 where one is missing.

/// A whole number of 16 bits, rounded; 13 and 6 where it is none.
std::int16_t integer(const pugi::xml_node& element, const char* attribute);
/// A number with a decimal point whatever the locale; what follows the number is passed over.
double number(const pugi::xml_node& element, const char* attribute);
/// A flag, "0" or "1".
bool flag(const pugi::xml_node& element, const char* attribute);
/// A flag that may be missing, which means 0.
bool optionalFlag(const pugi::xml_node& element, const char* attribute);
/// Sets an attribute, at the end where it is new; 91 where there is no element.
void set(const pugi::xml_node& element, const char* attribute, const std::string& value);
void set(const pugi::xml_node& element, const char* attribute, std::int32_t value);
inline void set(const pugi::xml_node& element, const char* attribute, bool value) {
  set(element, attribute, std::int32_t{value ? 1 : 0});
}

}  // namespace vellumark::agenda
