#pragma once
// The per-user settings store: a tree of keys with named, typed values, written through at once. Names of
// keys and values match in any case. Safe with several processes at a time.
//
// On Linux it is the SQLite file settings.db in userSettingsFolder(), or the file that the environment
// variable VELLUMARK_SETTINGS names, opened when it is first asked. On Windows it is the registry under
// HKEY_CURRENT_USER, or below the key there that the variable names.

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vellumark::platform {

struct Setting {
  /// The numbers are those that stand in files and in the registry.
  enum class Type {
    other = 0,
    string = 1,
    expandString = 2,
    binary = 3,
    dword = 4,
    dwordBigEndian = 5,
    multiString = 7
  };
  using Bytes = std::vector<std::uint8_t>;

  Type type = Type::string;
  /// Text for the three kinds of string, a number for the two of dword (as its four bytes read on this
  /// machine), bytes for the rest.
  std::variant<std::string, std::uint32_t, Bytes> value;
};

/// The value `name` under `key` ("Software\Vendor\Product"); nothing where key or value is missing. Raises 75
/// with the file and the reason where the store can't be read.
std::optional<Setting> readSetting(const std::string& key, const std::string& name);

/// Writes a value over the old one and makes the key where it is missing. Raises 75 where that fails.
void writeSetting(const std::string& key, const std::string& name, const Setting& setting);

/// Where the store lies. Whoever reads a value to write it back locks this path meanwhile.
std::string settingsFolder();

}  // namespace vellumark::platform
