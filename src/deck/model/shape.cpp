// One shape, whatever its kind.

#include <cmath>
#include <string_view>

#include "base/xml_storable.h"
#include "deck/model/adjustments.h"
#include "deck/model/auto_size.h"
#include "deck/model/black_white_mode.h"
#include "deck/model/connections.h"
#include "deck/model/fill_and_line.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_actions.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_kind.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_nodes.h"
#include "deck/model/shapes.h"
#include "deck/model/table.h"
#include "deck/model/table_cell.h"
#include "deck/model/table_size.h"
#include "deck/model/text_frame.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

std::int32_t triState(bool value) { return value ? host::msoTrue : host::msoFalse; }

/// The element that holds what may not be changed about a shape; nothing for content parts.
const char* locksElement(pugi::xml_node shape) {
  switch (shapeElement(shape)) {
    case ShapeElement::shape:
      return "a:spLocks";
    case ShapeElement::picture:
      return "a:picLocks";
    case ShapeElement::connector:
      return "a:cxnSpLocks";
    case ShapeElement::graphicFrame:
      return "a:graphicFrameLocks";
    case ShapeElement::group:
      return "a:grpSpLocks";
    default:
      return nullptr;
  }
}

class ShapeObject : public ModelObject<ShapeObject> {
 public:
  static constexpr const char* className = "Shape";
  static const MemberTable<ShapeObject>& members();

  ShapeObject(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) {
      base::raise(base::errors::invalidRequest,
                  "Shape (unknown member): Invalid request. The shape was deleted.");
    }
  }

  const ShapeKey& key() const { return shape_; }

  // Frame.
  float left() { return points(slideFramePart(shape_, FramePart::x)); }
  void setLeft(float value) {
    change(left(), value, [](ShapeFrame& frame, double emu) { frame.x = emu; });
  }
  float top() { return points(slideFramePart(shape_, FramePart::y)); }
  void setTop(float value) {
    change(top(), value, [](ShapeFrame& frame, double emu) { frame.y = emu; });
  }
  float width() { return points(slideFramePart(shape_, FramePart::width)); }
  float height() { return points(slideFramePart(shape_, FramePart::height)); }
  void setWidth(float value);
  void setHeight(float value);
  float rotation() { return static_cast<float>(slideFramePart(shape_, FramePart::rotation) / 60000); }
  void setRotation(float degrees);
  std::int32_t horizontalFlip() { return triState(slideFrame(shape_).flipH); }
  std::int32_t verticalFlip() { return triState(slideFrame(shape_).flipV); }
  void flip(Arguments arguments);

  // What it is.
  std::int32_t type() { return shapeType(shape_); }
  std::int32_t autoShapeType() { return autoShapeTypeOf(shape_); }
  void putAutoShapeType(std::int32_t type) { setAutoShapeType(shape_, type); }
  host::ObjectRef adjustments() { return makeAdjustments(host(), shape_); }
  host::ObjectRef nodes() { return makeNodes(host(), shape_); }
  std::int32_t connector() { return triState(shapeElement(shape_.node) == ShapeElement::connector); }
  std::int32_t hasTextFrame() { return triState(deck::hasTextFrame(shape_)); }
  std::int32_t hasTable() { return triState(deck::hasTable(shape_)); }
  std::int32_t hasChart() { return triState(deck::hasChart(shape_)); }
  host::ObjectRef textFrame() {
    if (!deck::hasTextFrame(shape_)) base::raise(base::errors::outOfRange);
    return makeTextFrame(host(), shape_);
  }
  host::ObjectRef textFrame2() {
    if (!deck::hasTextFrame(shape_)) base::raise(base::errors::outOfRange);
    return makeTextFrame2(host(), shape_);
  }
  host::ObjectRef table() {
    if (!deck::hasTable(shape_)) base::raise(base::errors::outOfRange);
    return makeTable(host(), shape_);
  }
  host::ObjectRef fill() { return makeFillFormat(host(), requireForm()); }
  host::ObjectRef line() { return makeLineFormat(host(), requireForm()); }
  host::ObjectRef placeholderFormat() { return makePlaceholderFormat(host(), shape_); }

  // Properties by which it is known.
  std::string name() { return drawingProperties(shape_.node).attribute("name").value(); }
  void setName(const std::string& name) { setProperty("name", base::xmlStorable(name)); }
  std::int32_t id() { return shapeId(shape_.node); }
  std::string alternativeText() { return drawingProperties(shape_.node).attribute("descr").value(); }
  void setAlternativeText(const std::string& text) { setProperty("descr", base::xmlStorable(text)); }
  std::int32_t visible() { return triState(!drawingProperties(shape_.node).attribute("hidden").as_bool()); }
  void setVisible(std::int32_t visible);
  std::int32_t lockAspectRatio() { return triState(keepsProportions()); }
  void setLockAspectRatio(std::int32_t lock);
  host::ObjectRef tags() {
    return makeTags(host(), shape_.sheet.document, shape_.sheet.part,
                    requireApplicationProperties(shape_.node));
  }

  // Where it stands.
  host::ObjectRef parent() { return makeSlide(host(), shape_.sheet); }
  std::int32_t child() { return triState(static_cast<bool>(parentGroup(shape_.node))); }
  host::ObjectRef outermostGroup();
  host::ObjectRef groupItems();
  std::int32_t zOrderPosition() { return deck::zOrderPosition(shape_); }
  void zOrder(Arguments arguments) { changeZOrder({shape_}, arguments[0].toInt()); }
  void select(Arguments arguments) {
    selectShapes(host(), {shape_}, argumentOr<std::int32_t>(arguments, 0, host::msoTrue) != 0);
  }
  void copy() { host()->clipboard.copyShapes({shape_}); }
  void cut() {
    copy();
    remove();
  }
  host::ObjectRef duplicate() { return makeShapeRange(host(), duplicateShapes({shape_})); }
  void remove() { deleteShapes(host(), {shape_}); }
  std::int32_t blackWhiteMode() { return deck::blackWhiteMode(shape_); }
  void setBlackWhiteMode(std::int32_t mode) { deck::setBlackWhiteMode(shape_, mode); }

 private:
  static float points(double emu) { return static_cast<float>(emu / emuPerPoint); }
  static double emu(float points) { return std::round(static_cast<double>(points) * emuPerPoint); }

  /// Writes one member of the frame. Writing what was just read changes nothing, not even in the last digit.
  template <typename Assign>
  void change(float before, float value, Assign assign) {
    if (value == before) return;
    const ShapeFrame old = slideFrame(shape_);
    ShapeFrame frame = old;
    assign(frame, emu(value));
    keepFitted(shape_, old, frame);
    moveShape(shape_, frame);
    if (deck::hasTable(shape_)) stretchTable(shape_, old);
    if (frame.width != old.width || frame.height != old.height) fitToText(shape_);
  }

  /// p:cNvPr, which has an id whatever the file left out.
  pugi::xml_node identified(pugi::xml_node node) const {
    pugi::xml_node properties = requireDrawingProperties(node);
    if (!properties.attribute("id")) {
      setAttribute(properties, "id", freeShapeId(shape_.sheet));
      shape_.sheet.touch();
    }
    return properties;
  }

  void setProperty(const char* attribute, const std::string& value) {
    for (pugi::xml_node node : withCounterparts(shape_.node)) {
      setAttribute(identified(node), attribute, value.c_str());
    }
    shape_.sheet.touch();
  }

  /// Graphic frames and what is no shape proper have neither fill nor line.
  const ShapeKey& requireForm() const {
    if (locksElement(shape_.node) && shapeElement(shape_.node) != ShapeElement::graphicFrame) return shape_;
    base::raise(base::errors::outOfRange);
  }

  bool keepsProportions() const {
    const char* locks = locksElement(shape_.node);
    return locks && kindProperties(shape_.node).child(locks).attribute("noChangeAspect").as_bool();
  }

  ShapeKey shape_;
};

