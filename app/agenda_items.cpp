#include "agenda_items.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "base/xml_storable.h"
#include "csv.h"
#include "failure.h"
#include "platform/ansi.h"
#include "platform/paths.h"

namespace vellumark::app {
namespace {

constexpr int minutesOfDay = 24 * 60;
/// The dialog counts the minutes of an agenda in 16 bits.
constexpr int longestAgenda = 32767 - minutesOfDay;

/// The file's columns, in their usual order.
enum Column { level, text, responsible, minutes, isBreak, shown, ownSlide, columnCount };
constexpr std::array<std::string_view, columnCount> columnNames = {"level", "text",  "responsible", "minutes",
                                                                   "break", "shown", "own slide"};

/// One place in a file that something is wrong with.
class Place {
 public:
  explicit Place(std::string path) : path_(std::move(path)) {}
  Place at(int line) const {
    Place place = *this;
    place.line_ = line;
    return place;
  }
  [[noreturn]] void refuse(const std::string& why) const {
    throw Failure(Exit::usage, path_ + (line_ > 0 ? ", line " + std::to_string(line_) : "") + ": " + why);
  }

 private:
  std::string path_;
  int line_ = 0;
};

std::string readText(const std::string& path, const Place& place) {
  std::string bytes;
  try {
    bytes = platform::readFile(path);
  } catch (const base::Error& error) {
    place.refuse("can't be read (" + error.description() + "); give a text or CSV file of agenda items");
  }
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
      bytes.find('\0') != std::string::npos) {
    place.refuse("is no text in UTF-8; save it as UTF-8 text or CSV");
  }
  return platform::fromAnsiOrUtf8(bytes);
}

void requireOneLine(const std::string& value, Column column, const Place& place) {
  if (!isOneLine(value)) {
    place.refuse(std::string(columnNames[column]) +
                 " holds a line break, a tab or another control character; write it on one line");
  }
}

std::optional<int> wholeNumber(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

int numberIn(const std::string& value, Column column, int lowest, int highest, const Place& place) {
  const auto number = wholeNumber(value);
  if (!number || *number < lowest || *number > highest) {
    place.refuse(std::string(columnNames[column]) + " is \"" + value + "\"; write a whole number from " +
                 std::to_string(lowest) + " to " + std::to_string(highest));
  }
  return *number;
}

bool truth(const std::string& value, Column column, const Place& place) {
  const std::string word = base::toLower(value);
  for (const char* yes : {"yes", "y", "1", "true", "x"}) {
    if (word == yes) return true;
  }
  for (const char* no : {"no", "n", "0", "false", "-"}) {
    if (word == no) return false;
  }
  place.refuse(std::string(columnNames[column]) + " is \"" + value + "\"; write yes or no");
}

/// Which field of a row each column stands in; -1 for none.
using Header = std::array<int, columnCount>;

std::optional<Column> columnOf(const std::string& name) {
  const std::string plain = base::replaceAll(base::toLower(base::trim(name)), "_", " ");
  const auto found = std::ranges::find(columnNames, plain);
  if (found == columnNames.end()) return std::nullopt;
  return static_cast<Column>(found - columnNames.begin());
}

/// A row that begins with the name of a column is a header line.
bool isHeader(const CsvRow& row) { return !row.fields.empty() && columnOf(row.fields.front()).has_value(); }

Header readHeader(const CsvRow& row, const Place& place) {
  Header header;
  header.fill(-1);
  for (std::size_t i = 0; i < row.fields.size(); ++i) {
    const auto column = columnOf(row.fields[i]);
    if (!column) {
      place.refuse("there is no column \"" + row.fields[i] +
                   "\"; there are level, text, responsible, minutes, break, shown, own slide");
    }
    header[*column] = static_cast<int>(i);
  }
  if (header[text] < 0) place.refuse("has no column \"text\"; add it to the header line");
  return header;
}

AgendaItem itemOf(const CsvRow& row, const Header& header, const Place& place) {
  const auto field = [&](Column column) -> std::string {
    const int at = header[column];
    return at >= 0 && static_cast<std::size_t>(at) < row.fields.size()
               ? row.fields[static_cast<std::size_t>(at)]
               : std::string();
  };
  const auto given = [&](Column column) { return !field(column).empty(); };
  AgendaItem item;
  if (given(level)) item.level = numberIn(field(level), level, 1, 2, place);
  item.text = field(text);
  item.responsible = field(responsible);
  if (given(minutes)) item.minutes = numberIn(field(minutes), minutes, 0, minutesOfDay, place);
  if (given(isBreak)) item.isBreak = truth(field(isBreak), isBreak, place);
  if (given(shown)) item.shown = truth(field(shown), shown, place);
  item.ownSlide = given(ownSlide) ? truth(field(ownSlide), ownSlide, place) : item.shown;
  if (item.text.empty()) place.refuse("has no text; write what the item is about");
  if (item.ownSlide && !item.shown) {
    place.refuse(
        "wants a slide of its own for an item that isn't shown; write no for own slide, or yes for shown");
  }
  requireOneLine(item.text, text, place);
  requireOneLine(item.responsible, responsible, place);
  return item;
}

struct Read {
  AgendaItem item;
  int line;
};

std::vector<Read> readCsv(const std::string& bytes, const Place& place) {
  const CsvTable table = parseCsv(bytes, separatorOf(bytes));
  if (table.openQuote > 0)
    place.at(table.openQuote).refuse("a quotation mark is not closed; close it, or double it");
  Header header;
  for (int i = 0; i < columnCount; ++i) header[static_cast<std::size_t>(i)] = i;
  std::vector<Read> items;
  for (const CsvRow& row : table.rows) {
    const Place here = place.at(row.line);
    if (&row == &table.rows.front() && isHeader(row)) {
      header = readHeader(row, here);
      continue;
    }
    if (row.fields.size() > columnCount) {
      here.refuse("has " + std::to_string(row.fields.size()) +
                  " fields; put a text with a separator in it in double quotes");
    }
    items.push_back({itemOf(row, header, here), row.line});
  }
  return items;
}

std::vector<Read> readPlain(const std::string& bytes, const Place& place) {
  std::vector<Read> items;
  int number = 0;
  for (std::string line : base::split(bytes, '\n')) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos) continue;
    // A tab counts as two blanks.
    const std::string_view indent = std::string_view(line).substr(0, begin);
    const auto depth = (std::ranges::count(indent, '\t') * 2 + std::ranges::count(indent, ' ')) / 2;
    const Place here = place.at(number);
    if (depth > 1) {
      here.refuse(
          "is indented for a third level; an agenda has two, the second behind one tab or two blanks");
    }
    AgendaItem item;
    item.level = static_cast<int>(depth) + 1;
    item.text = base::trim(line.substr(begin));
    requireOneLine(item.text, text, here);
    items.push_back({item, number});
  }
  return items;
}

