#include "platform/settings_store.h"

#include <cstring>
#include <memory>

#include "base/error.h"
#include "platform/environment.h"
#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

using win32::fromWide;
using win32::toWide;

struct CloseKey {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

/// The key below the current user's hive, behind the one that a variable names where tests keep apart.
std::wstring place(const std::string& key) {
  const auto root = environmentVariable("VELLUMARK_SETTINGS");
  return toWide(root ? *root + "\\" + key : key);
}

[[noreturn]] void fail(const std::string& what, const std::string& key, LSTATUS status) {
  base::raise(base::errors::fileAccess, "The registry key HKEY_CURRENT_USER\\" + key + " can't be " + what +
                                            ": " + win32::systemMessage(static_cast<DWORD>(status)));
}

bool isText(Setting::Type type) {
  return type == Setting::Type::string || type == Setting::Type::expandString ||
         type == Setting::Type::multiString;
}
bool isNumber(Setting::Type type) {
  return type == Setting::Type::dword || type == Setting::Type::dwordBigEndian;
}

/// The types that have a meaning here; all others are bytes.
Setting::Type typeOf(DWORD type) {
  switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_BINARY:
    case REG_DWORD:
    case REG_DWORD_BIG_ENDIAN:
    case REG_MULTI_SZ:
      return static_cast<Setting::Type>(type);
    default:
      return Setting::Type::other;
  }
}

/// A text without the terminators with which it is stored, if it is: other programs forget them.
std::string textOf(const Setting::Bytes& bytes) {
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  while (!text.empty() && text.back() == L'\0') text.pop_back();
  return fromWide(text);
}

Setting settingOf(DWORD type, Setting::Bytes bytes) {
  Setting setting;
  setting.type = typeOf(type);
  std::uint32_t number = 0;
  if (isText(setting.type)) {
    setting.value = textOf(bytes);
  } else if (isNumber(setting.type) && bytes.size() == sizeof number) {
    std::memcpy(&number, bytes.data(), sizeof number);
    setting.value = number;
  } else {
    if (isNumber(setting.type)) setting.type = Setting::Type::other;
    setting.value = std::move(bytes);
  }
  return setting;
}

Setting::Bytes bytesOf(const Setting& setting) {
  if (const auto* bytes = std::get_if<Setting::Bytes>(&setting.value)) return *bytes;
  Setting::Bytes bytes;
  const auto append = [&](const void* data, std::size_t size) {
    const auto* first = static_cast<const std::uint8_t*>(data);
    bytes.assign(first, first + size);
  };
  if (const auto* number = std::get_if<std::uint32_t>(&setting.value)) {
    append(number, sizeof *number);
    return bytes;
  }
  std::wstring text = toWide(std::get<std::string>(setting.value));
  if (setting.type == Setting::Type::multiString) text += L'\0';
  append(text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  return bytes;
}

}  // namespace

std::string settingsFolder() { return userSettingsFolder(); }

std::optional<Setting> readSetting(const std::string& key, const std::string& name) {
  HKEY opened = nullptr;
  LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, place(key).c_str(), 0, KEY_QUERY_VALUE, &opened);
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
  if (status != ERROR_SUCCESS) fail("read", key, status);
  const Key held(opened);
  const std::wstring wideName = toWide(name);
  DWORD type = REG_NONE, size = 0;
  Setting::Bytes bytes;
  // The value may grow between the question for its size and that for itself.
  do {
    bytes.resize(size);
    status =
        RegQueryValueExW(opened, wideName.c_str(), nullptr, &type, size == 0 ? nullptr : bytes.data(), &size);
  } while (status == ERROR_MORE_DATA || (status == ERROR_SUCCESS && bytes.size() < size));
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  if (status != ERROR_SUCCESS) fail("read", key, status);
  bytes.resize(size);
  return settingOf(type, std::move(bytes));
}

void writeSetting(const std::string& key, const std::string& name, const Setting& setting) {
  HKEY opened = nullptr;
  LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, place(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                   KEY_SET_VALUE, nullptr, &opened, nullptr);
  if (status != ERROR_SUCCESS) fail("written", key, status);
  const Key held(opened);
  const Setting::Bytes bytes = bytesOf(setting);
  status = RegSetValueExW(opened, toWide(name).c_str(), 0, static_cast<DWORD>(setting.type), bytes.data(),
                          static_cast<DWORD>(bytes.size()));
  if (status != ERROR_SUCCESS) fail("written", key, status);
}

}  // namespace vellumark::platform
