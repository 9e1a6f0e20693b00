#include "deck/model/adjustments.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "deck/model/auto_size.h"
#include "deck/model/member_table.h"
#include "deck/model/preset_adjustments.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_geometry.h"

namespace vellumark::deck {
namespace {

constexpr double ratioUnits = 100'000;
constexpr double angleUnits = 60'000;

/// How hosts up to 11.0 see an arrow: the head's length as share of the side that it lies along, or what the
/// head leaves of that side; the shaft as the share of the other side that lies outside of it on either edge.
struct OldArrow {
  std::string_view preset;
  bool upright;    ///< the head lies along the height
  bool remainder;  ///< what the head leaves is counted, from the arrow's other end
  int headItem;    ///< item of the head
  int shaftItem;   ///< item of the shaft; 0 where there is none
  std::size_t headGuide;
};
constexpr OldArrow oldArrows[] = {
    {"homePlate", false, true, 1, 0, 0},         {"chevron", false, true, 1, 0, 0},
    {"rightArrow", false, true, 1, 2, 1},        {"stripedRightArrow", false, true, 1, 2, 1},
    {"notchedRightArrow", false, true, 1, 2, 1}, {"leftArrow", false, false, 1, 2, 1},
    {"leftRightArrow", false, false, 1, 2, 1},   {"upArrow", true, false, 1, 2, 1},
    {"downArrow", true, true, 1, 2, 1},          {"upDownArrow", true, false, 2, 1, 1},
};

class AdjustmentsObject : public ModelObject<AdjustmentsObject> {
 public:
  static constexpr const char* className = "Adjustments";
  static const MemberTable<AdjustmentsObject>& members() {
    static const MemberTable<AdjustmentsObject> table{
        property<&AdjustmentsObject::count>(member::Count),
        indexed<&AdjustmentsObject::item, &AdjustmentsObject::setItem>(member::Item, 1, 1),
    };
    return table;
  }

  AdjustmentsObject(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() {
    return static_cast<std::int32_t>(
        std::ranges::count_if(presetGuides(shapeGeometry(shape_).preset),
                              [](const PresetGuide& guide) { return guide.kind != GuideKind::factor; }));
  }

  float item(Arguments arguments) {
    const ShapeGeometry geometry = shapeGeometry(shape_);
    return read(geometry, requireItem(arguments[0].toInt()));
  }

  void setItem(Arguments arguments) {
    const std::int32_t item = requireItem(arguments[0].toInt());
    const float value = arguments[1].toFloat();
    const ShapeGeometry geometry = shapeGeometry(shape_);
    if (!std::isfinite(value)) base::raise(base::errors::outOfRange);
    if (read(geometry, item) == value) return;

    const std::span<const PresetGuide> guides = presetGuides(geometry.preset);
    const std::size_t place = guideOf(geometry, item);
    std::vector<std::int32_t> values;
    for (const PresetGuide& guide : guides) values.push_back(guideValue(geometry, guide));
    values[place] = toFile(geometry, item, guides[place], value);

    writePreset(shape_, std::string(geometry.preset), values);
    textChanged(shape_);
  }

 private:
  std::int32_t requireItem(std::int32_t item) {
    if (item < 1 || item > count()) base::raise(base::errors::outOfRange);
    return item;
  }

  const OldArrow* oldArrow(const ShapeGeometry& geometry) const {
    if (!host()->beforeRibbon()) return nullptr;
    const auto* arrow = std::ranges::find(oldArrows, geometry.preset, &OldArrow::preset);
    return arrow != std::end(oldArrows) ? arrow : nullptr;
  }

  /// The place of the guide behind an item. Factors come last in every preset, behind the adjustments.
  std::size_t guideOf(const ShapeGeometry& geometry, std::int32_t item) const {
    if (const OldArrow* arrow = oldArrow(geometry)) {
      return item == arrow->headItem ? arrow->headGuide : 1 - arrow->headGuide;
    }
    return static_cast<std::size_t>(item) - 1;
  }

  /// The shorter side as share of the side that an arrow's head lies along.
  double headScale(const OldArrow& arrow) const {
    const ShapeFrame frame = slideFrame(shape_);
    const double along = arrow.upright ? frame.height : frame.width;
    const double shorter = std::min(frame.width, frame.height);
    return along > 0 && shorter > 0 ? shorter / along : 1;
  }

  float read(const ShapeGeometry& geometry, std::int32_t item) const {
    const PresetGuide& guide = presetGuides(geometry.preset)[guideOf(geometry, item)];
    const double value =
        guideValue(geometry, guide) / (guide.kind == GuideKind::angle ? angleUnits : ratioUnits);
    const OldArrow* arrow = oldArrow(geometry);
    if (!arrow) return static_cast<float>(value);
    if (item == arrow->shaftItem) return static_cast<float>((1 - value) / 2);
    const double share = value * headScale(*arrow);
    return static_cast<float>(arrow->remainder ? 1 - share : share);
  }

  std::int32_t toFile(const ShapeGeometry& geometry, std::int32_t item, const PresetGuide& guide,
                      double value) const {
    if (const OldArrow* arrow = oldArrow(geometry)) {
      if (item == arrow->shaftItem) {
        value = 1 - 2 * value;
      } else {
        value = (arrow->remainder ? 1 - value : value) / headScale(*arrow);
      }
    }
    value *= guide.kind == GuideKind::angle ? angleUnits : ratioUnits;
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<double>(std::round(value), Limits::min(), Limits::max()));
  }

  ShapeKey shape_;
};

}  // namespace

host::ObjectRef makeAdjustments(const HostRef& host, const ShapeKey& shape) {
  return std::make_shared<AdjustmentsObject>(host, shape);
}

}  // namespace vellumark::deck
