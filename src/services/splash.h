#pragma once
// The dialog that comes up for a moment at the start, and stays as the about box. It hides a small game.

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/random.h"
#include "ui/form.h"

namespace vellumark::services {

/// Shows version and usage counters. Who types the right four keys gets a field on which icons drift about,
/// and ten shots a level to hit them all. Nothing of the game leaves the dialog.
class Splash : public ui::Form {
 public:
  static constexpr int icons = 10;
  static constexpr int iconSize = 16;  ///< pixels, both ways
  static constexpr int fieldWidth = 385, fieldHeight = 216;
  static constexpr int brandingHeight = 130;
  using Random = std::function<float()>;

  /// `random` gives numbers from 0 up to, but not, 1.
  explicit Splash(Random random = platform::random);

  ui::PictureBox branding{*this, "branding", fieldWidth, brandingHeight};
  ui::Label Version{*this, "Version"};
  ui::Label lCopyright{*this, "lCopyright"};
  ui::Label lSupport{*this, "lSupport"};
  ui::Line lSep{*this, "lSep"};
  ui::Label lUsageStatistics{*this, "lUsageStatistics", "Usage statistics"};
  ui::Label lSlideWizard{*this, "lSlideWizard", "Slide Wizard"};
  ui::Label statsSlideWizard{*this, "statsSlideWizard"};
  ui::Label lMyElements{*this, "lMyElements", "My Elements"};
  ui::Label statsMyElements{*this, "statsMyElements"};
  ui::Label lAgendaWizard{*this, "lAgendaWizard", "Agenda Wizard"};
  ui::Label statsAgendaWizard{*this, "statsAgendaWizard"};
  ui::Label lTrimlineTools{*this, "lTrimlineTools", "Trimline Tools"};
  ui::Label statsTrimlineTools{*this, "statsTrimlineTools"};
  ui::Label lbClose{*this, "lbClose", "Close"};
  ui::Timer SplashTimer{*this, "SplashTimer", 1500};
  ui::PictureBox field{*this, "field", fieldWidth, fieldHeight};
  ui::PictureBox ShooterLogo{*this, "ShooterLogo", 200, 120};
  ui::Timer gameTimer{*this, "gameTimer"};
  ui::ControlArray<ui::PictureBox, icons> pbIcon{*this, "pbIcon", iconSize, iconSize};

 private:
  void Form_Load();
  void Form_KeyPress(char32_t key);
  void SplashTimer_Timer();
  void lbClose_Click();
  void lbClose_MouseMove();
  void ShooterLogo_Click();
  void gameTimer_Timer();
  void field_MouseDown(int x, int y);

  void offerGame();
  void initializeGame();
  void writeStatus();
  void setPosition(std::size_t icon, std::int16_t top, std::int16_t left);
  void move(std::size_t icon);
  bool isHit(std::size_t icon, int x, int y) const;
  void loseGame();
  void winLevel();

  Random random_;
  std::int16_t level_ = 1;
  std::int16_t speedStep_ = 1;  ///< grows with the level; the speed itself is the timer's interval
  std::int16_t hits_ = 0;       ///< in this level, as the shots
  std::int16_t shots_ = 0;
  std::int16_t score_ = 0;
  std::array<std::int16_t, icons> iconTop_{}, iconLeft_{};  ///< pixels of the field
  std::array<bool, icons> iconHit_{};
  std::string typedKeys_;  ///< letters and digits since the dialog came up
};

/// Shows the dialog without waiting for it, where somebody looks; it closes itself.
void showSplash();
/// Closes it where it is still there.
void unloadSplash();
/// Shows it as the about box.
void about();

}  // namespace vellumark::services
