#include "deck/model/shape_copier.h"

#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

#include "deck/model/embedded_object.h"
#include "deck/model/references.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_styles.h"
#include "deck/model/xml_order.h"
#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }

/// Gives shapes new ids, and the connectors among them the new ids of what they connect.
class Renumbering {
 public:
  explicit Renumbering(const Sheet& sheet) : sheet_(sheet), next_(freeShapeId(sheet)) {}

  /// `node` is a shape, or the mc:AlternateContent that stands for one.
  void number(xml_node node, bool fallback = false) {
    if (shapeElement(node) != ShapeElement::none) give(node, fallback);
    if (shapeElement(node) == ShapeElement::graphicFrame) numberPictures(node);
    const bool container = shapeElement(node) == ShapeElement::group ||
                           isNamed(node, "mc:AlternateContent") || isNamed(node, "mc:Choice") ||
                           isNamed(node, "mc:Fallback");
    if (!container) return;
    for (xml_node child : node.children()) number(child, fallback || isNamed(node, "mc:Fallback"));
  }

  void reconnect(xml_node node) const {
    for (const char* name : {"a:stCxn", "a:endCxn"}) {
      const xml_node end = node.child(name);
      if (!end) continue;
      if (const auto found = ids_.find(end.attribute("id").as_int()); found != ids_.end()) {
        setAttribute(end, "id", found->second);
      } else {
        node.remove_child(end);
      }
    }
    for (xml_node child : node.children()) reconnect(child);
  }

 private:
  /// The branches of an alternative show one shape, so it has one id in all of them.
  void give(xml_node shape, bool fallback) {
    const std::int32_t old = shapeId(shape);
    const auto known = ids_.find(old);
    const std::int32_t id = fallback && known != ids_.end() ? known->second : fresh();
    ids_.emplace(old, id);
    setAttribute(requireDrawingProperties(shape), "id", id);
  }
  /// The pictures that stand for embedded objects have ids too, though they are no shapes.
  void numberPictures(xml_node node) {
    for (xml_node child : node.children()) {
      if (shapeElement(child) == ShapeElement::picture) {
        setAttribute(requireDrawingProperties(child), "id", fresh());
      } else {
        numberPictures(child);
      }
    }
  }
  std::int32_t fresh() {
    if (next_ == std::numeric_limits<std::int32_t>::max()) return freeShapeId(sheet_);
    return next_++;
  }

  const Sheet& sheet_;
  std::int32_t next_;
  std::map<std::int32_t, std::int32_t> ids_;
};

class ShapeCopy {
 public:
  ShapeCopy(Part& from, const Sheet& target, PartCopier& copier)
      : from_(from), target_(target), copier_(copier) {}

  /// Brings what a copied node refers to onto the target sheet.
  void relate(xml_node copy) {
    for (const Reference& reference : referencesIn(copy)) {
      const std::string id = reference.attribute.value();
      if (made_.contains(id)) continue;
      const Relationship* relationship = from_.relationship(id);
      made_[id] = relationship ? copier_.relate(from_, *relationship, *target_.part) : std::string();
    }
    for (const auto& [id, made] : made_) {
      if (made.empty()) dropReferences(copy, id);
    }
    for (Reference reference : referencesIn(copy)) {
      const std::string id = reference.attribute.value();
      reference.attribute.set_value(made_.at(id).c_str());
      if (std::string_view(reference.attribute.name()) == "r:dm") relateDrawing(id);
    }
    inlineObjectPictures(copy, from_, [this](const PartRef& picture) {
      return target_.part->relate(*copier_.copy(picture), "image");
    });
  }

 private:
  void relateDrawing(const std::string& dataId) {
    const Relationship* data = from_.relationship(dataId);
    const PartRef source = data ? from_.target(*data) : nullptr;
    const PartRef copy = source ? copier_.copy(source) : nullptr;
    if (!copy || copy == source) return;
    const std::string id = drawingExtension(source->root()).attribute("relId").value();
    const Relationship* drawing = from_.relationship(id);
    const std::string made = drawing ? copier_.relate(from_, *drawing, *target_.part) : std::string();
    xml_node extension = drawingExtension(copy->root());
    if (made.empty() || !extension) return;
    setAttribute(extension, "relId", made.c_str());
    target_.document->touch(*copy);
  }

  Part& from_;
  const Sheet& target_;
  PartCopier& copier_;
  std::map<std::string, std::string> made_;  ///< ids on the target by those of the source, empty for none
};

void appendOrder(xml_node parent, std::vector<xml_node>& order) {
  for (xml_node node : shapeNodes(parent)) {
    order.push_back(node);
    if (shapeElement(node) == ShapeElement::group) appendOrder(node, order);
  }
}

}  // namespace

std::vector<ShapeKey> inZOrder(const std::vector<ShapeKey>& shapes) {
  if (shapes.empty()) return {};
  std::unordered_set<std::size_t> wanted;
  for (const ShapeKey& shape : shapes) wanted.insert(shape.node.hash_value());
  const auto chosen = [&](xml_node node) { return wanted.contains(node.hash_value()); };
  std::vector<xml_node> order;
  appendOrder(shapes.front().sheet.shapeTree(), order);
  std::vector<ShapeKey> sorted;
  for (const xml_node node : order) {
    bool within = false;
    for (xml_node group = parentGroup(node); group; group = parentGroup(group))
      within = within || chosen(group);
    if (chosen(node) && !within) sorted.push_back({shapes.front().sheet, node});
  }
  return sorted;
}

std::vector<ShapeKey> copyShapes(const std::vector<ShapeKey>& shapes, const Sheet& target,
                                 PartCopier& copier) {
  std::vector<ShapeKey> copies;
  if (shapes.empty()) return copies;
  const Sheet& source = shapes.front().sheet;
  xml_node tree = target.shapeTree();
  const bool strict = target.document->package().isStrict();
  Renumbering numbers(target);
  ShapeCopy related(*source.part, target, copier);

  std::vector<xml_node> nodes;
  try {
    for (const ShapeKey& shape : shapes) {
      const xml_node original = treeNode(shape.node);
      nodes.push_back(copyElement(original, tree, tree.child("p:extLst"), strict));
      related.relate(nodes.back());
      numbers.number(nodes.back());
      bringTableStyles(original, *source.document, *target.document);
    }
  } catch (const FormatError&) {
    // A part that can't be read: the sheet is as before.
    for (const xml_node node : nodes) tree.remove_child(node);
    throw;
  }
  std::map<xml_node, xml_node> shown;
  for (const xml_node shape : shapeNodes(tree)) shown.emplace(treeNode(shape), shape);
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    numbers.reconnect(nodes[i]);
    copies.push_back({target, shown.at(nodes[i])});
    if (parentGroup(shapes[i].node)) setSlideFrame(copies.back(), slideFrame(shapes[i]));
  }
  target.touch();
  return copies;
}

}  // namespace vellumark::deck
