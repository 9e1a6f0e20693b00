#include "deck/package/namespaces.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vellumark::deck {
namespace {

struct Known {
  std::string_view prefix;
  std::string_view uri;
};
constexpr Known known[] = {
    {"p", "http://schemas.openxmlformats.org/presentationml/2006/main"},
    {"p", "http://purl.oclc.org/ooxml/presentationml/main"},
    {"a", "http://schemas.openxmlformats.org/drawingml/2006/main"},
    {"a", "http://purl.oclc.org/ooxml/drawingml/main"},
    {"r", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
    {"r", "http://purl.oclc.org/ooxml/officeDocument/relationships"},
    {"mc", "http://schemas.openxmlformats.org/markup-compatibility/2006"},
};

std::string_view usualPrefix(std::string_view uri) {
  const auto* found = std::ranges::find(known, uri, &Known::uri);
  return found == std::end(known) ? std::string_view{} : found->prefix;
}

bool isUsualPrefix(std::string_view prefix) {
  return std::ranges::find(known, prefix, &Known::prefix) != std::end(known);
}

bool isUsual(std::string_view prefix, std::string_view uri) {
  const std::string_view usual = usualPrefix(uri);
  return usual.empty() ? !isUsualPrefix(prefix) : prefix == usual;
}

/// The prefix that a declaration binds ("" for the default namespace); false for other attributes.
bool declares(std::string_view attribute, std::string_view& prefix) {
  if (attribute == "xmlns") {
    prefix = {};
    return true;
  }
  if (!attribute.starts_with("xmlns:")) return false;
  prefix = attribute.substr(6);
  return true;
}

struct Binding {
  std::string prefix;    ///< as the file has it
  std::string replaced;  ///< as the model wants it
};

class Renamer {
 public:
  void rename(pugi::xml_node element) {
    const std::size_t outer = bindings_.size();
    declare(element);
    renameElement(element);
    renameAttributes(element);
    for (pugi::xml_node child : element.children()) {
      if (child.type() == pugi::node_element) rename(child);
    }
    bindings_.resize(outer);
  }

 private:
  void declare(pugi::xml_node element) {
    std::vector<pugi::xml_attribute> twice;
    std::vector<std::string> declared;
    for (pugi::xml_attribute attribute : element.attributes()) {
      std::string_view prefix;
      if (!declares(attribute.name(), prefix)) continue;
      std::string replaced(usualPrefix(attribute.value()));
      if (replaced.empty()) {
        replaced = isUsualPrefix(prefix) ? std::string(prefix) + "_" + std::to_string(++renamed_)
                                         : std::string(prefix);
      }
      bindings_.push_back({std::string(prefix), replaced});
      if (std::ranges::find(declared, replaced) != declared.end()) {
        twice.push_back(attribute);
        continue;
      }
      declared.push_back(replaced);
      attribute.set_name(replaced.empty() ? "xmlns" : ("xmlns:" + replaced).c_str());
    }
    for (pugi::xml_attribute attribute : twice) element.remove_attribute(attribute);
  }

  const std::string* replacement(std::string_view prefix) const {
    const auto found = std::find_if(bindings_.rbegin(), bindings_.rend(),
                                    [&](const Binding& binding) { return binding.prefix == prefix; });
    return found == bindings_.rend() ? nullptr : &found->replaced;
  }

  void renameElement(pugi::xml_node element) {
    const std::string_view name = element.name();
    const std::size_t colon = name.find(':');
    const std::string_view prefix =
        colon == std::string_view::npos ? std::string_view{} : name.substr(0, colon);
    const std::string* replaced = replacement(prefix);
    if (!replaced || *replaced == prefix) return;
    const std::string local(colon == std::string_view::npos ? name : name.substr(colon + 1));
    element.set_name((replaced->empty() ? local : *replaced + ":" + local).c_str());
  }

  /// Attributes without a prefix are in no namespace.
  void renameAttributes(pugi::xml_node element) {
    for (pugi::xml_attribute attribute : element.attributes()) {
      const std::string_view name = attribute.name();
      std::string_view declared;
      if (declares(name, declared)) continue;
      if (const std::size_t colon = name.find(':'); colon != std::string_view::npos) {
        const std::string* replaced = replacement(name.substr(0, colon));
        if (replaced && !replaced->empty() && *replaced != name.substr(0, colon)) {
          const std::string renamed = *replaced + std::string(name.substr(colon));
          attribute.set_name(renamed.c_str());
        }
      }
      const std::string_view now = attribute.name();
      if (now == "mc:Ignorable" || now == "mc:MustUnderstand" || now == "Requires")
        renamePrefixList(attribute);
    }
  }

  void renamePrefixList(pugi::xml_attribute attribute) {
    const std::string_view list = attribute.value();
    std::string renamed;
    for (std::size_t at = 0; at < list.size();) {
      const std::size_t start = list.find_first_not_of(" \t\r\n", at);
      if (start == std::string_view::npos) break;
      at = std::min(list.find_first_of(" \t\r\n", start), list.size());
      const std::string_view prefix = list.substr(start, at - start);
      const std::string* replaced = replacement(prefix);
      if (!renamed.empty()) renamed += ' ';
      renamed += replaced ? *replaced : std::string(prefix);
    }
    attribute.set_value(renamed.c_str());
  }

  std::vector<Binding> bindings_;
  int renamed_ = 0;
};

}  // namespace

bool hasUnusualPrefixes(std::string_view xml) {
  constexpr std::string_view declaration = "xmlns";
  for (std::size_t at = xml.find(declaration); at != std::string_view::npos; at = xml.find(declaration, at)) {
    at += declaration.size();
    const std::size_t equals = xml.find('=', at);
    const std::size_t open = equals == std::string_view::npos ? equals : xml.find_first_of("\"'", equals);
    if (open == std::string_view::npos) return false;
    const std::size_t close = xml.find(xml[open], open + 1);
    if (close == std::string_view::npos) return false;
    std::string_view prefix = xml.substr(at, equals - at);
    while (!prefix.empty() && (prefix.back() == ' ' || prefix.back() == '\t' || prefix.back() == '\n' ||
                               prefix.back() == '\r')) {
      prefix.remove_suffix(1);
    }
    if (prefix.starts_with(':')) prefix.remove_prefix(1);
    if (!isUsual(prefix, xml.substr(open + 1, close - open - 1))) return true;
  }
  return false;
}

void makePrefixesUsual(pugi::xml_node root) { Renamer().rename(root); }

}  // namespace vellumark::deck
