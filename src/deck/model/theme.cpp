#include "deck/model/theme.h"

#include <algorithm>

namespace vellumark::deck {
namespace {

using pugi::xml_node;

bool isMaster(const Sheet& sheet) {
  return sheet.part->contentType().find("Master+xml") != std::string::npos;
}

Sheet masterOf(Sheet sheet) {
  // A broken file may lead in circles.
  for (int steps = 0; sheet && !isMaster(sheet); ++steps) {
    if (steps == 3) return {};
    sheet = sheet.parent();
  }
  return sheet;
}

/// The scheme's own name for what a sheet calls "tx1" or "bg2": the nearest map of colours tells.
std::string_view mapped(Sheet sheet, std::string_view name) {
  for (int steps = 0; sheet && steps < 4; ++steps, sheet = sheet.parent()) {
    const xml_node root = sheet.part->root();
    const xml_node map =
        isMaster(sheet) ? root.child("p:clrMap") : root.child("p:clrMapOvr").child("a:overrideClrMapping");
    if (const pugi::xml_attribute found = map.attribute(std::string(name).c_str())) return found.value();
  }
  static constexpr std::pair<std::string_view, std::string_view> usual[] = {
      {"tx1", "dk1"}, {"tx2", "dk2"}, {"bg1", "lt1"}, {"bg2", "lt2"}};
  for (const auto& [from, to] : usual) {
    if (from == name) return to;
  }
  return name;
}

xml_node themeFormat(const Sheet& sheet, const char* list, std::int64_t index) {
  for (const xml_node format : themeElements(sheet).child("a:fmtScheme").child(list).children()) {
    if (--index == 0) return format;
  }
  return {};
}

}  // namespace

xml_node themeElements(const Sheet& sheet) {
  const Sheet master = masterOf(sheet);
  if (!master) return {};
  const Relationship* relationship = master.part->firstRelationship("theme");
  const PartRef theme = relationship ? master.part->target(*relationship) : nullptr;
  return theme ? theme->root().child("a:themeElements") : xml_node();
}

xml_node schemeColorElement(const Sheet& sheet, std::string_view name) {
  const std::string element = "a:" + std::string(mapped(sheet, name));
  return themeElements(sheet).child("a:clrScheme").child(element.c_str()).first_child();
}

std::string fontFamily(const Sheet& sheet, std::string_view typeface) {
  if (!typeface.starts_with('+')) return std::string(typeface);
  const xml_node fonts = themeElements(sheet).child("a:fontScheme");
  const xml_node font = fonts.child(typeface.starts_with("+mj") ? "a:majorFont" : "a:minorFont");
  const char* script = typeface.ends_with("-ea") ? "a:ea" : typeface.ends_with("-cs") ? "a:cs" : "a:latin";
  return font.child(script).attribute("typeface").value();
}

xml_node themeLine(const Sheet& sheet, std::int64_t index) {
  return themeFormat(sheet, "a:lnStyleLst", index);
}

xml_node themeFill(const Sheet& sheet, std::int64_t index) {
  constexpr std::int64_t backgrounds = 1000;
  return index > backgrounds ? themeFormat(sheet, "a:bgFillStyleLst", index - backgrounds)
                             : themeFormat(sheet, "a:fillStyleLst", index);
}

}  // namespace vellumark::deck
