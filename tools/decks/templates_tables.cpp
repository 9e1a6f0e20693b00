// Elements that are tables.

#include <algorithm>
#include <array>
#include <numeric>

#include "decks/template_canvas.h"

namespace vellumark::samples {
namespace {

using decks::ShapeBuilder;
using decks::TextStyle;
using Rows = std::vector<std::vector<std::string>>;

double sum(const std::vector<double>& lengths) {
  return std::accumulate(lengths.begin(), lengths.end(), 0.0);
}

/// The colour of the lines that set off heads and totals.
const std::string& heavy(const Look& look) { return look.boxes ? look.strong : look.ink; }

/// A table below the title with a header row and thin rules between the others.
ShapeBuilder ruledTable(const Canvas& c, const Rows& rows, const std::vector<double>& columns,
                        const std::vector<double>& heights) {
  const auto table = c.tree.table(Page::left, Page::top, sum(columns), sum(heights), rows)
                         .columnWidths(columns)
                         .rowHeights(heights)
                         .insets(10, 4, 10, 4)
                         .rule(-1, c.look.rule);
  return table.rule(0, heavy(c.look), 1.5);
}

void withTotal(const Canvas& c) {
  Rows rows{{"€ million", "Year 1", "Year 2", "Year 3", "Change", "Comment"},
            {"First business", "42.5", "45.1", "48.0", "+6.4 %", "Prices carry the growth"},
            {"Second business", "31.2", "33.0", "34.1", "+3.3 %", "In line with the market"},
            {"Third business", "18.4", "17.6", "18.9", "+7.4 %", "Back after a weak year"},
            {"Fourth business", "12.0", "12.8", "12.3", "−3.9 %", "Two customers lost"},
            {"Fifth business", "6.1", "7.0", "8.2", "+17.1 %", "Small, but on its way"},
            {"Total", "110.2", "115.5", "121.5", "+5.2 %", "On plan"}};
  const int total = static_cast<int>(rows.size()) - 1;
  std::vector<double> columns{196, 104, 104, 104, 116};
  if (c.page.wide()) {
    columns = {192, 100, 100, 100, 112, 260};
  } else {
    for (auto& row : rows) row.pop_back();
  }
  const Look& look = c.look;
  const std::string header = look.boxes ? look.strong : "", onHeader = look.boxes ? look.onStrong : look.ink;
  const auto table = ruledTable(c, rows, columns, {42, 46, 46, 46, 46, 46, 48})
                         .named("Table")
                         .tableStyle("", {"firstRow", "lastRow"});
  for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
    const bool comment = column == 5;
    const std::string align = column == 0 || comment ? "l" : "r";
    TextStyle text = c.body(comment ? 14 : 16);
    text.align = align;
    table.cell(-1, column, text)
        .cell(0, column, c.bold(14, onHeader, align), header)
        .cell(total, column, c.bold(text.size, look.title, align), look.soft);
  }
  table.rule(total - 1, heavy(look), 1).rule(total, heavy(look), 1.5);
  if (!look.boxes) table.border(0, -1, "T", heavy(look), 1.5);
  if (c.page.wide()) table.cellInsets(-1, 5, 32, 4, 10, 4);
}

std::vector<double> optionColumns(const Page& page) {
  const double criteria = page.wide() ? 216 : 144, option = (page.span() - criteria) / 3;
  return {criteria, option, option, option};
}

/// Heads the columns of three options; the middle one is recommended.
void headOptions(const Canvas& c, const ShapeBuilder& table) {
  table.cell(0, -1, c.bold(16, c.look.onHead, "ctr"), c.look.head)
      .cell(0, 0, c.bold(14, c.look.quiet))
      .cell(0, 2, c.bold(16, c.look.onStrong, "ctr"), c.look.strong);
  table.border(-1, -1, "LR", "bg1", 4).border(-1, 0, "L", "").border(-1, 3, "R", "");
}

void comparison(const Canvas& c) {
  const Rows rows{{"Criterion", "Option A", "Option B", "Option C"},
                  {"What it is", "Go on as today", "Change step by step", "Start afresh"},
                  {"Benefit", "€ 1 m a year", "€ 4 m a year", "€ 5 m a year"},
                  {"Cost", "None", "€ 2 m", "€ 9 m"},
                  {"Time", "At once", "12 months", "30 months"},
                  {"Risk", "Low", "Low", "High"},
                  {"Our view", "Fallback", "Recommended", "Not pursued"}};
  const int last = static_cast<int>(rows.size()) - 1;
  const auto table = ruledTable(c, rows, optionColumns(c.page), {44, 48, 48, 48, 48, 48, 50})
                         .named("Comparison")
                         .tableStyle("", {"firstRow", "firstCol", "lastRow"});
  const double size = c.detailSize();
  TextStyle middle = c.body(size);
  middle.align = "ctr";
  table.cell(-1, -1, middle)
      .cell(-1, 0, c.bold(size, c.look.title))
      .cell(-1, 2, middle, c.look.soft)
      .cell(last, -1, c.bold(size, c.look.title, "ctr"))
      .cell(last, 0, c.bold(size, c.look.title))
      .cell(last, 2, c.bold(size, c.look.onStrong, "ctr"), c.look.strong)
      .rule(last - 1, heavy(c.look), 1)
      .rule(last, heavy(c.look), 1.5);
  headOptions(c, table);
}

/// A Harvey ball with so many quarters filled, about a middle.
void ball(const Canvas& c, double x, double y, double size, int quarters, const std::string& name) {
  const auto group = c.tree.group(x - size / 2, y - size / 2, size, size).named(name);
  const Canvas inner = c.inside(group);
  const auto circle = [&](const std::string& preset, const std::string& fill) {
    return inner.filled(preset, x - size / 2, y - size / 2, size, size, fill);
  };
  const std::string& color = c.look.boxes ? c.look.head : c.look.strong;
  circle("ellipse", quarters == 4 ? color : "bg1").named("Ball").line(color, 1.25);
  if (quarters == 0 || quarters == 4) return;
  constexpr int quarter = 5400000;
  circle("pie", color).adjust({3 * quarter, (3 + quarters) % 4 * quarter}).named("Filled part");
}

void ratings(const Canvas& c) {
  static constexpr std::array<std::array<int, 3>, 5> quarters{
      {{1, 4, 3}, {3, 3, 1}, {2, 3, 0}, {2, 2, 0}, {2, 3, 1}}};
  const Rows rows{{"Criterion", "Option A", "Option B", "Option C"},
                  {"First criterion", "", "", ""},
                  {"Second criterion", "", "", ""},
                  {"Third criterion", "", "", ""},
                  {"Fourth criterion", "", "", ""},
                  {"Overall", "", "", ""}};
  const std::vector<double> columns = optionColumns(c.page), heights{44, 50, 50, 50, 50, 54};
  const auto table = ruledTable(c, rows, columns, heights)
                         .named("Ratings")
                         .tableStyle("", {"firstRow", "firstCol", "lastRow"});
  table.cell(-1, -1, c.body(c.detailSize())).cell(-1, 2, c.body(c.detailSize()), c.look.soft);
  table.cell(5, 0, c.bold(c.detailSize(), c.look.title))
      .rule(4, heavy(c.look), 1)
      .rule(5, heavy(c.look), 1.5);
  headOptions(c, table);
  double y = Page::top + heights[0];
  for (int row = 1; row <= 5; ++row) {
    double x = Page::left + columns[0];
    for (int option = 0; option < 3; ++option) {
      ball(c, x + columns[1] / 2, y + heights[row] / 2, 26, quarters[row - 1][option],
           "Rating " + std::to_string(row) + std::string(1, static_cast<char>('A' + option)));
      x += columns[1];
    }
    y += heights[row];
  }
  // The legend below the text of the first column: what the balls say.
  static const std::array<const char*, 5> meanings{"not met", "hardly", "half", "mostly", "fully met"};
  const double step = 86, middle = y + 24;
  double x = Page::left + 10;
  for (int i = 0; i < 5; ++i) {
    ball(c, x + 7, middle, 14, i, "Legend " + std::to_string(i));
    c.plain(x + 20, middle - 9, step - 22, 18, "ctr")
        .named("Legend text " + std::to_string(i))
        .text(meanings[i], c.text(12, c.look.quiet));
    x += step;
  }
}

}  // namespace

const std::vector<Element> tableElements{withTotal, comparison, ratings};

}  // namespace vellumark::samples
