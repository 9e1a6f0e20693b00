#pragma once
// The ribbon's side of the seam: what a ribbon host hands to the add-in.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "add_in.h"
#include "host/ribbon.h"

namespace vellumark::app {

/// A control of the ribbon, with the id and tag of the ribbon definition.
class RibbonControl : public host::Object {
 public:
  explicit RibbonControl(std::string id, std::string tag = {}) : id_(std::move(id)), tag_(std::move(tag)) {}
  const std::string& id() const { return id_; }
  std::string typeName() const override { return "IRibbonControl"; }
  host::Value invoke(host::Member member, host::Invoke kind, std::span<const host::Value> arguments) override;

 private:
  std::string id_;
  std::string tag_;
};

/// The control "zp_<number>".
host::IRibbonControl ribbonControl(int number);

/// The ribbon itself. What the add-in has answered it keeps, until the add-in tells it to ask anew: for all
/// controls or for one.
class Ribbon : public host::Object {
 public:
  std::string typeName() const override { return "IRibbonUI"; }
  host::Value invoke(host::Member member, host::Invoke kind, std::span<const host::Value> arguments) override;

  /// What is shown of a control: the answer of a callback, about one item of the control where it has an
  /// index.
  host::Value shown(AddIn& addIn, const std::string& callback, const std::shared_ptr<RibbonControl>& control,
                    std::optional<int> index);

 private:
  using Question = std::pair<std::string, std::optional<int>>;
  std::map<std::string, std::map<Question, host::Value>> answers_;  ///< by the control's id
};

}  // namespace vellumark::app
