#include "ui/layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "ui/controls.h"
#include "ui/lists.h"

namespace vellumark::ui {

Box row(std::vector<Box> children) {
  Box box;
  box.kind_ = Box::Kind::row;
  box.children_ = std::move(children);
  return box;
}

Box column(std::vector<Box> children) {
  Box box = row(std::move(children));
  box.kind_ = Box::Kind::column;
  return box;
}

Box grid(int columns, std::vector<Box> children) {
  Box box = row(std::move(children));
  box.kind_ = Box::Kind::grid;
  box.columns_ = std::max(1, columns);
  return box;
}

Box layers(std::vector<Box> children) {
  Box box = row(std::move(children));
  box.kind_ = Box::Kind::layers;
  return box;
}

Box stack(std::vector<Box> children) {
  Box box = row(std::move(children));
  box.kind_ = Box::Kind::stack;
  return box;
}

Box space(int stretch) {
  Box box;
  box.kind_ = Box::Kind::space;
  box.stretch_ = stretch;
  return box;
}

namespace {

/// The child of a stack whose frame is in front, the first one before any was brought there.
const Box& frontOf(const Box& stack) {
  return *std::ranges::max_element(
      stack.children(), {}, [](const Box& child) { return child.frame() ? child.frame()->order() : 0; });
}

class Engine {
 public:
  Engine(const TextMeasurer& measurer, Arrangement& arrangement)
      : measurer_(measurer), arrangement_(arrangement), character_(measurer.character()) {}

  /// The smallest size at which nothing is cut.
  Size natural(const Box& box) const {
    Size size = content(box);
    size.width = std::max(size.width, box.minimumSize().width * character_.width);
    size.height = std::max(size.height, box.minimumSize().height * character_.height);
    if (box.frame()) {
      const Size title = measurer_.text(plainCaption(box.frame()->caption()), 1, false, 0);
      size.width = std::max(size.width, title.width) + 2 * padding();
      size.height += character_.height + 2 * padding();
    }
    return size;
  }

  void place(const Box& box, Rect area) {
    if (box.frame()) {
      arrangement_.places[box.frame()] = area;
      area.x += padding();
      area.y += character_.height + padding() / 2;
      area.width -= 2 * padding();
      area.height -= character_.height + 2 * padding() - padding() / 2;
    }
    switch (box.kind()) {
      case Box::Kind::control:
        arrangement_.places[box.control()] = area;
        return;
      case Box::Kind::row:
        return placeLine(box, area, true);
      case Box::Kind::column:
        return placeLine(box, area, false);
      case Box::Kind::grid:
        return placeGrid(box, area);
      case Box::Kind::layers:
        for (const Box& child : box.children())
          place(child, aligned(child, aligned(child, area, false), true));
        return;
      case Box::Kind::stack:
        if (!box.children().empty()) place(frontOf(box), area);
        return;
      case Box::Kind::empty:
      case Box::Kind::space:
        return;
    }
  }

  int padding() const { return character_.height / 2; }

 private:
  int gapOf(const Box& box) const { return box.gapSize() * character_.height / 4; }

  Size content(const Box& box) const {
    switch (box.kind()) {
      case Box::Kind::control:
        return sizeOf(*box.control());
      case Box::Kind::row:
      case Box::Kind::column: {
        const bool across = box.kind() == Box::Kind::row;
        int along = box.children().empty() ? 0 : gapOf(box) * (static_cast<int>(box.children().size()) - 1);
        int other = 0;
        for (const Box& child : box.children()) {
          const Size size = natural(child);
          along += across ? size.width : size.height;
          other = std::max(other, across ? size.height : size.width);
        }
        return across ? Size{along, other} : Size{other, along};
      }
      case Box::Kind::grid: {
        const auto [widths, heights] = gridTracks(box);
        const int gap = gapOf(box);
        return {total(widths, gap), total(heights, gap)};
      }
      case Box::Kind::layers:
      case Box::Kind::stack: {
        Size size;
        for (const Box& child : box.children()) {
          const Size own = natural(child);
          size = {std::max(size.width, own.width), std::max(size.height, own.height)};
        }
        return size;
      }
      default:
        return {};
    }
  }

