#include "addin/win32/registration.h"

#include <array>

#include "addin/win32/interfaces.h"
#include "addin/win32/module.h"
#include "base/error.h"
#include "base/text.h"
#include "core/config.h"
#include "host/automation/com.h"
#include "platform/environment.h"

namespace vellumark::addin::win32 {
namespace {

using host::automation::fromWide;
using host::automation::toWide;

HKEY hiveOf(Scope scope) { return scope == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

std::string classId() {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(connectClass, text.data(), static_cast<int>(text.size()));
  return fromWide(text.data());
}

/// The keys of the registration, each with all below it.
struct Keys {
  std::string server = "Software\\Classes\\CLSID\\" + classId();
  std::string progId = std::string("Software\\Classes\\") + connectProgId;
  std::string addIn = std::string("Software\\Microsoft\\Office\\PowerPoint\\Addins\\") + connectProgId;
};

void check(LSTATUS status, const std::string& key) {
  if (status != ERROR_SUCCESS) {
    base::raise(base::errors::fileAccess,
                "The registry key " + key + " can't be changed (" + std::to_string(status) + ")");
  }
}

void write(Scope scope, const std::string& key, const std::string& name, DWORD type, const void* data,
           DWORD size) {
  const std::wstring wideName = toWide(name);
  check(RegSetKeyValueW(hiveOf(scope), toWide(key).c_str(), name.empty() ? nullptr : wideName.c_str(), type,
                        data, size),
        key);
}

void writeText(Scope scope, const std::string& key, const std::string& name, const std::string& text) {
  const std::wstring wide = toWide(text);
  write(scope, key, name, REG_SZ, wide.c_str(), static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
}

void writeAll(Scope scope) {
  const Keys keys;
  writeText(scope, keys.server, "", connectProgId);
  writeText(scope, keys.server + "\\InprocServer32", "", modulePath());
  writeText(scope, keys.server + "\\InprocServer32", "ThreadingModel", "Apartment");
  writeText(scope, keys.server + "\\ProgID", "", connectProgId);
  writeText(scope, keys.progId, "", std::string(core::productTitle));
  writeText(scope, keys.progId + "\\CLSID", "", classId());
  writeText(scope, keys.addIn, "FriendlyName", std::string(core::productTitle));
  writeText(scope, keys.addIn, "Description",
            "Makes business slides fast: shapes, agendas, pre-designed elements");
  constexpr DWORD loadAtStart = 3;
  write(scope, keys.addIn, "LoadBehavior", REG_DWORD, &loadAtStart, sizeof loadAtStart);
}

void remove(Scope scope, const std::string& key) {
  const LSTATUS status = RegDeleteTreeW(hiveOf(scope), toWide(key).c_str());
  if (status != ERROR_FILE_NOT_FOUND) check(status, key);
}

/// Whether the add-in for the other kind of program, 32-bit or 64-bit, is registered. A 32-bit Windows knows
/// one kind, and looks for this one's own server.
bool otherKindIsRegistered(Scope scope) {
  constexpr REGSAM otherKind = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  HKEY key = nullptr;
  const std::wstring server = toWide(Keys().server + "\\InprocServer32");
  if (RegOpenKeyExW(hiveOf(scope), server.c_str(), 0, KEY_READ | otherKind, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

}  // namespace

void registerAddIn(Scope scope) {
  try {
    writeAll(scope);
  } catch (const base::Error&) {
    try {
      unregisterAddIn(scope);
    } catch (const base::Error&) {
      // The first failure is the one to tell.
    }
    throw;
  }
}

/// A 64-bit Windows keeps the servers of both kinds of program apart, and for all users the add-ins too. The
/// rest is one for both, and stays for as long as the other kind has its server.
void unregisterAddIn(Scope scope) {
  const Keys keys;
  remove(scope, keys.server);
  const bool shared = otherKindIsRegistered(scope);
  if (!shared || scope == Scope::machine) remove(scope, keys.addIn);
  if (!shared) remove(scope, keys.progId);
}

std::optional<Scope> wishedScope() {
  const auto wish = platform::environmentVariable("VELLUMARK_REGISTER");
  if (!wish) return std::nullopt;
  return base::equalsIgnoreCase(*wish, "user") ? Scope::user : Scope::machine;
}

Scope chosenScope() {
  if (const auto wish = wishedScope()) return *wish;
  HKEY key = nullptr;
  const LSTATUS status =
      RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0, KEY_CREATE_SUB_KEY, &key);
  if (status != ERROR_SUCCESS) return Scope::user;
  RegCloseKey(key);
  return Scope::machine;
}

}  // namespace vellumark::addin::win32
