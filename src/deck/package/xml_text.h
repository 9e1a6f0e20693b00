#pragma once
// From the bytes of a part to its XML tree and back.

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "deck/package/format_error.h"

namespace vellumark::deck {

/// Name of the element behind the root in which deleted nodes of a document lie. It is never written.
inline constexpr const char* graveyardName = "vellumark:graveyard";

/// How many nodes the tree of a text has at most: elements, attributes and texts, blank ones too.
std::size_t countXmlItems(std::string_view bytes);

/// Parses an XML part with all its white space, comments and instructions. FormatError with the part's name
/// where it is not well-formed, has a document type (no Office file has one, and nothing outside is ever
/// read) or its elements are nested deeper than `depth`.
std::unique_ptr<pugi::xml_document> parseXml(const std::string& part, std::string_view bytes,
                                             int depth = 256);

/// The text of a document in UTF-8, without reformatting.
std::string xmlText(const pugi::xml_document& document);

}  // namespace vellumark::deck
