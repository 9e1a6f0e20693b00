#pragma once
// What the program writes: lines that are safe on a terminal whatever a deck holds, and tables that line up.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::app {

/// Columns that a text takes on a terminal: two for a wide East Asian character, none for a combining one.
std::size_t displayWidth(std::string_view text);

/// The text on one line without control characters, so that no deck can send commands to the terminal. Ends
/// of lines and tabs become blanks, other control characters and malformed bytes U+FFFD.
std::string oneLine(std::string_view text);

/// The text on one line, cut to `width` columns with an ellipsis where it is longer.
std::string excerpt(std::string_view text, std::size_t width);

/// A length in points with at most two decimals: "12", "106.07".
std::string pointsText(double points);

/// A table with a heading and columns as wide as their widest cell.
class Table {
 public:
  enum class Align { left, right };
  struct Column {
    std::string heading;
    Align align = Align::left;
  };

  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}
  /// One cell for each column, shown on one line. Missing cells are empty.
  void row(std::vector<std::string> cells);
  bool empty() const { return rows_.empty(); }
  /// The whole table, each line behind `indent`.
  std::string text(std::string_view indent = {}) const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

/// Writes to standard output and standard error. A write that fails (a full disk, a closed pipe) is a
/// Failure.
void print(std::string_view text);
void tell(std::string_view text);
/// One line on standard error, "vellumark: " before it.
void tellFailure(std::string_view line);

}  // namespace vellumark::app
