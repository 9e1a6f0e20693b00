#include "services/tool_controls.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/error.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "services/icons.h"

namespace vellumark::services {
namespace {

void append(std::vector<host::CommandBarControl>& list, const host::CommandBarControls& controls) {
  const int count = controls.Count();
  for (int i = 1; i <= count; ++i) {
    const host::CommandBarControl control = controls.Item(i);
    list.push_back(control);
    if (control.Type() == host::msoControlPopup) append(list, control.Controls());
  }
}

}  // namespace

std::vector<host::CommandBarControl> toolControls() {
  host::CommandBar bar;
  core::resumeNext([&] { bar = core::globals().powerPointApp.CommandBars().Item(core::toolsBarName); });
  std::vector<host::CommandBarControl> list;
  if (bar) append(list, bar.Controls());
  return list;
}

std::string toolKey(const host::CommandBarControl& control) {
  return "ID" + std::to_string(control.HelpContextId());
}

host::CommandBarControl takeControl(std::vector<host::CommandBarControl>& controls, const std::string& key) {
  const auto found = std::ranges::find(controls, key, toolKey);
  if (found == controls.end()) base::raise(base::errors::invalidCall);
  const host::CommandBarControl control = *found;
  controls.erase(found);
  return control;
}

std::string toolPictureFile(const host::CommandBarControl& control) {
  int face = 0;
  core::resumeNext([&] { face = control.FaceId(); });  // only buttons have one
  const std::string number = control.DescriptionText();
  if (face > 0 || !base::isNumeric(number)) return {};
  return Icons::toolbarPictureFile(base::toInt32(number));
}

}  // namespace vellumark::services
