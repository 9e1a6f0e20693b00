// Elements that show how parts belong together.

#include <array>
#include <cmath>

#include "decks/template_canvas.h"

namespace vellumark::samples {
namespace {

using decks::ShapeBuilder;

void organisation(const Canvas& c) {
  const int count = c.page.wide() ? 5 : 4;
  const double gap = c.page.wide() ? 20 : 16, width = (c.page.span() - (count - 1) * gap) / count;
  const double headWidth = 228, headHeight = 64, unitTop = Page::top + headHeight + 48, unitHeight = 60;
  const double middle = c.page.width / 2;
  const auto person = [&](const ShapeBuilder& box, const std::string& unit, double size,
                          const std::string& color) {
    return box.insets(6, 4, 6, 4)
        .text(unit, c.bold(size, color, "ctr"))
        .text("Name of the head", c.text(size > 16 ? 14.0 : 13.0, color, 1, "ctr"));
  };
  const auto head =
      person(c.filled("rect", middle - headWidth / 2, Page::top, headWidth, headHeight, c.look.strong)
                 .named("Management"),
             "Management", 18, c.look.onStrong);
  for (int i = 0; i < count; ++i) {
    const double x = Page::left + i * (width + gap);
    const std::string number = std::to_string(i + 1);
    const auto unit =
        person(c.filled("rect", x, unitTop, width, unitHeight, c.look.head).named("Unit " + number),
               ordinal(i) + " unit", 16, c.look.onHead);
    c.tree.elbowDown(middle, Page::top + headHeight, x + width / 2, unitTop)
        .line(c.look.boxes ? c.look.strong : c.look.quiet, c.look.boxes ? 1.5 : 1)
        .glue(head, 2, unit, 0)
        .named("Connector " + number);
    c.panel(x, unitTop + unitHeight + c.look.gap, width, c.page.wide() ? 140 : 128)
        .named("Tasks " + number)
        .insets(10, 12, 8, 10)
        .text("First task", c.point(c.detailSize(), 0))
        .text("Second task", c.point(c.detailSize(), 6))
        .text("Third task", c.point(c.detailSize(), 6))
        .text("42 people", c.text(c.detailSize(), c.look.quiet, 12));
  }
}

// ---- the matrix

void axis(const Canvas& c, const char* name, double x1, double y1, double x2, double y2) {
  c.tree.connector("straightConnector1", x1, y1, x2, y2)
      .line(c.look.boxes ? c.look.strong : c.look.quiet, 1.5)
      .arrowHead()
      .named(name);
}

/// The labels of an axis along a strip: low, what it measures, high.
void axisLabels(const Canvas& c, const std::string& name, double x, double y, double width, double height,
                bool upright) {
  const double length = upright ? height : width, end = 44;
  const auto label = [&](double from, double size, const std::string& text, const decks::TextStyle& style) {
    const auto box = upright ? c.plain(x, y + height - from - size, width, size, "ctr").upright()
                             : c.plain(x + from, y, size, height, "ctr");
    box.text(text, style).named(name + " axis, " + text);
  };
  const auto small = [&](const char* align) { return c.text(12, c.look.quiet, 0, align); };
  label(0, end, "low", small("l"));
  label(end, length - 2 * end, name, c.bold(14, c.look.title, "ctr"));
  label(length - end, end, "high", small("r"));
}

void matrix(const Canvas& c) {
  struct Quadrant {
    const char *name, *advice;
    bool right, upper;
  };
  static constexpr std::array<Quadrant, 4> quadrants{
      {{"Plan well", "Much benefit for much effort", false, true},
       {"Do first", "Much benefit for little effort", true, true},
       {"Leave", "Little benefit for much effort", false, false},
       {"Do by the way", "Little benefit for little effort", true, false}}};
  const double strip = 24, gap = c.look.boxes ? 6 : 0, air = c.look.boxes ? 8 : 0;
  const double tip = c.look.boxes ? 0 : 16;  // how far the axes lead beyond the quadrants
  const double x = Page::left + strip + 8, notes = c.page.wide() ? 256 : 0;
  const double right = c.page.right() - (notes > 0 ? notes + 32 : 0), bottom = Page::bottom - strip - 8;
  const double width = (right - x - air - tip - gap) / 2;
  const double height = (bottom - Page::top - air - tip - gap) / 2, firstY = Page::top + tip;
  const double firstX = x + air;
  for (const auto& quadrant : quadrants) {
    const bool best = quadrant.right && quadrant.upper;
    const std::string& fill = best ? (c.look.boxes ? c.look.strong : c.look.head) : c.look.panel;
    const std::string& color = best && c.look.boxes ? c.look.onStrong : c.look.title;
    const auto box =
        c.filled("rect", firstX + (quadrant.right ? width + gap : 0),
                 firstY + (quadrant.upper ? 0 : height + gap), width, height, fill)
            .named(std::string("Quadrant ") + quadrant.name)
            .anchor("t")
            .insets(16, 14, 14, 12)
            .text(quadrant.name, c.bold(18, color))
            .text(quadrant.advice, c.text(c.detailSize(), best && c.look.boxes ? color : c.look.ink, 4));
    if (!c.look.boxes) box.line(c.look.rule, 0.75);
  }
  axis(c, "Benefit axis", x, bottom, x, Page::top);
  axis(c, "Ease axis", x, bottom, right, bottom);
  axisLabels(c, "Benefit", Page::left, Page::top, strip, bottom - Page::top, true);
  axisLabels(c, "Ease", x, bottom + 8, right - x, strip, false);
  if (notes == 0) return;
  const double noteX = c.page.right() - notes;
  c.filled("rect", noteX, Page::top, notes, 3, c.look.boxes ? c.look.mark : c.look.strong)
      .named("Notes edge");
  c.plain(noteX, Page::top + 16, notes, bottom - Page::top - 16)
      .named("Notes")
      .text("What follows from it", c.bold(18, c.look.title))
      .text("Start at the upper right: it pays for the rest", c.point(16, 12))
      .text("Plan the upper left by the end of the quarter", c.point(16, 10))
      .text("Decide what we leave, and say so", c.point(16, 10));
}

// ---- figures with notes beside them

struct Note {
  std::string head, text;
};

void note(const Canvas& c, int index, const Note& note, double x, double y, double height) {
  c.plain(x, y, c.page.right() - x, height, "ctr")
      .named("Note " + std::to_string(index + 1))
      .text(note.head, c.bold(c.textSize(), c.look.title))
      .text(note.text, c.body(c.detailSize(), 2));
}

/// The notes beside the levels of a figure, which have the same height and gaps: thin rules between them
/// begin at the figure's edge, told for each gap.
template <typename Edge>
void notesOfLevels(const Canvas& c, const std::vector<Note>& notes, double x, double pitch, double gap,
                   Edge edgeAt) {
  for (int i = 0; i < static_cast<int>(notes.size()); ++i) {
    const double y = Page::top + i * pitch;
    if (i > 0)
      c.rule(edgeAt(i) + 12, y - gap / 2, c.page.right(), y - gap / 2).named("Rule " + std::to_string(i));
    note(c, i, notes[i], x, y, pitch - gap);
  }
}

/// Fills from the strong colour down to quieter ones, and the text on them.
struct Shade {
  std::string fill, text;
};

Shade shade(const Look& look, int level) {
  if (level == 0) return {look.strong, look.onStrong};
  if (look.boxes)
    return level < 3 ? Shade{level == 1 ? "accent1" : "accent1 lighter 20", "bg1"}
                     : Shade{"accent1 lighter 60", look.title};
  static const std::array<const char*, 3> greys{"bg1 darker 25", "bg1 darker 15", "bg1 darker 5"};
  return {greys.at(level - 1), look.ink};
}

void pyramid(const Canvas& c) {
  constexpr int count = 4;
  const double base = c.page.wide() ? 440 : 376, height = (Page::bottom - Page::top) / count;
  const double slope = base / 2 / (count * height);  // how far an edge goes aside for each point down
  const double middle = Page::left + base / 2;
  static const std::array<const char*, count> names{"Vision", "Strategy", "Programmes", "Daily work"};
  for (int i = 0; i < count; ++i) {
    const double width = 2 * slope * height * (i + 1);
    const Shade colors = shade(c.look, i);
    const auto level = c.filled(i == 0 ? "triangle" : "trapezoid", middle - width / 2, Page::top + i * height,
                                width, height, colors.fill)
                           .line("bg1", 1.5)
                           .named(std::string("Level ") + names[i])
                           .insets(0, 0, 0, i == 0 ? 8 : 0)
                           .text(names[i], c.bold(i > 0           ? 18
                                                  : c.page.wide() ? 14
                                                                  : 13,
                                                  colors.text, "ctr"));
    if (i > 0)
      level.adjust({static_cast<int>(std::lround(slope * 100000))});  // of the shorter side, the height
  }
  const double textX = Page::left + base + (c.page.wide() ? 40 : 20);
  const std::string text = "What belongs here, and why";
  notesOfLevels(
      c, {{"First level", text}, {"Second level", text}, {"Third level", text}, {"Fourth level", text}},
      textX, height, 0, [&](int i) { return middle + slope * height * i; });
}

void funnel(const Canvas& c) {
  constexpr int count = 4;
  static const std::array<const char*, count> values{"1,200", "480", "160", "48"};
  const double widest = c.page.wide() ? 400 : 336, narrowest = 112, gap = 4;
  const double pitch = (Page::bottom - Page::top + gap) / count, height = pitch - gap;
  const double middle = Page::left + widest / 2,
               slope = (widest - narrowest) / 2 / (Page::bottom - Page::top);
  for (int i = 0; i < count; ++i) {
    const double aside = slope * pitch * i, width = widest - 2 * aside, in = slope * height;
    const Shade colors = shade(c.look, count - 1 - i);
    c.tree
        .freeform(Page::left + aside, Page::top + i * pitch, width, height,
                  {{0, 0}, {width, 0}, {width - in, height}, {in, height}})
        .fill(colors.fill)
        .noLine()
        .named("Stage " + std::to_string(i + 1))
        .anchor("ctr")
        .insets(0, 0, 0, 0)
        .text(values[i], c.bold(24, colors.text, "ctr"));
  }
  notesOfLevels(c,
                {{"First stage", "40 % of them go on"},
                 {"Second stage", "33 % of them go on"},
                 {"Third stage", "30 % of them go on"},
                 {"Fourth stage", "What we have in the end"}},
                Page::left + widest + (c.page.wide() ? 40 : 24), pitch, gap,
                [&](int i) { return middle + widest / 2 - slope * (pitch * i - gap / 2); });
}

// ---- the Venn diagram

void venn(const Canvas& c) {
  const double size = c.page.wide() ? 228 : 214, apart = size * 0.6, height = apart * std::sqrt(3.0) / 2;
  const double figure = size + apart, top = Page::top + (Page::bottom - Page::top - height - size) / 2;
  const double x = Page::left, shift = size * 0.2;
  static const std::array<const char*, 3> fills{"accent1", "accent3", "tx2"};
  static const std::array<const char*, 3> names{"First\vfield", "Second\vfield", "Third\vfield"};
  const auto circle = [&](int i, double circleX, double circleY) {
    const auto shape =
        c.filled("ellipse", circleX, circleY, size, size,
                 c.look.boxes ? std::string(fills[i]) + " opaque 22" : "bg1 darker 15 opaque 35")
            .line(c.look.boxes ? fills[i] : "tx1 lighter 35", c.look.boxes ? 1.5 : 1)
            .named("Circle " + std::to_string(i + 1))
            .text(names[i], c.bold(16, c.look.title, "ctr"));
    return shape;
  };
  circle(0, x + apart / 2, top).insets(0, 0, 0, size * 0.42);
  circle(1, x, top + height).insets(0, shift * 1.2, shift * 1.9, 0);
  circle(2, x + apart, top + height).insets(shift * 1.9, shift * 1.2, 0, 0);
  const double coreX = x + figure / 2, coreY = top + size / 2 + height * 2 / 3;
  const double core = size * 0.3;
  c.filled("ellipse", coreX - core / 2, coreY - core / 2, core, core, c.look.strong)
      .named("Core")
      .insets(0, 0, 0, 0)
      .text("All\vthree", c.bold(14, c.look.onStrong, "ctr"));

  static const std::array<Note, 4> notes{{{"First field", "What it stands for and brings"},
                                          {"Second field", "What it stands for and brings"},
                                          {"Third field", "What it stands for and brings"},
                                          {"All three together", "Why we want to be here"}}};
  const double notesX = x + figure + (c.page.wide() ? 64 : 28), step = (height + size) / 4;
  for (int i = 0; i < 4; ++i) {
    const double y = top + i * step;
    if (i > 0) c.rule(notesX, y, c.page.right(), y).named("Rule " + std::to_string(i));
    note(c, i, notes[i], notesX, y, step);
  }
}

}  // namespace

const std::vector<Element> structureElements{organisation, matrix, pyramid, funnel, venn};

}  // namespace vellumark::samples
