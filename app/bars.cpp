#include "bars.h"

#include <algorithm>

#include "base/text.h"

namespace vellumark::app {
namespace {

using host::CommandBarControl;
using Wanted = std::function<bool(const CommandBarControl&)>;

CommandBarControl findAmong(const host::CommandBarControls& controls, const Wanted& wanted) {
  for (const CommandBarControl& control : controlsOf(controls)) {
    if (wanted(control)) return control;
    if (control.Type() != host::msoControlPopup) continue;
    if (const CommandBarControl found = findAmong(control.Controls(), wanted)) return found;
  }
  return {};
}

}  // namespace

std::vector<CommandBarControl> controlsOf(const host::CommandBarControls& controls) {
  std::vector<CommandBarControl> all;
  const int count = controls.Count();
  for (int i = 1; i <= count; ++i) all.push_back(controls.Item(i));
  return all;
}

std::vector<host::CommandBar> barsOf(const host::CommandBars& bars) {
  std::vector<host::CommandBar> all;
  const int count = bars.Count();
  for (int i = 1; i <= count; ++i) all.push_back(bars.Item(i));
  return all;
}

CommandBarControl findControl(const host::CommandBars& bars, const Wanted& wanted) {
  for (const host::CommandBar& bar : barsOf(bars)) {
    if (const CommandBarControl found = findAmong(bar.Controls(), wanted)) return found;
  }
  return {};
}

CommandBarControl findButton(const host::CommandBars& bars, const std::vector<std::string>& parameters) {
  return findControl(bars, [&](const CommandBarControl& control) {
    if (control.Type() != host::msoControlButton) return false;
    const std::string parameter = control.Parameter();
    return std::any_of(parameters.begin(), parameters.end(),
                       [&](const std::string& wanted) { return base::equalsIgnoreCase(wanted, parameter); });
  });
}

CommandBarControl findStyleBox(const host::CommandBars& bars) {
  return findControl(
      bars, [](const CommandBarControl& control) { return control.Type() == host::msoControlDropdown; });
}

}  // namespace vellumark::app
