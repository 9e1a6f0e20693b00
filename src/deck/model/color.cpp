#include "deck/model/color.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "deck/model/shape_node.h"
#include "deck/model/theme.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// Red, green and blue from 0 to 1.
struct Rgb {
  double red = 0;
  double green = 0;
  double blue = 0;
};
/// Hue in degrees, the others from 0 to 1.
struct Hsl {
  double hue = 0;
  double saturation = 0;
  double luminance = 0;
};

double clamped(double share) { return std::clamp(share, 0.0, 1.0); }

Hsl toHsl(const Rgb& color) {
  const double most = std::max({color.red, color.green, color.blue});
  const double least = std::min({color.red, color.green, color.blue});
  const double spread = most - least;
  Hsl result{0, 0, (most + least) / 2};
  if (spread == 0) return result;
  result.saturation = spread / (1 - std::abs(2 * result.luminance - 1));
  if (most == color.red) {
    result.hue = 60 * std::fmod((color.green - color.blue) / spread + 6, 6);
  } else if (most == color.green) {
    result.hue = 60 * ((color.blue - color.red) / spread + 2);
  } else {
    result.hue = 60 * ((color.red - color.green) / spread + 4);
  }
  return result;
}

Rgb toRgb(const Hsl& color) {
  const double chroma = (1 - std::abs(2 * color.luminance - 1)) * color.saturation;
  const auto channel = [&](double shift) {
    const double k = std::fmod(shift + color.hue / 30 + 12, 12);
    return clamped(color.luminance - chroma / 2 * std::max(-1.0, std::min({k - 3, 9 - k, 1.0})));
  };
  return {channel(0), channel(8), channel(4)};
}

/// Tints and shades work on light, not on the numbers of the screen.
double toLinear(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}
double fromLinear(double value) {
  return value <= 0.0031308 ? value * 12.92 : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
}
template <typename Change>
Rgb inLight(const Rgb& color, Change change) {
  const auto channel = [&](double value) { return fromLinear(clamped(change(toLinear(value)))); };
  return {channel(color.red), channel(color.green), channel(color.blue)};
}

