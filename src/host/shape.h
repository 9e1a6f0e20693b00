#pragma once
// Drawing objects and their collections.

#include <string>
#include <vector>

#include "host/constants.h"
#include "host/handle.h"
#include "host/tags.h"
#include "host/text.h"

namespace vellumark::host {

class GroupShapes;
class ShapeRange;
class Slide;
class Table;

/// The yellow handles of an auto shape, from 1.
class Adjustments : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  float Item(int index) const { return get<float>(member::Item, index); }
  /// Sets one handle.
  void Item(int index, float value) const {
    object()->invoke(member::Item, Invoke::put, std::array{host::Value(index), host::Value(value)});
  }
};

/// The corner points of a freeform, from 1.
class ShapeNodes : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  /// Moves one node to a place on the slide, in points.
  void SetPosition(int index, float x, float y) const { call(member::SetPosition, index, x, y); }
};

class FillFormat : public Handle {
 public:
  using Handle::Handle;
  int Visible() const { return get<int>(member::Visible); }
  void Visible(bool on) const { putTriState(member::Visible, on); }
  ColorFormat ForeColor() const { return get<ColorFormat>(member::ForeColor); }
};

class LineFormat : public Handle {
 public:
  using Handle::Handle;
  int Visible() const { return get<int>(member::Visible); }
  void Visible(bool on) const { putTriState(member::Visible, on); }
  ColorFormat ForeColor() const { return get<ColorFormat>(member::ForeColor); }
  float Weight() const { return get<float>(member::Weight); }  ///< points
  void Weight(float points) const { put(member::Weight, points); }
};

class PlaceholderFormat : public Handle {
 public:
  using Handle::Handle;
  int Type() const {
    return get<int>(member::Type);
  }  ///< 1 title, 2 body, 3 centred title, 4 subtitle, 7 object, ...
};

/// One drawing object on a slide, on a master or inside a group. Lengths are points; the frame (Left, Top,
/// Width, Height) is that before rotation, on the slide's coordinates also inside a group.
class Shape : public Handle {
 public:
  using Handle::Handle;
  float Left() const { return get<float>(member::Left); }
  void Left(float points) const { put(member::Left, points); }
  float Top() const { return get<float>(member::Top); }
  void Top(float points) const { put(member::Top, points); }
  float Width() const { return get<float>(member::Width); }
  void Width(float points) const { put(member::Width, points); }
  float Height() const { return get<float>(member::Height); }
  void Height(float points) const { put(member::Height, points); }
  float Rotation() const { return get<float>(member::Rotation); }  ///< degrees, clockwise, about the centre
  void Rotation(float degrees) const { put(member::Rotation, degrees); }
  int HorizontalFlip() const { return get<int>(member::HorizontalFlip); }  ///< tri-state
  int VerticalFlip() const { return get<int>(member::VerticalFlip); }      ///< tri-state
  void Flip(MsoFlipCmd direction) const { call(member::Flip, direction); }
  int Type() const { return get<int>(member::Type); }                    ///< MsoShapeType
  int AutoShapeType() const { return get<int>(member::AutoShapeType); }  ///< MsoAutoShapeType
  void AutoShapeType(int type) const { put(member::AutoShapeType, type); }
  host::Adjustments Adjustments() const { return get<host::Adjustments>(member::Adjustments); }
  ShapeNodes Nodes() const { return get<ShapeNodes>(member::Nodes); }
  std::string Name() const { return get<std::string>(member::Name); }
  void Name(const std::string& name) const { put(member::Name, name); }
  int Id() const { return get<int>(member::Id); }
  int Visible() const { return get<int>(member::Visible); }  ///< tri-state
  void Visible(bool on) const { putTriState(member::Visible, on); }
  int ZOrderPosition() const { return get<int>(member::ZOrderPosition); }  ///< from 1, the back
  void ZOrder(MsoZOrderCmd command) const { call(member::ZOrder, command); }
  int HasTextFrame() const { return get<int>(member::HasTextFrame); }  ///< tri-state
  /// Raises where the shape has none.
  host::TextFrame TextFrame() const { return get<host::TextFrame>(member::TextFrame); }
  int HasTable() const { return get<int>(member::HasTable); }  ///< tri-state
  /// Raises where the shape is no table.
  host::Table Table() const;
  /// Hosts from 12.0 on; earlier ones answer 438.
  host::TextFrame2 TextFrame2() const { return get<host::TextFrame2>(member::TextFrame2); }
  int BlackWhiteMode() const { return get<int>(member::BlackWhiteMode); }  ///< MsoBlackWhiteMode, 1 to 10
  void BlackWhiteMode(int mode) const { put(member::BlackWhiteMode, mode); }
  host::Tags Tags() const { return get<host::Tags>(member::Tags); }
  FillFormat Fill() const { return get<FillFormat>(member::Fill); }
  LineFormat Line() const { return get<LineFormat>(member::Line); }
  /// Raises where the shape is no placeholder.
  host::PlaceholderFormat PlaceholderFormat() const {
    return get<host::PlaceholderFormat>(member::PlaceholderFormat);
  }
  /// The members of a group, all levels flat; raises where the shape is no group.
  GroupShapes GroupItems() const;
  std::string AlternativeText() const { return get<std::string>(member::AlternativeText); }
  void AlternativeText(const std::string& text) const { put(member::AlternativeText, text); }
  void Copy() const { call(member::Copy); }
  /// Makes the shape the selection, or adds it to the selection.
  void Select(bool replace = true) const { call(member::Select, triState(replace)); }
  void Delete() const { call(member::Delete); }
};