const MemberTable<ShapeObject>& ShapeObject::members() {
  using S = ShapeObject;
  static const MemberTable<S> table{
      property<&S::left, &S::setLeft>(member::Left),
      property<&S::top, &S::setTop>(member::Top),
      property<&S::width, &S::setWidth>(member::Width),
      property<&S::height, &S::setHeight>(member::Height),
      property<&S::rotation, &S::setRotation>(member::Rotation),
      property<&S::horizontalFlip>(member::HorizontalFlip),
      property<&S::verticalFlip>(member::VerticalFlip),
      method<&S::flip>(member::Flip, 1),
      property<&S::type>(member::Type),
      property<&S::autoShapeType, &S::putAutoShapeType>(member::AutoShapeType),
      property<&S::adjustments>(member::Adjustments),
      property<&S::nodes>(member::Nodes),
      property<&S::connector>(member::Connector),
      property<&S::hasTextFrame>(member::HasTextFrame),
      property<&S::hasTable>(member::HasTable),
      property<&S::hasChart>(member::HasChart).from(12),
      property<&S::textFrame>(member::TextFrame),
      property<&S::textFrame2>(member::TextFrame2).from(12),
      property<&S::table>(member::Table),
      property<&S::fill>(member::Fill),
      property<&S::line>(member::Line),
      property<&S::placeholderFormat>(member::PlaceholderFormat),
      property<&S::name, &S::setName>(member::Name),
      property<&S::id>(member::Id),
      property<&S::alternativeText, &S::setAlternativeText>(member::AlternativeText),
      property<&S::visible, &S::setVisible>(member::Visible),
      property<&S::lockAspectRatio, &S::setLockAspectRatio>(member::LockAspectRatio),
      property<&S::tags>(member::Tags),
      property<&S::parent>(member::Parent),
      property<&S::child>(member::Child),
      property<&S::outermostGroup>(member::ParentGroup),
      property<&S::groupItems>(member::GroupItems),
      property<&S::zOrderPosition>(member::ZOrderPosition),
      method<&S::zOrder>(member::ZOrder, 1),
      method<&S::select>(member::Select, 0, 1),
      property<&S::blackWhiteMode, &S::setBlackWhiteMode>(member::BlackWhiteMode),
      method<&S::copy>(member::Copy),
      method<&S::cut>(member::Cut),
      method<&S::duplicate>(member::Duplicate),
      method<&S::remove>(member::Delete),
  };
  return table;
}

