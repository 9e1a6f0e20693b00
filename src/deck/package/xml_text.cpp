#include "deck/package/xml_text.h"

#include <algorithm>
#include <cstring>

#include "base/xml_storable.h"

namespace vellumark::deck {
namespace {

/// The line of an offset, for messages.
std::string lineOf(std::string_view bytes, std::ptrdiff_t offset) {
  const auto before = bytes.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)));
  return " (line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", byte " +
         std::to_string(before.size()) + ")";
}

/// Walks without recursion, which is what the limit is there to protect.
bool deeperThan(pugi::xml_node root, int limit) {
  int depth = 1;
  for (pugi::xml_node node = root; node;) {
    if (node.type() == pugi::node_element && depth > limit) return true;
    if (pugi::xml_node child = node.first_child()) {
      ++depth;
      node = child;
      continue;
    }
    while (node != root && !node.next_sibling()) {
      node = node.parent();
      --depth;
    }
    if (node == root) return false;
    node = node.next_sibling();
  }
  return false;
}

struct Text : pugi::xml_writer {
  std::string text;
  /// A carriage return in a text would be read as a line feed unless it is escaped; in attributes it comes
  /// escaped.
  void write(const void* data, std::size_t size) override {
    std::string_view rest(static_cast<const char*>(data), size);
    for (std::size_t at = rest.find('\r'); at != std::string_view::npos; at = rest.find('\r')) {
      text.append(rest.substr(0, at)).append("&#13;");
      rest.remove_prefix(at + 1);
    }
    text.append(rest);
  }
};

}  // namespace

std::size_t countXmlItems(std::string_view bytes) {
  // Every element brings a "<", every attribute a "=", every text stands behind a ">".
  std::size_t items = 0;
  char before = '<';
  for (const char c : bytes) {
    items += c == '<' || c == '=' || (before == '>' && c != '<');
    before = c;
  }
  return items;
}

std::unique_ptr<pugi::xml_document> parseXml(const std::string& part, std::string_view bytes, int depth) {
  auto document = std::make_unique<pugi::xml_document>();
  constexpr unsigned flags = pugi::parse_full | pugi::parse_ws_pcdata;
  const pugi::xml_parse_result result = document->load_buffer(bytes.data(), bytes.size(), flags);
  if (!result) {
    throw FormatError(
        part, std::string("is not well-formed XML: ") + result.description() + lineOf(bytes, result.offset));
  }
  int roots = 0;
  for (pugi::xml_node node : document->children()) {
    if (node.type() == pugi::node_doctype) {
      throw FormatError(part, "has a document type, which no Office file may have");
    }
    roots += node.type() == pugi::node_element;
  }
  if (roots != 1) {
    throw FormatError(part, "is not well-formed XML: it has " + std::to_string(roots) + " root elements");
  }
  if (deeperThan(document->document_element(), depth)) {
    throw FormatError(part, "is nested deeper than " + std::to_string(depth) + " elements");
  }
  if (pugi::xml_node declaration = document->first_child(); declaration.type() == pugi::node_declaration) {
    if (pugi::xml_attribute encoding = declaration.attribute("encoding")) encoding.set_value("UTF-8");
  }
  return document;
}

// A file may have come with characters that no other reader takes; they end here.
std::string xmlText(const pugi::xml_document& document) {
  base::makeXmlStorable(document.document_element());
  Text out;
  for (pugi::xml_node node : document.children()) {
    if (std::strcmp(node.name(), graveyardName) == 0) continue;
    node.print(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    if (node.type() == pugi::node_declaration) out.text += "\r\n";
  }
  return std::move(out.text);
}

}  // namespace vellumark::deck
