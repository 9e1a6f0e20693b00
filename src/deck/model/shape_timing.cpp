#include "deck/model/shape_timing.h"

#include <string_view>
#include <vector>

namespace vellumark::deck {
namespace {

using pugi::xml_node;

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }

bool holdsElements(xml_node node) {
  return static_cast<bool>(
      node.find_child([](xml_node child) { return child.type() == pugi::node_element; }));
}

/// The node of the time tree that has to go with a target: the sequence that a click on the shape starts, the
/// effect that plays on it, or the media node. Nothing where the target stands in no such node.
xml_node owner(xml_node target) {
  for (xml_node node = target.parent(); node && !isNamed(node, "p:timing"); node = node.parent()) {
    if (isNamed(node, "p:audio") || isNamed(node, "p:video")) return node;
    if (!isNamed(node, "p:cTn")) continue;
    const bool effect = static_cast<bool>(node.attribute("presetClass"));
    const bool triggered = std::string_view(node.attribute("nodeType").value()) == "interactiveSeq";
    if (effect || triggered) return node.parent();
  }
  return {};
}

/// Removes a time node and the containers around it that hold nothing any more, up to the whole timing.
void removeWithEmptyContainers(xml_node node) {
  for (;;) {
    xml_node parent = node.parent();
    if (!parent) return;
    parent.remove_child(node);
    const bool list = isNamed(parent, "p:childTnLst") || isNamed(parent, "p:tnLst");
    if (!list || holdsElements(parent)) return;
    // p:childTnLst stands in p:cTn, which stands in p:par or p:seq; p:tnLst stands in p:timing.
    node = isNamed(parent, "p:tnLst") ? parent.parent() : parent.parent().parent();
  }
}

void collect(xml_node node, const std::set<std::int32_t>& ids, std::vector<xml_node>& targets,
             std::vector<xml_node>& builds) {
  for (xml_node child : node.children()) {
    if (const pugi::xml_attribute id = child.attribute("spid"); id && ids.contains(id.as_int())) {
      (isNamed(child.parent(), "p:bldLst") ? builds : targets).push_back(child);
    }
    collect(child, ids, targets, builds);
  }
}

}  // namespace

void forgetAnimations(const Sheet& sheet, const std::set<std::int32_t>& ids) {
  xml_node timing = sheet.part->root().child("p:timing");
  if (!timing) return;
  // One target at a time: what goes with the first may hold the second.
  for (;;) {
    std::vector<xml_node> targets;
    std::vector<xml_node> builds;
    collect(timing, ids, targets, builds);
    for (xml_node build : builds) {
      xml_node list = build.parent();
      list.remove_child(build);
      if (!holdsElements(list)) list.parent().remove_child(list);
    }
    if (targets.empty()) return;
    const xml_node gone = owner(targets.front());
    // A target outside of any effect is that of a condition.
    removeWithEmptyContainers(gone ? gone : targets.front().parent().parent());
    timing = sheet.part->root().child("p:timing");
    if (!timing) return;
  }
}

}  // namespace vellumark::deck
