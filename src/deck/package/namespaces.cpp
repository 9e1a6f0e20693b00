#include "deck/package/namespaces.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace vellumark::deck {
namespace {

struct Known {
  std::string_view prefix;
  std::string_view transitional;
  std::string_view strict;
};
constexpr std::string_view transitionalRelationships =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr std::string_view strictRelationships = "http://purl.oclc.org/ooxml/officeDocument/relationships";
constexpr Known known[] = {
    {"p", "http://schemas.openxmlformats.org/presentationml/2006/main",
     "http://purl.oclc.org/ooxml/presentationml/main"},
    {"a", "http://schemas.openxmlformats.org/drawingml/2006/main",
     "http://purl.oclc.org/ooxml/drawingml/main"},
    {"r", transitionalRelationships, strictRelationships},
    {"mc", "http://schemas.openxmlformats.org/markup-compatibility/2006", {}},
};

/// Empty where the namespace is none of the known ones.
std::string_view usualPrefix(std::string_view uri) {
  const auto* found = std::ranges::find_if(known, [&](const Known& one) {
    return uri == one.transitional || (!one.strict.empty() && uri == one.strict);
  });
  return found == std::end(known) ? std::string_view{} : found->prefix;
}

bool isUsualPrefix(std::string_view prefix) {
  return std::ranges::find(known, prefix, &Known::prefix) != std::end(known);
}

bool isUsual(std::string_view prefix, std::string_view uri) {
  // A reference may spell any namespace; looking closer is for the walk.
  if (uri.find('&') != std::string_view::npos) return false;
  const std::string_view usual = usualPrefix(uri);
  return usual.empty() ? !isUsualPrefix(prefix) : prefix == usual;
}

/// The prefix that a declaration binds ("" for the default namespace); nothing for other attributes.
std::optional<std::string_view> declaredPrefix(std::string_view attribute) {
  if (attribute == "xmlns") return std::string_view{};
  if (!attribute.starts_with("xmlns:")) return {};
  return attribute.substr(6);
}

/// The prefix of a qualified name and what follows it, colon and all; the prefix is empty where there is
/// none.
struct QualifiedName {
  explicit QualifiedName(std::string_view name)
      : prefix(name.substr(0, name.find(':') == std::string_view::npos ? 0 : name.find(':'))),
        rest(name.substr(prefix.size())) {}
  std::string_view prefix;
  std::string_view rest;
};

class Renamer {
 public:
  explicit Renamer(pugi::xml_node root) { collectPrefixes(root); }

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
  struct Binding {
    std::string prefix;    ///< as the file has it
    std::string replaced;  ///< as the model wants it
  };

  void collectPrefixes(pugi::xml_node element) {
    for (pugi::xml_attribute attribute : element.attributes()) {
      if (const auto prefix = declaredPrefix(attribute.name())) prefixes_.emplace(*prefix);
    }
    for (pugi::xml_node child : element.children()) {
      if (child.type() == pugi::node_element) collectPrefixes(child);
    }
  }

  /// A prefix that the document has nowhere, for a usual one that has to give way.
  std::string unusedPrefix(std::string_view like) {
    for (int number = 1;; ++number) {
      std::string prefix = std::string(like) + "_" + std::to_string(number);
      if (prefixes_.insert(prefix).second) return prefix;
    }
  }

  void declare(pugi::xml_node element) {
    std::vector<pugi::xml_attribute> twice;
    std::vector<std::string> declared;
    for (pugi::xml_attribute attribute : element.attributes()) {
      const auto prefix = declaredPrefix(attribute.name());
      if (!prefix) continue;
      std::string replaced(usualPrefix(attribute.value()));
      if (replaced.empty()) replaced = isUsualPrefix(*prefix) ? unusedPrefix(*prefix) : std::string(*prefix);
      bindings_.push_back({std::string(*prefix), replaced});
      // Two prefixes for one namespace become one.
      if (std::ranges::find(declared, replaced) != declared.end()) {
        twice.push_back(attribute);
        continue;
      }
      attribute.set_name(replaced.empty() ? "xmlns" : ("xmlns:" + replaced).c_str());
      declared.push_back(std::move(replaced));
    }
    for (pugi::xml_attribute attribute : twice) element.remove_attribute(attribute);
  }

  /// What stands for a prefix in the present scope; nothing where it stays.
  const std::string* replacement(std::string_view prefix) const {
    const auto found = std::find_if(bindings_.rbegin(), bindings_.rend(),
                                    [&](const Binding& binding) { return binding.prefix == prefix; });
    return found == bindings_.rend() || found->replaced == prefix ? nullptr : &found->replaced;
  }

  void renameElement(pugi::xml_node element) {
    const QualifiedName name(element.name());
    const std::string* replaced = replacement(name.prefix);
    if (!replaced) return;
    const std::string renamed = *replaced + (name.prefix.empty() ? ":" : "") + std::string(name.rest);
    element.set_name(renamed.c_str());
  }

