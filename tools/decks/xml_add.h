#pragma once
// Writing XML in one expression: add(parent, "a:off", {{"x", 10}, {"y", 20}}).

#include <initializer_list>
#include <pugixml.hpp>
#include <string>

namespace vellumark::decks {

struct XmlAttribute {
  XmlAttribute(const char* name, const std::string& value) : name(name), value(value) {}
  XmlAttribute(const char* name, const char* value) : name(name), value(value) {}
  XmlAttribute(const char* name, long long value) : name(name), value(std::to_string(value)) {}
  XmlAttribute(const char* name, int value) : name(name), value(std::to_string(value)) {}

  const char* name;
  std::string value;
};

/// A new last child of `parent`. Attributes with an empty value are left out.
inline pugi::xml_node add(pugi::xml_node parent, const char* name,
                          std::initializer_list<XmlAttribute> attributes = {}) {
  pugi::xml_node node = parent.append_child(name);
  for (const auto& attribute : attributes) {
    if (!attribute.value.empty()) node.append_attribute(attribute.name) = attribute.value.c_str();
  }
  return node;
}

/// New last children of `parent`, read from text; std::invalid_argument where that is not well-formed.
void addParsed(pugi::xml_node parent, const std::string& xml);

/// The whole document as text, with the XML declaration.
std::string xmlText(const pugi::xml_document& document);

}  // namespace vellumark::decks
