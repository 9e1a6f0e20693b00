// The splash, the about box and the game, without a screen.

#include "services/splash.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>

#include "base/text.h"
#include "core/globals.h"
#include "core/registry.h"
#include "platform/environment_guard.h"
#include "support/failures.h"
#include "support/messages.h"
#include "support/temp_folder.h"

namespace vellumark::services {
namespace {

using Texts = std::vector<std::string>;

struct Place {
  int top, left;
  friend bool operator==(const Place&, const Place&) = default;
};

class SplashTest : public testing::Test {
 protected:
  SplashTest() {
    core::globals().configFolder = folder_.path("");
    splash_ = std::make_unique<Splash>([this] {
      const float number = random_.front();
      random_.push_back(number);
      random_.pop_front();
      return number;
    });
  }
  ~SplashTest() override {
    splash_.reset();
    core::globals() = {};
  }

  void type(const std::string& keys) const {
    for (const char key : keys) splash_->keyPress(static_cast<unsigned char>(key));
  }
  /// Numbers that put the icons there, again and again.
  void scatter(const std::vector<Place>& places) {
    random_.clear();
    for (const Place& place : places) {
      random_.push_back((static_cast<float>(place.top) + 0.5F) / Splash::fieldHeight);
      random_.push_back((static_cast<float>(place.left) + 0.5F) / Splash::fieldWidth);
    }
  }
  void start(const std::vector<Place>& places) {
    splash_->load();
    splash_->SplashTimer.enabled(false);
    type("zorp");
    scatter(places);
    splash_->click(splash_->ShooterLogo);
  }
  void shoot(int x, int y, int times = 1) const {
    for (int i = 0; i < times; ++i) splash_->field.mouseDown(2, 0, x, y);
  }
  void tick(int times = 1) { messages_.toolkit().pass(times * splash_->gameTimer.interval()); }
  /// What is drawn on the field, in order.
  std::vector<Place> drawn() const {
    std::vector<Place> places;
    for (const ui::Canvas::Command& command : splash_->field.canvas().commands()) {
      const auto& copy = std::get<ui::Canvas::Copy>(command);
      places.push_back({static_cast<int>(copy.y), static_cast<int>(copy.x)});
    }
    return places;
  }
  std::string status() const { return splash_->lMyElements.caption(); }
  static std::string status(int level, int bullets, int score) {
    return "Level: " + std::to_string(level) + "          Bullets left: " + std::to_string(bullets) +
           "          Score: " + std::to_string(score);
  }

  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  test::Failures failures_;
  test::Messages messages_;
  std::deque<float> random_ = {0};
  std::unique_ptr<Splash> splash_;
};

TEST_F(SplashTest, ShowsVersionAndCountersAndClosesItself) {
  core::setRegistry("statsAgendaWizard", "7", "");
  splash_->showModeless();
  EXPECT_EQ(splash_->Version.caption(), "Version: 0.1.0");
  EXPECT_EQ(splash_->statsSlideWizard.caption(), "0");
  EXPECT_EQ(splash_->statsAgendaWizard.caption(), "7");
  EXPECT_FALSE(splash_->lbClose.visible());
  EXPECT_TRUE(splash_->branding.canvas().commands().empty()) << "no picture is no fault";
  type("zorp");
  messages_.toolkit().pass(1499);
  EXPECT_TRUE(splash_->visible());
  messages_.toolkit().pass(1);
  EXPECT_FALSE(splash_->loaded());
  showSplash();
  EXPECT_EQ(messages_.take().size(), 1U) << "where nobody looks, nothing comes up";
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(SplashTest, TheAboutBoxStaysUntilItIsClosed) {
  messages_.toolkit().addDialog(
      "Splash: form!wait=5000; form!type=zorp; ShooterLogo; field!click=-1,-1; lbClose");
  about();
  EXPECT_TRUE(messages_.toolkit().unused().empty());
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(SplashTest, BrandingHasItsOwnSizeAsFarAsItFits) {
  const struct {
    int width, height;
    double drawnWidth, drawnHeight;
  } cases[] = {{100, 50, 100, 50}, {770, 130, 385, 65}, {385, 260, 192.5, 130}};
  for (const auto& c : cases) {
    const auto byte = [](int number) { return static_cast<char>(number); };
    folder_.write("branding.gif", std::string("GIF89a") + byte(c.width % 256) + byte(c.width / 256) +
                                      byte(c.height % 256) + byte(c.height / 256));
    Splash splash;
    splash.load();
    ASSERT_EQ(splash.branding.canvas().commands().size(), 1U);
    const auto& image = std::get<ui::Canvas::Image>(splash.branding.canvas().commands().front());
    EXPECT_EQ(image.width, c.drawnWidth);
    EXPECT_EQ(image.height, c.drawnHeight);
  }
  folder_.write("branding.gif", "no picture");
  Splash splash;
  splash.load();
  EXPECT_TRUE(splash.branding.canvas().commands().empty());
}

TEST_F(SplashTest, FourKeysOpenTheGame) {
  const struct {
    const char* keys;
    bool opens;
  } cases[] = {{"zorp", true}, {"zo-rp", true}, {"z o r p!", true}, {"zzorp", true},  {"7zorp", true},
               {"zor", false}, {"ZORP", false}, {"zoXrp", false},   {"zo1rp", false}, {"zorq", false}};
  for (const auto& [keys, opens] : cases) {
    Splash splash;
    splash.load();
    for (const char key : std::string(keys)) splash.keyPress(static_cast<unsigned char>(key));
    EXPECT_EQ(splash.field.visible(), opens) << keys;
  }
  splash_->load();
  splash_->SplashTimer.enabled(false);
  type("zorp");
  std::string visible;
  for (const ui::Control* control : splash_->controls()) {
    if (control->visible() && !dynamic_cast<const ui::Timer*>(control)) visible += control->name() + " ";
  }
  EXPECT_EQ(visible, "lSlideWizard lMyElements field ShooterLogo ");
  EXPECT_EQ(splash_->lSlideWizard.caption(), "Need a break?");
  EXPECT_EQ(status(), "Click 'Start game' and shoot at the moving icons.");
  shoot(5, 5);
  EXPECT_EQ(status(), "Click 'Start game' and shoot at the moving icons.") << "no game runs";
}

TEST_F(SplashTest, IconsDriftOnFourDiagonals) {
  start({{100, 200}});
  EXPECT_EQ(drawn(), std::vector<Place>(10, {100, 200}));
  EXPECT_EQ(status(), status(1, 10, 0));
  EXPECT_EQ(splash_->lSlideWizard.caption(), "");
  tick(3);
  const std::vector<Place> four = {{97, 197}, {103, 197}, {97, 203}, {103, 203}};
  std::vector<Place> expected;
  for (std::size_t i = 0; i < 10; ++i) expected.push_back(four[i % 4]);
  EXPECT_EQ(drawn(), expected);
}

TEST_F(SplashTest, WhatLeavesTheFieldComesBack) {
  // From the left upper corner, then from the right lower one.
  start({{0, 0}});
  tick();
  EXPECT_EQ(drawn()[0], (Place{216, 385}));
  EXPECT_EQ(drawn()[1], (Place{1, 385}));
  EXPECT_EQ(drawn()[2], (Place{216, 1}));
  EXPECT_EQ(drawn()[3], (Place{1, 1}));
  splash_->unload();
  splash_ = std::make_unique<Splash>([this] { return random_.front(); });
  random_ = {0.9999F};
  splash_->load();
  type("zorp");
  splash_->click(splash_->ShooterLogo);
  tick();
  EXPECT_EQ(drawn()[3], (Place{216, 385})) << "the edge itself is inside";
  tick();
  EXPECT_EQ(drawn()[3], (Place{0, 0}));
  EXPECT_EQ(drawn()[0], (Place{213, 382}));
}

TEST_F(SplashTest, AShotHitsTheFirstIconThatLiesThere) {
  const struct {
    int x, y;
    bool hits;
  } cases[] = {{200, 100, true},  {216, 116, true}, {199, 100, false},
               {217, 100, false}, {200, 99, false}, {200, 117, false}};
  for (const auto& [x, y, hits] : cases) {
    start({{100, 200}, {0, 0}});
    shoot(x, y);
    EXPECT_EQ(status(), status(1, 9, hits ? 10 : 0)) << x << "," << y;
    splash_->unload();
  }
  // The first and all that lie with it: one at a time, by their numbers.
  start({{100, 200}, {0, 0}});
  shoot(208, 108, 2);
  EXPECT_EQ(status(), status(1, 8, 20));
  tick();
  EXPECT_EQ(drawn().size(), 8U);
  EXPECT_EQ(drawn()[0], (Place{1, 385})) << "the second icon is the first that is left";
  EXPECT_EQ(drawn()[1], (Place{1, 1})) << "then the fourth";
}

TEST_F(SplashTest, AMissEndsTheGame) {
  start({{100, 200}});
  shoot(208, 108, 9);
  shoot(1, 1);
  EXPECT_EQ(messages_.take(),
            Texts{"Vellumark for presentations [information] Too bad, you missed 1 icons!\r\n"
                  "Your score is: 90"});
  EXPECT_TRUE(splash_->ShooterLogo.visible());
  EXPECT_TRUE(drawn().empty());
  EXPECT_EQ(status(), status(1, 0, 90));
  messages_.toolkit().pass(1000);
  EXPECT_TRUE(drawn().empty()) << "nothing moves any longer";
  splash_->gameTimer.interval(3);
  splash_->click(splash_->ShooterLogo);
  EXPECT_EQ(status(), status(1, 10, 0));
  EXPECT_EQ(drawn().size(), 10U);
  EXPECT_EQ(splash_->gameTimer.interval(), 100);
}

TEST_F(SplashTest, LevelsGetFasterUntilTheScoreOverflows) {
  start({{100, 200}});
  const int intervals[] = {51, 26, 14, 8, 5, 3, 2, 2};
  int score = 0;
  for (int level = 1; level <= 25; ++level) {
    shoot(208, 108, 10);
    score += level * 100;
    EXPECT_EQ(messages_.take(),
              Texts{"Vellumark for presentations [information] Very good! You have reached level " +
                    std::to_string(level + 1) + "."});
    EXPECT_EQ(status(), status(level + 1, 10, score));
    EXPECT_EQ(splash_->gameTimer.interval(), intervals[std::min(level, 8) - 1]);
  }
  tick();
  EXPECT_EQ(drawn().size(), 10U) << "those that were hit are back";
  EXPECT_EQ(drawn()[0], (Place{99, 199}));
  shoot(208, 108);
  EXPECT_EQ(failures_.take(), Texts{});
  shoot(208, 108);
  EXPECT_EQ(failures_.take(), Texts{"Splash, field_MouseDown: 6"});
}

}  // namespace
}  // namespace vellumark::services
