#include "platform/user_activity.h"

#include <dlfcn.h>

#include <cstdint>
#include <type_traits>
#include <utility>

namespace vellumark::platform {
namespace {

// The few functions of libsystemd's bus client that are used, as its manual declares them.
struct sd_bus;
struct sd_bus_message;
struct sd_bus_error;

struct BusClient {
  int (*openUser)(sd_bus** bus) = nullptr;
  int (*setTimeout)(sd_bus* bus, std::uint64_t microseconds) = nullptr;
  int (*callMethod)(sd_bus* bus, const char* destination, const char* path, const char* interface,
                    const char* member, sd_bus_error* error, sd_bus_message** reply, const char* types,
                    ...) = nullptr;
  int (*read)(sd_bus_message* message, const char* types, ...) = nullptr;
  sd_bus_message* (*unrefMessage)(sd_bus_message* message) = nullptr;
  sd_bus* (*closeBus)(sd_bus* bus) = nullptr;
  bool complete = false;

  BusClient() {
    void* library = dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return;
    const auto find = [&](auto& function, const char* name) {
      function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
      return function != nullptr;
    };
    complete = find(openUser, "sd_bus_open_user") && find(setTimeout, "sd_bus_set_method_call_timeout") &&
               find(callMethod, "sd_bus_call_method") && find(read, "sd_bus_message_read") &&
               find(unrefMessage, "sd_bus_message_unref") && find(closeBus, "sd_bus_flush_close_unref");
  }
};

const BusClient& busClient() {
  static const BusClient client;
  return client;
}

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
