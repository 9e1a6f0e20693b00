#pragma once
// Namespace prefixes: the model knows elements as "p:sld", "a:xfrm", whatever prefixes a file uses.

#include <pugixml.hpp>
#include <string_view>

namespace vellumark::deck {

/// Whether an XML text binds one of the usual prefixes (p, a, r, mc) to anything else, or one of their
/// namespaces to another prefix. A quick look at the text alone.
bool hasUnusualPrefixes(std::string_view xml);

/// Brings the prefixes of the known namespaces, transitional and strict, to the usual ones throughout a
/// document. A usual prefix that stands for something else gives way, and lists of prefixes (mc:Ignorable,
/// Requires) follow.
void makePrefixesUsual(pugi::xml_node root);

}  // namespace vellumark::deck
