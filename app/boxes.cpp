#include "boxes.h"

#include <unordered_map>

#include "base/trap.h"
#include "tools/trimline_tools.h"

namespace vellumark::app {
namespace {

/// "276 → 264", or one figure where both look the same.
std::string change(double before, double after) {
  const std::string from = pointsText(before), to = pointsText(after);
  return from == to ? to : from + " → " + to;
}

bool looksTheSame(const VisualBox& a, const VisualBox& b) {
  return pointsText(a.left) == pointsText(b.left) && pointsText(a.top) == pointsText(b.top) &&
         pointsText(a.width) == pointsText(b.width) && pointsText(a.height) == pointsText(b.height);
}

}  // namespace

std::optional<VisualBox> visualBox(const host::Shape& shape) {
  // The tools report a failure to the user in a dialog; so ask first whether the shape tells its frame at
  // all.
  const bool measurable =
      base::resumeNext([&] { shape.Left(), shape.Top(), shape.Width(), shape.Height(), shape.Rotation(); });
  if (!measurable) return std::nullopt;
  tools::TrimlineTools tools;
  return VisualBox{tools.getLeft(shape), tools.getTop(shape), tools.getWidth(shape), tools.getHeight(shape)};
}

std::vector<Snapshot> takeSnapshots(const host::Shapes& shapes) {
  std::vector<Snapshot> snapshots;
  const int count = shapes ? shapes.Count() : 0;
  for (int i = 1; i <= count; ++i) {
    const host::Shape shape = shapes.Item(i);
    if (const auto box = visualBox(shape)) snapshots.push_back({shape.Id(), shape.Name(), *box});
  }
  return snapshots;
}

Table boxTable(const std::vector<Snapshot>& before, const std::vector<Snapshot>& after, Show show) {
  constexpr auto right = Table::Align::right;
  Table table({{"shape"}, {"left", right}, {"top", right}, {"width", right}, {"height", right}});
  std::unordered_map<int, const VisualBox*> known;
  for (const Snapshot& was : before) known.emplace(was.id, &was.box);
  for (const Snapshot& now : after) {
    const auto found = known.find(now.id);
    if (found == known.end() || (show == Show::changed && looksTheSame(*found->second, now.box))) continue;
    const VisualBox& was = *found->second;
    table.row({excerpt(now.name, 40), change(was.left, now.box.left), change(was.top, now.box.top),
               change(was.width, now.box.width), change(was.height, now.box.height)});
  }
  return table;
}

}  // namespace vellumark::app
