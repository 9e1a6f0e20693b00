#pragma once
// The box that a shape's text stands in: margins, wrapping, anchor, fitting.

#include <pugixml.hpp>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Properties of the box by their names in a:bodyPr. A table's cell has some of them under other names.
enum class BoxProperty { marginLeft, marginTop, marginRight, marginBottom, anchor, wrap, direction };

/// The attribute in effect: of the shape, or of the placeholders that it inherits from; nothing where the
/// host's default holds.
pugi::xml_attribute boxProperty(const ShapeKey& shape, BoxProperty property);
/// Writes one of the shape itself. Doesn't touch the sheet.
void setBoxProperty(pugi::xml_node shape, BoxProperty property, const char* value);

/// Margins in EMU.
std::int64_t boxMargin(const ShapeKey& shape, BoxProperty side);

bool wrapsText(const ShapeKey& shape);
/// Whether lines run from top to bottom or from bottom to top.
bool isUpright(const ShapeKey& shape);

enum class TextFit { none, shape, shrink };
TextFit textFit(const ShapeKey& shape);
/// The a:normAutofit in effect; nothing where text is not shrunk.
pugi::xml_node shrinking(const ShapeKey& shape);

/// p:txBody of a shape (a:txBody of a cell) with all that it must hold, made in its place where it is
/// missing.
pugi::xml_node requireTextBody(pugi::xml_node shape);

}  // namespace vellumark::deck
