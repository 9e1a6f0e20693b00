#include "deck/model/text_frame.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/text_body.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr const char* fitElements[] = {"a:noAutofit", "a:normAutofit", "a:spAutoFit"};

xml_node bodyProperties(xml_node shape) { return shape.child("p:txBody").child("a:bodyPr"); }

/// What the text body of a shape doesn't say itself, a placeholder takes from layout and master; else the
/// host's defaults hold.
class TextFrameObject : public ModelObject<TextFrameObject> {
 public:
  static constexpr const char* className = "TextFrame";
  static const MemberTable<TextFrameObject>& members() {
    using F = TextFrameObject;
    static const MemberTable<F> table{
        property<&F::hasText>(member::HasText),
        property<&F::textRange>(member::TextRange),
        property<&F::autoSize, &F::setAutoSize>(member::AutoSize),
        property<&F::wordWrap, &F::setWordWrap>(member::WordWrap),
        property<&F::marginLeft, &F::setMarginLeft>(member::MarginLeft),
        property<&F::marginRight, &F::setMarginRight>(member::MarginRight),
        property<&F::marginTop, &F::setMarginTop>(member::MarginTop),
        property<&F::marginBottom, &F::setMarginBottom>(member::MarginBottom),
        property<&F::verticalAnchor, &F::setVerticalAnchor>(member::VerticalAnchor),
        property<&F::parent>(member::Parent),
    };
    return table;
  }

  TextFrameObject(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t hasText() { return TextBody(shape_).text().empty() ? host::msoFalse : host::msoTrue; }
  host::ObjectRef textRange() {
    return makeTextRange(host(), shape_, 1, static_cast<std::int32_t>(TextBody(shape_).text().size()));
  }

  /// Text that shrinks to fit is neither of the two that the host has numbers for.
  std::int32_t autoSize() {
    for (ShapeKey holder = shape_; holder.node; holder = inheritedPlaceholder(holder)) {
      const xml_node properties = bodyProperties(holder.node);
      if (properties.child("a:spAutoFit")) return host::ppAutoSizeShapeToFitText;
      if (properties.child("a:normAutofit")) return host::ppAutoSizeMixed;
      if (properties.child("a:noAutofit")) break;
    }
    return host::ppAutoSizeNone;
  }
  void setAutoSize(std::int32_t size) {
    if (size != host::ppAutoSizeNone && size != host::ppAutoSizeShapeToFitText) {
      base::raise(base::errors::outOfRange);
    }
    xml_node properties = requireProperties();
    for (const char* name : fitElements) properties.remove_child(name);
    childInOrder(properties, size == host::ppAutoSizeNone ? "a:noAutofit" : "a:spAutoFit",
                 {"a:scene3d", "a:sp3d", "a:flatTx", "a:extLst"});
    shape_.sheet.touch();
  }

  std::int32_t wordWrap() {
    return std::string_view(inherited("wrap").value()) == "none" ? host::msoFalse : host::msoTrue;
  }
  void setWordWrap(std::int32_t wrap) { write("wrap", wrap != 0 ? "square" : "none"); }

  float marginLeft() { return margin("lIns", usualSide); }
  void setMarginLeft(float points) { setMargin("lIns", marginLeft(), points); }
  float marginRight() { return margin("rIns", usualSide); }
  void setMarginRight(float points) { setMargin("rIns", marginRight(), points); }
  float marginTop() { return margin("tIns", usualEnd); }
  void setMarginTop(float points) { setMargin("tIns", marginTop(), points); }
  float marginBottom() { return margin("bIns", usualEnd); }
  void setMarginBottom(float points) { setMargin("bIns", marginBottom(), points); }

  std::int32_t verticalAnchor() {
    const std::string_view anchor = inherited("anchor").value();
    if (anchor == "ctr") return host::msoAnchorMiddle;
    return anchor == "b" ? host::msoAnchorBottom : host::msoAnchorTop;
  }
  void setVerticalAnchor(std::int32_t anchor) {
    switch (anchor) {
      case host::msoAnchorTop:
        return write("anchor", "t");
      case host::msoAnchorMiddle:
        return write("anchor", "ctr");
      case host::msoAnchorBottom:
        return write("anchor", "b");
      default:
        base::raise(base::errors::outOfRange);
    }
  }

  host::ObjectRef parent() { return makeShape(host(), shape_); }

 private:
  static constexpr std::int64_t usualSide = 91'440;
  static constexpr std::int64_t usualEnd = 45'720;
  static constexpr std::int64_t marginLimit = std::numeric_limits<std::int32_t>::max();

  pugi::xml_attribute inherited(const char* name) const {
    for (ShapeKey holder = shape_; holder.node; holder = inheritedPlaceholder(holder)) {
      if (const pugi::xml_attribute found = bodyProperties(holder.node).attribute(name)) return found;
    }
    return {};
  }
  xml_node requireProperties() { return requireTextBody(shape_.node).child("a:bodyPr"); }
  void write(const char* name, const char* value) {
    setAttribute(requireProperties(), name, value);
    shape_.sheet.touch();
  }

  float margin(const char* name, std::int64_t usual) const {
    return toPoints(wholeNumber(inherited(name), -marginLimit, marginLimit, usual));
  }
  void setMargin(const char* name, float before, float points) {
    if (!(points >= 0) || static_cast<double>(points) * emuPerPoint > static_cast<double>(marginLimit)) {
      base::raise(base::errors::outOfRange);
    }
    if (points == before) return;
    setAttribute(requireProperties(), name, static_cast<long long>(toEmu(points)));
    shape_.sheet.touch();
  }

  ShapeKey shape_;
};

}  // namespace

host::ObjectRef makeTextFrame(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<TextFrameObject>(host, shape);
}

}  // namespace vellumark::deck
