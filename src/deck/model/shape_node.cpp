#include "deck/model/shape_node.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

struct ElementNames {
  ShapeElement element;
  const char* node;
  const char* nonVisual;
  const char* kind;
};
constexpr std::array<ElementNames, 6> elementNames{{
    {ShapeElement::shape, "p:sp", "p:nvSpPr", "p:cNvSpPr"},
    {ShapeElement::picture, "p:pic", "p:nvPicPr", "p:cNvPicPr"},
    {ShapeElement::graphicFrame, "p:graphicFrame", "p:nvGraphicFramePr", "p:cNvGraphicFramePr"},
    {ShapeElement::connector, "p:cxnSp", "p:nvCxnSpPr", "p:cNvCxnSpPr"},
    {ShapeElement::group, "p:grpSp", "p:nvGrpSpPr", "p:cNvGrpSpPr"},
    // Its properties belong to a namespace of 2010 even where the element itself does not.
    {ShapeElement::contentPart, "p:contentPart", "p14:nvContentPartPr", "p14:cNvContentPartPr"},
}};

/// Namespaces of extensions that a current host shows. What needs any other one is shown by its fallback.
constexpr std::string_view knownExtensions[] = {
    "http://schemas.microsoft.com/office/drawing/2010/main",
    "http://schemas.microsoft.com/office/drawing/2010/slicer",
    "http://schemas.microsoft.com/office/drawing/2012/chart",
    "http://schemas.microsoft.com/office/drawing/2014/main",
    "http://schemas.microsoft.com/office/drawing/2014/chartex",
    "http://schemas.microsoft.com/office/drawing/2015/9/8/chartex",
    "http://schemas.microsoft.com/office/drawing/2015/10/21/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/9/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/10/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/11/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/12/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/13/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/5/14/chartex",
    "http://schemas.microsoft.com/office/drawing/2016/ink",
    "http://schemas.microsoft.com/office/drawing/2016/SVG/main",
    "http://schemas.microsoft.com/office/drawing/2017/model3d",
    "http://schemas.microsoft.com/office/powerpoint/2010/main",
    "http://schemas.microsoft.com/office/powerpoint/2012/main",
    "http://schemas.microsoft.com/office/powerpoint/2015/main",
    "http://schemas.microsoft.com/office/powerpoint/2015/09/main",
    "http://schemas.microsoft.com/office/powerpoint/2016/sectionzoom",
    "http://schemas.microsoft.com/office/powerpoint/2016/slidezoom",
    "http://schemas.microsoft.com/office/powerpoint/2016/summaryzoom",
    "http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas",
    "http://schemas.microsoft.com/office/word/2010/wordprocessingDrawing",
    "http://schemas.microsoft.com/office/word/2010/wordprocessingGroup",
    "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
};

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }
bool isAlternate(xml_node node) { return isNamed(node, "mc:AlternateContent"); }
bool isBranch(xml_node node) { return isNamed(node, "mc:Choice") || isNamed(node, "mc:Fallback"); }

std::string_view namespaceOf(xml_node node, std::string_view prefix) {
  const std::string declaration = "xmlns:" + std::string(prefix);
  for (; node; node = node.parent()) {
    if (const pugi::xml_attribute found = node.attribute(declaration.c_str())) return found.value();
  }
  return {};
}

bool understood(xml_node choice) {
  std::string_view needed = choice.attribute("Requires").value();
  constexpr std::string_view blanks = " \t\r\n";
  for (;;) {
    const std::size_t begin = needed.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return true;
    needed.remove_prefix(begin);
    const std::size_t length = std::min(needed.find_first_of(blanks), needed.size());
    const std::string_view uri = namespaceOf(choice, needed.substr(0, length));
    if (std::ranges::find(knownExtensions, uri) == std::end(knownExtensions)) return false;
    needed.remove_prefix(length);
  }
}

void appendShapes(xml_node parent, std::vector<xml_node>& shapes);

void appendShownBranch(xml_node alternate, std::vector<xml_node>& shapes) {
  const std::size_t before = shapes.size();
  for (xml_node branch : alternate.children()) {
    if (isNamed(branch, "mc:Choice") && !understood(branch)) continue;
    if (isBranch(branch)) appendShapes(branch, shapes);
    if (shapes.size() != before) return;
  }
}

