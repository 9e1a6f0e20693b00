// The usage survey: when it asks, what it sends, what it keeps.

#include "services/survey.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "base/text.h"
#include "core/globals.h"
#include "core/http.h"
#include "core/registry.h"
#include "platform/environment_guard.h"
#include "platform/loopback_server.h"
#include "platform/proxy_guard.h"
#include "support/failures.h"
#include "support/fake_host.h"
#include "support/messages.h"
#include "support/temp_folder.h"

namespace vellumark::services {
namespace {

using test::LoopbackServer;
using Texts = std::vector<std::string>;

constexpr const char* untouched = "untouched";
constexpr const char* firstAnswers =
    "Survey1: q1=Sales; q2=Daily; q3=Professional; q4_1=1; q4_4=1; q5=Rarely; q6_1='Good to have'; "
    "q6_2='Not interesting for me'; q6_3=#4; q6_4=#1; ";
constexpr const char* secondAnswers =
    "Survey2: q7='No training'; q8_1=#1; q8_2=#2; q8_3=#3; q8_4='> 120 minutes'; ";

class SurveyTest : public testing::Test {
 protected:
  SurveyTest() {
    core::globals().powerPointApp = host::Application(std::make_shared<test::FakeObject>(
        "Application", std::map<std::string, host::Value>{{"Version", "14.0"}}));
    core::setRegistry("surveyMaxCount", "3", "");
    core::setRegistry("surveyDate", "2026-05-01", "");
  }
  ~SurveyTest() override { core::globals() = {}; }

  static LoopbackServer::Answer reply(const std::string& text) {
    return {{"HTTP/1.0 200 OK\r\n\r\n" + text}};
  }
  static std::string bodyOf(LoopbackServer& server) {
    const std::string& request = server.request();
    return request.substr(std::min(request.size(), request.find("\r\n\r\n") + 4));
  }
  void reach(const LoopbackServer& server) { proxy_.set("127.0.0.1:" + std::to_string(server.port())); }
  /// The survey with a server that answers the first request with "ping".
  void checkWithPing() {
    LoopbackServer ping(reply("ping"));
    reach(ping);
    checkForSurvey();
    EXPECT_EQ(bodyOf(ping), "&ping=1");
    // The system's own client may name the port, too.
    const std::string line = ping.request().substr(0, ping.request().find("\r\n"));
    EXPECT_TRUE(line.starts_with("POST http://www.vellumark.example")) << line;
    EXPECT_TRUE(line.ends_with("/survey.php HTTP/1.0")) << line;
  }
  static std::string setting(const std::string& name) { return core::getRegistry(name, "", untouched); }

  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  test::EnvironmentGuard now_{"VELLUMARK_NOW", "2026-06-15 10:00:00"};
  test::ProxyGuard proxy_{"127.0.0.1:1"};
  test::Messages messages_;
  test::Failures failures_;
};

TEST_F(SurveyTest, BothStepsArePostedAndTheReplyDecides) {
  const std::string box = "Vellumark for presentations ";
  const std::string again =
      "\r\nPlease try again next time and contact us at support@vellumark.example if the problem persists.";
  struct Case {
    const char* reply;
    std::string told;
    const char *date, *count;
  };
  const Case cases[] = {
      {"error_insert", box + "[critical] An error occured during transmission of your survey data." + again,
       "2026-05-01", untouched},
      {"success ",
       box +
           "[critical] An unexpected error has occured during transmission of your survey data (success )." +
           again,
       "2026-05-01", untouched},
      {"",
       box + "[critical] An unexpected error has occured during transmission of your survey data ()." + again,
       "2026-05-01", untouched},
      {"success",
       box +
           "[information] Your survey data has successfully been transmitted.\r\nAgain, thank you very much "
           "for your time.",
       "2026-12-15", "1"},
  };
  core::setRegistry("statsSlideWizard", "7", "");
  core::setRegistry("statsTrimlineTools", "1234", "");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.reply);
    LoopbackServer post(reply(c.reply));
    messages_.toolkit().addDialog(std::string(firstAnswers) + "btn2");
    messages_.toolkit().addDialog(std::string(secondAnswers) + "q9='Größe & more'; btn2");
    messages_.toolkit().observer = [&, told = messages_.toolkit().observer](const ui::Shown& shown) {
      if (shown.name == "Survey2") reach(post);
      told(shown);
    };
    checkWithPing();
    EXPECT_EQ(bodyOf(post),
              "&PPT=14%2E0&version=0%2E1%2E0&q1=8&q2=1&q3=3&q4_1=1&q4_2=0&q4_3=0&q4_4=1&q5=3&q6_1=2&q6_2=3&"
              "q6_3=4&q6_4=1&q7=3&q8_1=1&q8_2=2&q8_3=3&q8_4=5&q9=Gr%F6%DFe%20%26%20more&statsSlideWizard=7&"
              "statsMyElements=0&statsAgendaWizard=0&statsTrimlineTools=1234");
    EXPECT_EQ(messages_.take().back(), c.told);
    EXPECT_EQ(setting("surveyDate"), c.date);
    EXPECT_EQ(setting("surveyCount"), c.count);
  }
  EXPECT_EQ(failures_.take(), Texts{});
}

