#pragma once
// Where the XML of a sheet refers to relationships.

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::deck {

/// One attribute of the relationships' namespace: r:id, r:embed, r:dm, ...
struct Reference {
  pugi::xml_node element;
  pugi::xml_attribute attribute;
};

/// All that stand in a node, those that are empty left out.
std::vector<Reference> referencesIn(pugi::xml_node node);

/// Takes out what refers to a relationship that is gone: links, tags, extensions and sounds as a whole, of
/// everything else the attribute alone. The nodes are freed; nothing else may hold them.
void dropReferences(pugi::xml_node node, std::string_view id);

}  // namespace vellumark::deck
