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

/// The paragraph format of a range.
class ParagraphFormat : public Handle {
 public:
  using Handle::Handle;
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
  host::Font Font() const { return get<host::Font>(member::Font); }
  host::ParagraphFormat ParagraphFormat() const {
    return get<host::ParagraphFormat>(member::ParagraphFormat);
  }
  int IndentLevel() const { return get<int>(member::IndentLevel); }  ///< 1 to 5, later hosts to 9
  void IndentLevel(int level) const { put(member::IndentLevel, level); }
  float BoundWidth() const { return get<float>(member::BoundWidth); }  ///< points, laid out, without margins
  float BoundHeight() const {
    return get<float>(member::BoundHeight);
  }  ///< points, laid out, without margins
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

/// The indents of a frame, level by level.
class Ruler : public Handle {
 public:
  using Handle::Handle;
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
};

}  // namespace vellumark::host
