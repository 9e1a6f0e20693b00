#include "platform/user_activity.h"

#include <cstdint>

#include "platform/posix/bus_client.h"

namespace vellumark::platform {
namespace {

constexpr const char* service = "org.freedesktop.ScreenSaver";
constexpr const char* object = "/org/freedesktop/ScreenSaver";
/// A service that doesn't answer must not hold up the show.
constexpr std::uint64_t patience = 500'000;  // microseconds

}  // namespace

/// A request to the screen saver to wait. It holds as long as the connection that made it.
struct UserActivity::Session {
  sd_bus* bus = nullptr;
  std::uint32_t cookie = 0;

  ~Session() {
    if (!bus) return;
    busClient().callMethod(bus, service, object, service, "UnInhibit", nullptr, nullptr, "u", cookie);
    busClient().closeBus(bus);
  }

  /// False where there is no session bus, or nothing on it that answers.
  bool inhibit() {
    const BusClient& client = busClient();
    if (!client.complete) return false;
    sd_bus* opened = nullptr;
    if (client.openUser(&opened) < 0) return false;
    sd_bus_message* reply = nullptr;
    client.setTimeout(opened, patience);
    const bool granted = client.callMethod(opened, service, object, service, "Inhibit", nullptr, &reply, "ss",
                                           "Vellumark for presentations", "A slide show is running") >= 0 &&
                         client.read(reply, "u", &cookie) > 0;
    client.unrefMessage(reply);
    if (granted) {
      bus = opened;
    } else {
      client.closeBus(opened);
    }
    return granted;
  }
};

UserActivity::UserActivity() = default;
UserActivity::~UserActivity() = default;

void UserActivity::report() {
  if (session_) return;
  auto session = std::make_unique<Session>();
  if (session->inhibit()) session_ = std::move(session);
}

}  // namespace vellumark::platform
