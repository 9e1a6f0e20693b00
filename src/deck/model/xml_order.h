#pragma once
// Elements in the order that the schema wants.

#include <initializer_list>
#include <pugixml.hpp>

namespace vellumark::deck {

/// The child of that name; where it is missing it is made before the first child whose name is one of
/// `followers`, at the end where there is none of them.
pugi::xml_node childInOrder(pugi::xml_node parent, const char* name,
                            std::initializer_list<const char*> followers);

/// Sets an attribute, making it where it is missing.
template <typename T>
void setAttribute(pugi::xml_node node, const char* name, const T& value) {
  pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) attribute = node.append_attribute(name);
  attribute.set_value(value);
}

}  // namespace vellumark::deck
