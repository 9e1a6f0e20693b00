// The ribbon's chooser of styles and its menu of copyright notices.

#include "base/conversions.h"
#include "commands/ribbon_callbacks.h"
#include "core/config.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/template_paths.h"

namespace vellumark::commands {
namespace {

using core::styleTag;

auto styleNodes() { return core::globals().menuDoc->child("Vellumark").children("style"); }

}  // namespace

std::int16_t style_getItemCount(const host::IRibbonControl&) {
  if (!core::globals().menuDoc) return 0;
  const auto nodes = styleNodes();
  return base::toInt16(static_cast<double>(std::distance(nodes.begin(), nodes.end()) + 1));
}

std::string style_getItemLabel(const host::IRibbonControl&, std::int32_t index) {
  const core::Globals& globals = core::globals();
  if (!globals.menuDoc) return {};
  if (index == 0) return "[No style selected]";
  if (index < 0 || static_cast<std::size_t>(index) > globals.styleNames.size()) {
    base::raise(base::errors::subscript);
  }
  return globals.styleNames[static_cast<std::size_t>(index) - 1];
}

void style_onAction(const host::IRibbonControl&, const std::string&, std::int32_t index) {
  core::Globals& globals = core::globals();
  if (globals.powerPointApp.Presentations().Count() == 0) {
    globals.ribbonUI.InvalidateControl("zp_1025");
    return;
  }
  const host::Tags tags = globals.powerPointApp.ActivePresentation().Tags();
  if (index < 1) {
    globals.currentStyle.clear();
    tags.Delete(styleTag);
    return;
  }
  if (static_cast<std::size_t>(index) > globals.styleNames.size()) base::raise(base::errors::subscript);
  globals.currentStyle = globals.styleNames[static_cast<std::size_t>(index) - 1];
  tags.Add(styleTag, globals.currentStyle);
}

std::int16_t style_getSelectedItemIndex(const host::IRibbonControl&) {
  core::Globals& globals = core::globals();
  if (globals.powerPointApp.Presentations().Count() == 0) return 0;
  if (!globals.menuDoc) {
    core::message(
        std::string("An unexpecter error occurred updating the 'Styles' dropdown.\r\nPlease contact us at ") +
            std::string(core::supportEmail) + " if the problem persists.",
        ui::Icon::critical);
    return 0;
  }
  std::int16_t place = 0, selected = 0;
  for (const pugi::xml_node style : styleNodes()) {
    place = base::add16(place, 1);
    if (globals.currentStyle == style.attribute("name").value()) selected = place;
  }
  if (selected == 0 && place > 0) {
    selected = 1;
    globals.currentStyle = globals.styleNames.front();
  }
  return selected;
}

/// The notices are spliced in as they are.
std::string copyright_getContent(const host::IRibbonControl&) {
  std::string menu = "<menu xmlns=\"" + std::string(core::customUiNamespace) + "\" >";
  int number = 0;
  for (const std::string& notice : core::globals().copyrightNotices) {
    const std::string place = std::to_string(++number);
    menu += "<button id=\"copyright_" + place + "\" tag=\"" + place + "\" label=\"" + notice +
            "\" onAction=\"copyright_onAction\" />";
  }
  return menu + "</menu>";
}

}  // namespace vellumark::commands
