#include "deck/model/sheet_index.h"

#include "base/text.h"
#include "deck/model/shape_node.h"

namespace vellumark::deck {

using pugi::xml_node;

std::shared_ptr<SheetIndex> SheetIndex::of(const Sheet& sheet) {
  return sheet.part->kept<SheetIndex>([&] { return std::make_shared<SheetIndex>(sheet.shapeTree()); });
}

SheetIndex::SheetIndex(xml_node tree) : tree_(tree), shapes_(shapeNodes(tree)) {}

const std::vector<xml_node>& SheetIndex::leaves(xml_node group) {
  const auto [place, isNew] = leaves_.try_emplace(group.hash_value());
  if (isNew) appendLeaves(group, place->second);
  return place->second;
}

xml_node SheetIndex::named(const std::string& name) {
  if (names_.empty()) {
    for (const xml_node shape : shapes_) {
      const std::string own = drawingProperties(shape).attribute("name").value();
      names_.emplace(own, shape);
      namesInAnyCase_.emplace(base::toLower(own), shape);
    }
  }
  if (const auto found = names_.find(name); found != names_.end()) return found->second;
  const auto found = namesInAnyCase_.find(base::toLower(name));
  return found == namesInAnyCase_.end() ? xml_node() : found->second;
}

xml_node SheetIndex::withId(std::int32_t id) {
  walk();
  const auto found = ids_.find(id);
  return id == 0 || found == ids_.end() ? xml_node() : found->second;
}

const std::map<std::size_t, xml_node>& SheetIndex::gluedTo(std::int32_t id) {
  static const std::map<std::size_t, xml_node> none;
  walk();
  const auto found = glue_.find(id);
  return found == glue_.end() ? none : found->second;
}

bool SheetIndex::hasGlue() {
  walk();
  return !glue_.empty();
}

void SheetIndex::walk() {
  if (!walked_) visit(tree_);
  walked_ = true;
}

void SheetIndex::visit(xml_node parent) {
  for (const xml_node shape : shapeNodes(parent)) {
    ids_.emplace(shapeId(shape), shape);
    const ShapeElement element = shapeElement(shape);
    if (element == ShapeElement::group) visit(shape);
    if (element != ShapeElement::connector) continue;
    for (const char* end : connectorEnds) {
      if (const std::int32_t id = gluedId(shape, end)) glue_[id].emplace(connectors_, shape);
    }
    ++connectors_;
  }
}

std::int32_t gluedId(xml_node connector, const char* end) {
  return kindProperties(connector).child(end).attribute("id").as_int();
}

}  // namespace vellumark::deck
