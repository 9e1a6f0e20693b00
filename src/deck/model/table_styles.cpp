#include "deck/model/table_styles.h"

#include <set>
#include <string>
#include <string_view>

#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::string_view noStyles =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<a:tblStyleLst xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( def="{5C22544A-7EE6-4342-B048-85BDC9FD1C3A}"/>)";

PartRef stylesPart(Document& document) {
  const PartRef& presentation = document.presentationPart();
  const Relationship* relationship = presentation->firstRelationship("tableStyles");
  return relationship ? presentation->target(*relationship) : nullptr;
}

PartRef requireStylesPart(Document& document) {
  if (PartRef part = stylesPart(document)) return part;
  Package& package = document.package();
  const bool free = package.part("ppt/tableStyles.xml") == nullptr;
  PartRef part = package.addXml(
      free ? "ppt/tableStyles.xml" : package.freeName("ppt/tableStyles%d.xml"),
      "application/vnd.openxmlformats-officedocument.presentationml.tableStyles+xml", noStyles);
  document.presentationPart()->relate(*part, "tableStyles");
  return part;
}

void collectStyles(xml_node node, std::set<std::string>& ids) {
  for (xml_node child : node.children()) {
    if (std::string_view(child.name()) == "a:tableStyleId") ids.emplace(child.text().get());
    collectStyles(child, ids);
  }
}

xml_node styleOf(xml_node list, const std::string& id) {
  return list.find_child_by_attribute("a:tblStyle", "styleId", id.c_str());
}

}  // namespace

void bringTableStyles(xml_node tables, Document& from, Document& to) {
  if (&from == &to) return;
  std::set<std::string> ids;
  collectStyles(tables, ids);
  const PartRef source = ids.empty() ? nullptr : stylesPart(from);
  if (!source) return;
  for (const std::string& id : ids) {
    const xml_node style = styleOf(source->root(), id);
    if (!style) continue;
    const PartRef target = requireStylesPart(to);
    if (styleOf(target->root(), id)) continue;
    copyElement(style, target->root(), {}, to.package().isStrict());
    to.touch(*target);
  }
}

}  // namespace vellumark::deck
