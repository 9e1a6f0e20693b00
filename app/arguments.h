#pragma once
// What users write behind the options that point at slides, shapes and text.

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/shape.h"

namespace vellumark::app {

/// Fails as wrong usage because an option names something that isn't there; tells what there is.
[[noreturn]] void refuseName(const std::string& option, const std::string& kind, std::string_view name,
                             const std::vector<std::string>& known);

/// A list split at its commas; "\," is a comma in a name and "\\" a backslash.
std::vector<std::string> splitList(std::string_view list);

/// Positions of slides from 1, in the order given: "2,4-6". A Failure of usage where it is none, or where one
/// lies beyond `count`.
std::vector<std::int32_t> parseSlides(std::string_view list, std::int32_t count);

/// A stretch of text: SHAPE:START,LENGTH, characters counted from 1.
struct TextSpot {
  std::string shape;
  std::int32_t start = 1;
  std::int32_t length = 0;
};
TextSpot parseTextSpot(std::string_view text);

/// Cells of a table: TABLE:ROW,COLUMN;ROW,COLUMN, both counted from 1.
struct CellSpots {
  std::string table;
  std::vector<std::pair<std::int32_t, std::int32_t>> cells;
};
CellSpots parseCellSpots(std::string_view text);

/// The view of that name (PpViewType): slide, slidemaster, notes, handoutmaster, notesmaster, outline,
/// sorter, titlemaster, normal or thumbnails.
std::int32_t parseView(std::string_view name);

/// Shapes by the references that users point at them with: name, #id or @index (from 1, the one at the back
/// first).
class ShapeReferences {
 public:
  /// `option` is named in failures.
  ShapeReferences(const host::Shapes& shapes, std::string option);
  /// The shape that a reference means. A Failure of usage where there is none, or where several have the
  /// name.
  host::Shape find(const std::string& reference) const;

 private:
  std::string option_;
  std::vector<host::Shape> shapes_;
  std::unordered_map<std::string, std::vector<std::size_t>> names_;  ///< places in shapes_
  std::unordered_map<std::int32_t, std::size_t> ids_;                ///< of several the first
};

}  // namespace vellumark::app
