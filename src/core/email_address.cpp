#include "core/email_address.h"

#include <cstddef>

namespace vellumark::core {
namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isLetterOrDigit(char c) { return isLetter(c) || (c >= '0' && c <= '9'); }
bool isWord(char c) { return isLetterOrDigit(c) || c == '_'; }

/// Takes the run of characters that `belongs` accepts off the front of `text`.
template <typename Test>
std::string_view takeRun(std::string_view& text, Test belongs) {
  std::size_t length = 0;
  while (length < text.size() && belongs(text[length])) ++length;
  const std::string_view run = text.substr(0, length);
  text.remove_prefix(length);
  return run;
}

/// Runs of letters and digits, with runs of one and the same separator between them.
bool isLocalPart(std::string_view text) {
  while (!takeRun(text, isLetterOrDigit).empty()) {
    if (text.empty()) return true;
    const char separator = text[0];
    if (separator != '_' && separator != '-' && separator != '.' && separator != '+') return false;
    takeRun(text, [&](char c) { return c == separator; });
  }
  return false;
}

/// Words with a dot or a run of hyphens between them. The last one is the top level, behind a dot, and the
/// one before it has at most 63 characters.
bool isDomain(std::string_view text) {
  std::size_t lengthBeforeDot = 0;  // of the word before the one being read, 0 where no dot is between them
  while (true) {
    const std::string_view word = takeRun(text, isWord);
    if (word.empty()) return false;
    if (text.empty()) {
      std::string_view letters = word;
      const bool topLevel = takeRun(letters, isLetter).size() == word.size();
      return topLevel && word.size() >= 2 && word.size() <= 6 && lengthBeforeDot >= 1 &&
             lengthBeforeDot <= 63;
    }
    if (text[0] == '.') {
      text.remove_prefix(1);
      lengthBeforeDot = word.size();
    } else if (!takeRun(text, [](char c) { return c == '-'; }).empty()) {
      lengthBeforeDot = 0;
    } else {
      return false;
    }
  }
}

}  // namespace

bool matchesEmailAddress(std::string_view text) {
  const std::size_t at = text.find('@');
  return at != std::string_view::npos && isLocalPart(text.substr(0, at)) && isDomain(text.substr(at + 1));
}

}  // namespace vellumark::core
