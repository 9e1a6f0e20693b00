#pragma once
// Animations of a slide.

#include <string>

#include "host/constants.h"
#include "host/handle.h"
#include "host/shape.h"

namespace vellumark::host {

class MotionEffect : public Handle {
 public:
  using Handle::Handle;
  /// "M 0 0 L 0.5 0.25": commands and places as shares of the slide's size.
  std::string Path() const { return get<std::string>(member::Path); }
  void Path(const std::string& path) const { put(member::Path, path); }
};

class Timing : public Handle {
 public:
  using Handle::Handle;
  void SmoothStart(bool on) const { putTriState(member::SmoothStart, on); }
  void SmoothEnd(bool on) const { putTriState(member::SmoothEnd, on); }
};

/// One of the changes that make up an effect.
class AnimationBehavior : public Handle {
 public:
  using Handle::Handle;
  host::MotionEffect MotionEffect() const { return get<host::MotionEffect>(member::MotionEffect); }
  host::Timing Timing() const { return get<host::Timing>(member::Timing); }
  void Delete() const { call(member::Delete); }
};

class AnimationBehaviors : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  AnimationBehavior Item(int index) const { return get<AnimationBehavior>(member::Item, index); }
  /// At the end for -1.
  AnimationBehavior Add(MsoAnimType type, int index = -1) const {
    return call<AnimationBehavior>(member::Add, type, index);
  }
};

class Effect : public Handle {
 public:
  using Handle::Handle;
  AnimationBehaviors Behaviors() const { return get<AnimationBehaviors>(member::Behaviors); }
};

class Sequence : public Handle {
 public:
  using Handle::Handle;
  int Count() const { return get<int>(member::Count); }
  Effect Item(int index) const { return get<Effect>(member::Item, index); }
  /// At the end for index -1.
  Effect AddEffect(const Shape& shape, MsoAnimEffect effect, int level = 0,
                   MsoAnimTriggerType trigger = msoAnimTriggerOnPageClick, int index = -1) const {
    return call<Effect>(member::AddEffect, shape, effect, level, trigger, index);
  }
};

class TimeLine : public Handle {
 public:
  using Handle::Handle;
  Sequence MainSequence() const { return get<Sequence>(member::MainSequence); }
};

}  // namespace vellumark::host
