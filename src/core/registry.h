#pragma once
// The settings store as the add-in uses it: strings and bytes, written through at once, never cached.

#include <cstdint>
#include <string>
#include <vector>

namespace vellumark::core {

/// The value as string; `defaultValue` where key or value is missing. A value that is there and empty is the
/// empty string.
std::string getRegistry(const std::string& valueName, const std::string& subkey,
                        const std::string& defaultValue);
/// Writes a string value (note the order of the arguments); creates the key where it is missing.
void setRegistry(const std::string& valueName, const std::string& value, const std::string& subkey);
/// The same for what nobody misses where it isn't written: false then, and no failure.
bool tryRegistry(const std::string& valueName, const std::string& value, const std::string& subkey);
/// The same for byte arrays.
std::vector<std::uint8_t> getRegistryBytes(const std::string& valueName, const std::string& subkey,
                                           const std::vector<std::uint8_t>& defaultValue);
void setRegistryBytes(const std::string& valueName, const std::vector<std::uint8_t>& bytes,
                      const std::string& subkey);

}  // namespace vellumark::core
