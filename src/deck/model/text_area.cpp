#include "deck/model/text_area.h"

#include <algorithm>
#include <string_view>

#include "deck/model/preset_adjustments.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

/// A guide of the shape, in 100000ths.
double guide(const ShapeGeometry& geometry, std::size_t index) {
  const std::span<const PresetGuide> guides = presetGuides(geometry.preset);
  return index < guides.size() ? guideValue(geometry, guides[index]) : 0;
}

struct Insets {
  double left = 0, top = 0, right = 0, bottom = 0;
};

/// How far the text stands in from the edges of a frame of that size.
Insets insets(const ShapeGeometry& geometry, double width, double height) {
  const std::string_view preset = geometry.preset;
  const double shorter = std::min(width, height);
  const auto all = [](double inset) { return Insets{inset, inset, inset, inset}; };
  const auto corner = [&](double most) {
    return shorter * std::clamp(guide(geometry, 0), 0.0, most) / 100'000;
  };
  if (preset == "roundRect") return all(corner(50'000) * 0.29289);
  if (preset == "octagon") return all(corner(50'000) / 2);
  if (preset == "plaque") return all(corner(50'000) * 0.70711);
  if (preset == "ellipse" || preset == "flowChartConnector") {
    constexpr double share = 0.14644660940672624;  // (1 - cos 45°) / 2
    return {width * share, height * share, width * share, height * share};
  }
  if (preset == "diamond" || preset == "flowChartDecision") {
    return {width / 4, height / 4, width / 4, height / 4};
  }
  if (preset == "triangle") {
    const double left = width * std::clamp(guide(geometry, 0), 0.0, 100'000.0) / 200'000;
    return {left, height / 2, width / 2 - left, 0};
  }
  if (shorter <= 0) return {};
  const double tip = shorter * std::clamp(guide(geometry, 0), 0.0, 100'000 * width / shorter) / 100'000;
  if (preset == "homePlate") return {0, 0, tip / 2, 0};
  if (preset == "chevron") {
    const double body = width - tip;
    return body > tip ? Insets{tip, 0, tip, 0} : Insets{};
  }
  const bool flat = preset == "rightArrow" || preset == "leftArrow";
  if (!flat && preset != "upArrow" && preset != "downArrow") return {};
  const double along = flat ? width : height;
  const double across = flat ? height : width;
  const double shaft = std::clamp(guide(geometry, 0), 0.0, 100'000.0) / 100'000;
  const double head = shorter * std::clamp(guide(geometry, 1), 0.0, 100'000 * along / shorter) / 100'000;
  const double side = across * (1 - shaft) / 2;
  const double tipInset = head * shaft;  // there the shaft is as wide as the head
  if (preset == "rightArrow") return {0, side, tipInset, side};
  if (preset == "leftArrow") return {tipInset, side, 0, side};
  return preset == "upArrow" ? Insets{side, tipInset, side, 0} : Insets{side, 0, side, tipInset};
}

}  // namespace

TextArea textArea(const ShapeKey& shape) {
  if (isTableCell(shape.node)) return cellArea(shape);
  const ShapeFrame frame = slideFrame(shape);
  const TextArea whole{frame.x / emuPerPoint, frame.y / emuPerPoint, frame.width / emuPerPoint,
                       frame.height / emuPerPoint};
  const Insets in = insets(shapeGeometry(shape), whole.width, whole.height);
  return {whole.left + in.left, whole.top + in.top, whole.width - in.left - in.right,
          whole.height - in.top - in.bottom};
}

}  // namespace vellumark::deck
