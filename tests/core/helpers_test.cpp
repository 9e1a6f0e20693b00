#include "core/helpers.h"

#include <gtest/gtest.h>
#include <regex.h>

#include <random>

#include "core/email_address.h"
#include "core/globals.h"
#include "platform/environment_guard.h"
#include "platform/paths.h"
#include "support/failures.h"
#include "support/fake_host.h"
#include "support/temp_folder.h"

namespace vellumark::core {
namespace {

using test::FakeObject;
using Told = std::vector<std::string>;

/// An extended regular expression that whole texts match.
class Expression {
 public:
  explicit Expression(const std::string& text) {
    EXPECT_EQ(regcomp(&compiled_, ("^(" + text + ")$").c_str(), REG_EXTENDED | REG_NOSUB), 0);
  }
  ~Expression() { regfree(&compiled_); }
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  bool matches(const std::string& text) const {
    return regexec(&compiled_, text.c_str(), 0, nullptr, 0) == 0;
  }

 private:
  regex_t compiled_;
};

host::Shape shapeAt(const host::Value& rotation) {
  return host::Shape(
      std::make_shared<FakeObject>("Shape", std::map<std::string, host::Value>{{"Rotation", rotation}}));
}

TEST(NormalizeRotation, CountsTurnsOfTheRoundedAngle) {
  const std::pair<float, double> cases[] = {
      {0, 0},      {90, 90},         {360, 0},          {450, 90},      {-90, 270},     {-360, 360},
      {-720, 360}, {-0.25F, 359.75}, {359.25F, 359.25}, {359.5F, -0.5}, {719.5F, -0.5}, {1080.5F, 0.5}};
  for (const auto& [rotation, expected] : cases) {
    EXPECT_DOUBLE_EQ(normalizeRotation(shapeAt(rotation)), expected) << rotation;
  }
  EXPECT_NEAR(normalizeRotation(shapeAt(359.6F)), -0.4, 1e-4);
}

TEST(ByteArrays, SubClipsAndWritesTheLengthBack) {
  struct Case {
    std::int32_t start, length;
    const char* expected;
    std::int32_t lengthAfter;
  };
  const Case cases[] = {{0, 2, "ab", 2},         {1, 0, "bcde", 4}, {3, 2, "de", 2}, {3, 3, "de", 2},
                        {4, 2147483647, "e", 1}, {5, 1, "", 1},     {9, 0, "", 0}};
  for (const Case& c : cases) {
    std::int32_t length = c.length;
    EXPECT_EQ(ByteArraySub("abcde", c.start, length), c.expected) << c.start << " " << c.length;
    EXPECT_EQ(length, c.lengthAfter) << c.start << " " << c.length;
  }
  EXPECT_EQ(byteArrayLength(""), 0);
  EXPECT_EQ(ByteArrayToString("Gr\xFC\xDF"
                              "e \x80"),
            "Grüße €");

  test::Failures failures;
  std::int32_t length = 0;
  EXPECT_EQ(ByteArraySub("abc", -2147483647, length), "");
  length = -1;
  EXPECT_EQ(ByteArraySub("abc", 0, length), "");
  EXPECT_EQ(failures.take(), (Told{"Globals, ByteArraySub: 9", "Globals, ByteArraySub: 9"}));
}

TEST(CreateFolder, MakesAllMissingLevels) {
  const test::TempFolder folder;
  test::Failures failures;
  const std::string root = platform::fromSystem(folder.root().string());
  createFolder(root + "\\a\\b c\\d\\");
  EXPECT_TRUE(std::filesystem::is_directory(folder.root() / "a/b c/d"));
  createFolder(root + "\\a");
  createFolder("\\");
  EXPECT_EQ(failures.take(), Told{});

  folder.write("file", "");
  createFolder(root + "\\file\\below");
  EXPECT_EQ(failures.take(), (Told{"Globals, createFolder: 75", "Globals, createFolder: 76"}));
}

TEST(IsValidFileName, FindsForbiddenCharacters) {
  const std::pair<std::string, bool> cases[] = {
      {"", true},      {"Größe 1.pptx", true}, {"a:b", false},
      {"a\\", false},  {"a/b", false},         {"*", false},
      {"why?", false}, {"<a", false},          {"a>", false},
      {"a|b", false},  {"\"a", false},         {"a\tb", false},
      {"a\n", false},  {"\r", false},          {std::string("a\0b", 3), false}};
  for (const auto& [name, valid] : cases) {
    std::string changed = name;
    EXPECT_EQ(isValidFileName(changed), valid) << name;
    EXPECT_EQ(changed, name + '\0');
  }
}

TEST(IsValidEmail, TrimsAndAsksForSixCharacters) {
  const std::pair<const char*, bool> cases[] = {{"", false},
                                                {"   ", false},
                                                {"a@b.de", true},
                                                {"a@b.d", false},
                                                {"a@b.c ", false},
                                                {"  a@b.de ", true},
                                                {"a.b-c_d+e@x-y.z.info", true},
                                                {"a..b@c.com", true},
                                                {"a.-b@c.com", false},
                                                {".a@c.com", false},
                                                {"a.@c.com", false},
                                                {"a@-c.com", false},
                                                {"a@c..com", false},
                                                {"a@c.c0m", false},
                                                {"a@c.museums", false},
                                                {"a@_.museum", true},
                                                {"a@b@c.com", false},
                                                {"ä@b.com", false},
                                                {"a@b.com\n", false}};
  for (const auto& [text, valid] : cases) {
    std::string address = text;
    EXPECT_EQ(isValidEmail(address), valid) << text;
  }
  std::string padded = "  me@here.org ";
  isValidEmail(padded);
  EXPECT_EQ(padded, "me@here.org");
}

/// The expression itself as the measure, on addresses of few characters that often come close to matching.
TEST(IsValidEmail, AgreesWithTheExpression) {
  const Expression expression(
      R"((([A-Za-z0-9]+_+)|([A-Za-z0-9]+\-+)|([A-Za-z0-9]+\.+)|([A-Za-z0-9]+\++))*[A-Za-z0-9]+)"
      R"(@((\w+\-+)|(\w+\.))*\w{1,63}\.[a-zA-Z]{2,6})");
  std::minstd_rand random(1);
  const auto append = [&](std::string& text, std::string_view characters, std::size_t longest) {
    for (std::size_t count = random() % (longest + 1); count > 0; --count) {
      text += characters[random() % characters.size()];
    }
  };
  int matching = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string address = "a";
    append(address, "bbbbB9_-.+", 3);
    address += "@c";
    append(address, "ddddD9_-.", 4);
    append(address, ".", 1);
    append(address, "eeeeeeeeeF7", 7);
    const bool expected = expression.matches(address);
    EXPECT_EQ(matchesEmailAddress(address), expected) << address;
    matching += expected ? 1 : 0;
  }
  EXPECT_GT(matching, 300);

