#pragma once
// Text of shapes: frames and ranges.

#include <string>

#include "host/constants.h"
#include "host/handle.h"

namespace vellumark::host {

/// A colour: RGB with red in the low byte, or a place in the colour scheme.
class ColorFormat : public Handle {
 public:
  using Handle::Handle;
  int RGB() const { return get<int>(member::RGB); }
  void RGB(int color) const { put(member::RGB, color); }
  int SchemeColor() const { return get<int>(member::SchemeColor); }  ///< 1 to 8
  void SchemeColor(int place) const { put(member::SchemeColor, place); }
};

/// The character format of a range.
class Font : public Handle {
 public:
  using Handle::Handle;
  std::string Name() const { return get<std::string>(member::Name); }
  void Name(const std::string& name) const { put(member::Name, name); }
  float Size() const { return get<float>(member::Size); }  ///< points
  void Size(float points) const { put(member::Size, points); }
  int Bold() const { return get<int>(member::Bold); }  ///< tri-state
  void Bold(bool on) const { putTriState(member::Bold, on); }
  int Italic() const { return get<int>(member::Italic); }
  void Italic(bool on) const { putTriState(member::Italic, on); }
  ColorFormat Color() const { return get<ColorFormat>(member::Color); }
};

class BulletFormat : public Handle {
 public:
  using Handle::Handle;
  int Visible() const { return get<int>(member::Visible); }  ///< tri-state
  void Visible(bool on) const { putTriState(member::Visible, on); }
};

/// The paragraph format of a range.
class ParagraphFormat : public Handle {
 public:
  using Handle::Handle;
  BulletFormat Bullet() const { return get<BulletFormat>(member::Bullet); }
  int Alignment() const { return get<int>(member::Alignment); }  ///< 1 left, 2 centre, 3 right, 4 justified
  void Alignment(int alignment) const { put(member::Alignment, alignment); }
};

/// A stretch of text in a frame. Paragraphs end in CR, line breaks are VT; characters count from 1.
class TextRange : public Handle {
 public:
  using Handle::Handle;
  std::string Text() const { return get<std::string>(member::Text); }
  void Text(const std::string& text) const { put(member::Text, text); }
  int Start() const { return get<int>(member::Start); }
  int Length() const { return get<int>(member::Length); }
  int Count() const { return get<int>(member::Count); }
  /// `length` paragraphs from `start`; all where both are left out.
  TextRange Paragraphs(int start = -1, int length = -1) const {
    return get<TextRange>(member::Paragraphs, start, length);
  }
  TextRange Characters(int start = -1, int length = -1) const {
    return get<TextRange>(member::Characters, start, length);
  }
  TextRange Words(int start = -1, int length = -1) const {
    return get<TextRange>(member::Words, start, length);
  }
  /// Appends text in the format of the range's end; the range of what was appended.
  TextRange InsertAfter(const std::string& text) const { return call<TextRange>(member::InsertAfter, text); }
  /// The text frame, untyped.
  ObjectRef Parent() const { return get<Value>(member::Parent).toObject(); }
  host::Font Font() const { return get<host::Font>(member::Font); }
  host::ParagraphFormat ParagraphFormat() const {
    return get<host::ParagraphFormat>(member::ParagraphFormat);
  }
  int IndentLevel() const { return get<int>(member::IndentLevel); }  ///< 1 to 5, later hosts to 9
  void IndentLevel(int level) const { put(member::IndentLevel, level); }
  // The laid out text without margins, in points on the slide, before the shape's rotation.
  float BoundLeft() const { return get<float>(member::BoundLeft); }
  float BoundTop() const { return get<float>(member::BoundTop); }
  float BoundWidth() const { return get<float>(member::BoundWidth); }
  float BoundHeight() const { return get<float>(member::BoundHeight); }
  int LanguageID() const { return get<int>(member::LanguageID); }
  void LanguageID(int id) const { put(member::LanguageID, id); }
  void Select() const { call(member::Select); }
};

/// One level of a ruler.
class RulerLevel : public Handle {
 public:
  using Handle::Handle;
  float FirstMargin() const {
    return get<float>(member::FirstMargin);
  }  ///< points, of a paragraph's first line
  void FirstMargin(float points) const { put(member::FirstMargin, points); }
  float LeftMargin() const { return get<float>(member::LeftMargin); }  ///< points, of its other lines
  void LeftMargin(float points) const { put(member::LeftMargin, points); }
};

class RulerLevels : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  RulerLevel Item(int level) const { return get<RulerLevel>(member::Item, level); }
};

