#include "deck/model/references.h"

#include <algorithm>

#include "deck/model/shape_node.h"
#include "deck/package/format_error.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

void collect(xml_node node, std::vector<Reference>& found) {
  for (pugi::xml_attribute attribute : node.attributes()) {
    if (std::string_view(attribute.name()).starts_with("r:") && *attribute.value()) {
      found.push_back({node, attribute});
    }
  }
  for (xml_node child : node.children()) collect(child, found);
}

/// The element that makes no sense without its reference; nothing where it does.
xml_node meaninglessWithout(xml_node element, xml_node within) {
  const std::string_view name = localName(element);
  constexpr std::string_view whole[] = {"tags", "custData", "snd", "audioFile", "videoFile"};
  if (name.starts_with("hlink") || std::ranges::find(whole, name) != std::end(whole)) return element;
  for (xml_node node = element; node && node != within; node = node.parent()) {
    if (localName(node) == "ext" && localName(node.parent()) == "extLst") return node;
  }
  return {};
}

/// Removes an element, and lists that are empty without it.
void removeWithEmptyLists(xml_node element) {
  xml_node parent = element.parent();
  parent.remove_child(element);
  const std::string_view name = localName(parent);
  if ((name == "extLst" || name == "custDataLst") && !parent.first_child())
    parent.parent().remove_child(parent);
}

}  // namespace

std::vector<Reference> referencesIn(xml_node node) {
  std::vector<Reference> found;
  collect(node, found);
  return found;
}

xml_node drawingExtension(xml_node data) {
  return data.find_node([](xml_node one) { return localName(one) == "dataModelExt"; });
}

std::string diagramDrawing(Part& sheet, const Reference& reference) {
  if (std::string_view(reference.attribute.name()) != "r:dm") return {};
  const Relationship* relationship = sheet.relationship(reference.attribute.value());
  const PartRef data = relationship ? sheet.target(*relationship) : nullptr;
  if (!data) return {};
  try {
    return drawingExtension(data->root()).attribute("relId").value();
  } catch (const FormatError&) {
    return {};
  }
}

void dropReferences(xml_node node, std::string_view id) {
  for (;;) {
    // One at a time: what goes with the first may hold the next.
    const std::vector<Reference> all = referencesIn(node);
    const auto found =
        std::ranges::find_if(all, [&](const Reference& one) { return id == one.attribute.value(); });
    if (found == all.end()) return;
    xml_node element = found->element;
    if (const xml_node whole = meaninglessWithout(element, node)) {
      removeWithEmptyLists(whole);
    } else {
      element.remove_attribute(found->attribute);
    }
  }
}

}  // namespace vellumark::deck
