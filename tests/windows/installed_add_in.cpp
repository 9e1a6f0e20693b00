#include "windows/installed_add_in.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/text.h"

namespace vellumark::test {

Outcome runWine(std::vector<std::string> arguments) { return runProgram(TEST_WINE, arguments); }

std::string windowsPath(const std::string& path) { return "Z:" + base::replaceAll(path, "/", "\\"); }

void requireRegistered() {
  static const Outcome registered =
      runWine({"regsvr32", "/s", windowsPath(TEST_WINDOWS_BUILD "/installation/addin/zorp.dll")});
  if (registered.status != 0) throw std::runtime_error("regsvr32 failed: " + registered.err);
}

Outcome runOverCom(const std::string& command, const std::string& deck, std::vector<std::string> arguments,
                   const std::string& subcommand) {
  requireRegistered();
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    if (arguments[i] == "-o") arguments[i + 1] = windowsPath(arguments[i + 1]);
  }
  arguments.insert(arguments.begin(), {TEST_WINDOWS_BUILD "/vellumark-strict-host.exe", subcommand, command,
                                       windowsPath(deck), "--root", windowsPath(TEST_SOURCE_DIR "/product")});
  return runWine(arguments);
}

std::optional<std::string> registryValue(const std::string& key, const std::string& name) {
  std::vector<std::string> arguments{"reg", "query", key};
  if (name.empty()) {
    arguments.push_back("/ve");
  } else {
    arguments.insert(arguments.end(), {"/v", name});
  }
  const Outcome outcome = runWine(arguments);
  if (outcome.status != 0) return std::nullopt;
  // A line of name, type and value, four blanks between them.
  for (const std::string& line : base::split(base::replaceAll(outcome.out, "\r", ""), '\n')) {
    const std::size_t type = line.find("    REG_");
    if (type == std::string::npos) continue;
    const std::size_t value = line.find("    ", type + 4);
    return value == std::string::npos ? "" : line.substr(value + 4);
  }
  return std::nullopt;
}

void setRegistryValue(const std::string& key, const std::string& name, const std::string& type,
                      const std::string& value) {
  const Outcome outcome = runWine({"reg", "add", key, "/v", name, "/t", type, "/d", value, "/f"});
  if (outcome.status != 0) throw std::runtime_error("reg add failed: " + outcome.err);
}

}  // namespace vellumark::test
