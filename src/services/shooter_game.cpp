// The game within the dialog.

#include "base/conversions.h"
#include "core/failure.h"
#include "core/message.h"
#include "services/splash.h"

namespace vellumark::services {

using base::add16;
using base::multiply16;
using core::trap;

namespace {

constexpr std::int16_t shotsPerLevel = 10;
constexpr int firstInterval = 100;  // milliseconds between two moves

bool isKeyOfGame(char32_t key) {
  return (key >= U'a' && key <= U'z') || (key >= U'A' && key <= U'Z') || (key >= U'0' && key <= U'9');
}

}  // namespace

void Splash::Form_KeyPress(char32_t key) {
  trap("Splash, Form_KeyPress", [&] {
    if (isKeyOfGame(key)) typedKeys_ += static_cast<char>(key);
    if (typedKeys_.ends_with("zorp")) offerGame();
  });
}

void Splash::offerGame() {
  for (ui::Control* control : controls()) {
    if (control->tag() == "field") control->visible(false);
  }
  field.visible(true);
  ShooterLogo.visible(true);
  for (ui::Control* control : std::initializer_list<ui::Control*>{
           &lSep, &lUsageStatistics, &statsSlideWizard, &statsMyElements, &statsAgendaWizard,
           &statsTrimlineTools, &lAgendaWizard, &lTrimlineTools}) {
    control->visible(false);
  }
  lSlideWizard.caption("Need a break?");
  lMyElements.caption("Click 'Start game' and shoot at the moving icons.");
}

void Splash::ShooterLogo_Click() {
  trap("Splash, ShooterLogo_Click", [&] { initializeGame(); });
}

void Splash::initializeGame() {
  trap("Splash, initializeGame", [&] {
    iconHit_.fill(false);
    level_ = 1;
    speedStep_ = 1;
    hits_ = 0;
    shots_ = 0;
    score_ = 0;
    ShooterLogo.visible(false);
    lSlideWizard.caption("");
    writeStatus();
    for (std::size_t i = 0; i < icons; ++i) {
      const auto top = static_cast<std::int16_t>(random_() * field.canvas().height());
      const auto left = static_cast<std::int16_t>(random_() * field.canvas().width());
      setPosition(i, top, left);
    }
    field.refresh();
    gameTimer.interval(firstInterval);
    gameTimer.enabled(true);
  });
}

void Splash::writeStatus() {
  const std::string gap(10, ' ');
  lMyElements.caption("Level: " + std::to_string(level_) + gap + "Bullets left: " +
                      std::to_string(shotsPerLevel - shots_) + gap + "Score: " + std::to_string(score_));
}

void Splash::setPosition(std::size_t icon, std::int16_t top, std::int16_t left) {
  field.canvas().copy(left, top, pbIcon[icon].canvas());
  iconTop_[icon] = top;
  iconLeft_[icon] = left;
}

void Splash::gameTimer_Timer() {
  trap("Splash, gameTimer_Timer", [&] {
    field.canvas().clear();
    for (std::size_t i = 0; i < icons; ++i) {
      if (!iconHit_[i]) move(i);
    }
    field.refresh();
  });
}

/// One pixel on one of four diagonals. What leaves the field comes back on its other side, one pixel beyond
/// an edge being still inside.
void Splash::move(std::size_t icon) {
  const auto step = [](std::size_t exponent) {
    return static_cast<std::int16_t>(exponent % 2 == 0 ? -1 : 1);
  };
  const auto height = static_cast<std::int16_t>(field.canvas().height());
  const auto width = static_cast<std::int16_t>(field.canvas().width());
  std::int16_t top = add16(iconTop_[icon], step(icon));
  std::int16_t left = add16(iconLeft_[icon], step(icon / 2));
  if (top < 0) top = height;
  if (left < 0) left = width;
  if (top > height) top = 0;
  if (left > width) left = 0;
  setPosition(icon, top, left);
}

bool Splash::isHit(std::size_t icon, int x, int y) const {
  const int left = iconLeft_[icon];
  const int top = iconTop_[icon];
  return x >= left && x <= left + iconSize && y >= top && y <= top + iconSize;
}

void Splash::field_MouseDown(int x, int y) {
  trap("Splash, field_MouseDown", [&] {
    if (ShooterLogo.visible()) return;
    shots_ = add16(shots_, 1);
    for (std::size_t i = 0; i < icons; ++i) {
      if (iconHit_[i] || !isHit(i, x, y)) continue;
      iconHit_[i] = true;
      hits_ = add16(hits_, 1);
      score_ = add16(score_, multiply16(level_, 10));
      break;
    }
    writeStatus();
    if (shots_ != shotsPerLevel) return;
    if (hits_ != icons) {
      loseGame();
    } else {
      winLevel();
    }
  });
}

void Splash::loseGame() {
  core::message("Too bad, you missed " + std::to_string(icons - hits_) +
                    " icons!\r\nYour score is: " + std::to_string(score_),
                ui::Icon::information);
  field.canvas().clear();
  field.refresh();
  ShooterLogo.visible(true);
  gameTimer.enabled(false);
}

void Splash::winLevel() {
  level_ = add16(level_, 1);
  speedStep_ = add16(speedStep_, 5);
  hits_ = 0;
  shots_ = 0;
  core::message("Very good! You have reached level " + std::to_string(level_) + ".", ui::Icon::information);
  iconHit_.fill(false);
  gameTimer.interval(gameTimer.interval() / 2 + 1);
  writeStatus();
}

}  // namespace vellumark::services
