#include "deck/model/layout_creation.h"

#include <algorithm>
#include <string>

#include "deck/model/new_presentation.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_copier.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

/// Masters and layouts share one range of ids, from 2^31 up.
constexpr long long lowestId = 2147483648LL;

long long freeId(Document& document) {
  long long highest = lowestId;
  const auto consider = [&](const pugi::xml_node& entry) {
    highest = std::max(highest, entry.attribute("id").as_llong());
  };
  for (const pugi::xml_node& entry : document.presentation().child("p:sldMasterIdLst").children())
    consider(entry);
  for (const Sheet& master : document.masters()) {
    for (const pugi::xml_node& entry : master.part->root().child("p:sldLayoutIdLst").children())
      consider(entry);
  }
  return highest + 1;
}

LayoutSetting settingOf(Document& document, const Sheet& master) {
  const pugi::xml_node size = document.presentation().child("p:sldSz");
  LayoutSetting setting{false, false, size.attribute("cx").as_double(9144000),
                        size.attribute("cy").as_double(6858000)};
  for (const pugi::xml_node& shape : shapeNodes(master.shapeTree())) {
    const pugi::xml_node element = placeholderElement(shape);
    if (!element) continue;
    if (placeholderFamily(element) == PlaceholderFamily::title) setting.hasTitle = true;
    if (placeholderFamily(element) == PlaceholderFamily::body) setting.hasBody = true;
  }
  return setting;
}

/// Lists a layout that is in the package already under its master.
Sheet listLayout(Document& document, const Sheet& master, const PartRef& part) {
  pugi::xml_node entry = childInOrder(master.part->root(), "p:sldLayoutIdLst",
                                      {"p:transition", "p:timing", "p:hf", "p:txStyles", "p:extLst"})
                             .append_child("p:sldLayoutId");
  entry.append_attribute("id").set_value(freeId(document));
  entry.append_attribute("r:id").set_value(master.part->relate(*part, "slideLayout").c_str());
  document.touch(*master.part);
  return document.sheet(part);
}

}  // namespace

Sheet addLayout(Document& document, const Sheet& master, std::string_view type) {
  const std::string xml = simpleLayoutXml(type, settingOf(document, master));
  if (xml.empty()) return {};
  Package& package = document.package();
  const PartRef part =
      package.addXml(package.freeName("ppt/slideLayouts/slideLayout%d.xml"), layoutContentType, xml);
  part->relate(*master.part, "slideMaster");
  return listLayout(document, master, part);
}

Sheet copyLayout(const Sheet& layout, Document& document, const Sheet& master, PartCopier& copier) {
  return listLayout(document, master, copyUnder(layout, master, copier));
}

}  // namespace vellumark::deck
