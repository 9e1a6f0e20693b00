#include "core/helpers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "base/conversions.h"
#include "base/text.h"
#include "core/email_address.h"
#include "core/failure.h"
#include "core/globals.h"
#include "platform/ansi.h"
#include "platform/guid.h"
#include "platform/paths.h"
#include "platform/shell.h"

namespace vellumark::core {
namespace {

constexpr std::string_view separators = "\\/";

/// Results of opening a URL that mean failure. The numbers between them are no results at all.
bool isShellFailure(int result) {
  constexpr std::array<int, 6> single{0, 2, 3, 5, 8, 11};
  return std::find(single.begin(), single.end(), result) != single.end() || (result >= 26 && result <= 32);
}

}  // namespace

std::string ByteArrayToString(const std::string& bytes) {
  return trap("Globals, ByteArrayToString", [&] { return platform::fromAnsi(bytes); });
}

std::int32_t byteArrayLength(const std::string& bytes) { return static_cast<std::int32_t>(bytes.size()); }

std::string ByteArraySub(const std::string& bytes, std::int32_t start, std::int32_t& length) {
  return trap("Globals, ByteArraySub", [&]() -> std::string {
    const std::int32_t upperBound = byteArrayLength(bytes) - 1;
    if (start > upperBound) return {};
    if (start < 0 || length < 0) base::raise(base::errors::subscript);
    const std::int32_t left = upperBound - start + 1;
    if (length == 0 || length > left) length = left;
    return bytes.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
  });
}

double normalizeRotation(const host::Shape& shape) {
  return trap("Globals, normalizeRotation", [&] {
    const double rotation = shape.Rotation();
    const int turns = base::toInt32(rotation) / 360;
    const double rest = rotation - 360.0 * turns;
    return rotation >= 0 ? rest : rest + 360;
  });
}

void createFolder(const std::string& path) {
  trap("Globals, createFolder", [&] {
    std::string folder = path;
    if (!folder.empty() && separators.find(folder.back()) != std::string_view::npos) folder.pop_back();
    if (folder.empty()) return;  // the root of the file system
    const std::size_t cut = folder.find_last_of(separators);
    if (cut != std::string::npos && cut > 0) {
      const std::string parent = folder.substr(0, cut);
      if (!platform::directoryExists(parent)) createFolder(parent);
    }
    if (!platform::directoryExists(folder)) platform::makeDirectory(folder);
  });
}

bool isValidFileName(std::string& name) {
  return trap("Globals, isValidFileName", [&] {
    using namespace std::string_view_literals;
    const std::size_t length = name.size();
    name += '\0';
    return name.find_first_of("\\/:*?<>|\"\t\n\r\0"sv) == length;
  });
}

bool isValidEmail(std::string& address) {
  return trap("Globals, isValidEmail", [&] {
    constexpr std::size_t shortest = 6;
    address = base::trim(address);
    return base::length16(address) >= shortest && matchesEmailAddress(address);
  });
}

std::string getInternetCachePath() {
  return trap("ApiHelpers, getInternetCachePath", [] { return platform::internetCacheFolder(); });
}

std::string getTmpPath() {
  return trap("ApiHelpers, getTmpPath", [] { return platform::temporaryFolder(); });
}

std::string getGUID() {
  return trap("ApiHelpers, getGUID", []() -> std::string {
    const auto guid = platform::newGuid();
    if (!guid) return {};
    std::string text;
    for (std::size_t i = 0; i < guid->size(); ++i) {
      if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
      text += padHex((*guid)[i], 2);
    }
    return text;
  });
}

std::string padHex(std::uint32_t value, int width) {
  return trap("ApiHelpers, padHex", [&] {
    std::string digits;
    for (; value != 0 || digits.empty(); value /= 16) digits += "0123456789ABCDEF"[value % 16];
    if (const int missing = width - static_cast<int>(digits.size()); missing > 0) {
      digits.append(static_cast<std::size_t>(missing), '0');
    }
    return std::string(digits.rbegin(), digits.rend());
  });
}

/// A failure is told without an error, under a text that has no comma unless the URL has one. The failure
/// route can't take the location out of such a text: it fails in its turn, and that is what the user sees.
void openURL(const std::string& url) {
  trap("ShellEx, openURL", [&] {
    const int result = platform::openURL(url);
    if (!isShellFailure(result)) return;
    handleError("ShellExecute for URL " + url + " failed [" + std::to_string(result) + "]", nullptr);
  });
}

void showHelpContextID(int id) {
  trap("ApiHelpers, showHelpContextID",
       [&] { platform::openHelp(globals().programFolder + "zorp.chm", id); });
}

void topWindow(ui::Form& form, bool on) { form.topMost(on); }

}  // namespace vellumark::core
