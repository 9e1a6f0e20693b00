#pragma once
// Makers of the model's objects, so that the units of the model know each other by these few functions only.

#include <vector>

#include "deck/model/host_state.h"

namespace vellumark::deck {

// Shapes and their text (shape.cpp and its neighbours).
host::ObjectRef makeShape(const HostRef& host, const ShapeKey& shape);
/// What a shape object stands for; nothing for one of another kind (a table's cell, another host's).
const ShapeKey* shapeKeyOf(const host::Object& object);
host::ObjectRef makeShapes(const HostRef& host, const Sheet& sheet);
host::ObjectRef makeShapeRange(const HostRef& host, std::vector<ShapeKey> shapes);
/// `length` UTF-16 units from `start` (from 1) of a shape's text.
host::ObjectRef makeTextRange(const HostRef& host, const ShapeKey& shape, std::int32_t start,
                              std::int32_t length);
/// The top-level shapes of a sheet, the one at the back first.
std::vector<ShapeKey> shapesOf(const Sheet& sheet);

// Presentations, slides, windows.
host::ObjectRef makePresentations(const HostRef& host);
host::ObjectRef makePresentation(const HostRef& host, const DocumentRef& document);
host::ObjectRef makeSlide(const HostRef& host, const Sheet& sheet);
host::ObjectRef makeSlides(const HostRef& host, const DocumentRef& document);
host::ObjectRef makeSlideRange(const HostRef& host, const DocumentRef& document,
                               std::vector<std::int32_t> ids);
host::ObjectRef makeWindows(const HostRef& host);
host::ObjectRef makeWindow(const HostRef& host, const WindowRef& window);
host::ObjectRef makeSelection(const HostRef& host, const WindowRef& window);
host::ObjectRef makeCommandBars(const HostRef& host);
host::ObjectRef makeComAddIns(const HostRef& host);

/// The tags whose list `owner` names by p:custDataLst: p:presentation or the p:nvPr of a shape.
host::ObjectRef makeTags(const HostRef& host, const DocumentRef& document, const PartRef& part,
                         pugi::xml_node owner);
/// Those of a sheet, which its p:cSld names.
host::ObjectRef makeTags(const HostRef& host, const Sheet& sheet);

/// Several objects as one: a member reads the common value, -2 (mixed) where they differ, objects again as
/// one; writes and calls go to all. `count` and `item` are the members Count and Item of the range itself.
host::ObjectRef makeGroup(std::string typeName, std::vector<host::ObjectRef> objects);

}  // namespace vellumark::deck
