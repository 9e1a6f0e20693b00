// Commands that only open something, and commands by name.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "base/error.h"
#include "support/fake_host.h"
#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

class Links : public test::Stage {
 protected:
  Links() {
    deck.slide();
    open();
    const std::string opener =
        folder.write("opener", "#!/bin/sh\nprintf '%s' \"$1\" > '" + opened_ + ".new'\nmv '" + opened_ +
                                   ".new' '" + opened_ + "'\n");
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    opener_.set(opener);
  }
  /// What the command hands to the desktop.
  std::string openedBy(const char* command) {
    tools.callMethod(command);
    for (int i = 0; i < 500 && !std::filesystem::exists(opened_); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string url = test::readFile(opened_);
    std::filesystem::remove(opened_);
    return url;
  }
  int numberOf(const char* method, const std::optional<std::string>& argument = {}) {
    try {
      tools.callMethod(method, argument);
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0;
  }

  std::string opened_ = folder.path("opened");
  test::EnvironmentGuard opener_{"VELLUMARK_OPENER", std::nullopt};
};

TEST_F(Links, WhatTheyOpen) {
  const std::pair<const char*, const char*> links[] = {
      {"tutorialVideos", "http://www.vellumark.example/en/tutorials/"},
      {"gettingStarted", "http://www.vellumark.example/en/gettingstarted/"},
      {"FAQ", "http://www.vellumark.example/en/faq/"},
      {"homepage", "http://www.vellumark.example/"},
      {"recommend", "http://www.vellumark.example/zorp_recommend.pdf"},
      {"feedback", "mailto:feedback@vellumark.example?subject=Feedback on Vellumark for presentations"},
  };
  for (const auto& [command, url] : links) EXPECT_EQ(openedBy(command), url);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Links, UpdatingIsTheOtherAddInsWork) {
  int checks = 0;
  const auto updater = std::make_shared<test::FakeObject>(
      "Updater", std::map<std::string, host::Value>{},
      std::map<std::string, test::FakeObject::Function>{{"check", [&](auto) {
                                                           ++checks;
                                                           return host::Value();
                                                         }}});
  tools.startUpdate();
  EXPECT_EQ(messages.take(),
            Texts{"Vellumark for presentations [critical] The Add-In for automatic updates has not been "
                  "installed correctly. Please check your installation and contact us at "
                  "support@vellumark.example if the problem persists."});
  host->state()->addIns = {{"other.Connect", true, nullptr}, {"zorpu.Connect", false, updater}};
  tools.startUpdate();
  EXPECT_EQ(checks, 1);
  EXPECT_TRUE(host->state()->addIns[1].connected);
  host->state()->addIns[1].object = nullptr;
  tools.startUpdate();
  EXPECT_EQ(failures.take(), Texts{"TrimlineTools, startUpdate: 91"});
  EXPECT_EQ(messages.take(), Texts{});
}

TEST_F(Links, MethodsByName) {
  EXPECT_EQ(openedBy("faq"), "http://www.vellumark.example/en/faq/") << "in any case";
  EXPECT_EQ(numberOf("alignDiagonals"), base::errors::noSuchMember);
  EXPECT_EQ(numberOf(""), base::errors::noSuchMember);
  EXPECT_EQ(numberOf("align"), base::errors::noSuchMember) << "no public method";
  EXPECT_EQ(numberOf("alignLefts", "1"), base::errors::wrongArgumentCount);
}

}  // namespace
}  // namespace vellumark::tools
