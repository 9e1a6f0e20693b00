#pragma once
// The add-in as a host holds it, however it is reached.

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/application.h"
#include "host/ribbon.h"

namespace vellumark::app {

class AddIn {
 public:
  virtual ~AddIn() = default;
  /// What the host does at its start and end.
  virtual void connect(const host::Application& application) = 0;
  virtual void disconnect() = 0;
  /// Calls a callback of the ribbon by its name. A failure of it is a base::Error.
  virtual host::Value callBack(std::string_view name, std::span<const host::Value> arguments) = 0;

  /// The definition of the ribbon. A failure of it is a base::Error.
  virtual std::string customUi() = 0;

  host::Value callBack(std::string_view name, std::initializer_list<host::Value> arguments) {
    return callBack(name, std::span(arguments.begin(), arguments.size()));
  }
  /// A callback that takes a control alone.
  host::Value callBack(std::string_view name, const host::IRibbonControl& control) {
    return callBack(name, {host::Value(control.object())});
  }
};

/// Makes the add-in whose installation lies under that root.
using AddInMaker = std::function<std::unique_ptr<AddIn>(const std::filesystem::path& installation)>;

/// The add-in in this very program.
std::unique_ptr<AddIn> builtInAddIn(const std::filesystem::path& installation);

}  // namespace vellumark::app