Rgb fromHex(std::string_view text) {
  const std::int32_t color = colorFromHex(text);
  return {(color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0, (color >> 16 & 0xFF) / 255.0};
}

struct NamedColor {
  std::string_view name;
  std::string_view hex;
};
/// The preset colours that programs write; the others are rare enough to be black.
constexpr NamedColor presetColors[] = {
    {"black", "000000"},   {"white", "FFFFFF"},     {"red", "FF0000"},      {"lime", "00FF00"},
    {"blue", "0000FF"},    {"yellow", "FFFF00"},    {"cyan", "00FFFF"},     {"aqua", "00FFFF"},
    {"magenta", "FF00FF"}, {"fuchsia", "FF00FF"},   {"green", "008000"},    {"gray", "808080"},
    {"grey", "808080"},    {"silver", "C0C0C0"},    {"maroon", "800000"},   {"navy", "000080"},
    {"olive", "808000"},   {"purple", "800080"},    {"teal", "008080"},     {"orange", "FFA500"},
    {"dkGray", "A9A9A9"},  {"darkGray", "A9A9A9"},  {"ltGray", "D3D3D3"},   {"lightGray", "D3D3D3"},
    {"dkBlue", "00008B"},  {"darkBlue", "00008B"},  {"dkRed", "8B0000"},    {"darkRed", "8B0000"},
    {"dkGreen", "006400"}, {"darkGreen", "006400"}, {"brown", "A52A2A"},    {"pink", "FFC0CB"},
    {"gold", "FFD700"},    {"indigo", "4B0082"},    {"steelBlue", "4682B4"}};

Rgb modified(Rgb color, xml_node element) {
  for (const xml_node change : element.children()) {
    const std::string_view name = localName(change);
    const double value = shareOf(change.attribute("val"));
    if (name == "tint") {
      color = inLight(color, [&](double light) { return light * value + (1 - value); });
    } else if (name == "shade") {
      color = inLight(color, [&](double light) { return light * value; });
    } else if (name == "inv") {
      color = {1 - color.red, 1 - color.green, 1 - color.blue};
    } else if (name == "gray") {
      const double gray = 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
      color = {gray, gray, gray};
    } else {
      Hsl hsl = toHsl(color);
      if (name == "lumMod") {
        hsl.luminance = clamped(hsl.luminance * value);
      } else if (name == "lumOff") {
        hsl.luminance = clamped(hsl.luminance + value);
      } else if (name == "lum") {
        hsl.luminance = clamped(value);
      } else if (name == "satMod") {
        hsl.saturation = clamped(hsl.saturation * value);
      } else if (name == "satOff") {
        hsl.saturation = clamped(hsl.saturation + value);
      } else if (name == "sat") {
        hsl.saturation = clamped(value);
      } else {
        continue;
      }
      color = toRgb(hsl);
    }
  }
  return color;
}

Rgb baseColor(const Sheet& sheet, xml_node element, xml_node placeholder, int depth);

Rgb colorOf(const Sheet& sheet, xml_node element, xml_node placeholder, int depth) {
  return modified(baseColor(sheet, element, placeholder, depth), element);
}

Rgb baseColor(const Sheet& sheet, xml_node element, xml_node placeholder, int depth) {
  const std::string_view kind = localName(element);
  const std::string_view value = element.attribute("val").value();
  if (kind == "srgbClr") return fromHex(value);
  if (kind == "sysClr") return fromHex(element.attribute("lastClr").as_string("000000"));
  if (kind == "schemeClr" && depth < 4) {
    if (value == "phClr") return colorOf(sheet, placeholder, {}, depth + 1);
    return colorOf(sheet, schemeColorElement(sheet, value), {}, depth + 1);
  }
  if (kind == "scrgbClr") {
    const auto channel = [&](const char* name) {
      return fromLinear(clamped(shareOf(element.attribute(name))));
    };
    return {channel("r"), channel("g"), channel("b")};
  }
  if (kind == "hslClr") {
    const std::int64_t hue = wholeNumber(element.attribute("hue"), 0, 21'600'000);
    return toRgb({static_cast<double>(hue) / 60'000, shareOf(element.attribute("sat")),
                  shareOf(element.attribute("lum"))});
  }
  if (kind == "prstClr") {
    const auto* found = std::ranges::find(presetColors, value, &NamedColor::name);
    if (found != std::end(presetColors)) return fromHex(found->hex);
  }
  return {};
}

constexpr std::array<std::string_view, 8> schemeNames = {"bg1",     "tx1",     "bg2",   "tx2",
                                                         "accent1", "accent2", "hlink", "folHlink"};

xml_node replaceColor(xml_node holder, const char* element, const char* value) {
  while (const xml_node old = colorElement(holder)) holder.remove_child(old);
  xml_node color = holder.prepend_child(element);
  color.append_attribute("val").set_value(value);
  return color;
}

}  // namespace

xml_node colorElement(xml_node holder) {
  return holder.find_child([](xml_node node) { return localName(node).ends_with("Clr"); });
}

std::int32_t colorNumber(const Sheet& sheet, xml_node element, xml_node placeholder) {
  const Rgb color = colorOf(sheet, element, placeholder, 0);
  const auto byte = [](double share) { return static_cast<std::int32_t>(std::lround(share * 255)); };
  return byte(color.red) | byte(color.green) << 8 | byte(color.blue) << 16;
}

std::string colorHex(std::int32_t rgb) {
  char text[7];
  const auto color = static_cast<std::uint32_t>(rgb);
  std::snprintf(text, sizeof text, "%02X%02X%02X", color & 0xFFu, color >> 8 & 0xFFu, color >> 16 & 0xFFu);
  return text;
}

std::int32_t colorFromHex(std::string_view hex) {
  std::uint32_t rgb = 0;
  std::from_chars(hex.data(), hex.data() + std::min<std::size_t>(hex.size(), 6), rgb, 16);
  return static_cast<std::int32_t>((rgb >> 16) | (rgb & 0xFF00u) | ((rgb & 0xFFu) << 16));
}

void setColor(xml_node holder, std::int32_t rgb) { replaceColor(holder, "a:srgbClr", colorHex(rgb).c_str()); }

void setThemeColor(xml_node holder, std::string_view name) {
  replaceColor(holder, "a:schemeClr", std::string(name).c_str());
}

std::string_view schemeName(std::int32_t index) {
  return index >= 1 && index <= static_cast<std::int32_t>(schemeNames.size())
             ? schemeNames[static_cast<std::size_t>(index) - 1]
             : std::string_view();
}

std::int32_t schemeIndex(std::string_view name) {
  const auto found = std::ranges::find(schemeNames, name);
  return found == schemeNames.end() ? 0 : static_cast<std::int32_t>(found - schemeNames.begin()) + 1;
}

}  // namespace vellumark::deck
