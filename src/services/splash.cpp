#include "services/splash.h"

#include <algorithm>
#include <memory>

#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/registry.h"
#include "platform/paths.h"
#include "ui/toolkit.h"

namespace vellumark::services {

using core::globals;
using core::trap;

namespace {

std::unique_ptr<Splash>& startSplash() {
  static std::unique_ptr<Splash> splash;
  return splash;
}

/// Width and height of a GIF file as its head tells them; nothing for other files.
ui::Size gifSize(const std::string& bytes) {
  constexpr std::size_t headLength = 10;
  if (!bytes.starts_with("GIF8") || bytes.size() < headLength) return {};
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(bytes[at]) + 256 * static_cast<unsigned char>(bytes[at + 1]);
  };
  return {number(6), number(8)};
}

/// The picture of an organisation in its own size, or as large as the box where that is smaller.
void drawBranding(ui::Canvas& canvas, const std::string& path) {
  const ui::Size size = gifSize(platform::readFile(path));
  if (size.width == 0 || size.height == 0) return;
  const double scale =
      std::min({1.0, 1.0 * canvas.width() / size.width, 1.0 * canvas.height() / size.height});
  canvas.image(0, 0, size.width * scale, size.height * scale, path);
}

}  // namespace

Splash::Splash(Random random) : Form("Splash", std::string(core::productTitle)), random_(std::move(random)) {
  Version.bold(true);
  lUsageStatistics.bold(true);
  for (ui::Control* control :
       std::initializer_list<ui::Control*>{&branding, &Version, &lCopyright, &lSupport}) {
    control->tag("field");
  }
  lbClose.link(true);
  lbClose.visible(false);
  field.visible(false);
  field.backColor(ui::rgb(255, 255, 255));
  ShooterLogo.visible(false);
  ShooterLogo.handCursor(true);
  for (std::size_t i = 0; i < icons; ++i) pbIcon[i].visible(false);
  SplashTimer.enabled(true);

  layout(ui::column(
      {ui::layers(
           {ui::column({ui::Box(branding), ui::Box(Version), ui::Box(lCopyright), ui::Box(lSupport)}).gap(1),
            ui::Box(field), ui::Box(ShooterLogo).align(ui::Align::center)}),
       ui::Box(lSep), ui::Box(lUsageStatistics),
       ui::grid(2,
                {ui::Box(lSlideWizard).stretch(), ui::Box(statsSlideWizard), ui::Box(lMyElements).stretch(),
                 ui::Box(statsMyElements), ui::Box(lAgendaWizard).stretch(), ui::Box(statsAgendaWizard),
                 ui::Box(lTrimlineTools).stretch(), ui::Box(statsTrimlineTools)})
           .gap(1),
       ui::row({ui::space(), ui::Box(lbClose)})}));

  onLoad = [this] { Form_Load(); };
  onKeyPress = [this](char32_t& key) { Form_KeyPress(key); };
  SplashTimer.onTimer = [this] { SplashTimer_Timer(); };
  lbClose.onClick = [this] { lbClose_Click(); };
  lbClose.onMouseMove = [this] { lbClose_MouseMove(); };
  ShooterLogo.onClick = [this] { ShooterLogo_Click(); };
  gameTimer.onTimer = [this] { gameTimer_Timer(); };
  field.onMouseDown = [this](int, int, double x, double y) {
    field_MouseDown(static_cast<int>(x), static_cast<int>(y));
  };
}

void Splash::Form_Load() {
  trap("Splash, Form_Load", [&] {
    Version.caption("Version: " + std::string(core::addInVersion));
    lCopyright.caption("\u00a9 Vellumark");
    lSupport.caption(std::string(core::supportEmail));
    for (ui::Label* counter :
         {&statsSlideWizard, &statsMyElements, &statsAgendaWizard, &statsTrimlineTools}) {
      counter->caption(core::getRegistry(counter->name(), "", "0"));
    }
    const std::string picture = globals().configFolder + "branding.gif";
    if (platform::fileExists(picture)) drawBranding(branding.canvas(), picture);
    ShooterLogo.canvas().image(0, 0, ShooterLogo.canvas().width(), ShooterLogo.canvas().height(),
                               globals().uiFolder + "start_game.png");
    // Tools of ours are what one shoots at.
    constexpr std::array<int, icons> tools = {1032, 1037, 1042, 1044, 1051, 1018, 1028, 1007, 1011, 1040};
    for (std::size_t i = 0; i < icons; ++i) {
      pbIcon[i].canvas().image(0, 0, iconSize, iconSize,
                               globals().uiFolder + "zp_" + std::to_string(tools[i]) + "_16.png");
    }
  });
}

void Splash::SplashTimer_Timer() {
  trap("Splash, SplashTimer_Timer", [&] { unload(); });
}

void Splash::lbClose_Click() {
  trap("Splash, lbClose_Click", [&] { unload(); });
}

void Splash::lbClose_MouseMove() {
  trap("Splash, lbClose_MouseMove", [&] { lbClose.handCursor(true); });
}

void showSplash() {
  if (!ui::toolkit().onScreen()) return;
  startSplash() = std::make_unique<Splash>();
  startSplash()->bare(true);
  startSplash()->showModeless();
  startSplash()->repaint();
}

void unloadSplash() {
  if (startSplash()) startSplash()->unload();
  startSplash().reset();
}

void about() {
  trap("TrimlineTools, about", [] {
    unloadSplash();
    Splash splash;
    splash.load();
    splash.SplashTimer.enabled(false);
    splash.lbClose.visible(true);
    splash.showModal();
  });
}

}  // namespace vellumark::services
