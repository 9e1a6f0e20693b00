// What only Windows does: the registry, long paths, files that are open, the system's own HTTP client.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/error_number.h"
#include "platform/atomic_file.h"
#include "platform/environment_guard.h"
#include "platform/guid.h"
#include "platform/http.h"
#include "platform/instance_mutex.h"
#include "platform/loopback_server.h"
#include "platform/paths.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

using test::errorNumber;

const std::string testKey = "Software\\Vellumark\\Tests";

class RegistryStore : public testing::Test {
 protected:
  ~RegistryStore() override { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Vellumark\\Tests"); }
  /// Writes a value as any other program may have left it.
  static void leave(const wchar_t* name, DWORD type, const std::string& bytes) {
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Vellumark\\Tests", name, type, bytes.data(),
                    static_cast<DWORD>(bytes.size()));
  }
  static std::string text(const std::string& name) {
    return std::get<std::string>(readSetting(testKey, name).value().value);
  }

  test::EnvironmentGuard root_{"VELLUMARK_SETTINGS", std::nullopt};
};

TEST_F(RegistryStore, KeepsEveryType) {
  using Type = Setting::Type;
  const Setting settings[] = {
      {Type::string, std::string("Größe 日本")},     {Type::string, std::string()},
      {Type::expandString, std::string("%PATH%;x")}, {Type::multiString, std::string("one\0two", 7)},
      {Type::binary, Setting::Bytes{0, 255, 1}},     {Type::binary, Setting::Bytes{}},
      {Type::dword, std::uint32_t{4000000000u}},     {Type::dwordBigEndian, std::uint32_t{0x01020304}}};
  for (const Setting& setting : settings) {
    writeSetting(testKey + "\\sub", "Wert ä", setting);
    const auto read = readSetting(testKey + "\\SUB", "WERT ä");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->type, setting.type);
    EXPECT_EQ(read->value, setting.value) << static_cast<int>(setting.type);
  }
  EXPECT_FALSE(readSetting(testKey + "\\sub", "none"));
  EXPECT_FALSE(readSetting(testKey + "\\none", "Wert"));
}

TEST_F(RegistryStore, ReadsWhatOthersLeftUnfinished) {
  leave(L"unterminated", REG_SZ, std::string("a\0b\0", 4));
  leave(L"odd", REG_SZ, std::string("a\0b", 3));
  leave(L"quad", REG_QWORD, std::string(8, '\1'));
  leave(L"short", REG_DWORD, "x");
  EXPECT_EQ(text("unterminated"), "ab");
  EXPECT_EQ(text("odd"), "a");
  EXPECT_EQ(std::get<Setting::Bytes>(readSetting(testKey, "quad").value().value).size(), 8u);
  EXPECT_EQ(std::get<Setting::Bytes>(readSetting(testKey, "short").value().value), Setting::Bytes{'x'});
}

TEST(Files, LongPathsAndForeignLettersAreReached) {
  const test::TempFolder folder;
  std::string path = folder.root().string();
  for (int i = 0; i < 6; ++i) {
    path += "\\" + std::string(60, 'x') + "ß日";
    makeDirectory(path);
  }
  ASSERT_GT(path.size(), 300u);
  {
    AtomicFile file(path + "\\deck.pptx");
    file.commit();
  }
  EXPECT_TRUE(fileExists(path + "/deck.pptx"));
  EXPECT_EQ(listFolder(path), std::vector<std::string>{"deck.pptx"});
  deleteFile(path + "\\deck.pptx");
  for (int i = 0; i < 6; ++i) {
    std::wstring wide = L"\\\\?\\" + std::filesystem::u8path(path).wstring();
    RemoveDirectoryW(wide.c_str());
    path.erase(path.rfind('\\'));
  }
}

