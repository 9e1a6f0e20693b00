// Elements that show how one thing leads to the next.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "decks/template_canvas.h"

namespace vellumark::samples {
namespace {

using decks::PathStep;
using decks::ShapeBuilder;

void threeSteps(const Canvas& c) {
  const ArrowRow row{Page::left, c.page.span(), 26, 6, 3};
  const double panelTop = Page::top + 64 + 8, panelHeight = c.page.wide() ? 140 : 128;
  for (int i = 0; i < row.count; ++i) {
    row.draw(c, i, Page::top, 64, ordinal(i) + " step", c.textSize() + 2);
    auto text = c.panel(row.x(i), panelTop, row.bodyWidth(), panelHeight, Closed::nowhere)
                    .named("Activities " + std::to_string(i + 1));
    for (int p = 0; p < 3; ++p) text.text(ordinal(p) + " activity", c.point(c.textSize(), p == 0 ? 0 : 10));
    c.filled("rect", row.x(i), panelTop + panelHeight + 8, row.bodyWidth(), c.page.wide() ? 70 : 64,
             c.look.soft)
        .named("Result " + std::to_string(i + 1))
        .insets(14, 6, 14, 6)
        .text("Result", c.bold(c.detailSize(), c.look.title))
        .text("What we have then", c.text(c.textSize(), c.look.ink, 2));
  }
}

void fiveSteps(const Canvas& c) {
  const ArrowRow row{Page::left, c.page.span(), 20, 5, 5};
  const double size = c.page.wide() ? 16 : 13, height = c.page.wide() ? 196 : 172;
  for (int i = 0; i < row.count; ++i) {
    row.draw(c, i, Page::top, 60, ordinal(i) + "\vstep", c.page.wide() ? 18 : 15);
    const double side = c.page.wide() ? 14 : 10;
    auto text = c.panel(row.x(i), Page::top + 68, row.bodyWidth(), height)
                    .named("Details " + std::to_string(i + 1))
                    .insets(side, 12, 6, 8);
    for (const auto& [label, value] :
         {std::pair{"Task", "What we do"}, {"Owner", "Name, function"}, {"Due", "Month, year"}}) {
      const double before = std::string(label) == "Task" ? 0 : 12;
      text.text(label, c.bold(size, c.look.title, "l", before)).text(value, c.body(size, 1));
    }
  }
}

// ---- the cycle

struct Place {
  double x, y;
};

Place polar(const Place& middle, double radius, double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  return {middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)};
}

/// A quarter of a ring as an arrow that runs clockwise, from `start` (degrees, clockwise from the right) on.
struct RingArrow {
  Place middle;
  double outer, inner, start, sweep, point, gap;  ///< gap: points between two arrows, the same at all radii

