// Elements of text: boxes, a quotation, key figures.

#include <array>

#include "decks/template_canvas.h"

namespace vellumark::samples {
namespace {

using decks::ShapeBuilder;

/// A box in the strong colour with the conclusion: one line, or a heading and a sentence where it is high.
void conclusion(const Canvas& c, double x, double y, double width, double height) {
  const std::string& color = c.look.onStrong;
  auto box = c.filled("rect", x, y, width, height, c.look.strong).named("Conclusion").insets(22, 4, 16, 4);
  if (height < width) {
    box.text("So what: the one sentence that everybody should remember", c.bold(16, color));
  } else {
    box.text("So what", c.bold(20, color))
        .text("The one sentence that everybody should remember", c.text(18, color, 8));
  }
  c.filled("rect", x, y, 6, height, c.look.mark).named("Conclusion mark");
}

void boxWithHeading(const Canvas& c) {
  const double left = Page::left, span = c.page.span(), head = 44, height = 244;
  const double aside = c.page.wide() ? 252 : 0, gap = c.page.wide() ? 16 : 4;
  const double width = c.page.wide() ? span - aside - gap : span, textTop = Page::top + head + c.look.gap;
  c.heading(left, Page::top, width, head, "Heading: what this box is about", 20);
  auto text = c.panel(left, textTop, width, height, c.page.wide() ? Closed::below : Closed::nowhere)
                  .named("Text")
                  .insets(14, 16, 14, 12);
  for (int i = 0; i < 3; ++i) {
    text.text(ordinal(i) + " point: what it means for us", c.point(18, i == 0 ? 0 : 14))
        .text("The figure or the fact that proves it", c.point(16, 4, 1));
  }
  text.text("Fourth point: what we do about it", c.point(18, 14));
  if (c.page.wide()) {
    conclusion(c, left + width + gap, Page::top, aside, textTop + height - Page::top);
  } else {
    conclusion(c, left, textTop + height + gap, span, 48);
  }
}

void twoBoxes(const Canvas& c) {
  const double gap = c.page.wide() ? 32 : 24, width = (c.page.span() - gap) / 2, head = 44, text = 212;
  for (int i = 0; i < 2; ++i) {
    const double x = Page::left + i * (width + gap), textTop = Page::top + head + c.look.gap;
    const std::string which = ordinal(i);
    const auto box = c.tree.group(x, Page::top, width, textTop + text - Page::top).named(which + " box");
    const Canvas inner = c.inside(box);
    inner.heading(x, Page::top, width, head, which + " heading", c.textSize() + 2);
    auto points = inner.panel(x, textTop, width, text).named("Text").insets(14, 16, 14, 12);
    for (int p = 0; p < 3; ++p) {
      points.text(ordinal(p) + " point: what it means for us", c.point(c.textSize(), p == 0 ? 0 : 14));
    }
    points.text("Details stand below their point", c.point(c.detailSize(), 4, 1))
        .text("Fourth point: what comes next", c.point(c.textSize(), 14));
  }
}

/// An opening quotation mark from two drops, as high as wide.
void quotationMark(const Canvas& c, double x, double y, double size, const std::string& color) {
  const double drop = size * 0.46;
  const auto group = c.tree.group(x, y, size, drop).named("Quotation mark");
  for (int i = 0; i < 2; ++i) {
    c.inside(group)
        .filled("teardrop", x + i * (size - drop), y, drop, drop, color)
        .named("Drop " + std::to_string(i + 1));
  }
}

void quotation(const Canvas& c) {
  const double left = Page::left, width = c.page.span(), top = Page::top, height = 264;
  const double edge = c.page.wide() ? 136 : 104, size = c.page.wide() ? 28 : 24;
  if (c.look.boxes) {
    c.filled("rect", left, top, edge, height, c.look.head).named("Band");
    c.filled("rect", left + edge, top, width - edge, height, c.look.panel).named("Panel");
    quotationMark(c, left + edge / 2 - 30, top + 32, 60, c.look.onHead);
  } else {
    c.rule(left, top, left + width, top).named("Upper rule");
    c.rule(left, top + height, left + width, top + height).named("Lower rule");
    quotationMark(c, left, top + 32, 60, "bg1 darker 25");
  }
  const double x = left + edge + (c.look.boxes ? 28 : 0),
               textWidth = left + width - (c.page.wide() ? 88 : 28) - x;
  c.plain(x, top + 28, textWidth, 132)
      .named("Quotation")
      .text(
          "Put the quotation here: two or three sentences at most, which make the point better than we could "
          "say it ourselves.",
          c.text(size, c.look.title));
  c.filled("rect", x, top + 182, 48, 3, c.look.mark).named("Mark");
  c.plain(x, top + 196, textWidth, 44)
      .named("Speaker")
      .text("Name of the speaker", c.bold(16, c.look.ink))
      .text("Position, organisation", c.text(14, c.look.quiet, 2));
}

void keyFigures(const Canvas& c) {
  static const std::array<const char*, 4> values{"€ 48 m", "12.4 %", "+8 %", "47"};
  const int count = c.page.wide() ? 4 : 3;
  const double gap = 16, width = (c.page.span() - (count - 1) * gap) / count, top = Page::top, height = 160;
  for (int i = 0; i < count; ++i) {
    const double x = Page::left + i * (width + gap);
    const bool filled = c.look.boxes;
    const std::string fill = filled ? (i == 0 ? c.look.strong : c.look.head) : "";
    const auto color = [&](const std::string& plain) { return filled ? c.look.onHead : plain; };
    const double side = filled ? 16 : 0;
    c.filled("rect", x, top, width, height, fill)
        .named("Figure " + std::to_string(i + 1))
        .anchor("t")
        .insets(side, 20, side, 12)
        .text(ordinal(i) + " figure", c.bold(16, color(c.look.quiet)))
        .text(values[i], c.bold(c.page.wide() ? 40 : 36, color(c.look.title), "l", 8))
        .text("Compared with what,\vand what it tells us", c.text(c.detailSize(), color(c.look.ink), 8));
    if (filled) {
      c.filled("rect", x, top, width, 6, i == 0 ? c.look.mark : c.look.rule)
          .named("Edge " + std::to_string(i + 1));
    } else {
      c.filled("rect", x, top, width, 4, i == 0 ? c.look.mark : c.look.strong)
          .named("Edge " + std::to_string(i + 1));
      c.rule(x, top + height, x + width, top + height).named("Rule " + std::to_string(i + 1));
    }
  }
}

}  // namespace

const std::vector<Element> textElements{boxWithHeading, twoBoxes, quotation, keyFigures};

}  // namespace vellumark::samples