  static int total(const std::vector<int>& tracks, int gap) {
    return std::accumulate(tracks.begin(), tracks.end(), 0) +
           gap * std::max(0, static_cast<int>(tracks.size()) - 1);
  }

  std::pair<std::vector<int>, std::vector<int>> gridTracks(const Box& box) const {
    const auto columns = static_cast<std::size_t>(box.columns());
    std::vector<int> widths(columns), heights((box.children().size() + columns - 1) / columns);
    for (std::size_t i = 0; i < box.children().size(); ++i) {
      const Size size = natural(box.children()[i]);
      widths[i % columns] = std::max(widths[i % columns], size.width);
      heights[i / columns] = std::max(heights[i / columns], size.height);
    }
    return {widths, heights};
  }

  /// Shares what is left of `length` among the tracks by their factors.
  static void spread(std::vector<int>& tracks, const std::vector<int>& factors, int length, int gap) {
    int left = length - total(tracks, gap);
    int weight = std::accumulate(factors.begin(), factors.end(), 0);
    for (std::size_t i = 0; i < tracks.size() && left > 0 && weight > 0; ++i) {
      const int share = left * factors[i] / weight;
      tracks[i] += share;
      left -= share;
      weight -= factors[i];
    }
  }

  void placeLine(const Box& box, const Rect& area, bool across) {
    std::vector<int> lengths, factors;
    for (const Box& child : box.children()) {
      const Size size = natural(child);
      lengths.push_back(across ? size.width : size.height);
      factors.push_back(child.stretchFactor());
    }
    const int gap = gapOf(box);
    spread(lengths, factors, across ? area.width : area.height, gap);
    int at = across ? area.x : area.y;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      const Box& child = box.children()[i];
      Rect cell =
          across ? Rect{at, area.y, lengths[i], area.height} : Rect{area.x, at, area.width, lengths[i]};
      place(child, aligned(child, cell, across));
      at += lengths[i] + gap;
    }
  }

  void placeGrid(const Box& box, const Rect& area) {
    auto [widths, heights] = gridTracks(box);
    const auto columns = static_cast<std::size_t>(box.columns());
    std::vector<int> factors(columns);
    for (std::size_t i = 0; i < box.children().size(); ++i) {
      factors[i % columns] = std::max(factors[i % columns], box.children()[i].stretchFactor());
    }
    const int gap = gapOf(box);
    spread(widths, factors, area.width, gap);
    int y = area.y;
    for (std::size_t r = 0; r < heights.size(); ++r) {
      int x = area.x;
      for (std::size_t c = 0; c < columns && r * columns + c < box.children().size(); ++c) {
        const Box& child = box.children()[r * columns + c];
        place(child, aligned(child, {x, y, widths[c], heights[r]}, true));
        x += widths[c] + gap;
      }
      y += heights[r] + gap;
    }
  }

  /// The part of a cell that a child takes up. In rows, what has a height of its own is centred rather than
  /// stretched.
  Rect aligned(const Box& child, Rect cell, bool inRow) const {
    const Size size = natural(child);
    const bool keepsHeight = inRow && child.kind() == Box::Kind::control && !growsInHeight(*child.control());
    const auto fit = [](int& start, int& length, int wanted, Align align) {
      const int left = length - wanted;
      if (align == Align::fill || left <= 0) return;
      if (align == Align::center) start += left / 2;
      if (align == Align::end) start += left;
      length = wanted;
    };
    if (inRow) {
      const Align align = child.alignment() == Align::fill && keepsHeight ? Align::center : child.alignment();
      fit(cell.y, cell.height, size.height, align);
      if (child.stretchFactor() == 0 && child.kind() == Box::Kind::control && keepsWidth(*child.control())) {
        fit(cell.x, cell.width, size.width, Align::start);
      }
    } else {
      fit(cell.x, cell.width, size.width, child.alignment());
    }
    return cell;
  }

