#include "deck/model/shape_style.h"

#include <algorithm>
#include <string_view>

#include "deck/model/shape_node.h"

namespace vellumark::deck {

using pugi::xml_node;

xml_node fillElement(xml_node holder) {
  return holder.find_child([](xml_node child) {
    return std::ranges::any_of(fillNames, [&](std::string_view name) { return name == child.name(); });
  });
}

xml_node styleReference(xml_node shape, const char* name) {
  const xml_node reference = shape.child("p:style").child(name);
  return themeIndex(reference) > 0 ? reference : xml_node();
}

std::int64_t themeIndex(xml_node reference) { return wholeNumber(reference.attribute("idx"), 0, 100'000); }

}  // namespace vellumark::deck
