#pragma once
// What the Slide Wizard offers: the document menu.xml with its styles, menus and elements, the copyright
// notices, and the user's own elements. Everything is loaded into the globals. Nothing here has a trap: the
// callers have.

#include <cstdint>
#include <pugixml.hpp>
#include <string>

namespace vellumark::library {

/// The message about a menu.xml that can't be loaded opens differently on hosts with a ribbon and before it.
enum class Surface { ribbon, toolbars };

/// Loads all three below, in this order.
void loadConfiguration(Surface surface);

/// Loads menu.xml into menuDoc, appends its styles to styleNames and styleFolders, and makes the first style
/// the current one. A file that can't be loaded brings a message and leaves an empty document. 91 where a
/// style lacks its name or folder.
void loadMenu(Surface surface);

/// Appends the lines of copyright.txt, trimmed, to copyrightNotices: all but blank lines and those whose very
/// first character is "#". Without the file there are none.
void loadCopyrightNotices();

/// Loads the user's own elements into myElementsDoc, with a message where that fails or there are none yet.
void loadMyElements();

// Queries on menuDoc. Names are spliced into the queries as they are, so one with a double quote breaks its
// own query (-2147467259, or it finds nothing). 91 while menuDoc doesn't exist.

pugi::xpath_node_set menus();
pugi::xpath_node_set submenus(const std::string& menu);
/// The elements of one gallery.
pugi::xpath_node_set menuItems(const std::string& menu, const std::string& submenu);
/// One element by the index that the host passes, which counts from zero; nothing where there is none.
pugi::xml_node menuItem(const std::string& menu, const std::string& submenu, std::int32_t index);
/// Its label; 91 where there is no such element.
std::string menuItemLabel(const std::string& menu, const std::string& submenu, std::int32_t index);
/// The elements of all galleries, in the order of the document.
pugi::xpath_node_set allMenuItems();

}  // namespace vellumark::library
