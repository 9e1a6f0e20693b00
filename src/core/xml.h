#pragma once
// XML files and queries as the whole add-in uses them.

#include <cstdint>
#include <pugixml.hpp>
#include <string>

namespace vellumark::core {

/// Loads a file into `document`. False, and the document is empty, where the file can't be read or is no
/// well-formed document. Its encoding is that of its byte order mark or declaration (UTF-8, UTF-16,
/// ISO-8859-1, Windows-1252), otherwise UTF-8.
bool loadXml(pugi::xml_document& document, const std::string& path);
/// The same from a text in memory, which is UTF-8 whatever its declaration says.
bool parseXml(pugi::xml_document& document, const std::string& text);
/// The text of a document in one line, without an XML declaration and without characters that no file can
/// hold.
std::string xmlText(const pugi::xml_document& document);
/// Saves a document in one line of UTF-8, without an XML declaration. The file is at any moment the whole old
/// or the whole new one; 75 where it can't be written.
void saveXml(const pugi::xml_document& document, const std::string& path);

/// The nodes of an XPath expression, in document order; -2147467259 where it is malformed.
pugi::xpath_node_set selectNodes(const pugi::xml_node& context, const std::string& expression);
/// The first of them, or nothing.
pugi::xpath_node selectSingleNode(const pugi::xml_node& context, const std::string& expression);

/// The text of the attribute that an XPath expression finds first; 91 where it finds none.
std::string selectText(const pugi::xml_node& context, const std::string& expression);
/// The predicate for a place that the host counts from zero; queries count from one.
std::string position(std::int32_t index);

/// The text of an attribute; 91 where it is missing.
std::string attributeText(const pugi::xml_node& node, const char* name);

}  // namespace vellumark::core
