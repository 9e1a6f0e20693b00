#include "core/xml.h"

#include <sstream>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "base/xml_storable.h"
#include "platform/ansi.h"
#include "platform/paths.h"

namespace vellumark::core {
namespace {

/// Whether a document of single bytes declares the ANSI code page as its encoding, which the parser doesn't
/// know.
bool declaresAnsi(std::string_view bytes) {
  if (!bytes.starts_with("<?xml")) return false;
  const std::string declaration = base::toLower(bytes.substr(0, bytes.find("?>")));
  return declaration.find("windows-1252") != std::string::npos;
}

bool hasOneRoot(const pugi::xml_document& document) {
  const pugi::xml_node root = document.document_element();
  if (!root) return false;
  for (pugi::xml_node next = root.next_sibling(); next; next = next.next_sibling()) {
    if (next.type() == pugi::node_element) return false;
  }
  return true;
}

bool parse(pugi::xml_document& document, const std::string& text, pugi::xml_encoding encoding) {
  return document.load_buffer(text.data(), text.size(), pugi::parse_default, encoding) &&
         hasOneRoot(document);
}

bool parseFile(pugi::xml_document& document, const std::string& path) {
  std::string bytes;
  try {
    bytes = platform::readFile(path);
  } catch (const base::Error&) {
    return false;
  }
  const bool ansi = declaresAnsi(bytes);
  if (ansi) bytes = platform::fromAnsi(bytes);
  return parse(document, bytes, ansi ? pugi::encoding_utf8 : pugi::encoding_auto);
}

/// Runs a query, whose faults the library raises as exceptions of its own.
template <typename Query>
auto guarded(const std::string& expression, Query&& query) {
  try {
    return query();
  } catch (const pugi::xpath_exception& fault) {
    base::raise(base::errors::unspecific, std::string(fault.what()) + ": " + expression);
  }
}

}  // namespace

bool loadXml(pugi::xml_document& document, const std::string& path) {
  if (parseFile(document, path)) return true;
  document.reset();
  return false;
}

bool parseXml(pugi::xml_document& document, const std::string& text) {
  if (parse(document, text, pugi::encoding_utf8)) return true;
  document.reset();
  return false;
}

std::string xmlText(const pugi::xml_document& document) {
  base::makeXmlStorable(document.document_element());
  std::ostringstream text;
  document.save(text, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return text.str();
}

void saveXml(const pugi::xml_document& document, const std::string& path) {
  platform::writeFile(path, xmlText(document));
}

pugi::xpath_node_set selectNodes(const pugi::xml_node& context, const std::string& expression) {
  return guarded(expression, [&] {
    pugi::xpath_node_set nodes = context.select_nodes(expression.c_str());
    nodes.sort();
    return nodes;
  });
}

pugi::xpath_node selectSingleNode(const pugi::xml_node& context, const std::string& expression) {
  return guarded(expression, [&] { return context.select_node(expression.c_str()); });
}

std::string selectText(const pugi::xml_node& context, const std::string& expression) {
  const pugi::xpath_node found = selectSingleNode(context, expression);
  if (!found) base::raise(base::errors::objectNotSet);
  return found.attribute().value();
}

std::string position(std::int32_t index) { return "[" + std::to_string(std::int64_t{index} + 1) + "]"; }

std::string attributeText(const pugi::xml_node& node, const char* name) {
  const pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) base::raise(base::errors::objectNotSet);
  return attribute.value();
}

}  // namespace vellumark::core