TEST(Files, ATargetIsReplacedWholeOrStays) {
  const test::TempFolder folder;
  const std::string target = folder.write("deck.pptx", "old");
  const auto replace = [&](bool commit) {
    AtomicFile file(target);
    std::ofstream(std::filesystem::u8path(file.temporaryPath()), std::ios::binary) << "new";
    if (commit) file.commit();
  };
  replace(false);
  EXPECT_EQ(readFile(target), "old");
  const HANDLE reader =
      CreateFileA(target.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(errorNumber([&] { replace(true); }), base::errors::fileAccess) << "somebody reads it";
  CloseHandle(reader);
  EXPECT_EQ(readFile(target), "old");
  replace(true);
  EXPECT_EQ(readFile(target), "new");
  SetFileAttributesA(target.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(errorNumber([&] { replace(true); }), base::errors::fileAccess);
  SetFileAttributesA(target.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(errorNumber([&] { AtomicFile file(folder.root().string()); }), base::errors::fileAccess);
  EXPECT_EQ(listFolder(folder.root().string()), std::vector<std::string>{"deck.pptx"})
      << "nothing is left behind";
}

TEST(Files, FoldersOfTheSystemEndInABackslash) {
  for (const std::string& folder : {temporaryFolder(), internetCacheFolder(), userSettingsFolder()}) {
    EXPECT_TRUE(folder.size() > 3 && folder[1] == ':' && folder.ends_with("\\")) << folder;
    EXPECT_EQ(folder.find('~'), std::string::npos) << folder << " is in its long form";
  }
  EXPECT_TRUE(executablePath().ends_with("\\test_platform.exe")) << executablePath();
}

TEST(Marks, AreSeenAsLongAsAnyInstanceLives) {
  const std::string name = "Vellumark test mark";
  EXPECT_FALSE(InstanceMutex::isSet(name));
  {
    const InstanceMutex first(name), second(name);
    EXPECT_TRUE(InstanceMutex::isSet(name));
  }
  EXPECT_FALSE(InstanceMutex::isSet(name));
}

TEST(Guids, AreVersionFourInTextOrder) {
  const auto first = newGuid(), second = newGuid();
  ASSERT_TRUE(first && second);
  EXPECT_NE(*first, *second);
  EXPECT_EQ((*first)[6] >> 4, 4) << "the version stands in the third group";
}

TEST(OpenUrl, FailuresHaveTheSystemsNumbers) {
  EXPECT_EQ(openURL("Z:\\no\\such\\file.txt"), shell::fileNotFound);
}

TEST(Internet, TheRequestGoesOutAsItWasGiven) {
  test::LoopbackServer server(
      {{"HTTP/1.0 404 Not found\r\nContent-Length: 300\r\n\r\n", std::string(300, 'x')}});
  HttpRequest request;
  request.host = "127.0.0.1";
  request.port = server.port();
  request.path = "/survey.php";
  request.agent = "Some agent/4.0";
  request.headers = {"Accept: image/gif, */*", "Accept-Language: de",
                     "Content-Type: application/x-www-form-urlencoded\r\n", "UA-CPU: x86"};
  request.body = "a=%FC&b=2";
  request.systemProxy = false;
  EXPECT_EQ(send(request), std::string(300, 'x')) << "whatever the status, in several blocks";
  std::size_t at = 0;
  for (const char* piece :
       {"POST /survey.php HTTP/1.0\r\n", "Accept: image/gif, */*\r\n", "Accept-Language: de\r\n",
        "Content-Type: application/x-www-form-urlencoded\r\n", "UA-CPU: x86\r\n", "\r\n\r\na=%FC&b=2"}) {
    at = server.request().find(piece, at);
    ASSERT_NE(at, std::string::npos) << piece << " in\n" << server.request();
  }
  EXPECT_NE(server.request().find("User-Agent: Some agent/4.0\r\n"), std::string::npos) << server.request();
}

TEST(Internet, WhatFailsGivesNothing) {
  HttpRequest request;
  request.systemProxy = false;
  request.host = "127.0.0.1";
  request.port = 1;
  EXPECT_EQ(send(request), "");
  request.host = "https://example.invalid";
  EXPECT_EQ(send(request), "");
}

}  // namespace
}  // namespace vellumark::platform
