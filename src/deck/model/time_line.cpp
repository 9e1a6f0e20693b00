#include "deck/model/time_line.h"

#include <string_view>

#include "deck/model/main_sequence.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/shape_node.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// A node of a slide's animations.
struct TimeKey {
  Sheet slide;
  xml_node node;

  void requireAlive() const {
    if (slide.document->closed() || slide.part->isBuried(node)) base::raise(base::errors::invalidRequest);
  }
};

class MotionEffectObject : public ModelObject<MotionEffectObject> {
 public:
  static constexpr const char* className = "MotionEffect";
  static const MemberTable<MotionEffectObject>& members() {
    static const MemberTable<MotionEffectObject> table{
        property<&MotionEffectObject::path, &MotionEffectObject::setPath>(member::Path),
    };
    return table;
  }
  MotionEffectObject(HostRef host, TimeKey motion)
      : ModelObject(std::move(host)), motion_(std::move(motion)) {}
  void requireAlive() const { motion_.requireAlive(); }

  std::string path() { return motion_.node.attribute("path").value(); }
  void setPath(const std::string& path) {
    setAttribute(motion_.node, "path", path.c_str());
    motion_.slide.touch();
  }

 private:
  TimeKey motion_;
};

/// A smooth start or end takes half of the time.
class TimingObject : public ModelObject<TimingObject> {
 public:
  static constexpr const char* className = "Timing";
  static const MemberTable<TimingObject>& members() {
    static const MemberTable<TimingObject> table{
        property<&TimingObject::smoothStart, &TimingObject::setSmoothStart>(member::SmoothStart),
        property<&TimingObject::smoothEnd, &TimingObject::setSmoothEnd>(member::SmoothEnd),
    };
    return table;
  }
  TimingObject(HostRef host, TimeKey time) : ModelObject(std::move(host)), time_(std::move(time)) {}
  void requireAlive() const { time_.requireAlive(); }

  Value smoothStart() { return host::triState(time_.node.attribute("accel").as_int() != 0); }
  void setSmoothStart(bool on) { set("accel", on); }
  Value smoothEnd() { return host::triState(time_.node.attribute("decel").as_int() != 0); }
  void setSmoothEnd(bool on) { set("decel", on); }

 private:
  void set(const char* name, bool on) {
    if (on) {
      setAttribute(time_.node, name, "50000");
    } else {
      time_.node.remove_attribute(name);
    }
    time_.slide.touch();
  }
  TimeKey time_;
};

/// The preset of an effect whose behaviours were changed by hand: custom.
void makeCustom(xml_node effect) { setAttribute(effect, "presetID", 0); }

class BehaviorObject : public ModelObject<BehaviorObject> {
 public:
  static constexpr const char* className = "AnimationBehavior";
  static const MemberTable<BehaviorObject>& members() {
    static const MemberTable<BehaviorObject> table{
        property<&BehaviorObject::type>(member::Type),
        property<&BehaviorObject::motionEffect>(member::MotionEffect),
        property<&BehaviorObject::timing>(member::Timing),
        method<&BehaviorObject::remove>(member::Delete),
    };
    return table;
  }
  BehaviorObject(HostRef host, TimeKey behavior)
      : ModelObject(std::move(host)), behavior_(std::move(behavior)) {}
  void requireAlive() const { behavior_.requireAlive(); }

  /// MsoAnimType.
  std::int32_t type() {
    static constexpr std::pair<std::string_view, std::int32_t> types[] = {
        {"p:animMotion", 1}, {"p:animClr", 2}, {"p:animScale", 3},  {"p:animRot", 4},
        {"p:anim", 5},       {"p:cmd", 6},     {"p:animEffect", 7}, {"p:set", 8}};
    for (const auto& [name, type] : types) {
      if (name == behavior_.node.name()) return type;
    }
    return host::mixed;
  }
  host::ObjectRef motionEffect() {
    if (type() != host::msoAnimTypeMotion) base::raise(base::errors::outOfRange);
    return std::make_shared<MotionEffectObject>(host(), behavior_);
  }
  host::ObjectRef timing() {
    const xml_node time = behavior_.node.child("p:cBhvr").child("p:cTn");
    return std::make_shared<TimingObject>(host(), TimeKey{behavior_.slide, time});
  }
  /// The last one stays: an effect does something.
  void remove() {
    const xml_node effect = behavior_.node.parent().parent();
    if (behaviorsOf(effect).size() < 2) {
      base::raise(base::errors::invalidRequest,
                  "AnimationBehavior.Delete: Invalid request. An effect has at least one behavior.");
    }
    makeCustom(effect);
    behavior_.slide.part->bury(behavior_.node);
    behavior_.slide.touch();
  }

 private:
  TimeKey behavior_;
};

class BehaviorsObject : public ModelObject<BehaviorsObject> {
 public:
  static constexpr const char* className = "AnimationBehaviors";
  static const MemberTable<BehaviorsObject>& members() {
    static const MemberTable<BehaviorsObject> table{
        property<&BehaviorsObject::count>(member::Count),
        method<&BehaviorsObject::item>(member::Item, 1),
        method<&BehaviorsObject::add>(member::Add, 1, 2),
    };
    return table;
  }
  BehaviorsObject(HostRef host, TimeKey effect) : ModelObject(std::move(host)), effect_(std::move(effect)) {}
  void requireAlive() const { effect_.requireAlive(); }

