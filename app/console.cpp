#include "console.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

#include "failure.h"

namespace vellumark::app {
namespace {

constexpr char32_t malformed = 0xFFFD;

/// Takes the next character off the front of a UTF-8 text that isn't empty. Overlong forms, surrogates and
/// stray bytes are U+FFFD, one for each byte.
char32_t takeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char first = byte(0);
  const int length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  const char32_t smallest = length == 1 ? 0 : length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
  char32_t character = length == 1 ? first : first & (0x7F >> length);
  bool sound =
      length == 1 || (first >= 0xC2 && first <= 0xF4 && text.size() >= static_cast<std::size_t>(length));
  for (int i = 1; sound && i < length; ++i) {
    sound = (byte(i) & 0xC0) == 0x80;
    character = character << 6 | (byte(i) & 0x3F);
  }
  sound = sound && character >= smallest && character <= 0x10FFFF &&
          !(character >= 0xD800 && character <= 0xDFFF);
  text.remove_prefix(sound ? length : 1);
  return sound ? character : malformed;
}

struct Range {
  char32_t first, last;
};

template <std::size_t count>
bool isIn(const std::array<Range, count>& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [&](const Range& range) { return character >= range.first && character <= range.last; });
}

/// Characters that stand on the one before them, or show nothing.
constexpr std::array<Range, 10> widthless{{{0x300, 0x36F},
                                           {0x483, 0x489},
                                           {0x591, 0x5BD},
                                           {0x610, 0x61A},
                                           {0x64B, 0x65F},
                                           {0x1AB0, 0x1AFF},
                                           {0x200B, 0x200F},
                                           {0x20D0, 0x20FF},
                                           {0xFE00, 0xFE0F},
                                           {0xFE20, 0xFE2F}}};
constexpr std::array<Range, 11> wide{{{0x1100, 0x115F},
                                      {0x2E80, 0x303E},
                                      {0x3041, 0x4DBF},
                                      {0x4E00, 0xA4CF},
                                      {0xAC00, 0xD7A3},
                                      {0xF900, 0xFAFF},
                                      {0xFE30, 0xFE6F},
                                      {0xFF00, 0xFF60},
                                      {0xFFE0, 0xFFE6},
                                      {0x1F300, 0x1FAFF},
                                      {0x20000, 0x3FFFD}}};
/// What turns the direction of the text behind it, or starts a command to the terminal.
constexpr std::array<Range, 5> unsafe{
    {{0x00, 0x1F}, {0x7F, 0x9F}, {0x202A, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF}}};

std::size_t widthOf(char32_t character) {
  return isIn(widthless, character) ? 0 : isIn(wide, character) ? 2 : 1;
}

void write(std::FILE* stream, std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stream) != text.size() || std::fflush(stream) != 0) {
    throw Failure(Exit::deck,
                  "the output can't be written: look at where it goes (a full disk, a closed pipe)");
  }
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) width += widthOf(takeCharacter(text));
  return width;
}

std::string oneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = takeCharacter(text);
    if (character == malformed || isIn(unsafe, character)) {
      const bool blank = character >= 0x09 && character <= 0x0D;
      line += blank ? " " : "\xEF\xBF\xBD";
    } else {
      line += before.substr(0, before.size() - text.size());
    }
  }
  return line;
}

std::string excerpt(std::string_view text, std::size_t width) {
  const std::string line = oneLine(text);
  if (displayWidth(line) <= width) return line;
  std::string_view rest = line;
  std::size_t used = 0, length = 0;
  for (;;) {
    used += widthOf(takeCharacter(rest));
    if (used + 1 > width) break;  // one column stays for the ellipsis
    length = line.size() - rest.size();
  }
  return line.substr(0, length) + "…";
}

std::string pointsText(double points) {
  char text[400];  // any double fits
  const auto end = std::to_chars(text, text + sizeof text, points, std::chars_format::fixed, 2);
  std::string_view shown(text, end.ptr);
  while (shown.ends_with('0')) shown.remove_suffix(1);
  if (shown.ends_with('.')) shown.remove_suffix(1);
  return shown == "-0" ? "0" : std::string(shown);
}

void Table::row(std::vector<std::string> cells) {
  cells.resize(columns_.size());
  for (std::string& cell : cells) cell = oneLine(cell);
  rows_.push_back(std::move(cells));
}

std::string Table::text(std::string_view indent) const {
  std::vector<std::size_t> widths;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    std::size_t width = displayWidth(columns_[column].heading);
    for (const auto& row : rows_) width = std::max(width, displayWidth(row[column]));
    widths.push_back(width);
  }
  std::string text;
  const auto line = [&](auto&& cell) {
    std::string made(indent);
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      const std::string& shown = cell(column);
      const std::string padding(widths[column] - displayWidth(shown), ' ');
      if (column > 0) made += "  ";
      made += columns_[column].align == Align::right ? padding + shown : shown + padding;
    }
    made.erase(made.find_last_not_of(' ') + 1);
    text += made + "\n";
  };
  line([&](std::size_t column) -> const std::string& { return columns_[column].heading; });
  for (const auto& row : rows_) {
    line([&](std::size_t column) -> const std::string& { return row[column]; });
  }
  return text;
}

void print(std::string_view text) { write(stdout, text); }

void tell(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);  // where this fails there is nobody left to tell
}

void tellFailure(std::string_view line) { tell("vellumark: " + oneLine(line) + "\n"); }

}  // namespace vellumark::app