  const std::string longest(63, 'x');
  EXPECT_TRUE(matchesEmailAddress("a@" + longest + ".org"));
  EXPECT_FALSE(matchesEmailAddress("a@" + longest + "x.org"));
  EXPECT_TRUE(matchesEmailAddress("a@" + longest + "x-x.org"));
  EXPECT_FALSE(matchesEmailAddress(std::string(1'000'000, 'a')));
  EXPECT_FALSE(matchesEmailAddress("a@" + std::string(1'000'000, 'b') + "-"));
}

TEST(Ids, AreUpperCaseGroups) {
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, "0000"}, {10, "000A"}, {0xBEEF, "BEEF"}, {0xFFFFFFFF, "FFFFFFFF"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(padHex(value, 4), text);
  EXPECT_EQ(padHex(0, 0), "0");

  const std::string id = getGUID();
  EXPECT_TRUE(Expression("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}").matches(id)) << id;
  EXPECT_NE(id, getGUID());
}

TEST(OpenUrl, AFailureWithoutACommaFailsInItsTurn) {
  test::Failures failures;
  test::EnvironmentGuard opener("VELLUMARK_OPENER", "true");
  openURL("http://www.vellumark.example/");
  EXPECT_EQ(failures.take(), Told{});
  opener.set("/nowhere/opener");
  openURL("http://www.vellumark.example/");
  EXPECT_EQ(failures.take(), Told{"ShellEx, openURL: 5"});
}

TEST(IsHostVersion, SearchesThePlainText) {
  const std::pair<const char*, std::pair<bool, bool>> cases[] = {
      {"9.0", {true, false}},  {"11.0", {true, false}},  {"12.0", {false, true}},
      {"14.0", {false, true}}, {"15.0", {false, false}}, {"1.0", {true, false}}};
  const auto application = std::make_shared<FakeObject>("Application");
  globals().powerPointApp = host::Application(application);
  for (const auto& [version, expected] : cases) {
    (*application)["Version"] = version;
    EXPECT_EQ(isHostVersion(host::toolbarHosts), expected.first) << version;
    EXPECT_EQ(isHostVersion(host::ribbonHosts), expected.second) << version;
  }
  globals().powerPointApp = {};
}

}  // namespace
}  // namespace vellumark::core
