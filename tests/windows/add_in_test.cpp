// What the registered add-in leaves outside of decks: registry, reports on the wire, files of its
// installation.

#include <gtest/gtest.h>

#include "decks/deck_builder.h"
#include "platform/loopback_server.h"
#include "windows/installed_add_in.h"

namespace vellumark::test {

using namespace decks;
namespace {

const std::string settings = "HKCU\\Software\\Vellumark\\Vellumark for presentations";

class InstalledAddIn : public testing::Test {
 protected:
  InstalledAddIn() {
    DeckBuilder builder;
    auto slide = builder.slide();
    slide.shape("rect", 10, 20, 100, 50).named("Follower");
    slide.shape("rect", 200, 100, 120, 200).named("Master");
    builder.save(deck_);
  }
  Outcome align(std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.end(), {"--select", "Follower,Master"});
    return runOverCom("alignTops", deck_, arguments);
  }

  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(InstalledAddIn, RegistrationIsWhatTheHostReads) {
  requireRegistered();
  const auto classId = registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", "");
  ASSERT_TRUE(classId);
  const std::string server = "HKLM\\Software\\Classes\\CLSID\\" + *classId + "\\InprocServer32";
  EXPECT_EQ(registryValue(server, ""), windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll"));
  EXPECT_EQ(registryValue(server, "ThreadingModel"), "Apartment");
  const std::string addIn = "HKLM\\Software\\Microsoft\\Office\\PowerPoint\\Addins\\zorp.Connect";
  EXPECT_EQ(registryValue(addIn, "FriendlyName"), "Vellumark for presentations");
  EXPECT_EQ(registryValue(addIn, "LoadBehavior"), "0x3");
}

TEST_F(InstalledAddIn, AUserCanRegisterItAlone) {
  const std::string dll = windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll");
  const std::string addIn = "HKCU\\Software\\Microsoft\\Office\\PowerPoint\\Addins\\zorp.Connect";
  setenv("VELLUMARK_REGISTER", "user", 1);
  EXPECT_EQ(runWine({"regsvr32", "/s", dll}).status, 0);
  EXPECT_EQ(registryValue(addIn, "LoadBehavior"), "0x3");
  EXPECT_TRUE(registryValue("HKCU\\Software\\Classes\\zorp.Connect\\CLSID", ""));
  EXPECT_EQ(runWine({"regsvr32", "/s", "/u", dll}).status, 0);
  EXPECT_FALSE(registryValue(addIn, "LoadBehavior"));
  EXPECT_FALSE(registryValue("HKCU\\Software\\Classes\\zorp.Connect\\CLSID", ""));
  unsetenv("VELLUMARK_REGISTER");
}

/// Both kinds of program have a server of their own and share the rest.
TEST_F(InstalledAddIn, TheOtherKindsRegistrationStays) {
  requireRegistered();
  const std::string dll = windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll");
  const auto classId = registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", "");
  ASSERT_TRUE(classId);
  const std::string server = "HKLM\\Software\\Classes\\CLSID\\" + *classId;
  const auto reg = [&](const char* verb, std::vector<std::string> more) {
    std::vector<std::string> words{"reg", verb, server + (more.empty() ? "" : "\\InprocServer32"), "/f",
                                   "/reg:32"};
    words.insert(words.end(), more.begin(), more.end());
    return runWine(words).status;
  };
  ASSERT_EQ(reg("add", {"/ve", "/d", "C:\\other\\zorp.dll"}), 0);
  EXPECT_EQ(runWine({"regsvr32", "/s", "/u", dll}).status, 0);
  EXPECT_FALSE(registryValue(server + "\\InprocServer32", "")) << "its own server is gone";
  EXPECT_EQ(registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", ""), classId);
  EXPECT_EQ(reg("delete", {}), 0);
  EXPECT_EQ(runWine({"regsvr32", "/s", "/u", dll}).status, 0);
  EXPECT_FALSE(registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", ""));
  EXPECT_EQ(runWine({"regsvr32", "/s", dll}).status, 0);
}

/// Who wishes so removes no more than the own registration.
TEST_F(InstalledAddIn, UnregisteringForOneselfLeavesTheMachines) {
  requireRegistered();
  const std::string dll = windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll");
  setenv("VELLUMARK_REGISTER", "user", 1);
  EXPECT_EQ(runWine({"regsvr32", "/s", "/u", dll}).status, 0);
  unsetenv("VELLUMARK_REGISTER");
  EXPECT_TRUE(registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", ""));
}

TEST_F(InstalledAddIn, CountersStandInTheUsersRegistry) {
  setRegistryValue(settings, "statsTrimlineTools", "REG_SZ", "41");
  EXPECT_EQ(align().status, 0);
  EXPECT_EQ(registryValue(settings, "statsTrimlineTools"), "42");
}

TEST_F(InstalledAddIn, AnErrorReportArrivesAtTheServer) {
  // The system's proxy is our server, so that the vendor's host name needs nobody to answer for it.
  LoopbackServer server({{"HTTP/1.0 200 OK\r\nContent-Length: 1\r\n\r\n0"}});
  const std::string internet = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
  setRegistryValue(internet, "ProxyEnable", "REG_DWORD", "1");
  setRegistryValue(internet, "ProxyServer", "REG_SZ", "http=127.0.0.1:" + std::to_string(server.port()));
  setRegistryValue(settings, "statsTrimlineTools", "REG_SZ", "2147483647");
  const Outcome outcome = align({"--host", "11.0", "--dialog", "ErrForm: tbName=Jürgen; btnSendReport",
                                 "--dialog", "ErrForm: btnCancel"});
  setRegistryValue(settings, "statsTrimlineTools", "REG_SZ", "0");
  setRegistryValue(internet, "ProxyEnable", "REG_DWORD", "0");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("Overflow"), std::string::npos) << outcome.err;

  const std::string request = server.request();
  std::size_t at = 0;
  for (const char* piece :
       {"POST ", "/errorreport.php HTTP/1.0\r\n", "Accept: image/gif, image/x-xbitmap",
        "Accept-Language: de\r\n", "Content-Type: application/x-www-form-urlencoded\r\n", "UA-CPU: x86\r\n",
        "Accept-Encoding: gzip, deflate\r\n", "\r\n\r\n", "J%FCrgen"}) {
    const std::size_t found = request.find(piece, at);
    ASSERT_NE(found, std::string::npos) << piece << " is missing or out of order in\n" << request;
    at = found;
  }
}

TEST_F(InstalledAddIn, UnregisteredItIsGone) {
  requireRegistered();
  const std::string dll = windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll");
  EXPECT_EQ(runWine({"regsvr32", "/s", "/u", dll}).status, 0);
  EXPECT_FALSE(registryValue("HKLM\\Software\\Classes\\zorp.Connect\\CLSID", ""));
  const Outcome outcome = align();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("not registered"), std::string::npos) << outcome.err;
  EXPECT_EQ(runWine({"regsvr32", "/s", dll}).status, 0);
}

}  // namespace
}  // namespace vellumark::test