  void renameAttributes(pugi::xml_node element) {
    for (pugi::xml_attribute attribute : element.attributes()) {
      if (declaredPrefix(attribute.name())) continue;
      const QualifiedName name(attribute.name());
      // Attributes without a prefix are in no namespace.
      if (const std::string* replaced = name.prefix.empty() ? nullptr : replacement(name.prefix)) {
        const std::string renamed = *replaced + std::string(name.rest);
        attribute.set_name(renamed.c_str());
      }
      if (holdsPrefixes(element, attribute)) renamePrefixList(attribute);
    }
  }

  /// Whether a value is a list of prefixes or of qualified names, as markup compatibility has them. Element
  /// and attribute have their new names.
  static bool holdsPrefixes(pugi::xml_node element, pugi::xml_attribute attribute) {
    const std::string_view name = attribute.name();
    if (name == "Requires") return std::string_view(element.name()) == "mc:Choice";
    return name == "mc:Ignorable" || name == "mc:MustUnderstand" || name == "mc:ProcessContent" ||
           name == "mc:PreserveElements" || name == "mc:PreserveAttributes";
  }

  void renamePrefixList(pugi::xml_attribute attribute) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::string_view list = attribute.value();
    std::string renamed;
    for (std::size_t at = list.find_first_not_of(blanks); at < list.size();) {
      const std::size_t end = std::min(list.find_first_of(blanks, at), list.size());
      const std::string_view item = list.substr(at, end - at);
      const std::string_view prefix = item.substr(0, item.find(':'));
      const std::string* replaced = replacement(prefix);
      if (!renamed.empty()) renamed += ' ';
      renamed += replaced ? *replaced : std::string(prefix);
      renamed += item.substr(prefix.size());
      at = list.find_first_not_of(blanks, end);
    }
    attribute.set_value(renamed.c_str());
  }

  std::vector<Binding> bindings_;  ///< of the elements around, the innermost last
  std::unordered_set<std::string> prefixes_;
};

}  // namespace

bool hasUnusualPrefixes(std::string_view xml) {
  constexpr std::string_view declaration = "xmlns";
  constexpr std::string_view blanks = " \t\r\n";
  for (std::size_t at = xml.find(declaration); at != std::string_view::npos; at = xml.find(declaration, at)) {
    at += declaration.size();
    const std::size_t equals = xml.find('=', at);
    const std::size_t open = equals == std::string_view::npos ? equals : xml.find_first_of("\"'", equals);
    if (open == std::string_view::npos) return false;
    const std::size_t close = xml.find(xml[open], open + 1);
    if (close == std::string_view::npos) return false;
    std::string_view prefix = xml.substr(at, equals - at);
    prefix = prefix.substr(0, prefix.find_last_not_of(blanks) + 1);
    if (prefix.starts_with(':')) prefix.remove_prefix(1);
    if (!isUsual(prefix, xml.substr(open + 1, close - open - 1))) return true;
  }
  return false;
}

void makePrefixesUsual(pugi::xml_node root) { Renamer(root).rename(root); }

bool isStrictRelationship(std::string_view type) { return type.starts_with(strictRelationships); }

std::string relationshipType(std::string_view name, bool strict) {
  return std::string(strict ? strictRelationships : transitionalRelationships) + '/' + std::string(name);
}

std::string inFamily(std::string_view uri, bool strict) {
  // ".../presentationml/2006/main" is "http://purl.oclc.org/ooxml/presentationml/main" where strict.
  constexpr std::string_view transitionalBase = "http://schemas.openxmlformats.org/", year = "/2006/";
  constexpr std::string_view strictBase = "http://purl.oclc.org/ooxml/";
  const std::string_view from = strict ? transitionalBase : strictBase,
                         into = strict ? strictBase : transitionalBase;
  constexpr std::string_view languages[] = {"presentationml", "drawingml", "officeDocument", "spreadsheetml",
                                            "wordprocessingml"};
  if (!uri.starts_with(from)) return std::string(uri);
  std::string_view rest = uri.substr(from.size());
  const std::string_view language = rest.substr(0, rest.find('/'));
  rest.remove_prefix(language.size());
  const std::string_view between = strict ? year : "/";
  if (std::ranges::find(languages, language) == std::end(languages) || !rest.starts_with(between)) {
    return std::string(uri);
  }
  rest.remove_prefix(between.size());
  return std::string(into) + std::string(language) + std::string(strict ? "/" : year) + std::string(rest);
}

void makeFamily(pugi::xml_node element, bool strict) {
  const bool graphic = std::string_view(element.name()) == "a:graphicData";
  for (pugi::xml_attribute attribute : element.attributes()) {
    const bool uri = graphic && std::string_view(attribute.name()) == "uri";
    if (uri || declaredPrefix(attribute.name()))
      attribute.set_value(inFamily(attribute.value(), strict).c_str());
  }
  for (pugi::xml_node child : element.children()) {
    if (child.type() == pugi::node_element) makeFamily(child, strict);
  }
}

}  // namespace vellumark::deck
