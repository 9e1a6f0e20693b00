#pragma once
// Tables in CSV form.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::app {

struct CsvRow {
  int line = 0;  ///< on which it begins, from 1
  std::vector<std::string> fields;
};

/// The rows of a table; blank lines make none. A field in double quotes may hold separators, line breaks and
/// doubled quotes. Where a quote is not closed, the table ends there and `openQuote` is its line, 0
/// otherwise.
struct CsvTable {
  std::vector<CsvRow> rows;
  int openQuote = 0;
};
CsvTable parseCsv(std::string_view text, char separator);

/// The separator of a table by its first line: comma, semicolon or tab, the one that occurs most.
char separatorOf(std::string_view text);

/// A field as it stands in a table divided by commas.
std::string csvField(const std::string& text);

}  // namespace vellumark::app
