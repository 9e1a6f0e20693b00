#include "deck/model/shape_actions.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "base/error.h"
#include "deck/model/references.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_timing.h"
#include "deck/model/table_cell.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

WindowRef windowShowing(const HostRef& host, const ShapeKey& shape) {
  WindowRef window = host->windowOf(shape.sheet.document);
  if (!window || !(window->sheet == shape.sheet) || window->viewType == host::ppViewSlideSorter) {
    base::raise(base::errors::invalidRequest,
                "Select: Invalid request. To select a shape, its view must be active.");
  }
  return window;
}

/// The ids of a shape, of its alternatives and of all that stands in it.
void appendIds(xml_node shape, std::set<std::int32_t>& ids) {
  for (xml_node node : withCounterparts(shape)) {
    if (const std::int32_t id = shapeId(node)) ids.insert(id);
    for (xml_node child : shapeNodes(node)) appendIds(child, ids);
  }
}

/// Takes the ends of connectors off shapes that are gone; the connectors stay where they are.
void disconnect(xml_node parent, const std::set<std::int32_t>& ids) {
  for (xml_node node : shapeNodes(parent)) {
    if (shapeElement(node) == ShapeElement::group) disconnect(node, ids);
    if (shapeElement(node) != ShapeElement::connector) continue;
    xml_node connections = kindProperties(node);
    for (const char* name : {"a:stCxn", "a:endCxn"}) {
      const xml_node connection = connections.child(name);
      if (connection && ids.contains(connection.attribute("id").as_int()))
        connections.remove_child(connection);
    }
  }
}

void bury(const Sheet& sheet, xml_node node) {
  std::vector<std::string> relationships;
  for (const Reference& reference : referencesIn(node)) {
    relationships.emplace_back(reference.attribute.value());
    if (std::string drawing = diagramDrawing(*sheet.part, reference); !drawing.empty()) {
      relationships.push_back(std::move(drawing));
    }
  }
  sheet.document->loosen(sheet.part, relationships);
  sheet.part->bury(node);
}

void buryWithEmptyGroups(const ShapeKey& shape) {
  xml_node group = parentGroup(shape.node);
  bury(shape.sheet, treeNode(shape.node));
  while (group && shapeNodes(group).empty()) {
    const xml_node outer = parentGroup(group);
    bury(shape.sheet, treeNode(group));
    group = outer;
  }
  fitGroups(shape.sheet, group);
}

}  // namespace

void selectShapes(const HostRef& host, const std::vector<ShapeKey>& shapes, bool replace) {
  if (shapes.empty()) base::raise(base::errors::invalidRequest);
  const WindowRef window = windowShowing(host, shapes.front());
  SelectionState selection;
  selection.type = host::ppSelectionShapes;
  if (!replace) selection.shapes = window->selection.shapes;
  std::unordered_set<std::size_t> selected;
  for (const ShapeKey& shape : selection.shapes) selected.insert(shape.node.hash_value());
  for (const ShapeKey& shape : shapes) {
    if (selected.insert(shape.node.hash_value()).second) selection.shapes.push_back(shape);
  }
  host->select(window, std::move(selection));
}

void selectText(const HostRef& host, const ShapeKey& shape, std::int32_t start, std::int32_t length) {
  const WindowRef window = windowShowing(host, shape);
  host->select(window, {.type = host::ppSelectionText,
                        .slides = {},
                        .shapes = {shape},
                        .textStart = start,
                        .textLength = length});
}

void selectCell(const HostRef& host, const ShapeKey& cell, bool replace) {
  const ShapeKey table{cell.sheet, tableOf(cell.node)};
  const WindowRef window = windowShowing(host, table);
  SelectionState selection;
  selection.type = host::ppSelectionShapes;
  selection.shapes = {table};
  if (!replace && window->selection.shapes == selection.shapes) selection.cells = window->selection.cells;
  selection.cells.push_back(cell);
  host->select(window, std::move(selection));
}

void deleteShapes(const HostRef& host, const std::vector<ShapeKey>& shapes) {
  std::set<std::int32_t> ids;
  Sheet sheet;
  for (const ShapeKey& shape : shapes) {
    if (shape.deleted()) continue;
    sheet = shape.sheet;
    appendIds(shape.node, ids);
    buryWithEmptyGroups(shape);
  }
  if (!sheet) return;
  disconnect(sheet.shapeTree(), ids);
  forgetAnimations(sheet, ids);
  sheet.touch();
  host->forgetDeleted();
}

std::int32_t zOrderPosition(const ShapeKey& shape) {
  const std::vector<xml_node> siblings = treeNodes(treeParent(shape.node));
  const auto place = std::ranges::find(siblings, treeNode(shape.node));
  return static_cast<std::int32_t>(place - siblings.begin()) + 1;
}

void changeZOrder(const std::vector<ShapeKey>& shapes, std::int32_t command) {
  if (command < host::msoBringToFront || command > host::msoSendBackward)
    base::raise(base::errors::outOfRange);
  std::vector<std::pair<std::int32_t, ShapeKey>> ordered;
  for (const ShapeKey& shape : shapes) ordered.emplace_back(zOrderPosition(shape), shape);
  std::ranges::sort(ordered, {}, &std::pair<std::int32_t, ShapeKey>::first);
  // The one that goes furthest goes first where all move by one place, last where all go to one end.
  if (command == host::msoSendToBack || command == host::msoBringForward) std::ranges::reverse(ordered);

  for (const auto& [position, shape] : ordered) {
    xml_node parent = treeParent(shape.node);
    const xml_node node = treeNode(shape.node);
    const std::vector<xml_node> siblings = treeNodes(parent);
    const auto place = std::ranges::find(siblings, node);
    if (place == siblings.end()) continue;
    const bool first = place == siblings.begin();
    const bool last = place + 1 == siblings.end();
    if (command == host::msoBringToFront && !last) parent.insert_move_after(node, siblings.back());
    if (command == host::msoSendToBack && !first) parent.insert_move_before(node, siblings.front());
    if (command == host::msoBringForward && !last) parent.insert_move_after(node, *(place + 1));
    if (command == host::msoSendBackward && !first) parent.insert_move_before(node, *(place - 1));
    shape.sheet.touch();
  }
}

}  // namespace vellumark::deck