  ShapeBuilder draw(const Canvas& c, const std::string& text, const decks::TextStyle& style) const {
    const double half = (outer + inner) / 2;
    // Half the gap at each end, as an angle.
    const auto aside = [&](double radius) { return gap / 2 / radius * 180 / std::numbers::pi; };
    const auto from = [&](double radius) { return start + aside(radius); };
    const auto to = [&](double radius) { return start + sweep - aside(radius); };
    const std::vector<Place> corners{
        polar(middle, outer, from(outer)),     polar(middle, outer, to(outer)),
        polar(middle, half, to(half) + point), polar(middle, inner, to(inner)),
        polar(middle, inner, from(inner)),     polar(middle, half, from(half) + point)};
    std::vector<Place> extremes = corners;
    for (double angle = 0; angle < 720; angle += 90) {
      if (angle > from(outer) && angle < to(outer)) extremes.push_back(polar(middle, outer, angle));
    }
    const auto [left, right] =
        std::minmax_element(extremes.begin(), extremes.end(), [](auto a, auto b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(extremes.begin(), extremes.end(), [](auto a, auto b) { return a.y < b.y; });
    const double x = left->x, y = top->y, width = right->x - x, height = bottom->y - y;
    const auto step = [&](int corner) {
      return PathStep{.x = corners[corner].x - x, .y = corners[corner].y - y};
    };

    // The text stands on the middle of the ring, which the margins move it to.
    const Place centre = polar(middle, half, start + (sweep + point) / 2);
    const double across = 2 * (centre.x - x - width / 2), down = 2 * (centre.y - y - height / 2);
    const auto arc = [&](double radius, double begin, double end) {
      return PathStep{.radius = radius, .start = std::fmod(begin, 360), .sweep = end - begin};
    };
    return c.tree
        .path(x, y, width, height,
              {step(0), arc(outer, from(outer), to(outer)), step(2), step(3),
               arc(inner, to(inner), from(inner)), step(5)})
        .noLine()
        .anchor("ctr")
        .insets(std::max(across, 0.0), std::max(down, 0.0), std::max(-across, 0.0), std::max(-down, 0.0))
        .text(text, style);
  }
};

void cycle(const Canvas& c) {
  const Place middle{c.page.width / 2, (Page::top + Page::bottom) / 2};
  const double outer = c.page.wide() ? 168 : 138, inner = outer * 0.6, half = (outer + inner) / 2, point = 11;
  for (int i = 0; i < 4; ++i) {
    const RingArrow arrow{middle, outer, inner, 180.0 + 90 * i - point / 2, 90, point, 5};
    arrow.draw(c, std::to_string(i + 1), c.bold(24, c.look.onHead, "ctr"))
        .fill(c.look.head)
        .named("Phase " + std::to_string(i + 1));
  }
  const double hub = inner * 1.3;
  c.plain(middle.x - hub / 2, middle.y - hub / 2, hub, hub, "ctr")
      .named("Centre")
      .text("What turns", c.bold(c.textSize() + 2, c.look.title, "ctr"))
      .text("and why", c.text(c.textSize(), c.look.ink, 0, "ctr"));

  // The phases stand beside their arrows, level with the numbers there.
  const double side = (c.page.span() - 2 * outer) / 2 - (c.page.wide() ? 24 : 14);
  const double height = c.page.wide() ? 80 : 72;
  for (int i = 0; i < 4; ++i) {
    const std::string number = std::to_string(i + 1);
    const double x = i == 0 || i == 3 ? Page::left : c.page.right() - side;
    const double y = polar(middle, half, 180 + 45 + 90 * i).y - height / 2;
    c.filled("rect", x, y, side, c.look.boxes ? 3 : 1.5, c.look.boxes ? c.look.head : c.look.rule)
        .named("Edge " + number);
    c.plain(x, y + 10, side, height - 10)
        .named("Text " + number)
        .text(ordinal(i) + " phase", c.bold(c.textSize(), c.look.title))
        .text("What happens, and what starts the next one", c.body(c.detailSize(), 4));
  }
}

// ---- further ones

void detailedSteps(const Canvas& c) {
  const double plate = c.page.wide() ? 208 : 176, gap = 10, height = (Page::bottom - Page::top - 3 * gap) / 4;
  const double depth = 22, x = Page::left + plate + 8;
  for (int i = 0; i < 4; ++i) {
    const double y = Page::top + i * (height + gap);
    c.filled("homePlate", Page::left, y, plate, height, c.look.head)
        .adjust({static_cast<int>(std::lround(depth / height * 100000))})
        .named("Step " + std::to_string(i + 1))
        .insets(16, 4, 4, 4)
        .text(std::to_string(i + 1) + "  " + ordinal(i) + " step", c.bold(c.textSize(), c.look.onHead));
    c.panel(x, y, c.page.right() - x, height)
        .named("Details " + std::to_string(i + 1))
        .anchor("ctr")
        .insets(18, 6, 14, 6)
        .text("First point: what we do", c.point(c.textSize(), 0))
        .text("Second point: what comes out of it", c.point(c.textSize(), 6));
  }
}

void timeline(const Canvas& c) {
  const int count = c.page.wide() ? 6 : 5;
  // Panels stand above and below by turns, each two places wide but for the gap.
  const double gap = 14, pitch = (c.page.span() + gap) / (count + 1), width = 2 * pitch - gap;
  const double height = c.page.wide() ? 112 : 104, stem = 36, axis = Page::top + height + stem, dot = 18;
  c.tree.connector("straightConnector1", Page::left, axis, c.page.right(), axis)
      .line(c.look.boxes ? c.look.rule : c.look.ink, c.look.boxes ? 6 : 1.5)
      .arrowHead()
      .named("Time");
  for (int i = 0; i < count; ++i) {
    const double x = Page::left + i * pitch, middle = x + width / 2;
    const bool above = i % 2 == 0, last = i == count - 1;
    const std::string number = std::to_string(i + 1);
    const std::string color = last ? c.look.strong : c.look.boxes ? c.look.head : "bg1";
    const auto panel =
        c.panel(x, above ? axis - stem - height : axis + stem, width, height,
                above ? Closed::below : Closed::above)
            .named("Milestone " + number)
            .text("Month " + std::to_string(3 * i + 1), c.bold(14, c.look.boxes ? c.look.head : c.look.quiet))
            .text(ordinal(i) + " milestone", c.bold(c.textSize(), c.look.title))
            .text("What is reached by then, and for whom", c.body(c.detailSize(), 4));
    const auto mark = c.tree.shape("ellipse", middle - dot / 2, axis - dot / 2, dot, dot)
                          .fill(color)
                          .line(c.look.boxes ? "bg1" : c.look.strong, c.look.boxes ? 2.5 : 1.5)
                          .named("Mark " + number);
    const double from = above ? axis - stem : axis + stem, to = above ? axis - dot / 2 : axis + dot / 2;
    c.tree.connector("straightConnector1", middle, from, middle, to)
        .line(c.look.boxes ? c.look.head : c.look.quiet, 1)
        .glue(panel, above ? 2 : 0, mark, above ? 0 : 4)
        .named("Stem " + number);
  }
}

}  // namespace

const std::vector<Element> processElements{threeSteps, fiveSteps, cycle, detailedSteps, timeline};

}  // namespace vellumark::samples
