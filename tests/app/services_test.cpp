// Settings and survey by way of the program.

#include <gtest/gtest.h>

#include "app/program.h"
#include "core/registry.h"
#include "decks/deck_builder.h"
#include "platform/environment_guard.h"
#include "platform/loopback_server.h"
#include "support/temp_folder.h"

namespace vellumark::test {
namespace {

class Services : public testing::Test {
 protected:
  Services() {
    decks::DeckBuilder builder;
    builder.slide();
    builder.save(deck_);
    forget();
  }
  ~Services() override { forget(); }
  /// Other tests share the store.
  static void forget() {
    setCounter("screenSaverOff", "0");
    setCounter("languages", "1033;1031");
    setCounter("tlnControls", "");
    setCounter("surveyMaxCount", "0");
  }
  Outcome settings(std::vector<std::string> arguments) {
    return runCommand("showSettings", deck_, std::move(arguments));
  }

  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(Services, SettingsAreSavedByAScript) {
  const Outcome saved =
      settings({"--dialog", "Settings: cbScreensaver=1; lngDropdown(0)=German; lngDropdown(1)=#0; btnSave"});
  EXPECT_EQ(saved.status, 0) << saved.err;
  EXPECT_EQ(core::getRegistry("screenSaverOff", "", ""), "1");
  EXPECT_EQ(core::getRegistry("languages", "", ""), "1031");

  const Outcome refused = settings({"--dialog", "Settings: cbAutoUpdateProgram=1; btnSave"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.err.find("the control is disabled"), std::string::npos) << refused.err;

  const Outcome old =
      settings({"--host", "11.0", "--dialog",
                "Settings: tlnList!uncheck='Align angles'; tlnSelect; menuLabel(5); btnSave"});
  EXPECT_EQ(old.status, 0) << old.err;
  EXPECT_NE(core::getRegistry("tlnControls", "", "").find(";1130;"), std::string::npos);
}

// It is due by the settings of a deployment, and comes up while the add-in starts.
TEST_F(Services, ADueSurveyIsAnsweredOrClosed) {
  const EnvironmentGuard now("VELLUMARK_NOW", "2026-06-15 10:00:00");
  const EnvironmentGuard exceptions("no_proxy", "");
  setCounter("surveyMaxCount", "1");
  setCounter("surveyDate", "2026-05-01");
  const auto run = [&](std::vector<std::string> dialogs) {
    const LoopbackServer server({{"HTTP/1.0 200 OK\r\n\r\nping"}});
    const EnvironmentGuard proxy("http_proxy", "127.0.0.1:" + std::to_string(server.port()));
    std::vector<std::string> arguments;
    for (const std::string& dialog : dialogs) arguments.insert(arguments.end(), {"--dialog", dialog});
    const Outcome outcome = settings(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("dialog Survey1, \"Vellumark for presentations - Survey (step 1 of 2)\""),
              std::string::npos)
        << outcome.err;
    return core::getRegistry("surveyDate", "", "");
  };
  EXPECT_EQ(run({"Settings: btnClose"}), "2026-05-01");
  EXPECT_EQ(run({"Survey1: cbWhen='in 2 weeks'; btn1", "Settings: btnClose"}), "2026-06-29");
}

}  // namespace
}  // namespace vellumark::test
