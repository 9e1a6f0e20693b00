#pragma once
// Elements copied from one document into another.

#include <pugixml.hpp>
#include <string_view>

namespace vellumark::deck {

/// The namespace that a prefix ("" for none) stands for at a node; empty where it stands for none.
std::string_view namespaceAt(pugi::xml_node node, std::string_view prefix);

/// Takes an mc:AlternateContent away around the element of that name in its first choice. What the choice
/// requires becomes something that a program may ignore. The element; nothing where the choice has none.
pugi::xml_node unwrapChoice(pugi::xml_node alternative, const char* name, bool strict);

/// Copies `source` under `parent`, before `before` or at the end. The copy declares the namespaces that it
/// uses and that mean something else in its new place, in the family (strict or not) of that place; prefixes
/// that programs may ignore stay such.
pugi::xml_node copyElement(pugi::xml_node source, pugi::xml_node parent, pugi::xml_node before, bool strict);

}  // namespace vellumark::deck
