#pragma once
// Where the XML of a sheet refers to relationships.

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "deck/package/part.h"

namespace vellumark::deck {

/// One attribute of the relationships' namespace: r:id, r:embed, r:dm, ...
struct Reference {
  pugi::xml_node element;
  pugi::xml_attribute attribute;
};

/// All that stand in a node, those that are empty left out.
std::vector<Reference> referencesIn(pugi::xml_node node);

/// A diagram's drawing: the relationship of the sheet that leads to it is named by the diagram's data alone,
/// an r:dm. Its id; empty where the reference is another one, or the data name none that can be read.
std::string diagramDrawing(Part& sheet, const Reference& reference);
/// The element of a diagram's data that names it.
pugi::xml_node drawingExtension(pugi::xml_node data);

/// Takes out what refers to a relationship that is gone: links, tags, extensions and sounds as a whole, of
/// everything else the attribute alone. The nodes are freed; nothing else may hold them.
void dropReferences(pugi::xml_node node, std::string_view id);

}  // namespace vellumark::deck
