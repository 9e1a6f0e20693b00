#include "deck/drawing/paints.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>
#include <vector>

#include "deck/model/color.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_style.h"
#include "deck/model/theme.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

using platform::Argb;
using platform::Brush;
using platform::Pen;
using pugi::xml_node;

/// The opacity that a colour element gives, 0 to 1.
double opacityOf(xml_node element, xml_node placeholder, int depth = 0) {
  if (!element || depth > 2) return 1;
  double opacity = 1;
  if (std::string_view(element.attribute("val").value()) == "phClr") {
    opacity = opacityOf(placeholder, {}, depth + 1);
  }
  for (const xml_node change : element.children()) {
    const std::string_view name = localName(change);
    const double value = shareOf(change.attribute("val"), 1);
    if (name == "alpha") opacity = value;
    if (name == "alphaMod") opacity *= value;
    if (name == "alphaOff") opacity += value;
  }
  return std::clamp(opacity, 0.0, 1.0);
}

Argb mixed(Argb a, Argb b, double shareOfB) {
  Argb result = 0;
  for (const int shift : {0, 8, 16, 24}) {
    const double from = a >> shift & 0xFF, to = b >> shift & 0xFF;
    result |= static_cast<Argb>(std::lround(from + (to - from) * shareOfB)) << shift;
  }
  return result;
}

/// The share of a pattern that is drawn in its foreground colour.
double inkOf(std::string_view pattern) {
  if (pattern.starts_with("pct")) {
    int percent = 50;
    std::from_chars(pattern.data() + 3, pattern.data() + pattern.size(), percent);
    return std::clamp(percent, 5, 90) / 100.0;
  }
  if (pattern.starts_with("lt") || pattern.starts_with("sm") || pattern.ends_with("Grid")) return 0.25;
  if (pattern.starts_with("dk")) return 0.5;
  return 0.35;
}

std::vector<platform::GradientStop> stopsOf(const Sheet& sheet, xml_node gradient, xml_node placeholder) {
  std::vector<platform::GradientStop> stops;
  for (const xml_node stop : gradient.child("a:gsLst").children("a:gs")) {
    stops.push_back({std::clamp(shareOf(stop.attribute("pos")), 0.0, 1.0),
                     drawnColor(sheet, colorElement(stop), placeholder)});
  }
  std::ranges::stable_sort(stops, {}, &platform::GradientStop::place);
  return stops;
}

/// A gradient in a shape runs from corner to corner along its angle, which a scaled one takes as the angle in
/// a square.
Brush gradientBrush(const Sheet& sheet, xml_node gradient, const PaintArea& area, xml_node placeholder) {
  Brush brush;
  brush.stops = stopsOf(sheet, gradient, placeholder);
  if (brush.stops.empty()) return brush;
  const double width = area.width, height = area.height;
  if (const xml_node path = gradient.child("a:path")) {
    brush.kind = Brush::Kind::radial;
    const xml_node to = path.child("a:fillToRect");
    const double left = shareOf(to.attribute("l")), right = shareOf(to.attribute("r"));
    const double top = shareOf(to.attribute("t")), bottom = shareOf(to.attribute("b"));
    const platform::DrawPoint centre{width * (left + 1 - right) / 2, height * (top + 1 - bottom) / 2};
    const double radius =
        std::hypot(std::max(centre.x, width - centre.x), std::max(centre.y, height - centre.y));
    brush.from = area.toSlide(centre);
    brush.to = area.toSlide({centre.x + radius, centre.y});
    return brush;
  }
  brush.kind = Brush::Kind::linear;
  const xml_node linear = gradient.child("a:lin");
  double a = static_cast<double>(wholeNumber(linear.attribute("ang"), 0, 21'600'000)) / 60'000 *
             std::numbers::pi / 180;
  if (linear.attribute("scaled").as_bool() && width > 0 && height > 0) {
    a = std::atan2(std::sin(a) * height, std::cos(a) * width);
  }
  const double half = (std::abs(width * std::cos(a)) + std::abs(height * std::sin(a))) / 2;
  const platform::DrawPoint centre{width / 2, height / 2};
  brush.from = area.toSlide({centre.x - half * std::cos(a), centre.y - half * std::sin(a)});
  brush.to = area.toSlide({centre.x + half * std::cos(a), centre.y + half * std::sin(a)});
  return brush;
}

