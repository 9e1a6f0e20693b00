#pragma once
// Namespaces of parts and relationships: the model knows elements as "p:sld", "a:xfrm", whatever prefixes a
// file uses, and files come in two families, transitional and strict.

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace vellumark::deck {

/// Whether an XML text binds one of the usual prefixes (p, a, r, mc) to anything else, or one of their
/// namespaces to another prefix. A quick look at the text alone, which may say yes for nothing.
bool hasUnusualPrefixes(std::string_view xml);

/// Brings the prefixes of the known namespaces, transitional and strict, to the usual ones throughout a
/// document. A usual prefix that stands for something else gives way, and lists of prefixes (mc:Ignorable,
/// Requires) follow.
void makePrefixesUsual(pugi::xml_node root);

/// The type URI of an Office relationship ("slide", "tags") in one of the two families.
std::string relationshipType(std::string_view name, bool strict);
bool isStrictRelationship(std::string_view type);

/// A namespace, a relationship type or the URI of a graphic's contents in one of the two families; others
/// come back as they are.
std::string inFamily(std::string_view uri, bool strict);
/// Brings all namespaces that an element and what stands in it declare, and the URIs of graphics, into one
/// family.
void makeFamily(pugi::xml_node element, bool strict);

}  // namespace vellumark::deck