  static bool growsInHeight(const Control& control) {
    const auto* text = dynamic_cast<const TextBox*>(&control);
    return (text && text->multiLine()) || dynamic_cast<const ListBox*>(&control) ||
           dynamic_cast<const TreeView*>(&control) || hasGround(control);
  }
  /// Whether it is a label on a ground of its own, which fills its cell.
  static bool hasGround(const Control& control) {
    return control.backColor() && dynamic_cast<const Label*>(&control);
  }
  static bool keepsWidth(const Control& control) {
    return dynamic_cast<const ScrollBar*>(&control) || dynamic_cast<const PictureBox*>(&control) ||
           dynamic_cast<const ColorBox*>(&control);
  }

  Size sizeOf(const Control& control) const {
    const int line = character_.height;
    const int field = line + line / 2 + 2;  // one line in a border
    const auto captioned = [&](const std::string& caption) {
      return measurer_.text(plainCaption(caption), control.fontScale(), control.bold(), 0);
    };
    if (const auto* label = dynamic_cast<const Label*>(&control)) {
      const std::string text = label->link() ? label->caption() : plainCaption(label->caption());
      Size size = measurer_.text(text, label->fontScale(), label->bold(), label->wrapAt() * character_.width);
      if (hasGround(*label)) size = {size.width + line, size.height + 2 * line / 3};
      return size;
    }
    if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
      return {text->columns() * character_.width + line, (text->lines() - 1) * line + field};
    }
    if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
      const Size caption = captioned(button->caption());
      return {std::max(caption.width + 2 * line, 5 * line),
              std::max(caption.height + line * 3 / 4, field + 2)};
    }
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
      const Size caption = captioned(box->caption());
      return {caption.width + 2 * line, std::max(caption.height, line + 4)};
    }
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
      const Size caption = captioned(option->caption());
      return {caption.width + 2 * line, std::max(caption.height, line + 4)};
    }
    if (const auto* items = dynamic_cast<const ItemControl*>(&control)) {
      int width = 12 * character_.width;
      for (const ListItem& item : items->items()) {
        width = std::max(width, measurer_.text(item.text, control.fontScale(), control.bold(), 0).width);
      }
      const auto* list = dynamic_cast<const ListBox*>(items);
      return {width + 3 * line, list ? list->lines() * (line + 4) + 4 : field};
    }
    if (dynamic_cast<const TreeView*>(&control)) return {32 * character_.width, 12 * (line + 4)};
    if (dynamic_cast<const ScrollBar*>(&control)) return {line + 4, field};
    if (dynamic_cast<const ProgressBar*>(&control)) return {24 * character_.width, line};
    if (const auto* picture = dynamic_cast<const PictureBox*>(&control)) {
      const auto scaled = [&](int pixels) {
        return static_cast<int>(std::lround(pixels * measurer_.canvasScale()));
      };
      return {scaled(picture->canvas().width()), scaled(picture->canvas().height())};
    }
    if (dynamic_cast<const ColorBox*>(&control)) return {2 * line, field};
    if (dynamic_cast<const Line*>(&control)) return {0, 2};
    return {};
  }

  const TextMeasurer& measurer_;
  Arrangement& arrangement_;
  Size character_;
};

}  // namespace

bool isCovered(const Box& layout, const Control& control) {
  const auto holds = [&](const Box& box, const auto& self) -> bool {
    return box.control() == &control ||
           std::ranges::any_of(box.children(), [&](const Box& child) { return self(child, self); });
  };
  return std::ranges::any_of(layout.children(), [&](const Box& child) {
    const bool behind = layout.kind() == Box::Kind::stack && &child != &frontOf(layout);
    return behind ? holds(child, holds) : isCovered(child, control);
  });
}

Arrangement arrange(const Box& layout, const TextMeasurer& measurer, Size size) {
  Arrangement arrangement;
  Engine engine(measurer, arrangement);
  const Size natural = engine.natural(layout);
  const int margin = engine.padding() + engine.padding() / 2;
  arrangement.size = {std::max(natural.width + 2 * margin, size.width),
                      std::max(natural.height + 2 * margin, size.height)};
  engine.place(layout,
               {margin, margin, arrangement.size.width - 2 * margin, arrangement.size.height - 2 * margin});
  return arrangement;
}

}  // namespace vellumark::ui
