#pragma once
// The outline of a shape: a preset geometry, or a path of its own.

#include <cstdint>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "deck/model/document.h"
#include "deck/model/preset_adjustments.h"

namespace vellumark::deck {

struct ShapeGeometry {
  std::string_view preset;  ///< "rect"; empty where there is none
  pugi::xml_node guides;    ///< the a:avLst that adjusts it, of the shape itself or of what it inherits from
  bool freeform = false;    ///< a path of its own
};

/// The geometry of a shape. A placeholder without one has that of layout or master; a shape that says nothing
/// anywhere is a rectangle. Graphic frames, groups and content parts have none.
ShapeGeometry shapeGeometry(const ShapeKey& shape);

/// A guide of a preset as a shape has it, in the file's units.
std::int32_t guideValue(const ShapeGeometry& geometry, const PresetGuide& guide);

/// MsoAutoShapeType: 138 for a freeform; -2 for lines, connectors and what has no geometry.
std::int32_t autoShapeTypeOf(const ShapeKey& shape);
/// Gives an auto shape, freeform, text box, placeholder or picture another preset, with its default
/// adjustments. -2147024809 for other shapes and for types without a preset.
void setAutoShapeType(const ShapeKey& shape, std::int32_t type);

/// The a:prstGeom of the shape itself, with that preset; made where it is missing, over a path of its own.
pugi::xml_node requirePreset(const ShapeKey& shape, std::string_view preset);
/// The same with these values for the preset's guides, in the file's units, as many as it has.
void writePreset(const ShapeKey& shape, std::string_view preset, const std::vector<std::int32_t>& values);

}  // namespace vellumark::deck
