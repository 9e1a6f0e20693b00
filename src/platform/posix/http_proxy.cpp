#include "platform/posix/http_proxy.h"

#include <charconv>
#include <string_view>

#include "base/text.h"
#include "base/web_address.h"
#include "platform/environment.h"

namespace vellumark::platform {
namespace {

/// Splits ":port" off the end of `address`, whose host may be an IPv6 address in brackets.
int takePort(std::string& address, int defaultPort) {
  const std::size_t colon = address.find(':', address.starts_with('[') ? address.find(']') : 0);
  if (colon == std::string::npos) return defaultPort;
  int port = -1;
  std::from_chars(address.data() + colon + 1, address.data() + address.size(), port);
  address.resize(colon);
  return port;
}

bool isExcepted(const std::string& host, int port, const std::string& exceptions) {
  const std::string name = base::toLower(host);
  for (std::string entry : base::split(base::toLower(exceptions), ',')) {
    entry = base::trim(entry);
    if (entry == "*") return true;
    const int entryPort = takePort(entry, port);
    if (entry.starts_with('.')) entry.erase(0, 1);
    if (entry.empty() || entryPort != port) continue;
    if (name == entry || name.ends_with("." + entry)) return true;
  }
  return false;
}

}  // namespace

std::optional<HttpProxy> proxyFor(const std::string& host, int port) {
  const auto setting = environmentVariable("http_proxy");
  if (!setting) return std::nullopt;
  if (isExcepted(host, port, environmentVariable("no_proxy").value_or(""))) return std::nullopt;

  HttpProxy proxy;
  proxy.host = *setting;
  constexpr std::string_view scheme = "http://";
  if (base::equalsIgnoreCase(std::string_view(proxy.host).substr(0, scheme.size()), scheme)) {
    proxy.host.erase(0, scheme.size());
  }
  if (const std::size_t slash = proxy.host.find('/'); slash != std::string::npos) proxy.host.resize(slash);
  if (const std::size_t at = proxy.host.rfind('@'); at != std::string::npos) {
    proxy.credentials = base::percentDecoded(std::string_view(proxy.host).substr(0, at));
    proxy.host.erase(0, at + 1);
  }
  proxy.port = takePort(proxy.host, 80);
  return proxy;
}

}  // namespace vellumark::platform
