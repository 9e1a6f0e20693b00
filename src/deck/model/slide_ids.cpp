#include "deck/model/slide_ids.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

int idOf(xml_node node) { return node.attribute("id").as_int(); }

}  // namespace

bool separateSlideIds(xml_node presentation) {
  std::map<int, std::vector<xml_node>> slides, listed;
  for (xml_node node : presentation.child("p:sldIdLst").children("p:sldId"))
    slides[idOf(node)].push_back(node);
  const bool sound =
      std::ranges::all_of(slides, [](const auto& one) { return one.first > 0 && one.second.size() == 1; });
  if (sound) return false;
  for (const auto& entry : presentation.child("p:extLst").select_nodes(".//*[local-name()='sldId']")) {
    listed[idOf(entry.node())].push_back(entry.node());
  }
  std::set<int> taken;
  for (const auto& [id, nodes] : slides) taken.insert(id);
  int free = lowestSlideId;
  for (auto& [id, nodes] : slides) {
    std::vector<xml_node>& entries = listed[id];
    // The first keeps a sound id.
    for (std::size_t i = id > 0 ? 1 : 0; i < nodes.size(); ++i) {
      while (!taken.insert(free).second) ++free;
      setAttribute(nodes[i], "id", free);
      if (entries.size() == nodes.size()) setAttribute(entries[i], "id", free);
    }
  }
  return true;
}

}  // namespace vellumark::deck