  std::int32_t count() { return static_cast<std::int32_t>(behaviorsOf(effect_.node).size()); }
  host::ObjectRef item(Arguments arguments) {
    const std::vector<xml_node> all = behaviorsOf(effect_.node);
    return behavior(all[collectionIndex(arguments[0].toInt(), all.size())]);
  }
  /// Add(Type, Index): motions only, which is what this program makes.
  host::ObjectRef add(Arguments arguments) {
    if (arguments[0].toInt() != host::msoAnimTypeMotion) base::raise(base::errors::outOfRange);
    const auto index = argumentOr<std::int32_t>(arguments, 1, -1);
    const std::size_t count = behaviorsOf(effect_.node).size();
    const std::size_t position = index == -1 ? count : collectionIndex(index, count + 1);
    makeCustom(effect_.node);
    return behavior(addMotion(effect_.slide, effect_.node, position));
  }

 private:
  host::ObjectRef behavior(xml_node node) {
    return std::make_shared<BehaviorObject>(host(), TimeKey{effect_.slide, node});
  }
  TimeKey effect_;
};

class EffectObject : public ModelObject<EffectObject> {
 public:
  static constexpr const char* className = "Effect";
  static const MemberTable<EffectObject>& members() {
    static const MemberTable<EffectObject> table{
        property<&EffectObject::behaviors>(member::Behaviors),
        property<&EffectObject::shape>(member::Shape),
    };
    return table;
  }
  EffectObject(HostRef host, TimeKey effect) : ModelObject(std::move(host)), effect_(std::move(effect)) {}
  void requireAlive() const { effect_.requireAlive(); }

  host::ObjectRef behaviors() { return std::make_shared<BehaviorsObject>(host(), effect_); }
  host::ObjectRef shape() {
    const std::int32_t id = animatedShape(effect_.node);
    for (const ShapeKey& shape : shapesOf(effect_.slide)) {
      if (shapeId(shape.node) == id) return makeShape(host(), shape);
    }
    base::raise(base::errors::invalidRequest);
  }

 private:
  TimeKey effect_;
};

class SequenceObject : public ModelObject<SequenceObject> {
 public:
  static constexpr const char* className = "Sequence";
  static const MemberTable<SequenceObject>& members() {
    static const MemberTable<SequenceObject> table{
        property<&SequenceObject::count>(member::Count),
        method<&SequenceObject::item>(member::Item, 1),
        method<&SequenceObject::addEffect>(member::AddEffect, 2, 5),
    };
    return table;
  }
  SequenceObject(HostRef host, Sheet slide) : ModelObject(std::move(host)), slide_(std::move(slide)) {}
  void requireAlive() const {
    if (slide_.document->closed() || slide_.part->removed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(mainEffects(slide_).size()); }
  host::ObjectRef item(Arguments arguments) {
    const std::vector<xml_node> all = mainEffects(slide_);
    return effect(all[collectionIndex(arguments[0].toInt(), all.size())]);
  }

  /// AddEffect(Shape, effectId, Level, trigger, Index): the path to the left, started by a click, is the
  /// effect that this program adds.
  host::ObjectRef addEffect(Arguments arguments) {
    constexpr std::int32_t pathToTheLeft = 35;  // its number in the file
    const bool known = arguments[1].toInt() == host::msoAnimEffectPathLeft &&
                       argumentOr<std::int32_t>(arguments, 2, 0) == 0 &&
                       argumentOr<std::int32_t>(arguments, 3, host::msoAnimTriggerOnPageClick) ==
                           host::msoAnimTriggerOnPageClick;
    if (!known) base::raise(base::errors::outOfRange);
    const ShapeKey shape = own(arguments[0].toObject()->invoke(member::Id, Invoke::get, {}).toInt());
    const auto index = argumentOr<std::int32_t>(arguments, 4, -1);
    const std::size_t count = mainEffects(slide_).size();
    const std::size_t position = index == -1 ? count : collectionIndex(index, count + 1);
    const bool hasText = shapeElement(shape.node) == ShapeElement::shape;
    return effect(
        addMotionEffect(slide_, shapeId(shape.node), hasText, position, pathToTheLeft, "M 0 0 L -0.25 0 E"));
  }

 private:
  /// The slide's shape with that id; animations play on whole groups, not on their members.
  ShapeKey own(std::int32_t id) {
    for (const ShapeKey& shape : shapesOf(slide_)) {
      if (shapeId(shape.node) == id) return shape;
    }
    base::raise(base::errors::invalidRequest,
                "Sequence.AddEffect: Invalid request. The shape doesn't stand on this slide by itself.");
  }
  host::ObjectRef effect(xml_node node) {
    return std::make_shared<EffectObject>(host(), TimeKey{slide_, node});
  }
  Sheet slide_;
};

class TimeLineObject : public ModelObject<TimeLineObject> {
 public:
  static constexpr const char* className = "TimeLine";
  static const MemberTable<TimeLineObject>& members() {
    static const MemberTable<TimeLineObject> table{
        property<&TimeLineObject::mainSequence>(member::MainSequence),
    };
    return table;
  }
  TimeLineObject(HostRef host, Sheet slide) : ModelObject(std::move(host)), slide_(std::move(slide)) {}

  host::ObjectRef mainSequence() { return std::make_shared<SequenceObject>(host(), slide_); }

 private:
  Sheet slide_;
};

}  // namespace

host::ObjectRef makeTimeLine(const HostRef& host, const Sheet& slide) {
  return std::make_shared<TimeLineObject>(host, slide);
}

}  // namespace vellumark::deck
