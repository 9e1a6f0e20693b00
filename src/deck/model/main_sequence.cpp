#include "deck/model/main_sequence.h"

#include <algorithm>
#include <string_view>

#include "deck/model/xml_order.h"
#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int32_t motionMilliseconds = 2000;

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }

/// A new p:cTn, its id above all others of the slide.
xml_node appendTimeNode(xml_node parent, std::int32_t& nextId) {
  xml_node node = parent.append_child("p:cTn");
  node.append_attribute("id").set_value(nextId++);
  return node;
}

std::int32_t highestTimeNode(xml_node node) {
  std::int32_t highest = isNamed(node, "p:cTn") ? node.attribute("id").as_int() : 0;
  for (const xml_node child : node.children()) highest = std::max(highest, highestTimeNode(child));
  return highest;
}

void appendDelay(xml_node timeNode, const char* delay) {
  timeNode.append_child("p:stCondLst").append_child("p:cond").append_attribute("delay").set_value(delay);
}

/// What leads from the main sequence to its neighbours: a click anywhere.
void appendSlideCondition(xml_node sequence, const char* list, const char* event) {
  xml_node condition = sequence.append_child(list).append_child("p:cond");
  condition.append_attribute("evt").set_value(event);
  condition.append_attribute("delay").set_value("0");
  condition.append_child("p:tgtEl").append_child("p:sldTgt");
}

xml_node findTimeNode(xml_node node, const char* type) {
  return node.find_node([type](xml_node one) {
    return isNamed(one, "p:cTn") && std::string_view(one.attribute("nodeType").value()) == type;
  });
}

/// p:timing in its place among the children of p:sld. Where effects that only later hosts know put it into an
/// alternative, it comes out of that: those hosts find them as before.
xml_node requireTiming(xml_node slide, bool strict) {
  for (const xml_node alternative : slide.children("mc:AlternateContent")) {
    if (const xml_node timing = unwrapChoice(alternative, "p:timing", strict)) return timing;
  }
  return childInOrder(slide, "p:timing", {"p:extLst"});
}

/// p:childTnLst of a p:cTn, behind its conditions.
xml_node requireChildren(xml_node timeNode) { return childInOrder(timeNode, "p:childTnLst", {"p:subTnLst"}); }

/// The main sequence's p:cTn, made with the root around it where they are missing.
xml_node requireMainSequence(const Sheet& slide) {
  xml_node timing = requireTiming(slide.part->root(), slide.document->package().isStrict());
  if (const xml_node found = findTimeNode(timing, "mainSeq")) return found;
  std::int32_t nextId = highestTimeNode(timing) + 1;
  xml_node root = findTimeNode(timing, "tmRoot");
  if (!root) {
    xml_node list = childInOrder(timing, "p:tnLst", {"p:bldLst", "p:extLst"});
    root = appendTimeNode(list.append_child("p:par"), nextId);
    root.append_attribute("dur").set_value("indefinite");
    root.append_attribute("restart").set_value("never");
    root.append_attribute("nodeType").set_value("tmRoot");
  }
  // The main sequence comes before those that a click on a shape starts.
  xml_node sequence = requireChildren(root).prepend_child("p:seq");
  sequence.append_attribute("concurrent").set_value("1");
  sequence.append_attribute("nextAc").set_value("seek");
  xml_node main = appendTimeNode(sequence, nextId);
  main.append_attribute("dur").set_value("indefinite");
  main.append_attribute("nodeType").set_value("mainSeq");
  appendSlideCondition(sequence, "p:prevCondLst", "onPrev");
  appendSlideCondition(sequence, "p:nextCondLst", "onNext");
  return main;
}

void collectEffects(xml_node node, std::vector<xml_node>& effects) {
  if (isNamed(node, "p:cTn") && node.attribute("presetClass")) {
    effects.push_back(node);
    return;
  }
  for (const xml_node child : node.children()) collectEffects(child, effects);
}

/// The child of the main sequence's list that an effect stands in: its click.
xml_node clickOf(xml_node effect, xml_node list) {
  xml_node node = effect;
  while (node && node.parent() != list) node = node.parent();
  return node;
}