TEST_F(SurveyTest, ItIsDueOnlyByItsSettings) {
  struct Case {
    const char *maxCount, *count, *date;
    bool due;
    Texts failures;
  };
  const std::string skipped = "Survey, checkForSurvey: 13";
  const Case cases[] = {
      {"1", "0", "2026-06-15", true, {}},         {"1", "0", "2026-06-16", false, {}},
      {"1", "1", "2026-05-01", false, {}},        {"0", "0", "2026-05-01", false, {}},
      {"2", "1", "2026/05/01", true, {}},         {"1", "0", "31.01.2026", false, {skipped}},
      {"1", "0", "2026-5-1", false, {skipped}},   {"1", "0", "", false, {skipped}},
      {"x", "0", "2026-05-01", false, {skipped}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.maxCount) + " " + c.count + " " + c.date);
    core::setRegistry("surveyMaxCount", c.maxCount, "");
    core::setRegistry("surveyCount", c.count, "");
    core::setRegistry("surveyDate", c.date, "");
    LoopbackServer server(reply("not now"));
    reach(server);
    checkForSurvey();
    EXPECT_EQ(bodyOf(server), c.due ? "&ping=1" : "");
    EXPECT_EQ(messages_.take(), Texts{}) << "the reply isn't ping";
    EXPECT_EQ(failures_.take(), c.failures);
  }

  // A fresh installation has none of the settings.
  store_.set(folder_.path("fresh.db"));
  LoopbackServer server(reply("ping"));
  reach(server);
  checkForSurvey();
  EXPECT_EQ(server.request(), "");
  core::setRegistry("surveyMaxCount", "1", "");
  checkForSurvey();
  EXPECT_EQ(server.request(), "") << "without a date it is always ahead";
  EXPECT_EQ(setting("surveyDate"), untouched);
}

TEST_F(SurveyTest, ASilentServerCostsNoMoreThanItsLimit) {
  LoopbackServer server({{"HTTP/1.0 200 OK\r\n\r\nping"}, true});  // never says that this is all
  reach(server);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(connectionOK());
  const auto took = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(took, core::pingLimit - std::chrono::milliseconds(50));
  EXPECT_LT(took, core::pingLimit + std::chrono::seconds(1));
}

TEST_F(SurveyTest, AReminderMovesTheDate) {
  const std::pair<const char*, const char*> cases[] = {{"tomorrow", "2026-06-16"},
                                                       {"in 2 weeks", "2026-06-29"},
                                                       {"in 6 months", "2026-12-15"},
                                                       {"never again", "2099-12-31"}};
  for (const auto& [choice, date] : cases) {
    for (const bool second : {false, true}) {
      SCOPED_TRACE(choice);
      core::setRegistry("surveyDate", "2026-05-01", "");
      const std::string steps = std::string("cbWhen='") + choice + "'; btn1";
      messages_.toolkit().addDialog(second ? std::string(firstAnswers) + "btn2" : "Survey1: " + steps);
      if (second) messages_.toolkit().addDialog("Survey2: " + steps);
      checkWithPing();
      EXPECT_EQ(messages_.take().size(), second ? 2U : 1U);
      EXPECT_EQ(setting("surveyDate"), date);
    }
  }
  setReminder(4);
  setReminder(-1);
  EXPECT_EQ(setting("surveyDate"), "2099-12-31");
  EXPECT_EQ(setting("surveyCount"), untouched);
}

TEST_F(SurveyTest, WhoClosesADialogIsAskedAgain) {
  const std::string one = "Vellumark for presentations - Survey (step 1 of 2) [none] ";
  const std::string two = "Vellumark for presentations - Survey (step 2 of 2) [none] ";
  const std::string missing = "Vellumark for presentations [information] Please answer all questions before ";
  struct Case {
    std::string first, second;
    Texts told;
  };
  const Case cases[] = {
      {"Survey1: form!close", "", {one}},
      {"", "", {one}},  // nothing answers it
      {"Survey1: q1=Sales; btn2; form!close", "", {one, missing + "continuing."}},
      {std::string(firstAnswers) + "btn2",
       std::string("Survey2: q7=#1; btn2; form!close"),
       {one, two, missing + "submitting the survey."}},
      {std::string(firstAnswers) + "btn2", "", {one, two}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.first + c.second);
    for (const std::string& script : {c.first, c.second}) {
      if (!script.empty()) messages_.toolkit().addDialog(script);
    }
    checkWithPing();
    EXPECT_EQ(messages_.take(), c.told);
    EXPECT_EQ(setting("surveyDate"), "2026-05-01");
    EXPECT_EQ(setting("surveyCount"), untouched);
  }
  EXPECT_EQ(failures_.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::services
