#pragma once
// The add-in behind a host that takes nothing but what is documented.

#include <memory>
#include <utility>

#include "add_in.h"
#include "support/strict_host.h"

namespace vellumark::test {

/// Any way to reach the add-in, told of a strict host instead of the one that is there.
inline app::AddInMaker behindStrictHost(app::AddInMaker make) {
  class Behind : public app::AddIn {
   public:
    explicit Behind(std::unique_ptr<app::AddIn> addIn) : addIn_(std::move(addIn)) {}
    void connect(const host::Application& application) override {
      addIn_->connect(host::Application(strict(application.object())));
    }
    void disconnect() override { addIn_->disconnect(); }
    host::Value callBack(std::string_view name, std::span<const host::Value> arguments) override {
      return addIn_->callBack(name, arguments);
    }
    std::string customUi() override { return addIn_->customUi(); }

   private:
    std::unique_ptr<app::AddIn> addIn_;
  };
  return [make = std::move(make)](const std::filesystem::path& installation) {
    return std::make_unique<Behind>(make(installation));
  };
}

}  // namespace vellumark::test
