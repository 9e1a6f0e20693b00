#include "deck/model/placeholder_paste.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>

#include "deck/model/color.h"
#include "deck/model/placeholder.h"
#include "deck/model/references.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_style.h"
#include "deck/model/text_style.h"
#include "deck/model/xml_order.h"
#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;
using Names = std::initializer_list<const char*>;

std::string_view typeOf(xml_node element) { return element.attribute("type").as_string("obj"); }

bool takesAnyText(std::string_view type) { return type == "obj" || type == "body" || type == "subTitle"; }

/// How well a placeholder of a layout suits one that looks for a place; 0 not at all.
int suits(xml_node place, xml_node wanted, bool text) {
  const std::string_view type = typeOf(wanted), offered = typeOf(place);
  const bool sameIndex = place.attribute("idx").as_int() == wanted.attribute("idx").as_int();
  if (type == offered) return sameIndex ? 4 : 3;
  const bool title = placeholderFamily(wanted) == PlaceholderFamily::title &&
                     placeholderFamily(place) == PlaceholderFamily::title;
  if (title) return 2;
  const bool alike = text ? takesAnyText(type) && takesAnyText(offered) : offered == "obj";
  return alike ? (sameIndex ? 2 : 1) : 0;
}

/// p:ph of the layout's free placeholder that suits best; nothing where there is none.
xml_node freePlace(const Sheet& slide, xml_node wanted, bool text) {
  const Sheet layout = slide.parent();
  if (!layout) return {};
  std::set<xml_node> taken;
  for (const xml_node shape : shapeNodes(slide.shapeTree())) {
    if (const ShapeKey place = inheritedPlaceholder({slide, shape}); place.node) taken.insert(place.node);
  }
  xml_node best;
  int bestRank = 0;
  for (const xml_node candidate : shapeNodes(layout.shapeTree())) {
    const xml_node element = placeholderElement(candidate);
    if (!element || taken.contains(candidate)) continue;
    if (const int rank = suits(element, wanted, text); rank > bestRank) {
      best = element;
      bestRank = rank;
    }
  }
  return best;
}

bool isSlide(const Sheet& sheet) { return sheet.part->contentType().ends_with(".slide+xml"); }

/// Groups of elements of which one excludes the others, in the order of the schema.
constexpr Names fills = fillNames;
constexpr Names effects = {"a:effectLst", "a:effectDag"};

/// What an element may hold: one group of alternatives after the other.
using Schema = std::initializer_list<Names>;

/// The first child that is one of these.
xml_node childOf(xml_node parent, const Names& names) {
  return parent.find_child([&](xml_node child) {
    return std::ranges::any_of(names,
                               [&](const char* name) { return std::string_view(child.name()) == name; });
  });
}

/// Copies the children of `source` whose group `target` has none of to their places, but for those that need
/// a relationship of the sheet that they come from, and for groups that are left out.
void inheritChildren(
    xml_node target, xml_node source, Schema schema, bool strict,
    const std::function<bool(const Names& group)>& leavesOut = [](const Names&) { return false; }) {
  for (auto group = schema.begin(); group != schema.end(); ++group) {
    if (leavesOut(*group)) continue;
    const xml_node missing = childOf(source, *group);
    if (!missing || childOf(target, *group) || !referencesIn(missing).empty()) continue;
    xml_node before;
    for (auto next = group + 1; next != schema.end() && !before; ++next) before = childOf(target, *next);
    if (!before) before = target.child("a:extLst");
    copyElement(missing, target, before, strict);
  }
}

void inheritAttributes(xml_node target, xml_node source) {
  for (const pugi::xml_attribute attribute : source.attributes()) {
    const std::string_view name = attribute.name();
    if (name.starts_with("xmlns") || name.find(':') != std::string_view::npos) continue;
    if (!target.attribute(attribute.name()))
      target.append_attribute(attribute.name()).set_value(attribute.value());
  }
}

void inheritRunFormat(xml_node target, xml_node source, bool strict) {
  inheritAttributes(target, source);
  inheritChildren(target, source,
                  {{"a:ln"},
                   fills,
                   effects,
                   {"a:highlight"},
                   {"a:uLnTx", "a:uLn"},
                   {"a:uFillTx", "a:uFill"},
                   {"a:latin"},
                   {"a:ea"},
                   {"a:cs"},
                   {"a:sym"}},
                  strict);
}

void inheritLevel(xml_node target, xml_node source, bool strict) {
  inheritAttributes(target, source);
  inheritChildren(target, source,
                  {{"a:lnSpc"},
                   {"a:spcBef"},
                   {"a:spcAft"},
                   {"a:buClrTx", "a:buClr"},
                   {"a:buSzTx", "a:buSzPct", "a:buSzPts"},
                   {"a:buFontTx", "a:buFont"},
                   {"a:buNone", "a:buAutoNum", "a:buChar", "a:buBlip"},
                   {"a:tabLst"},
                   {"a:defRPr"}},
                  strict);
  if (const xml_node format = source.child("a:defRPr"))
    inheritRunFormat(target.child("a:defRPr"), format, strict);
}