void appendShapes(xml_node parent, std::vector<xml_node>& shapes) {
  for (xml_node child = parent.first_child(); child; child = child.next_sibling()) {
    if (shapeElement(child) != ShapeElement::none) {
      shapes.push_back(child);
    } else if (isAlternate(child)) {
      appendShownBranch(child, shapes);
    }
  }
}

const ElementNames& namesOf(xml_node shape) {
  const ShapeElement element = shapeElement(shape);
  return *std::ranges::find(elementNames, element, &ElementNames::element);
}

/// The child p:NAME; in content parts it has another prefix.
xml_node presentationChild(xml_node parent, const char* name) {
  if (xml_node found = parent.child(name)) return found;
  const std::string_view wanted = std::string_view(name).substr(2);
  return parent.find_child([wanted](xml_node child) { return localName(child) == wanted; });
}

xml_node nonVisual(xml_node shape) {
  if (shapeElement(shape) == ShapeElement::none) return {};  // a table's cell
  if (xml_node found = shape.child(namesOf(shape).nonVisual)) return found;
  return shape.find_child([](xml_node child) {
    const std::string_view name = localName(child);
    return name.starts_with("nv") && name.ends_with("Pr");
  });
}

xml_node requireNonVisual(xml_node shape) {
  if (xml_node existing = nonVisual(shape)) return existing;
  const ElementNames& names = namesOf(shape);
  xml_node made = shape.prepend_child(names.nonVisual);
  const bool contentPart = names.element == ShapeElement::contentPart;
  made.append_child(contentPart ? "p14:cNvPr" : "p:cNvPr");
  made.append_child(names.kind);
  made.append_child(contentPart ? "p14:nvPr" : "p:nvPr");
  return made;
}

/// The ids of all shapes in a tree, group or alternative; branches that are not shown count too.
void appendIds(xml_node parent, std::vector<std::int32_t>& ids) {
  for (xml_node child = parent.first_child(); child; child = child.next_sibling()) {
    const ShapeElement element = shapeElement(child);
    if (element != ShapeElement::none) ids.push_back(shapeId(child));
    if (element == ShapeElement::group || isAlternate(child) || isBranch(child)) appendIds(child, ids);
  }
}

}  // namespace

