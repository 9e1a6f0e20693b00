#include "deck/package/xml_copy.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "deck/package/namespaces.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::string_view compatibility = "http://schemas.openxmlformats.org/markup-compatibility/2006";
constexpr const char* ignorable = "mc:Ignorable";

std::string declarationOf(std::string_view prefix) {
  return prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
}

std::string_view prefixOf(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

std::vector<std::string> words(std::string_view list) {
  constexpr std::string_view blanks = " \t\r\n";
  std::vector<std::string> found;
  for (std::size_t at = list.find_first_not_of(blanks); at < list.size();
       at = list.find_first_not_of(blanks, at)) {
    const std::size_t end = std::min(list.find_first_of(blanks, at), list.size());
    found.emplace_back(list.substr(at, end - at));
    at = end;
  }
  return found;
}

/// The prefixes that a tree uses without declaring them itself.
class UsedPrefixes {
 public:
  explicit UsedPrefixes(xml_node node) { collect(node); }
  const std::set<std::string>& all() const { return used_; }

 private:
  void use(std::string_view prefix) {
    if (prefix == "xml" || prefix == "xmlns") return;
    if (std::ranges::find(declared_, prefix) == declared_.end()) used_.emplace(prefix);
  }
  void collect(xml_node node) {
    const std::size_t outer = declared_.size();
    for (pugi::xml_attribute attribute : node.attributes()) {
      const std::string_view name = attribute.name();
      if (name == "xmlns") declared_.emplace_back();
      if (name.starts_with("xmlns:")) declared_.emplace_back(name.substr(6));
    }
    use(prefixOf(node.name()));
    for (pugi::xml_attribute attribute : node.attributes()) {
      const std::string_view name = attribute.name();
      if (const std::string_view prefix = prefixOf(name); !prefix.empty()) use(prefix);
      if (name == "Requires" || name == ignorable) {
        for (const std::string& prefix : words(attribute.value())) use(prefix);
      }
    }
    for (xml_node child : node.children()) {
      if (child.type() == pugi::node_element) collect(child);
    }
    declared_.resize(outer);
  }

  std::vector<std::string> declared_;  ///< in the elements around, the innermost last
  std::set<std::string> used_;
};

/// The namespaces that may be ignored at a node.
std::set<std::string> ignorableAt(xml_node node) {
  std::set<std::string> namespaces;
  for (xml_node at = node; at; at = at.parent()) {
    for (const std::string& prefix : words(at.attribute(ignorable).value())) {
      namespaces.emplace(namespaceAt(at, prefix));
    }
  }
  return namespaces;
}

void declare(xml_node node, std::string_view prefix, std::string_view uri) {
  if (node.attribute(declarationOf(prefix).c_str())) return;
  node.prepend_attribute(declarationOf(prefix).c_str()).set_value(std::string(uri).c_str());
}

void makeIgnorable(xml_node copy, const std::string& prefix) {
  if (namespaceAt(copy, "mc") != compatibility) declare(copy, "mc", compatibility);
  pugi::xml_attribute list = copy.attribute(ignorable);
  if (!list) list = copy.append_attribute(ignorable);
  const std::string before = list.value();
  list.set_value((before.empty() ? prefix : before + " " + prefix).c_str());
}

}  // namespace

std::string_view namespaceAt(xml_node node, std::string_view prefix) {
  const std::string declaration = declarationOf(prefix);
  for (; node; node = node.parent()) {
    if (const pugi::xml_attribute found = node.attribute(declaration.c_str())) return found.value();
  }
  return {};
}

xml_node unwrapChoice(xml_node alternative, const char* name, bool strict) {
  const xml_node choice = alternative.child("mc:Choice");
  if (!choice.child(name)) return {};
  xml_node parent = alternative.parent();
  const xml_node element = copyElement(choice.child(name), parent, alternative, strict);
  for (const std::string& prefix : words(choice.attribute("Requires").value())) {
    declare(element, prefix, namespaceAt(choice, prefix));
    if (!ignorableAt(element).contains(std::string(namespaceAt(choice, prefix))))
      makeIgnorable(element, prefix);
  }
  parent.remove_child(alternative);
  return element;
}

xml_node copyElement(xml_node source, xml_node parent, xml_node before, bool strict) {
  xml_node copy = before ? parent.insert_copy_before(source, before) : parent.append_copy(source);
  makeFamily(copy, strict);
  const std::set<std::string> ignored = ignorableAt(source.parent());
  const std::set<std::string> ignoredThere = ignorableAt(parent);
  const UsedPrefixes used(source);
  for (const std::string& prefix : used.all()) {
    const std::string meant = inFamily(namespaceAt(source, prefix), strict);
    // A prefix that stands for nothing stays so, but for elements without one.
    if (meant.empty() && !prefix.empty()) continue;
    if (meant != namespaceAt(parent, prefix)) declare(copy, prefix, meant);
    if (!prefix.empty() && ignored.contains(meant) && !ignoredThere.contains(meant))
      makeIgnorable(copy, prefix);
  }
  return copy;
}

}  // namespace vellumark::deck