/// Lists a shape with text as built in one piece by the next group of effects on it; that group's number.
std::int32_t appendBuild(xml_node timing, std::int32_t shapeId) {
  xml_node list = childInOrder(timing, "p:bldLst", {"p:extLst"});
  std::int32_t group = 0;
  for (const xml_node build : list.children()) {
    if (build.attribute("spid").as_int() == shapeId)
      group = std::max(group, build.attribute("grpId").as_int() + 1);
  }
  xml_node build = list.append_child("p:bldP");
  build.append_attribute("spid").set_value(shapeId);
  build.append_attribute("grpId").set_value(group);
  build.append_attribute("animBg").set_value("1");
  return group;
}

xml_node insertMotion(xml_node list, xml_node before, std::int32_t shapeId, std::int32_t timeNodeId) {
  xml_node motion =
      before ? list.insert_child_before("p:animMotion", before) : list.append_child("p:animMotion");
  motion.append_attribute("origin").set_value("layout");
  motion.append_attribute("pathEditMode").set_value("relative");
  xml_node behavior = motion.append_child("p:cBhvr");
  xml_node time = appendTimeNode(behavior, timeNodeId);
  time.append_attribute("dur").set_value(motionMilliseconds);
  time.append_attribute("fill").set_value("hold");
  behavior.append_child("p:tgtEl").append_child("p:spTgt").append_attribute("spid").set_value(shapeId);
  xml_node attributes = behavior.append_child("p:attrNameLst");
  for (const char* name : {"ppt_x", "ppt_y"}) attributes.append_child("p:attrName").text().set(name);
  return motion;
}

}  // namespace

std::vector<xml_node> mainEffects(const Sheet& slide) {
  std::vector<xml_node> effects;
  collectEffects(findTimeNode(slide.part->root().child("p:timing"), "mainSeq"), effects);
  return effects;
}

xml_node addMotionEffect(const Sheet& slide, std::int32_t shapeId, bool hasText, std::size_t position,
                         std::int32_t preset, const std::string& path) {
  const std::vector<xml_node> effects = mainEffects(slide);
  xml_node root = slide.part->root();
  xml_node list = requireChildren(requireMainSequence(slide));
  xml_node timing = root.child("p:timing");
  std::int32_t nextId = highestTimeNode(timing) + 1;

  const xml_node before = position < effects.size() ? clickOf(effects[position], list) : xml_node();
  xml_node click =
      appendTimeNode(before ? list.insert_child_before("p:par", before) : list.append_child("p:par"), nextId);
  click.append_attribute("fill").set_value("hold");
  appendDelay(click, "indefinite");
  xml_node step = appendTimeNode(click.append_child("p:childTnLst").append_child("p:par"), nextId);
  step.append_attribute("fill").set_value("hold");
  appendDelay(step, "0");
  xml_node effect = appendTimeNode(step.append_child("p:childTnLst").append_child("p:par"), nextId);
  effect.append_attribute("presetID").set_value(preset);
  effect.append_attribute("presetClass").set_value("path");
  effect.append_attribute("presetSubtype").set_value("0");
  effect.append_attribute("fill").set_value("hold");
  if (hasText) effect.append_attribute("grpId").set_value(appendBuild(timing, shapeId));
  effect.append_attribute("nodeType").set_value("clickEffect");
  appendDelay(effect, "0");
  setAttribute(insertMotion(effect.append_child("p:childTnLst"), {}, shapeId, nextId), "path", path.c_str());
  slide.touch();
  return effect;
}

std::vector<xml_node> behaviorsOf(xml_node effect) {
  std::vector<xml_node> behaviors;
  for (const xml_node child : effect.child("p:childTnLst").children()) {
    const std::string_view name = child.name();
    if (name.starts_with("p:anim") || name == "p:set" || name == "p:cmd") behaviors.push_back(child);
  }
  return behaviors;
}

xml_node addMotion(const Sheet& slide, xml_node effect, std::size_t position) {
  const std::vector<xml_node> behaviors = behaviorsOf(effect);
  const xml_node before = position < behaviors.size() ? behaviors[position] : xml_node();
  const std::int32_t id = highestTimeNode(slide.part->root().child("p:timing")) + 1;
  const xml_node motion = insertMotion(requireChildren(effect), before, animatedShape(effect), id);
  slide.touch();
  return motion;
}

std::int32_t animatedShape(xml_node effect) {
  const xml_node target = effect.find_node([](xml_node node) { return isNamed(node, "p:spTgt"); });
  return target.attribute("spid").as_int();
}

}  // namespace vellumark::deck
