#pragma once
// Games on a screen: what the keys and clicks of a user have to come to on every toolkit.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "services/splash.h"

namespace vellumark::services {

/// A user in front of a window.
struct Player {
  std::function<void(const std::string& keys)> type;
  std::function<void(const ui::Control& control, int x, int y)> click;  ///< in pixels of a canvas
  std::function<void()> answerNextBox;                                  ///< by its button, when it comes up
};

/// Opens the game in a shown dialog whose random numbers are all a half, wins a level and loses the next one.
inline void playAndLose(Splash& splash, const Player& player) {
  player.type("zo-rp");
  ASSERT_TRUE(splash.ShooterLogo.visible());
  player.click(splash.ShooterLogo, 20, 20);
  ASSERT_TRUE(splash.gameTimer.enabled() && !splash.ShooterLogo.visible());
  const auto shoot = [&](int x, int y) {
    for (int shot = 1; shot <= 10; ++shot) {
      if (shot == 10) player.answerNextBox();
      player.click(splash.field, x, y);
    }
  };
  // The middle of all icons, which lie on each other and drift a few pixels meanwhile.
  shoot(Splash::fieldWidth / 2 + 8, Splash::fieldHeight / 2 + 8);
  EXPECT_EQ(splash.lMyElements.caption(), "Level: 2          Bullets left: 10          Score: 100");
  EXPECT_EQ(splash.gameTimer.interval(), 51);
  shoot(1, 1);
  EXPECT_EQ(splash.lMyElements.caption(), "Level: 2          Bullets left: 0          Score: 100");
  EXPECT_TRUE(splash.ShooterLogo.visible());
  EXPECT_FALSE(splash.gameTimer.enabled());
  player.click(splash.lbClose, 2, 2);
  EXPECT_FALSE(splash.loaded());
}

/// The about box with such numbers, as it comes up.
inline void showAbout(Splash& splash) {
  splash.load();
  splash.SplashTimer.enabled(false);
  splash.lbClose.visible(true);
  splash.showModal();
}

}  // namespace vellumark::services
