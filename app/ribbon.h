#pragma once
// The ribbon's side of the seam: what a ribbon host hands to the add-in.

#include <memory>
#include <string>

#include "host/ribbon.h"

namespace vellumark::app {

/// A control of the ribbon, with the id and tag of the ribbon definition.
class RibbonControl : public host::Object {
 public:
  explicit RibbonControl(std::string id, std::string tag = {}) : id_(std::move(id)), tag_(std::move(tag)) {}
  std::string typeName() const override { return "IRibbonControl"; }
  host::Value invoke(host::Member member, host::Invoke kind, std::span<const host::Value> arguments) override;

 private:
  std::string id_;
  std::string tag_;
};

/// The control "zp_<number>".
host::IRibbonControl ribbonControl(int number);

/// The ribbon itself. It shows nothing and so has nothing to ask anew; it counts how often it was told to.
class Ribbon : public host::Object {
 public:
  std::string typeName() const override { return "IRibbonUI"; }
  host::Value invoke(host::Member member, host::Invoke kind, std::span<const host::Value> arguments) override;
  int invalidations() const { return invalidations_; }

 private:
  int invalidations_ = 0;
};

}  // namespace vellumark::app