/// A shape that keeps its proportions changes both sides with one.
void ShapeObject::setWidth(float value) {
  change(width(), value, [this](ShapeFrame& frame, double emu) {
    if (keepsProportions() && frame.width > 0) frame.height = std::round(frame.height * (emu / frame.width));
    frame.width = emu;
  });
}

void ShapeObject::setHeight(float value) {
  change(height(), value, [this](ShapeFrame& frame, double emu) {
    if (keepsProportions() && frame.height > 0) frame.width = std::round(frame.width * (emu / frame.height));
    frame.height = emu;
  });
}

/// Any angle is taken and brought into one turn.
void ShapeObject::setRotation(float degrees) {
  if (!std::isfinite(degrees)) base::raise(base::errors::outOfRange);
  if (degrees == rotation()) return;
  ShapeFrame frame = slideFrame(shape_);
  frame.rotation = std::fmod(std::round(static_cast<double>(degrees) * 60000), fullTurn);
  if (frame.rotation < 0) frame.rotation += fullTurn;
  moveShape(shape_, frame);
}

/// Mirrors what is seen: a shape that is turned is then turned by as much the other way.
void ShapeObject::flip(Arguments arguments) {
  const std::int32_t direction = arguments[0].toInt();
  if (direction != host::msoFlipHorizontal && direction != host::msoFlipVertical) {
    base::raise(base::errors::outOfRange);
  }
  ShapeFrame frame = slideFrame(shape_);
  bool& flag = direction == host::msoFlipHorizontal ? frame.flipH : frame.flipV;
  flag = !flag;
  const double turn = std::fmod(frame.rotation, fullTurn);
  if (turn != 0) frame.rotation = turn > 0 ? fullTurn - turn : -turn;
  moveShape(shape_, frame);
}

void ShapeObject::setVisible(std::int32_t visible) {
  for (pugi::xml_node node : withCounterparts(shape_.node)) {
    pugi::xml_node properties = identified(node);
    if (visible != 0) {
      properties.remove_attribute("hidden");
    } else {
      setAttribute(properties, "hidden", "1");
    }
  }
  shape_.sheet.touch(Change::contents);
}

void ShapeObject::setLockAspectRatio(std::int32_t lock) {
  const char* name = locksElement(shape_.node);
  pugi::xml_node holder = kindProperties(shape_.node);
  if (!name || !holder) base::raise(base::errors::outOfRange);
  pugi::xml_node element = holder.child(name);
  if (!element) element = holder.prepend_child(name);
  if (lock != 0) {
    setAttribute(element, "noChangeAspect", "1");
  } else {
    element.remove_attribute("noChangeAspect");
  }
  shape_.sheet.touch(Change::contents);
}

/// Groups within groups are seen flat, so the parent of a member is the outermost group.
host::ObjectRef ShapeObject::outermostGroup() {
  pugi::xml_node group = parentGroup(shape_.node);
  if (!group) base::raise(base::errors::outOfRange);
  while (const pugi::xml_node outer = parentGroup(group)) group = outer;
  return makeShape(host(), {shape_.sheet, group});
}

host::ObjectRef ShapeObject::groupItems() {
  if (shapeElement(shape_.node) != ShapeElement::group) base::raise(base::errors::outOfRange);
  return makeGroupShapes(host(), shape_);
}

}  // namespace

const ShapeKey* shapeKeyOf(const host::Object& object) {
  const auto* shape = dynamic_cast<const ShapeObject*>(&object);
  return shape ? &shape->key() : nullptr;
}

host::ObjectRef makeShape(const HostRef& host, const ShapeKey& shape) {
  if (isTableCell(shape.node)) return makeCellShape(host, shape);
  return std::make_shared<ShapeObject>(host, shape);
}

}  // namespace vellumark::deck
