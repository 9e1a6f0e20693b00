#include "deck/package/part_name.h"

#include <algorithm>
#include <vector>

#include "base/text.h"

namespace vellumark::deck {
namespace {

std::string_view folderOf(std::string_view name) {
  const std::size_t slash = name.rfind('/');
  return slash == std::string_view::npos ? std::string_view{} : name.substr(0, slash);
}

std::string unescaped(std::string_view text) {
  const auto digit = [](char c) {
    return c >= '0' && c <= '9'   ? c - '0'
           : c >= 'a' && c <= 'f' ? c - 'a' + 10
           : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                  : -1;
  };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && digit(text[i + 1]) >= 0 && digit(text[i + 2]) >= 0) {
      plain += static_cast<char>(digit(text[i + 1]) * 16 + digit(text[i + 2]));
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace

bool isPartName(std::string_view name) {
  if (name.empty()) return false;
  const std::string lower = base::toLower(name);
  if (lower.find("%2f") != std::string::npos || lower.find("%5c") != std::string::npos) return false;
  for (const char c : name) {
    if (c == '\\' || static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
  }
  for (const std::string& segment : base::split(name, '/')) {
    if (segment.empty() || segment.find_first_not_of('.') == std::string::npos) return false;
  }
  return true;
}

std::string resolveReference(std::string_view source, std::string_view reference) {
  const std::string plain = unescaped(reference.substr(0, reference.find('#')));
  std::vector<std::string> segments;
  if (!plain.starts_with('/')) segments = base::split(folderOf(source), '/');
  for (const std::string& segment : base::split(plain, '/')) {
    if (segment.empty() || segment == ".") continue;
    if (segment != "..") {
      segments.push_back(segment);
    } else if (segments.empty()) {
      return {};
    } else {
      segments.pop_back();
    }
  }
  std::string name = base::join(segments, "/");
  return isPartName(name) ? name : std::string();
}

std::string referenceTo(std::string_view source, std::string_view target) {
  const std::vector<std::string> from = base::split(folderOf(source), '/');
  const std::vector<std::string> to = base::split(target, '/');
  std::size_t common = 0;
  while (common < from.size() && common + 1 < to.size() && from[common] == to[common]) ++common;
  std::string reference;
  for (std::size_t i = common; i < from.size(); ++i) reference += "../";
  return reference +
         escapedName(base::join({to.begin() + static_cast<std::ptrdiff_t>(common), to.end()}, "/"));
}

std::string partKey(std::string_view name) {
  return base::toLower(name.find('%') == std::string_view::npos ? name : unescaped(name));
}

std::string escapedName(std::string_view name) {
  constexpr std::string_view hexDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : name) {
    if (std::string_view(" \"#<>?[]^`{|}").find(c) == std::string_view::npos) {
      escaped += c;
    } else {
      const auto code = static_cast<unsigned char>(c);
      escaped += {'%', hexDigits[code >> 4], hexDigits[code & 15]};
    }
  }
  return escaped;
}

}  // namespace vellumark::deck
