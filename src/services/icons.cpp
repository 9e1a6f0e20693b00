#include "services/icons.h"

#include <cstdint>
#include <iterator>
#include <memory>

#include "core/failure.h"
#include "core/globals.h"
#include "platform/keyboard.h"
#include "platform/paths.h"

namespace vellumark::services {
namespace {

std::unique_ptr<Icons>& instance() {
  static std::unique_ptr<Icons> icons;
  return icons;
}

/// By index, the ribbon's button whose picture it is; 0 where the list has a gap.
constexpr std::int16_t toolbarPictures[] = {
    0,    1002, 1032, 1033, 1034, 1036, 1037, 1038, 1040, 1041, 1042, 1071, 1074,
    1075, 1044, 1047, 1048, 1049, 1051, 1054, 1055, 1056, 1063, 1066, 1067, 1068,
    1082, 0,    0,    1085, 1086, 1087, 1089, 1090, 1091, 1101, 1098, 1102, 1114,
    1115, 1108, 1076, 1104, 1111, 1112, 0,    1117, 1061, 0,    1109, 1110, 1078,
};

}  // namespace

Icons::Icons() : Form("Icons", "") {
  for (std::size_t i = 0; i < LanguagePictures::size(); ++i) {
    languagePictures[i].foreColor(ui::rgb(255, 255, 255));
  }
  screensaverTimer.onTimer = [this] { screensaverTimer_Timer(); };
  HelpTimer.onTimer = [this] { HelpTimer_Timer(); };
  HelpTimer.enabled(true);
}

std::string Icons::toolbarPictureFile(int index) {
  if (index < 1 || index >= static_cast<int>(std::size(toolbarPictures))) return {};
  const std::int16_t number = toolbarPictures[index];
  return number == 0 ? std::string() : core::globals().uiFolder + "zp_" + std::to_string(number) + "_16.png";
}

host::MaskedPicture Icons::toolbarPicture(int index) {
  const std::string file = toolbarPictureFile(index);
  return file.empty() ? host::MaskedPicture{} : host::loadMaskedPicture(platform::toSystem(file));
}

// One of the two keys released is not enough to leave help mode.
void Icons::HelpTimer_Timer() {
  core::trap("Icons, HelpTimer_Timer", [&] {
    constexpr int watching = 1;  // milliseconds
    if (HelpTimer.interval() != watching) {
      if (core::isHostVersion(host::ribbonHosts)) {
        HelpTimer.enabled(false);
        return;
      }
      HelpTimer.interval(watching);
    }
    core::Globals& globals = core::globals();
    const bool control = platform::isKeyDown(platform::Key::control);
    const bool shift = platform::isKeyDown(platform::Key::shift);
    if (control && shift && !globals.helpMode) {
      if (globals.toolbarControls) globals.toolbarControls->enableControls();
      globals.helpMode = true;
    } else if (!control && !shift && globals.helpMode) {
      globals.helpMode = false;
      if (globals.applicationEvents) globals.applicationEvents->toggle();
    }
  });
}

void Icons::keepScreenSaverAway(bool on) {
  screensaverTimer.enabled(on);
  if (!on) activity_.reset();
}

void Icons::screensaverTimer_Timer() {
  if (!activity_) activity_ = std::make_unique<platform::UserActivity>();
  activity_->report();
}

Icons& icons() {
  if (!instance()) {
    instance() = std::make_unique<Icons>();
    instance()->load();
  }
  return *instance();
}

void unloadIcons() {
  if (!instance()) return;
  instance()->unload();
  instance().reset();
}

}  // namespace vellumark::services