/// A place of the theme that a shape's style refers to, with the colour that it gives it.
Themed styled(const ShapeKey& shape, const char* reference) {
  const xml_node style = styleReference(shape.node, reference);
  if (!style) return {};
  const bool isLine = std::string_view(reference) == "a:lnRef";
  const xml_node place =
      isLine ? themeLine(shape.sheet, themeIndex(style)) : themeFill(shape.sheet, themeIndex(style));
  return {place, colorElement(style)};
}

std::vector<double> dashesOf(xml_node line) {
  const std::string_view preset = line.child("a:prstDash").attribute("val").value();
  struct Named {
    std::string_view name;
    std::vector<double> dashes;
  };
  static const Named known[] = {{"dot", {1, 3}},
                                {"sysDot", {1, 1}},
                                {"dash", {4, 3}},
                                {"sysDash", {3, 1}},
                                {"lgDash", {8, 3}},
                                {"dashDot", {4, 3, 1, 3}},
                                {"sysDashDot", {3, 1, 1, 1}},
                                {"lgDashDot", {8, 3, 1, 3}},
                                {"sysDashDotDot", {3, 1, 1, 1, 1, 1}},
                                {"lgDashDotDot", {8, 3, 1, 3, 1, 3}}};
  for (const Named& dash : known) {
    if (dash.name == preset) return dash.dashes;
  }
  std::vector<double> dashes;
  for (const xml_node dash : line.child("a:custDash").children("a:ds")) {
    if (dashes.size() >= 16) break;
    dashes.push_back(std::max(shareOf(dash.attribute("d"), 1), 0.01));
    dashes.push_back(std::max(shareOf(dash.attribute("sp"), 1), 0.01));
  }
  return dashes;
}

LineEnd endOf(xml_node end) {
  LineEnd made;
  const std::string_view kind = end.attribute("type").as_string("none");
  if (kind == "none") return made;
  made.kind = kind;
  const auto size = [](std::string_view text) { return text == "sm" ? 2.0 : text == "lg" ? 5.0 : 3.0; };
  made.width = size(end.attribute("w").value());
  made.length = size(end.attribute("len").value());
  return made;
}

/// A line of which every part comes from the first of its sources that has it.
class Sources {
 public:
  explicit Sources(std::vector<Themed> lines) : lines_(std::move(lines)) {}
  template <typename Find>
  auto first(Find find) const {
    decltype(find(xml_node())) found{};
    for (const Themed& line : lines_) {
      if ((found = find(line.element))) return found;
    }
    return found;
  }
  Themed fill() const {
    for (const Themed& line : lines_) {
      if (const xml_node found = fillElement(line.element)) return {found, line.placeholder};
    }
    return {};
  }
  xml_node child(const char* name) const {
    return first([&](xml_node line) { return line.child(name); });
  }
  pugi::xml_attribute attribute(const char* name) const {
    return first([&](xml_node line) { return line.attribute(name); });
  }

 private:
  std::vector<Themed> lines_;
};

Line lineFrom(const Sources& sources, Argb color) {
  Line line;
  line.pen.color = color;
  line.pen.width =
      static_cast<double>(wholeNumber(sources.attribute("w"), 0, 20'116'800, usualLineWeight)) / emuPerPoint;
  // The thinnest line there is still has a width on a screen.
  line.pen.width = std::max(line.pen.width, 0.25);
  line.pen.dashes = dashesOf(sources.first([](xml_node node) {
    return node.child("a:prstDash") || node.child("a:custDash") ? node : xml_node();
  }));
  const std::string_view cap = sources.attribute("cap").value();
  line.pen.cap = cap == "rnd" ? Pen::Cap::round : cap == "sq" ? Pen::Cap::square : Pen::Cap::flat;
  line.pen.join = sources.child("a:miter")   ? Pen::Join::miter
                  : sources.child("a:bevel") ? Pen::Join::bevel
                                             : Pen::Join::round;
  line.head = endOf(sources.child("a:headEnd"));
  line.tail = endOf(sources.child("a:tailEnd"));
  return line;
}

