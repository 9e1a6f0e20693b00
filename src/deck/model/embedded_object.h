#pragma once
// Embedded and linked objects (OLE), and the pictures that stand for them.

#include <functional>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "deck/package/part.h"

namespace vellumark::deck {

/// Gives each object in a node that was copied from `sheet` its picture in the node itself, where it has it
/// in the drawing (VML) of that sheet, which doesn't go with the copy. `relate` answers the id by which the
/// copy refers to a picture.
void inlineObjectPictures(pugi::xml_node node, Part& sheet,
                          const std::function<std::string(const PartRef& picture)>& relate);

/// The pictures (p:pic) that stand for the object in a graphic frame, one in each branch for other programs.
std::vector<pugi::xml_node> objectPictures(pugi::xml_node frame);

}  // namespace vellumark::deck
