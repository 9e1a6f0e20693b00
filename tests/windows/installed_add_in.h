#pragma once
// The add-in as it is installed in the Windows that Wine makes, and the program that hosts it there.

#include <optional>
#include <string>
#include <vector>

#include "app/program.h"

namespace vellumark::test {

/// Runs a Windows program under Wine.
Outcome runWine(std::vector<std::string> arguments);

/// A path of this system as Windows programs under Wine name it.
std::string windowsPath(const std::string& path);

/// Registers the add-in in that Windows, once for all tests of this program.
void requireRegistered();

/// `run COMMAND DECK arguments...`, or another subcommand of that form, with the registered add-in over COM,
/// at a host that takes nothing but what is documented. Paths are this system's.
Outcome runOverCom(const std::string& command, const std::string& deck, std::vector<std::string> arguments,
                   const std::string& subcommand = "run");

/// Text of a registry value, "HKCU\Software\..."; nothing where it is missing.
std::optional<std::string> registryValue(const std::string& key, const std::string& name);
/// Writes a value of a type ("REG_SZ", "REG_DWORD").
void setRegistryValue(const std::string& key, const std::string& name, const std::string& type,
                      const std::string& value);

}  // namespace vellumark::test
