#include "base/trap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace vellumark::base {
namespace {

class Trap : public testing::Test {
 protected:
  Trap() {
    before_ = setFailureHandler([this](std::string_view location, const Error& error) {
      reports.push_back(std::string(location) + " " + std::to_string(error.number()));
    });
  }
  ~Trap() override { setFailureHandler(before_); }

  std::vector<std::string> reports;

 private:
  FailureHandler before_;
};

TEST_F(Trap, EndsTheBodyReportsOnceAndGivesTheEmptyResult) {
  int done = 0;
  const int result = trap("Module, inner", [&]() -> int {
    trap("Module, innermost", [&] {
      ++done;
      raise(errors::subscript);
    });
    ++done;
    raise(errors::typeMismatch);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(done, 2);
  EXPECT_EQ(reports, (std::vector<std::string>{"Module, innermost 9", "Module, inner 13"}));
  EXPECT_EQ(trap("Module, fine", [] { return 7; }), 7);
}

TEST_F(Trap, NumbersForeignFailures) {
  trap("a, b", [] { throw std::bad_alloc(); });
  trap("c, d", [] { throw std::runtime_error("x"); });
  EXPECT_EQ(reports, (std::vector<std::string>{"a, b 7", "c, d 51"}));
}

TEST_F(Trap, AFilterKeepsExpectedFailuresQuiet) {
  const auto expected = [](const Error& error) { return error.number() == errors::unspecific; };
  trap(
      "a, b", [] { raise(errors::unspecific); }, expected);
  EXPECT_TRUE(reports.empty());
  trap(
      "a, b", [] { raise(errors::overflow); }, expected);
  EXPECT_EQ(reports, std::vector<std::string>{"a, b 6"});
}

TEST_F(Trap, AFailureOfTheReportGoesToTheCallersTrap) {
  setFailureHandler([this](std::string_view location, const Error& error) {
    if (location == "no comma") raise(errors::invalidCall);
    reports.push_back(std::string(location) + " " + std::to_string(error.number()));
  });
  trap("outer, one", [] { trap("no comma", [] { raise(errors::overflow); }); });
  EXPECT_EQ(reports, std::vector<std::string>{"outer, one 5"});
}

TEST_F(Trap, ResumeNextPassesOverOneStatement) {
  EXPECT_FALSE(resumeNext([] { raise(errors::fileNotFound); }));
  EXPECT_TRUE(resumeNext([] {}));
  EXPECT_TRUE(reports.empty());
}

}  // namespace
}  // namespace vellumark::base
