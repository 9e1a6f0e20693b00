#pragma once
// The index of the user's own elements, the document myElementsDoc: groups, and in them the elements, each
// with its name and the id of its slide in the store.
//
// Names are spliced into the queries as they are, so one with an apostrophe breaks its own query
// (-2147467259). All of this raises 91 while there is no document. Nothing here has a trap: the callers have.

#include <cstdint>
#include <pugixml.hpp>
#include <string>

namespace vellumark::library {

/// The file of the index.
std::string indexFile();
/// Loads myElementsDoc. False, and the document is empty, where the file is none.
bool loadIndex();
/// Loads it again where another program wrote the file since.
void takeOverIndex();
/// Makes myElementsDoc anew, with one group.
void newIndex();
void saveIndex();

pugi::xpath_node_set groups();
pugi::xpath_node_set elementsOf(const std::string& group);
/// Nothing where there is none of that name. Names of elements are unique over all groups.
pugi::xml_node findGroup(const std::string& name);
pugi::xml_node findElement(const std::string& name);

// The elements of a gallery, which goes by its group. The host counts places from zero. The name is spliced
// into double quotes here.

pugi::xpath_node_set galleryElements(const std::string& group);
/// Nothing where there is no such element.
pugi::xml_node galleryElement(const std::string& group, std::int32_t index);
/// Its name ("name") or slide id ("slideID"); 91 where there is no such element.
std::string galleryElementText(const std::string& group, std::int32_t index, const char* attribute);
/// The elements of all groups.
pugi::xpath_node_set allElements();

/// Adds a group behind all others; 91 where the document has no root.
void addGroup(const std::string& name);
/// Adds an element behind all others of its group; 91 where there is no such group.
void addElement(const std::string& group, const std::string& name, std::int32_t slideID);

}  // namespace vellumark::library
