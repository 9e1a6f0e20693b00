#include "platform/posix/bus_client.h"

#include <dlfcn.h>

#include <type_traits>

namespace vellumark::platform {

BusClient::BusClient() {
  void* library = dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return;
  const auto find = [&](auto& function, const char* name) {
    function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
    return function != nullptr;
  };
  complete = find(openUser, "sd_bus_open_user") && find(setTimeout, "sd_bus_set_method_call_timeout") &&
             find(uniqueName, "sd_bus_get_unique_name") && find(callMethod, "sd_bus_call_method") &&
             find(matchSignal, "sd_bus_match_signal") && find(process, "sd_bus_process") &&
             find(wait, "sd_bus_wait") && find(read, "sd_bus_message_read") &&
             find(enter, "sd_bus_message_enter_container") && find(leave, "sd_bus_message_exit_container") &&
             find(skip, "sd_bus_message_skip") && find(unrefMessage, "sd_bus_message_unref") &&
             find(closeBus, "sd_bus_flush_close_unref");
}

const BusClient& busClient() {
  static const BusClient client;
  return client;
}

}  // namespace vellumark::platform