class TabStop : public Handle {
 public:
  using Handle::Handle;
  int Type() const { return get<int>(member::Type); }              ///< PpTabStopType
  float Position() const { return get<float>(member::Position); }  ///< points from the left margin
  void Clear() const { call(member::Clear); }
};

/// The tab stops of a frame, from 1.
class TabStops : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  TabStop Item(int index) const { return get<TabStop>(member::Item, index); }
  TabStop Add(PpTabStopType type, float position) const { return call<TabStop>(member::Add, type, position); }
};

/// The indents of a frame, level by level.
class Ruler : public Handle {
 public:
  using Handle::Handle;
  host::TabStops TabStops() const { return get<host::TabStops>(member::TabStops); }
  RulerLevels Levels() const { return get<RulerLevels>(member::Levels); }
};

/// The text frame of a shape, or of all shapes of a range: a read then gives -2 where they differ.
class TextFrame : public Handle {
 public:
  using Handle::Handle;
  host::TextRange TextRange() const { return get<host::TextRange>(member::TextRange); }
  int HasText() const { return get<int>(member::HasText); }    ///< tri-state
  int AutoSize() const { return get<int>(member::AutoSize); }  ///< PpAutoSize
  void AutoSize(PpAutoSize size) const { put(member::AutoSize, size); }
  int WordWrap() const { return get<int>(member::WordWrap); }  ///< tri-state
  void WordWrap(bool on) const { putTriState(member::WordWrap, on); }
  float MarginLeft() const { return get<float>(member::MarginLeft); }  ///< points
  void MarginLeft(float points) const { put(member::MarginLeft, points); }
  float MarginRight() const { return get<float>(member::MarginRight); }
  void MarginRight(float points) const { put(member::MarginRight, points); }
  float MarginTop() const { return get<float>(member::MarginTop); }
  void MarginTop(float points) const { put(member::MarginTop, points); }
  float MarginBottom() const { return get<float>(member::MarginBottom); }
  void MarginBottom(float points) const { put(member::MarginBottom, points); }
  int VerticalAnchor() const { return get<int>(member::VerticalAnchor); }  ///< MsoVerticalAnchor
  void VerticalAnchor(MsoVerticalAnchor anchor) const { put(member::VerticalAnchor, anchor); }
  host::Ruler Ruler() const { return get<host::Ruler>(member::Ruler); }
  /// The shape, untyped.
  ObjectRef Parent() const { return get<Value>(member::Parent).toObject(); }
};

// The later text model, known to hosts from 12.0 on and called by name: earlier ones answer 438.

class ParagraphFormat2 : public Handle {
 public:
  using Handle::Handle;
  int IndentLevel() const { return get<int>(member::IndentLevel); }  ///< 1 to 9
  void IndentLevel(int level) const { put(member::IndentLevel, level); }
};

class TextRange2 : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  TextRange2 Characters(int start, int length) const {
    return get<TextRange2>(member::Characters, start, length);
  }
  /// All paragraphs; one of them for an index from 1.
  TextRange2 Paragraphs() const { return get<TextRange2>(member::Paragraphs); }
  TextRange2 Paragraphs(int index) const { return get<TextRange2>(member::Paragraphs, index); }
  ParagraphFormat2 ParagraphFormat() const { return get<ParagraphFormat2>(member::ParagraphFormat); }
};

class TextFrame2 : public Handle {
 public:
  using Handle::Handle;
  TextRange2 TextRange() const { return get<TextRange2>(member::TextRange); }
};

}  // namespace vellumark::host