/// Shapes in an order of their own; for a selection the order of selecting. Members read the common value, -2
/// where the shapes differ; writes go to all.
class ShapeRange : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Shape Item(int index) const { return get<Shape>(member::Item, index); }
  host::TextFrame TextFrame() const { return get<host::TextFrame>(member::TextFrame); }
  int Type() const { return get<int>(member::Type); }
  int AutoShapeType() const { return get<int>(member::AutoShapeType); }
  int HasTable() const { return get<int>(member::HasTable); }
  int HasTextFrame() const { return get<int>(member::HasTextFrame); }
  host::Tags Tags() const { return get<host::Tags>(member::Tags); }
  void BlackWhiteMode(int mode) const { put(member::BlackWhiteMode, mode); }
  void Copy() const { call(member::Copy); }
  void Delete() const { call(member::Delete); }
  void Select(bool replace = true) const { call(member::Select, triState(replace)); }
};

/// The members of a group, from 1.
class GroupShapes : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Shape Item(int index) const { return get<Shape>(member::Item, index); }
};

/// One cell of a table.
class Cell : public Handle {
 public:
  using Handle::Handle;
  host::Shape Shape() const { return get<host::Shape>(member::Shape); }
  /// Whether the user selected it.
  bool Selected() const { return get<bool>(member::Selected); }
  /// Makes the cell the selection.
  void Select() const { call(member::Select); }
};

class TableLines : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
};

class Table : public Handle {
 public:
  using Handle::Handle;
  TableLines Rows() const { return get<TableLines>(member::Rows); }
  TableLines Columns() const { return get<TableLines>(member::Columns); }
  /// Both from 1.
  host::Cell Cell(int row, int column) const { return call<host::Cell>(member::Cell, row, column); }
};

inline host::Table Shape::Table() const { return get<host::Table>(member::Table); }
inline GroupShapes Shape::GroupItems() const { return get<GroupShapes>(member::GroupItems); }

/// The placeholders among the shapes of a slide, from 1.
class Placeholders : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Shape Item(int index) const { return get<Shape>(member::Item, index); }
};

/// All shapes of a slide, from 1, the one at the back first.
class Shapes : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Shape Item(int index) const { return get<Shape>(member::Item, index); }
  Shape Item(const std::string& name) const { return get<Shape>(member::Item, name); }
  /// The shapes of the given names, in that order; a range of one for one name or index.
  ShapeRange Range(int index) const { return call<ShapeRange>(member::Range, index); }
  ShapeRange Range(const std::string& name) const { return call<ShapeRange>(member::Range, name); }
  /// All shapes.
  ShapeRange Range() const { return call<ShapeRange>(member::Range); }
  Shape AddShape(int autoShapeType, float left, float top, float width, float height) const {
    return call<Shape>(member::AddShape, autoShapeType, left, top, width, height);
  }
  Shape AddTextbox(MsoTextOrientation orientation, float left, float top, float width, float height) const {
    return call<Shape>(member::AddTextbox, orientation, left, top, width, height);
  }
  /// Brings back a placeholder that was deleted; -1 for a measure takes that of the layout. Raises where the
  /// slide has it.
  Shape AddPlaceholder(PpPlaceholderType type, float left = -1, float top = -1, float width = -1,
                       float height = -1) const {
    return call<Shape>(member::AddPlaceholder, type, left, top, width, height);
  }
  /// The clipboard's shapes, put in front.
  ShapeRange Paste() const { return call<ShapeRange>(member::Paste); }
  host::Placeholders Placeholders() const { return get<host::Placeholders>(member::Placeholders); }
};

}  // namespace vellumark::host
