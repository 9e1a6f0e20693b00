#include "platform/settings_store.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "base/error.h"
#include "platform/environment_guard.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

using Type = Setting::Type;

class SettingsStore : public testing::Test {
 protected:
  test::TempFolder folder_;
  std::string file_ = folder_.root().string() + "/new/folder/settings.db";
  test::EnvironmentGuard guard_{"VELLUMARK_SETTINGS", file_};
};

/// Runs `body` in a process of its own; true where it ended well.
template <typename Body>
bool inOtherProcess(Body&& body) {
  const pid_t child = fork();
  if (child == 0) {
    body();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = -1;
  return waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(SettingsStore, KeepsEveryTypeAcrossProcesses) {
  const std::pair<const char*, Setting> settings[] = {
      {"string", {Type::string, "Größe '\""}},
      {"empty", {Type::string, ""}},
      {"nul", {Type::string, std::string("a\0b", 3)}},
      {"expand", {Type::expandString, "%HOME%"}},
      {"multi", {Type::multiString, "a"}},
      {"dword", {Type::dword, 0xFFFFFFFFU}},
      {"big", {Type::dwordBigEndian, 1U}},
      {"binary", {Type::binary, Setting::Bytes{0, 255, 7}}},
      {"no bytes", {Type::binary, Setting::Bytes{}}},
      {"other", {Type::other, Setting::Bytes{1}}},
  };
  EXPECT_TRUE(inOtherProcess([&] {
    for (const auto& [name, setting] : settings) writeSetting("Key", name, setting);
  }));
  for (const auto& [name, setting] : settings) {
    const auto found = readSetting("Key", name);
    ASSERT_TRUE(found) << name;
    EXPECT_EQ(found->type, setting.type) << name;
    EXPECT_EQ(found->value, setting.value) << name;
  }
}

TEST_F(SettingsStore, TellsMissingFromEmptyAndMatchesInAnyCase) {
  EXPECT_FALSE(readSetting("Key", "name"));
  EXPECT_FALSE(std::filesystem::exists(file_)) << "reading makes no file";
  writeSetting("Key\\Sub", "Name", {Type::string, ""});
  EXPECT_FALSE(readSetting("Key", "Name"));
  EXPECT_FALSE(readSetting("Key\\Sub", "Name2"));
  EXPECT_TRUE(readSetting("KEY\\sub", "nAME"));
  writeSetting("key\\sub", "name", {Type::dword, 7U});
  EXPECT_EQ(std::get<std::uint32_t>(readSetting("Key\\Sub", "Name")->value), 7U);
}

TEST_F(SettingsStore, SeveralProcessesWriteAtOnce) {
  constexpr int processes = 4;
  constexpr int values = 40;
  std::vector<pid_t> children;
  for (int process = 0; process < processes; ++process) {
    const pid_t child = fork();
    if (child == 0) {
      int status = 0;
      try {
        for (int i = 0; i < values; ++i) {
          writeSetting("Key", std::to_string(process * values + i), {Type::string, "x"});
          writeSetting("Key", "shared", {Type::string, std::to_string(i)});
        }
      } catch (const base::Error&) {
        status = 1;
      }
      _exit(status);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  for (int i = 0; i < processes * values; ++i) EXPECT_TRUE(readSetting("Key", std::to_string(i))) << i;
  EXPECT_EQ(std::get<std::string>(readSetting("Key", "shared")->value), std::to_string(values - 1));
}

TEST_F(SettingsStore, AnUnusableFileIsOneClearFailure) {
  struct {
    const char* name;
    std::string bytes;
    const char* reason;
  } const cases[] = {
      {"garbage.db", std::string(5000, 'x'), "is damaged; delete it"},
      {"cut.db", "SQLite format 3", "is damaged; delete it"},
  };
  for (const auto& test : cases) {
    guard_.set(folder_.write(test.name, test.bytes));
    for (const bool writing : {false, true}) {
      try {
        if (writing) {
          writeSetting("Key", "name", {Type::string, "x"});
        } else {
          readSetting("Key", "name");
        }
        FAIL() << test.name;
      } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_NE(error.description().find(test.name), std::string::npos) << error.description();
        EXPECT_NE(error.description().find(test.reason), std::string::npos) << error.description();
      }
    }
  }
  guard_.set("/proc/none/settings.db");
  EXPECT_FALSE(readSetting("Key", "name"));
  EXPECT_THROW(writeSetting("Key", "name", {Type::string, "x"}), base::Error);
}

}  // namespace
}  // namespace vellumark::platform