/// The one colour that a line of this fill is drawn in; nothing to see for none.
Argb colorOfFill(const Sheet& sheet, xml_node fill, xml_node placeholder) {
  const auto brush = brushOf(sheet, fill, {1, 1, {}}, placeholder);
  if (!brush) return 0;
  return brush->stops.empty() ? brush->color : brush->stops.front().color;
}

}  // namespace

Argb drawnColor(const Sheet& sheet, xml_node element, xml_node placeholder) {
  const auto bgr = static_cast<std::uint32_t>(colorNumber(sheet, element, placeholder));
  const auto alpha = static_cast<Argb>(std::lround(opacityOf(element, placeholder) * 255));
  return alpha << 24 | (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
}

Argb shaded(Argb color, PathFill fill) {
  const Argb opaque = color & 0xFF000000;
  switch (fill) {
    case PathFill::lighten:
      return mixed(color, opaque | 0xFFFFFF, 0.4);
    case PathFill::lightenLess:
      return mixed(color, opaque | 0xFFFFFF, 0.2);
    case PathFill::darken:
      return mixed(color, opaque, 0.4);
    case PathFill::darkenLess:
      return mixed(color, opaque, 0.2);
    default:
      return color;
  }
}

std::optional<Brush> brushOf(const Sheet& sheet, xml_node fill, const PaintArea& area, xml_node placeholder) {
  const std::string_view kind = localName(fill);
  if (kind == "solidFill") return Brush{.color = drawnColor(sheet, colorElement(fill), placeholder)};
  if (kind == "gradFill") {
    Brush brush = gradientBrush(sheet, fill, area, placeholder);
    if (brush.stops.empty()) return std::nullopt;
    return brush;
  }
  if (kind == "pattFill") {
    // At the size of a picture a pattern is the mixture of its two colours.
    const Argb ink = drawnColor(sheet, colorElement(fill.child("a:fgClr")), placeholder);
    const Argb paper = fill.child("a:bgClr")
                           ? drawnColor(sheet, colorElement(fill.child("a:bgClr")), placeholder)
                           : 0xFFFFFFFF;
    return Brush{.color = mixed(paper, ink, inkOf(fill.attribute("prst").value()))};
  }
  return std::nullopt;
}

Themed shapeFill(const ShapeKey& shape) {
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    xml_node fill = fillElement(visualProperties(holder.node));
    // What is filled as its group looks there.
    for (xml_node group = parentGroup(shape.node); localName(fill) == "grpFill" && group;
         group = parentGroup(group)) {
      fill = fillElement(visualProperties(group));
    }
    if (localName(fill) == "grpFill") return {};
    if (fill) return {fill, {}};
    if (const Themed style = styled(holder, "a:fillRef"); style.element) return style;
  }
  return {};
}

std::optional<Line> shapeLine(const ShapeKey& shape) {
  std::vector<Themed> lines;
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    if (const xml_node line = visualProperties(holder.node).child("a:ln")) lines.push_back({line, {}});
    if (const Themed style = styled(holder, "a:lnRef"); style.element) lines.push_back(style);
  }
  if (lines.empty()) return std::nullopt;
  const Sources sources(std::move(lines));
  const Themed fill = sources.fill();
  const Argb color = colorOfFill(shape.sheet, fill.element, fill.placeholder);
  if (color >> 24 == 0) return std::nullopt;
  return lineFrom(sources, color);
}

std::optional<Line> lineOf(const Sheet& sheet, xml_node line, xml_node placeholder) {
  const Argb color = colorOfFill(sheet, fillElement(line), placeholder);
  if (color >> 24 == 0) return std::nullopt;
  return lineFrom(Sources({{line, placeholder}}), color);
}

}  // namespace vellumark::deck
