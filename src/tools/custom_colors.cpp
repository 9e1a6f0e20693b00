// The presentation's own colours.

#include <algorithm>
#include <set>
#include <vector>

#include "base/text.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/registry.h"
#include "tools/trimline_tools.h"
#include "ui/color.h"

namespace vellumark::tools {
namespace {

/// A configured colour: one character that means nothing, then six hexadecimal digits.
int configuredColor(const std::string& entry) {
  if (const auto color = ui::colorFromDigits(base::mid16(entry, 1, std::string::npos))) {
    return static_cast<int>(*color);
  }
  base::raise(base::errors::typeMismatch, base::standardDescription(base::errors::typeMismatch) +
                                              ": the setting customColors has '" + entry +
                                              "' in the place of a color such as #1B6878");
}

std::vector<int> configuredColors(const std::string& setting) {
  std::vector<int> colors;
  for (const std::string& entry : base::split(setting, ',')) colors.push_back(configuredColor(entry));
  return colors;
}

/// Pushes all colours out of the host's list. It keeps eight, drops the oldest and takes none that it has, so
/// that each filler has to be new; those that are left in the end must not keep a wanted colour out either.
void flush(const host::ExtraColors& colors, const std::vector<int>& wanted) {
  constexpr int most = 8;
  constexpr int white = 0xFFFFFF;
  const int count = colors.Count();
  std::set<int> taken(wanted.begin(), wanted.end());
  for (int i = 1; i <= count; ++i) taken.insert(colors.Item(i));
  int filler = white;
  for (int added = 0; added < 2 * most - count; ++added) {
    while (taken.contains(filler)) --filler;
    colors.Add(filler--);
  }
}

}  // namespace

void TrimlineTools::resetCustomColors() {
  core::trap("TrimlineTools, resetCustomColors", [&] {
    const std::string setting = core::getRegistry("customColors", "", "");
    if (setting.empty()) {
      core::message("Custom colors are not configured.", ui::Icon::information);
      return;
    }
    const std::vector<int> wanted = configuredColors(setting);
    const host::ExtraColors colors = core::globals().powerPointApp.ActivePresentation().ExtraColors();
    flush(colors, wanted);
    for (const int color : wanted) colors.Add(color);
    core::message("Custom colors have been reset.", ui::Icon::information);
  });
}

}  // namespace vellumark::tools
