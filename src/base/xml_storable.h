#pragma once
// Characters that an XML file can hold.

#include <string>
#include <string_view>

namespace vellumark::base {

/// Whether an XML file can hold the text as it is.
bool isXmlStorable(std::string_view text);
/// The text without what no XML file can hold: control characters but tab, carriage return and line feed, and
/// the two non-characters U+FFFE and U+FFFF. Malformed UTF-8 becomes U+FFFD.
std::string xmlStorable(std::string_view text);

/// Makes the values and texts of a document storable from `node` down. `Node` is the parser's node.
template <typename Node>
void makeXmlStorable(Node node) {
  for (auto attribute : node.attributes()) {
    if (!isXmlStorable(attribute.value())) attribute.set_value(xmlStorable(attribute.value()).c_str());
  }
  if (!isXmlStorable(node.value())) node.set_value(xmlStorable(node.value()).c_str());
  for (Node child : node.children()) makeXmlStorable(child);
}

}  // namespace vellumark::base
