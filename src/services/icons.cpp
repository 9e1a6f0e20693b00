#include "services/icons.h"

#include <memory>

namespace vellumark::services {
namespace {

std::unique_ptr<Icons>& instance() {
  static std::unique_ptr<Icons> icons;
  return icons;
}

}  // namespace

Icons::Icons() : Form("Icons", "") {
  for (std::size_t i = 0; i < LanguagePictures::size(); ++i) {
    languagePictures[i].foreColor(ui::rgb(255, 255, 255));
  }
  screensaverTimer.onTimer = [this] { screensaverTimer_Timer(); };
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
