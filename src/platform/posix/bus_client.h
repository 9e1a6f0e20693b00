#pragma once
// The few functions of libsystemd's bus client that are used, as its manual declares them. The library is
// loaded when the first of them is asked for.

#include <cstdint>

struct sd_bus;
struct sd_bus_message;
struct sd_bus_error;
struct sd_bus_slot;

namespace vellumark::platform {

struct BusClient {
  using Handler = int (*)(sd_bus_message* message, void* data, sd_bus_error* error);

  int (*openUser)(sd_bus** bus) = nullptr;
  int (*setTimeout)(sd_bus* bus, std::uint64_t microseconds) = nullptr;
  int (*uniqueName)(sd_bus* bus, const char** name) = nullptr;
  int (*callMethod)(sd_bus* bus, const char* destination, const char* path, const char* interface,
                    const char* member, sd_bus_error* error, sd_bus_message** reply, const char* types,
                    ...) = nullptr;
  int (*matchSignal)(sd_bus* bus, sd_bus_slot** slot, const char* sender, const char* path,
                     const char* interface, const char* member, Handler handler, void* data) = nullptr;
  int (*process)(sd_bus* bus, sd_bus_message** message) = nullptr;
  int (*wait)(sd_bus* bus, std::uint64_t microseconds) = nullptr;
  int (*read)(sd_bus_message* message, const char* types, ...) = nullptr;
  int (*enter)(sd_bus_message* message, char type, const char* contents) = nullptr;
  int (*leave)(sd_bus_message* message) = nullptr;
  int (*skip)(sd_bus_message* message, const char* types) = nullptr;
  sd_bus_message* (*unrefMessage)(sd_bus_message* message) = nullptr;
  sd_bus* (*closeBus)(sd_bus* bus) = nullptr;
  bool complete = false;  ///< false where the library or one of the functions isn't there

 private:
  friend const BusClient& busClient();
  BusClient();
};

const BusClient& busClient();

}  // namespace vellumark::platform
