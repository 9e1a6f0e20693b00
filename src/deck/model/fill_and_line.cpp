#include "deck/model/fill_and_line.h"

#include <algorithm>
#include <string_view>

#include "deck/model/color.h"
#include "deck/model/color_format.h"
#include "deck/model/member_table.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_style.h"
#include "deck/model/theme.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// The a:solidFill of a holder, in the place of another fill, or before what follows a fill there.
xml_node requireSolidFill(xml_node holder) {
  const xml_node before = fillElement(holder);
  if (std::string_view(before.name()) == "a:solidFill") return before;
  xml_node solid;
  if (before) {
    solid = holder.insert_child_before("a:solidFill", before);
    holder.remove_child(before);
  } else if (std::string_view(holder.name()) == "a:ln") {
    solid = holder.prepend_child("a:solidFill");
  } else {
    solid = childInOrder(holder, "a:solidFill",
                         {"a:ln", "a:effectLst", "a:effectDag", "a:scene3d", "a:sp3d", "a:extLst"});
  }
  return solid;
}

void removeFill(xml_node holder) {
  xml_node none = requireSolidFill(holder);
  none.remove_children();
  none.set_name("a:noFill");
}

/// What a shape, or the nearest of the placeholders that it inherits from, says of its fill or line: an
/// element of its own properties, or else a reference of its style.
struct Said {
  xml_node own;
  xml_node style;
};
template <typename Find>
Said nearest(const ShapeKey& shape, Find find, const char* reference) {
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    if (const xml_node own = find(visualProperties(holder.node))) return {own, {}};
    if (const xml_node style = styleReference(holder.node, reference)) return {{}, style};
  }
  return {};
}
std::int32_t visibility(const Said& said) {
  const bool none = said.own ? std::string_view(said.own.name()) == "a:noFill" : !said.style;
  return none ? host::msoFalse : host::msoTrue;
}

/// What fill and line share: the shape that they belong to, and a colour of it.
template <typename T>
class ShapePart : public ModelObject<T> {
 public:
  ShapePart(HostRef host, ShapeKey shape) : ModelObject<T>(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

 protected:
  /// The colour of what `find` finds, written into the a:solidFill of what `require` makes.
  template <typename Find, typename Require>
  host::ObjectRef color(Find find, Require require) {
    ColorPlace place;
    place.sheet = shape_.sheet;
    place.deleted = [shape = shape_] { return shape.deleted(); };
    place.find = [shape = shape_, find] { return find(shape); };
    place.change = [shape = shape_, require](const std::function<void(xml_node)>& write) {
      for (const xml_node node : withCounterparts(shape.node)) write(requireSolidFill(require(node)));
    };
    return makeColorFormat(this->host(), std::move(place));
  }
  const ShapeKey& shape() const { return shape_; }

 private:
  ShapeKey shape_;
};

class FillFormatObject : public ShapePart<FillFormatObject> {
 public:
  static constexpr const char* className = "FillFormat";
  static const MemberTable<FillFormatObject>& members() {
    static const MemberTable<FillFormatObject> table{
        property<&FillFormatObject::visible, &FillFormatObject::setVisible>(member::Visible),
        property<&FillFormatObject::foreColor>(member::ForeColor),
    };
    return table;
  }
  using ShapePart::ShapePart;

  std::int32_t visible() { return visibility(nearest(shape(), fillElement, "a:fillRef")); }
  /// A shape without a fill gets that of its style, or else the theme's first accent.
  void setVisible(std::int32_t on) {
    if ((on != 0) == (visible() != host::msoFalse)) return;
    for (const xml_node node : withCounterparts(shape().node)) {
      xml_node properties = requireVisualProperties(node);
      if (on == 0) {
        removeFill(properties);
        continue;
      }
      if (const xml_node none = properties.child("a:noFill")) {
        properties.remove_child(none);
        if (styleReference(node, "a:fillRef")) continue;
      }
      setThemeColor(requireSolidFill(properties), "accent1");
    }
    shape().sheet.touch(Change::contents);
  }
  host::ObjectRef foreColor() {
    return color(
        [](const ShapeKey& shape) -> ColorPlace::Found {
          const Said fill = nearest(shape, fillElement, "a:fillRef");
          const xml_node first = fill.own.child("a:gsLst").child("a:gs");
          return {colorElement(first ? first : fill.own ? fill.own : fill.style), {}};
        },
        [](xml_node node) { return requireVisualProperties(node); });
  }
};

class LineFormatObject : public ShapePart<LineFormatObject> {
 public:
  static constexpr const char* className = "LineFormat";
  static const MemberTable<LineFormatObject>& members() {
    using L = LineFormatObject;
    static const MemberTable<L> table{
        property<&L::visible, &L::setVisible>(member::Visible),
        property<&L::foreColor>(member::ForeColor),
        property<&L::weight, &L::setWeight>(member::Weight),
    };
    return table;
  }
  using ShapePart::ShapePart;

  std::int32_t visible() { return visibility(nearest(shape(), lineFill, "a:lnRef")); }
  /// A shape without an outline gets that of its style, or else one in the colour of text.
  void setVisible(std::int32_t on) {
    if ((on != 0) == (visible() != host::msoFalse)) return;
    for (const xml_node node : withCounterparts(shape().node)) {
      xml_node line = requireLine(node);
      if (on == 0) {
        removeFill(line);
        continue;
      }
      if (const xml_node none = line.child("a:noFill")) {
        line.remove_child(none);
        if (styleReference(node, "a:lnRef")) continue;
      }
      setThemeColor(requireSolidFill(line), "tx1");
    }
    shape().sheet.touch(Change::contents);
  }
  host::ObjectRef foreColor() {
    return color(
        [](const ShapeKey& shape) -> ColorPlace::Found {
          const Said fill = nearest(shape, lineFill, "a:lnRef");
          return {colorElement(fill.own ? fill.own : fill.style), {}};
        },
        [](xml_node node) { return requireLine(node); });
  }

  float weight() {
    const auto withWidth = [](xml_node properties) {
      const xml_node line = properties.child("a:ln");
      return line.attribute("w") ? line : xml_node();
    };
    const Said line = nearest(shape(), withWidth, "a:lnRef");
    if (line.own) return points(line.own);
    const xml_node themed = themeLine(shape().sheet, themeIndex(line.style));
    return themed ? points(themed) : toPoints(usualLineWeight);
  }
  void setWeight(float weight) {
    constexpr float most = 1584;  // points; what the file can hold
    if (!(weight >= 0 && weight <= most)) base::raise(base::errors::outOfRange);
    if (weight == this->weight()) return;
    for (const xml_node node : withCounterparts(shape().node)) {
      setAttribute(requireLine(node), "w", static_cast<long long>(toEmu(weight)));
    }
    shape().sheet.touch(Change::contents);
  }

 private:
  static xml_node lineFill(xml_node properties) { return fillElement(properties.child("a:ln")); }
  static xml_node requireLine(xml_node shape) {
    return childInOrder(requireVisualProperties(shape), "a:ln",
                        {"a:effectLst", "a:effectDag", "a:scene3d", "a:sp3d", "a:extLst"});
  }
  static float points(xml_node line) {
    return toPoints(wholeNumber(line.attribute("w"), 0, 20'116'800, usualLineWeight));
  }
};

}  // namespace

host::ObjectRef makeFillFormat(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<FillFormatObject>(host, shape);
}
host::ObjectRef makeLineFormat(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<LineFormatObject>(host, shape);
}

}  // namespace vellumark::deck
