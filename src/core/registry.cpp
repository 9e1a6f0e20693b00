#include "core/registry.h"

#include <string_view>
#include <variant>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"
#include "base/trap.h"
#include "platform/environment.h"
#include "platform/settings_store.h"

namespace vellumark::core {
namespace {

using Bytes = std::vector<std::uint8_t>;
using platform::Setting;

/// What a value of the store is to the program: nothing, text, a 32-bit number or bytes.
using Variant = std::variant<std::monostate, std::string, std::int32_t, Bytes>;

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

/// Bytes turned into a string are its UTF-16 code units, low byte first; an odd byte at the end is lost.
std::string textOf(const Variant& value) {
  return std::visit(Overloaded{
                        [](std::monostate) { return std::string(); },
                        [](const std::string& text) { return text; },
                        [](std::int32_t number) { return std::to_string(number); },
                        [](const Bytes& bytes) {
                          std::u16string units;
                          for (std::size_t i = 1; i < bytes.size(); i += 2) {
                            units += static_cast<char16_t>(bytes[i - 1] | bytes[i] << 8);
                          }
                          return base::fromUtf16(units);
                        },
                    },
                    value);
}

std::uint32_t swapped(std::uint32_t number) {
  return number << 24 | (number & 0xFF00) << 8 | (number >> 8 & 0xFF00) | number >> 24;
}

/// One value of the store. Its properties are set one by one before it is read or written.
class Registry {
 public:
  std::string ClassKey = "HKEY_CURRENT_USER";  ///< the hive; there is no other
  std::string SectionKey;
  std::string ValueKey;
  Setting::Type ValueType = Setting::Type::string;
  Variant Default;

  /// Default where key or value is missing.
  Variant Value() const {
    const std::optional<Setting> setting = platform::readSetting(SectionKey, ValueKey);
    if (!setting) return Default;
    switch (setting->type) {
      case Setting::Type::string:
      case Setting::Type::multiString:
        return std::get<std::string>(setting->value);
      case Setting::Type::expandString:
        return platform::expandEnvironment(std::get<std::string>(setting->value));
      case Setting::Type::dword:
        return static_cast<std::int32_t>(std::get<std::uint32_t>(setting->value));
      case Setting::Type::dwordBigEndian:
        return static_cast<std::int32_t>(swapped(std::get<std::uint32_t>(setting->value)));
      default:
        return std::get<Bytes>(setting->value);
    }
  }

  /// Writes a value as ValueType says. Raises 26001 where the store doesn't take it.
  void Value(const Variant& value) const {
    Setting setting{ValueType, {}};
    if (ValueType == Setting::Type::binary) {
      setting.value = std::get<Bytes>(value);
    } else {
      setting.value = textOf(value);
    }
    try {
      platform::writeSetting(SectionKey, ValueKey, setting);
    } catch (const base::Error&) {
      throw base::Error(base::errors::registryWrite,
                        "Failed to set registry value Key: '" + ClassKey + "',Section: '" + SectionKey +
                            "',Key: '" + ValueKey + "' to value: '" + textOf(value) + "'",
                        ".Registry");
    }
  }
};

Registry registryFor(const std::string& valueName, const std::string& subkey) {
  Registry registry;
  registry.SectionKey = "Software\\Vellumark\\Vellumark for presentations";
  if (!subkey.empty()) registry.SectionKey += "\\" + subkey;
  registry.ValueKey = valueName;
  return registry;
}

}  // namespace

std::string getRegistry(const std::string& valueName, const std::string& subkey,
                        const std::string& defaultValue) {
  return base::trap("Globals, getRegistry", [&] {
    const Variant value = registryFor(valueName, subkey).Value();
    return std::holds_alternative<std::monostate>(value) ? defaultValue : textOf(value);
  });
}

void setRegistry(const std::string& valueName, const std::string& value, const std::string& subkey) {
  base::trap("Globals, setRegistry", [&] { registryFor(valueName, subkey).Value(value); });
}

bool tryRegistry(const std::string& valueName, const std::string& value, const std::string& subkey) {
  return base::resumeNext([&] { registryFor(valueName, subkey).Value(value); });
}

Bytes getRegistryBytes(const std::string& valueName, const std::string& subkey, const Bytes& defaultValue) {
  return base::trap("Globals, getRegistryBytes", [&] {
    const Variant value = registryFor(valueName, subkey).Value();
    if (std::holds_alternative<std::monostate>(value)) return defaultValue;
    if (!std::holds_alternative<Bytes>(value)) base::raise(base::errors::typeMismatch);
    return std::get<Bytes>(value);
  });
}

void setRegistryBytes(const std::string& valueName, const Bytes& bytes, const std::string& subkey) {
  base::trap("Globals, setRegistryBytes", [&] {
    Registry registry = registryFor(valueName, subkey);
    registry.ValueType = Setting::Type::binary;
    registry.Value(bytes);
  });
}

}  // namespace vellumark::core
