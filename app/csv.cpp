#include "csv.h"

#include <algorithm>

#include "base/text.h"

namespace vellumark::app {

CsvTable parseCsv(std::string_view text, char separator) {
  CsvTable table;
  CsvRow row{1, {}};
  std::string field;
  int line = 1, quoteLine = 0;
  bool quoted = false, wasQuoted = false;
  const auto endField = [&] {
    row.fields.push_back(wasQuoted ? field : base::trim(field));
    field.clear();
    wasQuoted = false;
  };
  const auto endRow = [&] {
    endField();
    const bool blank = std::ranges::all_of(row.fields, [](const std::string& each) { return each.empty(); });
    if (!blank) table.rows.push_back(std::move(row));
    row = {line, {}};
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\n') ++line;
    if (quoted) {
      if (c != '"') {
        field += c;
      } else if (i + 1 < text.size() && text[i + 1] == '"') {
        field += text[++i];
      } else {
        quoted = false;
      }
    } else if (c == '"' && base::trim(field).empty() && !wasQuoted) {
      field.clear();
      quoted = wasQuoted = true;
      quoteLine = line;
    } else if (c == separator) {
      endField();
    } else if (c == '\n') {
      endRow();
    } else if (c != '\r' && !(wasQuoted && c == ' ')) {
      field += c;
    }
  }
  if (quoted) {
    table.openQuote = quoteLine;
    return table;
  }
  if (!field.empty() || wasQuoted || !row.fields.empty()) endRow();
  return table;
}

char separatorOf(std::string_view text) {
  const std::string_view first = text.substr(0, text.find('\n'));
  char best = ',';
  for (const char separator : {';', '\t'}) {
    if (std::ranges::count(first, separator) > std::ranges::count(first, best)) best = separator;
  }
  return best;
}

std::string csvField(const std::string& text) {
  const bool padded = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (!padded && text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return "\"" + base::replaceAll(text, "\"", "\"\"") + "\"";
}

}  // namespace vellumark::app
