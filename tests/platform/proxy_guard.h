#pragma once
// The proxy that requests take, for as long as the guard lives. It stands where the system keeps it.

#include <string>

#include "platform/environment_guard.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace vellumark::test {

#ifdef _WIN32

class ProxyGuard {
 public:
  explicit ProxyGuard(const std::string& address) { set(address); }
  ~ProxyGuard() { enable(0); }
  ProxyGuard(const ProxyGuard&) = delete;
  ProxyGuard& operator=(const ProxyGuard&) = delete;

  /// "127.0.0.1:8080"
  void set(const std::string& address) {
    enable(1);
    RegSetKeyValueA(HKEY_CURRENT_USER, key, "ProxyServer", REG_SZ, address.c_str(),
                    static_cast<DWORD>(address.size() + 1));
  }

 private:
  static constexpr const char* key = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
  static void enable(DWORD on) {
    RegSetKeyValueA(HKEY_CURRENT_USER, key, "ProxyEnable", REG_DWORD, &on, sizeof on);
  }
};

#else

class ProxyGuard {
 public:
  explicit ProxyGuard(const std::string& address) { set(address); }

  /// "127.0.0.1:8080"
  void set(const std::string& address) { proxy_.set(address); }

 private:
  EnvironmentGuard proxy_{"http_proxy", ""};
  EnvironmentGuard exceptions_{"no_proxy", ""};
};

#endif

}  // namespace vellumark::test
