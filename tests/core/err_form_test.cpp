// The error route and its dialog: what a failure shows, what a report sends, how the answers read.

#include "core/err_form.h"

#include <gtest/gtest.h>

#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "platform/environment_guard.h"
#include "platform/loopback_server.h"
#include "support/fake_host.h"
#include "ui/headless/headless_toolkit.h"

namespace vellumark::core {
namespace {

constexpr const char* prompt =
    "Please describe the situation in which the error occured as detailed as \r\npossible.\r\n";

class ErrFormTest : public ::testing::Test {
 protected:
  ErrFormTest() {
    ui::setToolkit(&toolkit);
    toolkit.observer = [this](const ui::Shown& one) { shown.push_back(one); };
    globals().powerPointApp = host::Application(std::make_shared<test::FakeObject>(
        "Application", std::map<std::string, host::Value>{{"Version", "14.0"}}));
    installFailureRoute();
  }
  ~ErrFormTest() override {
    base::setFailureHandler(nullptr);
    globals().powerPointApp = {};
    ui::setToolkit(nullptr);
  }

  /// The request that sending a report with these steps brings about, and the message box behind it.
  std::string send(const std::string& steps, std::vector<std::string> answer) {
    test::LoopbackServer server({.pieces = std::move(answer)});
    const test::EnvironmentGuard proxy("http_proxy", "127.0.0.1:" + std::to_string(server.port()));
    const test::EnvironmentGuard exceptions("no_proxy", "");
    toolkit.addDialog("ErrForm: " + steps + "btnSendReport");
    trap("pptEvents, toggle", [] { base::raise(9); });
    return server.request();
  }

  ui::HeadlessToolkit toolkit;
  std::vector<ui::Shown> shown;
};

TEST_F(ErrFormTest, AFailureIsShownOnceAndTheCallerGoesOn) {
  ErrForm* seen = nullptr;
  toolkit.screen = [&](ui::Form& form) {
    seen = dynamic_cast<ErrForm*>(&form);
    EXPECT_EQ(seen->errDescription.caption(), "TrimlineTools, align - Overflow(6)");
    // A second failure while the dialog is open overwrites what it shows and stacks nothing.
    trap("Globals, getTmpPath", [] { base::raise(53); });
    EXPECT_EQ(seen->errDescription.caption(), "Globals, getTmpPath - File not found(53)");
    EXPECT_TRUE(form.pressEscape());
    return true;
  };
  const int result = trap("TrimlineTools, align", []() -> int { base::raise(6); });
  EXPECT_EQ(result, 0);
  ASSERT_NE(seen, nullptr);
  EXPECT_EQ(shown.size(), 1u);
}

TEST_F(ErrFormTest, ATextWithoutACommaFailsAndTheCallersTrapTellsThat) {
  std::vector<std::string> descriptions;
  toolkit.screen = [&](ui::Form& form) {
    descriptions.push_back(dynamic_cast<ErrForm&>(form).errDescription.caption());
    form.unload();
    return true;
  };
  trap("ShellEx, openURL", [] { handleError("ShellExecute failed [2]", nullptr); });
  EXPECT_EQ(descriptions,
            std::vector<std::string>{"ShellEx, openURL - Invalid procedure call or argument(5)"});
  handleError("Module, some procedure", nullptr);
  EXPECT_EQ(descriptions.back(), "Module, some procedure");
}

TEST_F(ErrFormTest, ThePromptComesAndGoes) {
  ErrForm form;
  form.load();
  EXPECT_EQ(form.errReport.text(), prompt);
  form.click(form.errReport);
  EXPECT_EQ(form.errReport.text(), "");
  EXPECT_EQ(form.errReport.foreColor(), ui::rgb(0, 0, 0));
  form.click(form.tbName);
  EXPECT_EQ(form.errReport.text(), "") << "a click on the name does not bring it back";
  form.clickBackground();
  EXPECT_EQ(form.errReport.text(), prompt);
  EXPECT_EQ(form.errReport.foreColor(), ui::rgb(128, 128, 128));
  for (ui::Control* control : std::initializer_list<ui::Control*>{&form.tbContact, &form.Label2,
                                                                  &form.errDescription, &form.Picture1}) {
    form.click(form.errReport);
    ASSERT_EQ(form.errReport.text(), "");
    form.click(*control);
    EXPECT_EQ(form.errReport.text(), prompt) << control->name();
  }
  form.click(form.errReport);
  form.errReport.text("typed");
  form.clickBackground();
  form.click(form.errReport);
  EXPECT_EQ(form.errReport.text(), "typed");
}

TEST_F(ErrFormTest, TheReportGoesOutFieldByField) {
  const std::string request =
      send("errReport='it & broke'; tbName=M. Smith; tbContact=m@x.y; ", {"HTTP/1.0 200 OK\r\n\r\n0"});
  EXPECT_TRUE(request.starts_with("POST http://www.vellumark.example/errorreport.php HTTP/1.0\r\n"))
      << request;
  EXPECT_EQ(
      request.substr(request.find("\r\n\r\n") + 4),
      "description=pptEvents%2C%20toggle%20%2D%20Subscript%20out%20of%20range%289%29&class=pptEvents&"
      "function=toggle"
      "&number=9&report=it%20%26%20broke&name=M%2E%20Smith&contact=m%40x%2Ey&PPT=14%2E0&version=0%2E1%2E0");
  EXPECT_EQ(shown.back().text, "Thank you for your error report.\r\nWe are working on resolving the issue.");
  EXPECT_EQ(shown.back().icon, ui::Icon::information);
}

TEST_F(ErrFormTest, AnUntouchedOrRetypedPromptIsAnEmptyReport) {
  EXPECT_NE(send("", {"HTTP/1.0 200 OK\r\n\r\n0"}).find("&report=&name="), std::string::npos);
  EXPECT_NE(send(std::string("errReport!click; errReport='") + prompt + "'; ", {"HTTP/1.0 200 OK\r\n\r\n0"})
                .find("&report=&name="),
            std::string::npos);
}

TEST_F(ErrFormTest, AnythingButASingleZeroIsAnErrorOfTheServer) {
  send("", {"HTTP/1.0 200 OK\r\n\r\n0\n"});
  EXPECT_EQ(shown.back().text,
            "Apologies, our server is currently unable to process your error report (0\n).\r\nPlease send us "
            "an e-mail "
            "with your error report: " +
                std::string(supportEmail));
  EXPECT_EQ(shown.back().icon, ui::Icon::critical);
  send("", {"HTTP/1.0 200 OK\r\n\r\n"});
  EXPECT_EQ(shown.back().text,
            "Your error report could not be transmitted.\r\nPlease check your internet connection.");
  EXPECT_EQ(shown.back().title, "Vellumark for presentations");
}

}  // namespace
}  // namespace vellumark::core
