#include "deck/model/text_frame.h"

#include <string>
#include <string_view>

#include "deck/model/auto_size.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/ruler.h"
#include "deck/model/text_body.h"
#include "deck/model/text_box.h"
#include "deck/model/text_range.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr const char* fitElements[] = {"a:noAutofit", "a:normAutofit", "a:spAutoFit"};

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
        property<&F::ruler>(member::Ruler),
        property<&F::autoSize, &F::setAutoSize>(member::AutoSize),
        property<&F::wordWrap, &F::setWordWrap>(member::WordWrap),
        property<&F::margin<BoxProperty::marginLeft>, &F::setMargin<BoxProperty::marginLeft>>(
            member::MarginLeft),
        property<&F::margin<BoxProperty::marginRight>, &F::setMargin<BoxProperty::marginRight>>(
            member::MarginRight),
        property<&F::margin<BoxProperty::marginTop>, &F::setMargin<BoxProperty::marginTop>>(
            member::MarginTop),
        property<&F::margin<BoxProperty::marginBottom>, &F::setMargin<BoxProperty::marginBottom>>(
            member::MarginBottom),
        property<&F::verticalAnchor, &F::setVerticalAnchor>(member::VerticalAnchor),
        property<&F::parent>(member::Parent),
    };
    return table;
  }

  TextFrameObject(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t hasText() { return currentText(shape_)->text().empty() ? host::msoFalse : host::msoTrue; }
  host::ObjectRef textRange() {
    return makeTextRange(host(), shape_, 1, static_cast<std::int32_t>(currentText(shape_)->text().size()));
  }
  host::ObjectRef ruler() { return makeRuler(host(), shape_); }

  /// Text that shrinks to fit is neither of the two that the host has numbers for.
  std::int32_t autoSize() {
    switch (textFit(shape_)) {
      case TextFit::shape:
        return host::ppAutoSizeShapeToFitText;
      case TextFit::shrink:
        return host::ppAutoSizeMixed;
      case TextFit::none:
        break;
    }
    return host::ppAutoSizeNone;
  }
  /// A shape that begins to follow its text takes on the size that the text needs at once.
  void setAutoSize(std::int32_t size) {
    if (size != host::ppAutoSizeNone && size != host::ppAutoSizeShapeToFitText) {
      base::raise(base::errors::outOfRange);
    }
    xml_node properties = requireTextBody(shape_.node).child("a:bodyPr");
    for (const char* name : fitElements) properties.remove_child(name);
    childInOrder(properties, size == host::ppAutoSizeNone ? "a:noAutofit" : "a:spAutoFit",
                 {"a:scene3d", "a:sp3d", "a:flatTx", "a:extLst"});
    textChanged(shape_);
  }

  std::int32_t wordWrap() { return wrapsText(shape_) ? host::msoTrue : host::msoFalse; }
  void setWordWrap(std::int32_t wrap) { write(BoxProperty::wrap, wrap != 0 ? "square" : "none"); }

  template <BoxProperty side>
  float margin() {
    return toPoints(boxMargin(shape_, side));
  }
  template <BoxProperty side>
  void setMargin(float points) {
    constexpr double most = 2'147'483'647;  // EMU; what the file can hold
    if (!(points >= 0) || static_cast<double>(points) * emuPerPoint > most) {
      base::raise(base::errors::outOfRange);
    }
    if (points != margin<side>()) write(side, std::to_string(toEmu(points)).c_str());
  }

  std::int32_t verticalAnchor() {
    const std::string_view anchor = boxProperty(shape_, BoxProperty::anchor).value();
    if (anchor == "ctr") return host::msoAnchorMiddle;
    return anchor == "b" ? host::msoAnchorBottom : host::msoAnchorTop;
  }
  void setVerticalAnchor(std::int32_t anchor) {
    switch (anchor) {
      case host::msoAnchorTop:
        return write(BoxProperty::anchor, "t");
      case host::msoAnchorMiddle:
        return write(BoxProperty::anchor, "ctr");
      case host::msoAnchorBottom:
        return write(BoxProperty::anchor, "b");
      default:
        base::raise(base::errors::outOfRange);
    }
  }

  host::ObjectRef parent() { return makeShape(host(), shape_); }

 private:
  void write(BoxProperty property, const char* value) {
    setBoxProperty(shape_.node, property, value);
    textChanged(shape_);
  }

  ShapeKey shape_;
};

/// The frame in the later text model, by which its paragraphs are reached.
class TextFrame2Object : public ModelObject<TextFrame2Object> {
 public:
  static constexpr const char* className = "TextFrame2";
  static const MemberTable<TextFrame2Object>& members() {
    static const MemberTable<TextFrame2Object> table{
        property<&TextFrame2Object::hasText>(member::HasText),
        property<&TextFrame2Object::textRange>(member::TextRange),
        property<&TextFrame2Object::parent>(member::Parent),
    };
    return table;
  }

  TextFrame2Object(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t hasText() { return currentText(shape_)->text().empty() ? host::msoFalse : host::msoTrue; }
  host::ObjectRef textRange() { return makeTextRange2(host(), shape_); }
  host::ObjectRef parent() { return makeShape(host(), shape_); }

 private:
  ShapeKey shape_;
};

}  // namespace

host::ObjectRef makeTextFrame(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<TextFrameObject>(host, shape);
}

host::ObjectRef makeTextFrame2(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<TextFrame2Object>(host, shape);
}

}  // namespace vellumark::deck