std::string_view localName(xml_node node) {
  const std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

ShapeElement shapeElement(xml_node node) {
  const std::string_view name = node.name();
  if (name.size() < 4 || name[0] != 'p') return ShapeElement::none;
  for (const ElementNames& names : elementNames) {
    if (name == names.node) return names.element;
  }
  return name == "p14:contentPart" ? ShapeElement::contentPart : ShapeElement::none;
}

std::vector<xml_node> shapeNodes(xml_node parent) {
  std::vector<xml_node> shapes;
  appendShapes(parent, shapes);
  return shapes;
}

xml_node treeNode(xml_node shape) {
  xml_node node = shape;
  while (isBranch(node.parent()) && shapeNodes(node.parent()).size() == 1) node = node.parent().parent();
  return node;
}

std::vector<xml_node> treeNodes(xml_node parent) {
  std::vector<xml_node> nodes;
  for (xml_node child : parent.children()) {
    if (shapeElement(child) != ShapeElement::none) {
      nodes.push_back(child);
    } else if (isAlternate(child)) {
      std::vector<xml_node> shown;
      appendShownBranch(child, shown);
      if (!shown.empty()) nodes.push_back(child);
    }
  }
  return nodes;
}

xml_node treeParent(xml_node node) {
  xml_node parent = node.parent();
  // Asked for before each read of a frame, so one letter decides where it can.
  while (*parent.name() == 'm' && (isBranch(parent) || isAlternate(parent))) parent = parent.parent();
  return parent;
}

xml_node parentGroup(xml_node shape) {
  const xml_node parent = treeParent(shape);
  return isNamed(parent, "p:grpSp") ? parent : xml_node();
}

void appendLeaves(xml_node group, std::vector<xml_node>& leaves) {
  for (xml_node child : shapeNodes(group)) {
    if (shapeElement(child) == ShapeElement::group) {
      appendLeaves(child, leaves);
    } else {
      leaves.push_back(child);
    }
  }
}

std::vector<xml_node> withCounterparts(xml_node shape) {
  std::vector<xml_node> all{shape};
  // Only where each branch holds one shape is it certain which of them belong together.
  xml_node branch = shape.parent();
  while (isBranch(branch) && shapeNodes(branch).size() == 1) {
    for (xml_node other : branch.parent().children()) {
      if (other == branch || !isBranch(other)) continue;
      const std::vector<xml_node> shapes = shapeNodes(other);
      if (shapes.size() == 1) all.push_back(shapes.front());
    }
    branch = branch.parent().parent();
  }
  return all;
}

xml_node drawingProperties(xml_node shape) { return presentationChild(nonVisual(shape), "p:cNvPr"); }
xml_node applicationProperties(xml_node shape) { return presentationChild(nonVisual(shape), "p:nvPr"); }

xml_node kindProperties(xml_node shape) {
  const xml_node holder = nonVisual(shape);
  if (xml_node found = holder.child(namesOf(shape).kind)) return found;
  return holder.find_child([](xml_node child) {
    const std::string_view name = localName(child);
    return name.starts_with("cNv") && name != "cNvPr";
  });
}

xml_node requireDrawingProperties(xml_node shape) {
  xml_node holder = requireNonVisual(shape);
  if (xml_node existing = drawingProperties(shape)) return existing;
  return holder.prepend_child(shapeElement(shape) == ShapeElement::contentPart ? "p14:cNvPr" : "p:cNvPr");
}

xml_node requireApplicationProperties(xml_node shape) {
  if (xml_node existing = applicationProperties(shape)) return existing;
  const bool contentPart = shapeElement(shape) == ShapeElement::contentPart;
  return childInOrder(requireNonVisual(shape), contentPart ? "p14:nvPr" : "p:nvPr", {"p14:extLst"});
}

xml_node visualProperties(xml_node shape) {
  return shape.child(shapeElement(shape) == ShapeElement::group ? "p:grpSpPr" : "p:spPr");
}

xml_node requireVisualProperties(xml_node shape) {
  if (xml_node existing = visualProperties(shape)) return existing;
  const char* name = shapeElement(shape) == ShapeElement::group ? "p:grpSpPr" : "p:spPr";
  xml_node before = shape.child("p:blipFill");
  if (!before) before = nonVisual(shape);
  return before ? shape.insert_child_after(name, before) : shape.prepend_child(name);
}

std::string_view graphicUri(xml_node shape) {
  return shape.child("a:graphic").child("a:graphicData").attribute("uri").value();
}

std::int32_t shapeId(xml_node shape) {
  return static_cast<std::int32_t>(
      wholeNumber(drawingProperties(shape).attribute("id"), 0, std::numeric_limits<std::int32_t>::max()));
}

std::int32_t freeShapeId(const Sheet& sheet) {
  std::vector<std::int32_t> taken{1};  // the shape tree's own
  appendIds(sheet.shapeTree(), taken);
  const std::int32_t highest = std::ranges::max(taken);
  if (highest < std::numeric_limits<std::int32_t>::max()) return highest + 1;
  std::ranges::sort(taken);
  std::int32_t id = 2;
  while (std::ranges::binary_search(taken, id)) ++id;
  return id;
}

std::int64_t wholeNumber(pugi::xml_attribute attribute, std::int64_t lowest, std::int64_t highest,
                         std::int64_t otherwise) {
  const char* text = attribute.value();
  while (*text == ' ' || *text == '\t' || *text == '\r' || *text == '\n') ++text;
  const bool negative = *text == '-';
  if (negative || *text == '+') ++text;
  if (*text < '0' || *text > '9') return otherwise;
  constexpr std::int64_t enough = 100'000'000'000'000'000;  // far beyond every range, and no digit overflows
  std::int64_t number = 0;
  for (; *text >= '0' && *text <= '9'; ++text) {
    if (number < enough) number = number * 10 + (*text - '0');
  }
  return std::clamp(negative ? -number : number, lowest, highest);
}

double shareOf(pugi::xml_attribute attribute, double otherwise) {
  constexpr std::int64_t unit = 100'000;
  return attribute ? static_cast<double>(wholeNumber(attribute, -100 * unit, 100 * unit)) / unit : otherwise;
}

}  // namespace vellumark::deck
