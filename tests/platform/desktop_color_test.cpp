// Asking the desktop for a colour, on a session bus of the test's own.

#include "platform/posix/desktop_color.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "platform/environment_guard.h"
#include "platform/posix/bus_client.h"

namespace vellumark::platform {
namespace {

/// A session bus until the end of the test.
class SessionBus {
 public:
  SessionBus() {
    int ends[2];
    if (pipe(ends) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--print-address", nullptr);
      _exit(1);
    }
    close(ends[1]);
    char c = 0;
    while (read(ends[0], &c, 1) == 1 && c != '\n') address_ += c;
    close(ends[0]);
  }
  ~SessionBus() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  const std::string& address() const { return address_; }

 private:
  pid_t pid_ = -1;
  std::string address_;
};

template <typename Function>
Function* function(const char* name) {
  static void* library = dlopen("libsystemd.so.0", RTLD_NOW);
  return reinterpret_cast<Function*>(dlsym(library, name));
}

/// The desktop's side: takes the question and answers it with `outcome` and a colour, or not at all for -1.
class Portal {
 public:
  explicit Portal(int outcome) : outcome_(outcome) {
    busClient().openUser(&bus_);
    function<int(sd_bus*, const char*, std::uint64_t)>("sd_bus_request_name")(
        bus_, "org.freedesktop.portal.Desktop", 0);
    function<int(sd_bus*, sd_bus_slot**, BusClient::Handler, void*)>("sd_bus_add_filter")(bus_, nullptr,
                                                                                          received, this);
    thread_ = std::thread([this] {
      while (!done_) {
        if (busClient().process(bus_, nullptr) == 0) busClient().wait(bus_, 10'000);
      }
    });
  }
  ~Portal() {
    done_ = true;
    thread_.join();
    busClient().closeBus(bus_);
  }
  Portal(const Portal&) = delete;
  Portal& operator=(const Portal&) = delete;
  bool closed() const { return closed_; }

 private:
  static int received(sd_bus_message* message, void* data, sd_bus_error*) {
    auto& self = *static_cast<Portal*>(data);
    const auto is = [&](const char* interface, const char* member) {
      return function<int(sd_bus_message*, const char*, const char*)>("sd_bus_message_is_method_call")(
                 message, interface, member) > 0;
    };
    const auto reply = function<int(sd_bus_message*, const char*, ...)>("sd_bus_reply_method_return");
    if (is("org.freedesktop.portal.Request", "Close")) {
      self.closed_ = true;
      return reply(message, "");
    }
    if (!is("org.freedesktop.portal.Screenshot", "PickColor")) return 0;
    std::string sender = function<const char*(sd_bus_message*)>("sd_bus_message_get_sender")(message) + 1;
    for (char& c : sender) c = c == '.' ? '_' : c;
    const std::string path = "/org/freedesktop/portal/desktop/request/" + sender + "/vellumark";
    const auto emit =
        function<int(sd_bus*, const char*, const char*, const char*, const char*, ...)>("sd_bus_emit_signal");
    // The signal may come before the reply.
    if (self.outcome_ >= 0) {
      emit(self.bus_, path.c_str(), "org.freedesktop.portal.Request", "Response", "ua{sv}",
           static_cast<unsigned>(self.outcome_), 2, "other", "s", "text", "color", "(ddd)", 1.0, 0.4, 0.0);
    }
    return reply(message, "o", path.c_str());
  }

  int outcome_;
  sd_bus* bus_ = nullptr;
  std::atomic<bool> done_ = false, closed_ = false;
  std::thread thread_;
};

class DesktopColor : public testing::Test {
 protected:
  void SetUp() override {
    if (bus_.address().empty() || !busClient().complete)
      GTEST_SKIP() << "there is no dbus-daemon or no libsystemd";
  }
  SessionBus bus_;
  test::EnvironmentGuard address_{"DBUS_SESSION_BUS_ADDRESS", bus_.address()};
};

TEST_F(DesktopColor, IsThatOfThePortal) {
  const Portal portal(0);
  const PickedColor picked = pickDesktopColor([] { return true; });
  EXPECT_EQ(picked.refusal, "");
  EXPECT_EQ(picked.color, (std::array{1.0, 0.4, 0.0}));
}

TEST_F(DesktopColor, IsNoneWhereTheUserTakesNone) {
  const Portal portal(1);
  const PickedColor picked = pickDesktopColor([] { return true; });
  EXPECT_EQ(picked.refusal, "");
  EXPECT_FALSE(picked.color);
}

TEST_F(DesktopColor, IsNoLongerWaitedForWhenTheProgramGivesUp) {
  const Portal portal(-1);
  int looks = 0;
  EXPECT_FALSE(pickDesktopColor([&] { return ++looks < 3; }).color);
  EXPECT_EQ(looks, 3);
  EXPECT_TRUE(portal.closed());
}

TEST_F(DesktopColor, NeedsAPortal) {
  address_.set("unix:path=/nowhere");
  EXPECT_NE(pickDesktopColor([] { return true; }).refusal.find("xdg-desktop-portal"), std::string::npos);
}

}  // namespace
}  // namespace vellumark::platform
