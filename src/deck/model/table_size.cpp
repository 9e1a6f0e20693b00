#include "deck/model/table_size.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "deck/model/connections.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/text_box.h"
#include "deck/model/text_layout.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// Points between the lines of a text of one point's size, as rows of tables count them.
constexpr double rowLineSpacing = 1.2;

double length(xml_node line, const char* attribute) {
  return static_cast<double>(wholeNumber(line.attribute(attribute), 0, longestTableLine));
}
void setLength(xml_node line, const char* attribute, double emu) {
  setAttribute(line, attribute, static_cast<long long>(std::llround(emu)));
}

/// Multiplies columns or rows; what is lost by rounding doesn't add up.
void stretch(xml_node parent, const char* name, const char* attribute, double factor) {
  double before = 0, after = 0;
  for (xml_node line : parent.children(name)) {
    before += length(line, attribute);
    const double end = std::round(before * factor);
    setLength(line, attribute, end - after);
    after = end;
  }
}

/// EMU that a row lacks for the text of a cell; text that runs upwards has no say.
double lacking(const ShapeKey& cell) {
  if (isUpright(cell)) return 0;
  const double lines = TextLayout(cell).height() / lineSpacing * rowLineSpacing * emuPerPoint;
  const auto margins = static_cast<double>(boxMargin(cell, BoxProperty::marginTop) +
                                           boxMargin(cell, BoxProperty::marginBottom));
  return std::round(lines + margins - cellArea(cell).height * emuPerPoint);
}

/// The growth of the row at which a cell ends; 0 where its text has room.
double grow(const ShapeKey& cell) {
  const double growth = lacking(cell);
  if (growth <= 0) return 0;
  xml_node row = cell.node.parent();
  for (std::size_t rows = cellRows(cell.node); rows > 1 && row.next_sibling("a:tr"); --rows) {
    row = row.next_sibling("a:tr");
  }
  setLength(row, "h", length(row, "h") + growth);
  return growth;
}

void growFrame(const ShapeKey& table, double growth) {
  if (growth <= 0) return;
  ShapeFrame frame = slideFrame(table);
  frame.height += growth;
  moveShape(table, frame);
}

}  // namespace

void stretchTable(const ShapeKey& table, const ShapeFrame& before) {
  const ShapeFrame frame = slideFrame(table);
  if (frame.width == before.width && frame.height == before.height) return;
  xml_node lines = tableElement(table.node);
  if (before.width > 0 && frame.width != before.width) {
    stretch(lines.child("a:tblGrid"), "a:gridCol", "w", frame.width / before.width);
  }
  if (before.height > 0 && frame.height != before.height) {
    stretch(lines, "a:tr", "h", frame.height / before.height);
  }
  // A table that got neither narrower nor lower has room for its text.
  if (frame.width >= before.width && frame.height >= before.height) return;

  // Cells that reach over several rows come last: they only want what their rows don't have by then.
  std::vector<xml_node> cells;
  for (const xml_node row : lines.children("a:tr")) {
    for (const xml_node cell : row.children("a:tc")) {
      if (!isMerged(cell)) cells.push_back(cell);
    }
  }
  std::ranges::stable_sort(cells, {}, [](xml_node cell) { return cellRows(cell) > 1; });
  double growth = 0;
  for (const xml_node cell : cells) growth += grow({table.sheet, cell});
  growFrame(table, growth);
}

void fitRow(const ShapeKey& cell) { growFrame({cell.sheet, tableOf(cell.node)}, grow(cell)); }

}  // namespace vellumark::deck