/// Writes the text formats that a placeholder inherits into its copy, for the levels that its text has.
void inheritText(const ShapeKey& copy, const ShapeKey& source, bool strict) {
  xml_node body = copy.node.child("p:txBody");
  if (!body) return;
  xml_node properties = childInOrder(body, "a:bodyPr", {"a:lstStyle", "a:p"});
  std::set<int> levels{1};
  for (const xml_node paragraph : body.children("a:p")) levels.insert(paragraphLevel(paragraph));
  xml_node list = childInOrder(body, "a:lstStyle", {"a:p"});
  for (const int level : levels) {
    const std::string name = "a:lvl" + std::to_string(level) + "pPr";
    xml_node own = list.child(name.c_str());
    if (!own) {
      xml_node before = list.child("a:extLst");
      for (int next = 9; next > level; --next) {
        if (const xml_node later = list.child(("a:lvl" + std::to_string(next) + "pPr").c_str()))
          before = later;
      }
      own = before ? list.insert_child_before(name.c_str(), before) : list.append_child(name.c_str());
    }
    // The colour that the shape's style gives its text holds where the shape says no other.
    const bool keepsColor =
        colorElement(source.node.child("p:style").child("a:fontRef")) && !fillElement(own.child("a:defRPr"));
    const LevelStyles styles(source, level);
    for (const xml_node style : styles.all()) inheritLevel(own, style, strict);
    if (keepsColor) own.child("a:defRPr").remove_child(fillElement(own.child("a:defRPr")));
  }
  for (ShapeKey holder = inheritedPlaceholder(source); holder.node; holder = inheritedPlaceholder(holder)) {
    const xml_node inherited = textBodyOf(holder.node).child("a:bodyPr");
    inheritAttributes(properties, inherited);
    inheritChildren(properties, inherited,
                    {{"a:prstTxWarp"},
                     {"a:noAutofit", "a:normAutofit", "a:spAutoFit"},
                     {"a:scene3d"},
                     {"a:sp3d", "a:flatTx"}},
                    strict);
  }
}

/// Writes outline, fill, line and effects that a placeholder inherits into its copy.
void inheritLook(const ShapeKey& copy, const ShapeKey& source, bool strict) {
  if (shapeElement(copy.node) == ShapeElement::graphicFrame) return;
  xml_node properties = requireVisualProperties(copy.node);
  // What the shape's own style says stands before what it inherits.
  const auto isStyled = [own = copy.node](const Names& group) {
    const std::string_view first = *group.begin();
    return (first == "a:noFill" && styleReference(own, "a:fillRef")) ||
           (first == "a:ln" && styleReference(own, "a:lnRef")) ||
           (first == "a:effectLst" && styleReference(own, "a:effectRef"));
  };
  for (ShapeKey holder = inheritedPlaceholder(source); holder.node; holder = inheritedPlaceholder(holder)) {
    inheritChildren(properties, visualProperties(holder.node),
                    {{"a:custGeom", "a:prstGeom"}, fills, {"a:ln"}, effects, {"a:scene3d"}, {"a:sp3d"}},
                    strict, isStyled);
  }
  if (!properties.child("a:prstGeom") && !properties.child("a:custGeom")) {
    const xml_node frame = properties.child("a:xfrm");
    xml_node geometry =
        frame ? properties.insert_child_after("a:prstGeom", frame) : properties.prepend_child("a:prstGeom");
    geometry.append_attribute("prst").set_value("rect");
    geometry.append_child("a:avLst");
  }
}

void becomePlain(const ShapeKey& copy, const ShapeKey& source) {
  const bool strict = copy.sheet.document->package().isStrict();
  setSlideFrame(copy, slideFrame(source));
  inheritLook(copy, source, strict);
  inheritText(copy, source, strict);
  xml_node kind = kindProperties(copy.node);
  for (xml_node locks : kind.children()) locks.remove_attribute("noGrp");
  const xml_node properties = visualProperties(copy.node);
  const bool unfilled = !properties.child("a:solidFill") && !properties.child("a:gradFill") &&
                        !properties.child("a:pattFill") && !properties.child("a:blipFill") &&
                        !(styleReference(copy.node, "a:fillRef") && !properties.child("a:noFill"));
  if (shapeElement(copy.node) == ShapeElement::shape && unfilled) setAttribute(kind, "txBox", "1");
}

}  // namespace

void placePlaceholders(const std::vector<ShapeKey>& copies, const std::vector<ShapeKey>& sources) {
  // First none of them has a place, so that they don't stand in each other's way.
  std::vector<xml_node> wanted;
  for (std::size_t i = 0; i < copies.size(); ++i) {
    wanted.push_back(placeholderElement(sources[i].node));
    for (const xml_node node : withCounterparts(copies[i].node)) {
      applicationProperties(node).remove_child("p:ph");
    }
  }
  for (std::size_t i = 0; i < copies.size(); ++i) {
    if (!wanted[i]) continue;
    const bool text = shapeElement(copies[i].node) == ShapeElement::shape;
    const xml_node place =
        isSlide(copies[i].sheet) ? freePlace(copies[i].sheet, wanted[i], text) : xml_node();
    if (!place) {
      becomePlain(copies[i], sources[i]);
      continue;
    }
    for (const xml_node node : withCounterparts(copies[i].node)) {
      xml_node element = requireApplicationProperties(node).prepend_child("p:ph");
      for (const char* name : {"type", "orient", "sz", "idx"}) {
        if (const pugi::xml_attribute own = place.attribute(name)) {
          element.append_attribute(name).set_value(own.value());
        }
      }
    }
  }
}

}  // namespace vellumark::deck