bool looksLikeCsv(const std::string& path, const std::string& bytes) {
  const std::string name = base::toLower(path);
  if (name.ends_with(".csv") || name.ends_with(".tsv")) return true;
  const char separator = separatorOf(bytes);
  const std::string first = bytes.substr(0, bytes.find('\n'));
  const std::vector<CsvRow> rows = parseCsv(first, separator).rows;
  return !rows.empty() && rows.front().fields.size() > 1 && isHeader(rows.front());
}

/// What holds for the items together.
void requireAgenda(const std::vector<Read>& items, const Place& place) {
  if (items.empty()) place.refuse("holds no items; write one a line");
  if (items.front().item.level != 1) {
    place.at(items.front().line)
        .refuse("begins on the second level; the first item has to stand on the first");
  }
  int total = 0;
  for (const Read& each : items) {
    total += each.item.minutes;
    if (total > longestAgenda) {
      place.at(each.line).refuse("brings the agenda to more than " + std::to_string(longestAgenda) +
                                 " minutes; shorten the items");
    }
  }
}

const char* yesNo(bool on) { return on ? "yes" : "no"; }

}  // namespace

bool isOneLine(const std::string& text) {
  const bool printable =
      std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != 0x7F; });
  return printable && base::isXmlStorable(text);
}

std::vector<AgendaItem> readAgendaItems(const std::string& path) {
  const Place place(path);
  const std::string bytes = readText(path, place);
  const std::vector<Read> read = looksLikeCsv(path, bytes) ? readCsv(bytes, place) : readPlain(bytes, place);
  requireAgenda(read, place);
  std::vector<AgendaItem> items;
  for (const Read& each : read) items.push_back(each.item);
  return items;
}

std::string toCsv(const std::vector<AgendaItem>& items) {
  std::string csv = "level,text,responsible,minutes,break,shown,own slide\n";
  for (const AgendaItem& item : items) {
    csv += base::join(
               {std::to_string(item.level), csvField(item.text), csvField(item.responsible),
                std::to_string(item.minutes), yesNo(item.isBreak), yesNo(item.shown), yesNo(item.ownSlide)},
               ",") +
           "\n";
  }
  return csv;
}

}  // namespace vellumark::app
