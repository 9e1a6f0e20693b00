#include "library/configuration.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/xml.h"
#include "library/my_elements_index.h"
#include "platform/ansi.h"
#include "platform/paths.h"

namespace vellumark::library {
namespace {

using core::globals;

const std::string lineBreak = "\r\n";

void tellMenuFailure(Surface surface, const std::string& path) {
  const std::string subject =
      surface == Surface::ribbon ? "The Slide Wizard configuration file " : "The menu configuration file ";
  core::message(subject + lineBreak + lineBreak + platform::toSystem(path) + lineBreak + lineBreak +
                    " could not be found or is corrupted.",
                ui::Icon::critical);
}

/// Calls `step` with each line of a text, whose lines end in CR, LF or both.
template <typename Step>
void forEachLine(std::string_view text, Step&& step) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    step(text.substr(0, end));
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
  }
}

const pugi::xml_document& menuDocument() {
  if (!globals().menuDoc) base::raise(base::errors::objectNotSet);
  return *globals().menuDoc;
}

std::string submenusQuery(const std::string& menu) {
  return "/Vellumark/menu[@name=\"" + menu + "\"]/submenu";
}

std::string itemsQuery(const std::string& menu, const std::string& submenu) {
  return submenusQuery(menu) + "[@name=\"" + submenu + "\"]/menuitem";
}

std::string itemQuery(const std::string& menu, const std::string& submenu, std::int32_t index) {
  return itemsQuery(menu, submenu) + core::position(index);
}

}  // namespace

void loadConfiguration(Surface surface) {
  loadMenu(surface);
  loadCopyrightNotices();
  loadMyElements();
}

void loadMenu(Surface surface) {
  const std::string path = globals().configFolder + "menu.xml";
  globals().menuDoc = std::make_unique<pugi::xml_document>();
  if (!core::loadXml(*globals().menuDoc, path)) {
    tellMenuFailure(surface, path);
    return;
  }
  for (const pugi::xpath_node& style : core::selectNodes(menuDocument(), "/Vellumark/style")) {
    globals().styleNames.push_back(core::attributeText(style.node(), "name"));
    globals().styleFolders.push_back(core::attributeText(style.node(), "folder"));
  }
  if (!globals().styleNames.empty()) globals().currentStyle = globals().styleNames.front();
}

void loadCopyrightNotices() {
  const std::string path = globals().configFolder + "copyright.txt";
  if (!platform::fileExists(path)) return;
  forEachLine(platform::fromAnsiOrUtf8(platform::readFile(path)), [](std::string_view line) {
    const std::string notice = base::trim(line);
    if (!notice.empty() && line.front() != '#') globals().copyrightNotices.push_back(notice);
  });
}

void loadMyElements() {
  const std::string path = indexFile();
  if (!platform::fileExists(path)) {
    core::message("You haven't added any elements to 'My Elements' yet or the database could not be found.",
                  ui::Icon::information);
    return;
  }
  if (!loadIndex()) {
    core::message("The 'My Elements' database is corrupted." + lineBreak + "Please contact us at " +
                      std::string(core::supportEmail) + ".",
                  ui::Icon::critical);
  }
}

pugi::xpath_node_set menus() { return core::selectNodes(menuDocument(), "/Vellumark/menu"); }

pugi::xpath_node_set submenus(const std::string& menu) {
  return core::selectNodes(menuDocument(), submenusQuery(menu));
}

pugi::xpath_node_set menuItems(const std::string& menu, const std::string& submenu) {
  return core::selectNodes(menuDocument(), itemsQuery(menu, submenu));
}

pugi::xml_node menuItem(const std::string& menu, const std::string& submenu, std::int32_t index) {
  return core::selectSingleNode(menuDocument(), itemQuery(menu, submenu, index)).node();
}

std::string menuItemLabel(const std::string& menu, const std::string& submenu, std::int32_t index) {
  return core::selectText(menuDocument(), itemQuery(menu, submenu, index) + "/@name");
}

pugi::xpath_node_set allMenuItems() {
  return core::selectNodes(menuDocument(), "/Vellumark/menu/submenu/menuitem");
}

}  // namespace vellumark::library
