#pragma once
// The visual boxes of shapes: what the eye sees of them, whatever their rotation.

#include <optional>
#include <string>
#include <vector>

#include "console.h"
#include "host/shape.h"

namespace vellumark::app {

/// An upright box in points on the slide.
struct VisualBox {
  double left = 0, top = 0, width = 0, height = 0;
};

/// The box as the add-in's tools measure it; nothing for a shape without a frame. The add-in must be
/// connected.
std::optional<VisualBox> visualBox(const host::Shape& shape);

/// A shape's box at one moment.
struct Snapshot {
  int id = 0;
  std::string name;
  VisualBox box;
};
/// Of all shapes that have a frame; none where there are no shapes.
std::vector<Snapshot> takeSnapshots(const host::Shapes& shapes);

enum class Show { all, changed };
/// How the boxes changed, "276 → 264" where a figure differs by at least a hundredth of a point. Shapes that
/// are new or gone are left out, and with `changed` those that are the same.
Table boxTable(const std::vector<Snapshot>& before, const std::vector<Snapshot>& after, Show show);

}  // namespace vellumark::app
