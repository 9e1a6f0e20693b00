#include "core/registry.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/trap.h"
#include "platform/environment_guard.h"
#include "platform/settings_store.h"
#include "support/temp_folder.h"

namespace vellumark::core {
namespace {

using platform::Setting;
using Bytes = std::vector<std::uint8_t>;

const std::string rootKey = "Software\\Vellumark\\Vellumark for presentations";

class RegistryTest : public testing::Test {
 protected:
  RegistryTest() {
    before_ = base::setFailureHandler([this](std::string_view location, const base::Error& error) {
      failures.push_back(std::string(location) + ": " + std::to_string(error.number()) + " " +
                         error.source() + " " + error.description());
    });
  }
  ~RegistryTest() override { base::setFailureHandler(before_); }

  std::vector<std::string> failures;
  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.root().string() + "/settings.db"};

 private:
  base::FailureHandler before_;
};

TEST_F(RegistryTest, TheDefaultIsForMissingValuesOnly) {
  EXPECT_EQ(getRegistry("slideExtracts", "", "default"), "default");
  setRegistry("slideExtracts", "", "");
  EXPECT_EQ(getRegistry("slideExtracts", "", "default"), "");
  setRegistry("position", "1", "A toolbar");
  EXPECT_EQ(getRegistry("position", "", "4"), "4");
  EXPECT_EQ(getRegistry("position", "A toolbar", "4"), "1");
  EXPECT_TRUE(platform::readSetting(rootKey + "\\A toolbar", "position"));

  EXPECT_EQ(getRegistryBytes("bytes", "", {7}), Bytes{7});
  setRegistryBytes("bytes", {}, "");
  EXPECT_EQ(getRegistryBytes("bytes", "", {7}), Bytes{});
  setRegistryBytes("bytes", {0, 255}, "");
  EXPECT_EQ(getRegistryBytes("bytes", "", {7}), (Bytes{0, 255}));
  EXPECT_TRUE(failures.empty());
}

TEST_F(RegistryTest, EveryTypeReadsAsText) {
  const test::EnvironmentGuard variable("VELLUMARK_TEST", "value");
  const std::pair<Setting, const char*> cases[] = {
      {{Setting::Type::expandString, "<%VELLUMARK_TEST%>"}, "<value>"},
      {{Setting::Type::string, "<%VELLUMARK_TEST%>"}, "<%VELLUMARK_TEST%>"},
      {{Setting::Type::multiString, "many"}, "many"},
      {{Setting::Type::dword, 0xFFFFFFFEU}, "-2"},
      {{Setting::Type::dwordBigEndian, 0x01020000U}, "513"},
      {{Setting::Type::binary, Bytes{'a', 0, 0xAC, 0x20, 'x'}}, "a€"}};
  for (const auto& [setting, text] : cases) {
    platform::writeSetting(rootKey, "name", setting);
    EXPECT_EQ(getRegistry("name", "", "default"), text);
  }
  EXPECT_TRUE(failures.empty());
}

TEST_F(RegistryTest, FailuresGoToTheTrapsAndGiveTheEmptyResult) {
  setRegistry("text", "x", "");
  EXPECT_EQ(getRegistryBytes("text", "", {7}), Bytes{});
  EXPECT_EQ(failures, std::vector<std::string>{"Globals, getRegistryBytes: 13  Type mismatch"});
  failures.clear();

  store_.set(folder_.write("damaged.db", std::string(1000, 'x')));
  EXPECT_EQ(getRegistry("name", "", "default"), "");
  setRegistry("name", "a'b", "");
  setRegistryBytes("name", {'h', 0, 'i', 0}, "sub");
  ASSERT_EQ(failures.size(), 3U);
  EXPECT_TRUE(failures[0].starts_with("Globals, getRegistry: 75")) << failures[0];
  EXPECT_EQ(
      failures[1],
      "Globals, setRegistry: 26001 .Registry Failed to set registry value Key: 'HKEY_CURRENT_USER',Section: "
      "'Software\\Vellumark\\Vellumark for presentations',Key: 'name' to value: 'a'b'");
  EXPECT_EQ(
      failures[2],
      "Globals, setRegistryBytes: 26001 .Registry Failed to set registry value Key: 'HKEY_CURRENT_USER',"
      "Section: 'Software\\Vellumark\\Vellumark for presentations\\sub',Key: 'name' to value: 'hi'");
}

}  // namespace
}  // namespace vellumark::core
