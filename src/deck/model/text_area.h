#pragma once
// The part of a shape that holds its text, margins counted in.

#include "deck/model/document.h"

namespace vellumark::deck {

/// Points on the slide, before the shape's rotation.
struct TextArea {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// The text rectangle of a shape's form; the whole frame for forms that fill it, and for freeforms.
TextArea textArea(const ShapeKey& shape);

}  // namespace vellumark::deck
