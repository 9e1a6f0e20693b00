#pragma once
// My Elements, the user's own library: a private presentation, the store, with one blank slide for each
// element, and an index that names and groups them. Store and index lie in myElementsFolder.

#include <string>

namespace vellumark::library {

/// Makes myElementsDoc anew with the group "Miscellaneous", and saves it as the index.
void createXML();

/// Adds the selected shapes of the active window as one element, under a name and in a group that the user is
/// asked for. The first time makes index and store.
void addMyElements();

/// Lets the user rename, move and delete elements and groups.
void manageMyElements();

/// The path of the store, which need not exist. Hosts before the ribbon keep it as "myelements.ppt"; later
/// ones as "myelements.pptx" as soon as that is there.
std::string getMyElementsFile();

/// Brings the menu of elements up to date: toolbars have it made anew, a ribbon asks for it again.
void refreshMyElementsMenu();

}  // namespace vellumark::library
