#include "deck/drawing/table_drawing.h"

#include <vector>

#include "deck/drawing/line_drawing.h"
#include "deck/drawing/paints.h"
#include "deck/drawing/text_drawing.h"
#include "deck/model/color.h"
#include "deck/model/shape_node.h"
#include "deck/model/shape_style.h"
#include "deck/model/table_cell.h"
#include "deck/model/table_styles.h"
#include "deck/model/theme.h"

namespace vellumark::deck {
namespace {

using platform::Affine;
using platform::Drawing;
using pugi::xml_node;

/// A side of a cell: the name of its line in the cell, and of its border in a style at the table's edge and
/// between cells.
struct Side {
  const char* own;
  const char* outer;
  const char* inner;
};
constexpr Side left{"a:lnL", "a:left", "a:insideV"};
constexpr Side right{"a:lnR", "a:right", "a:insideV"};
constexpr Side top{"a:lnT", "a:top", "a:insideH"};
constexpr Side bottom{"a:lnB", "a:bottom", "a:insideH"};

class TableDrawer {
 public:
  TableDrawer(const ShapeKey& table, const Affine& turn, Drawing& drawing)
      : table_(table), turn_(turn), drawing_(drawing) {}

  void draw() {
    std::vector<ShapeKey> cells;
    for (const xml_node row : tableElement(table_.node).children("a:tr")) {
      for (const xml_node cell : row.children("a:tc")) {
        if (!isMerged(cell)) cells.push_back({table_.sheet, cell});
      }
    }
    for (const ShapeKey& cell : cells) drawFill(cell);
    for (const ShapeKey& cell : cells) drawBorders(cell);
    for (const ShapeKey& cell : cells) drawText(cell, turn_, drawing_);
  }

 private:
  const Sheet& sheet() const { return table_.sheet; }

  void drawFill(const ShapeKey& cell) {
    const TextArea area = cellArea(cell);
    const PaintArea paint{area.width, area.height, turn_.after(Affine::moved(area.left, area.top))};
    std::optional<platform::Brush> brush;
    if (const xml_node own = fillElement(cell.node.child("a:tcPr"))) {
      brush = brushOf(sheet(), own, paint);
    } else {
      for (const xml_node style : tableCellStyles(cell)) {
        if (const xml_node fill = fillElement(style.child("a:fill"))) {
          brush = brushOf(sheet(), fill, paint);
          break;
        }
      }
    }
    if (!brush) return;
    platform::Path path, placed;
    path.rectangle(area.left, area.top, area.width, area.height);
    placed.append(path, turn_);
    drawing_.commands.emplace_back(Drawing::Fill{.path = std::move(placed), .brush = std::move(*brush)});
  }

  /// The line of a side: of the cell itself, or else of the table's style.
  std::optional<Line> lineOfSide(const ShapeKey& cell, const Side& side, bool atEdge) const {
    if (const xml_node own = cell.node.child("a:tcPr").child(side.own); fillElement(own)) {
      return lineOf(sheet(), own);
    }
    for (const xml_node style : tableCellStyles(cell)) {
      const xml_node borders = style.child("a:tcBdr");
      // The borders of one row or cell are its own edges; those of the whole table lie between its cells.
      const bool isWhole = localName(style.parent()) == "wholeTbl";
      const xml_node border = borders.child(isWhole && !atEdge ? side.inner : side.outer);
      if (const xml_node line = border.child("a:ln"); fillElement(line)) return lineOf(sheet(), line);
      if (const xml_node reference = border.child("a:lnRef")) {
        return lineOf(sheet(), themeLine(sheet(), themeIndex(reference)), colorElement(reference));
      }
    }
    return std::nullopt;
  }

  void drawSide(const ShapeKey& cell, const Side& side, bool atEdge, double x1, double y1, double x2,
                double y2) {
    const auto line = lineOfSide(cell, side, atEdge);
    if (!line) return;
    platform::Path path, placed;
    path.moveTo(x1, y1);
    path.lineTo(x2, y2);
    placed.append(path, turn_);
    drawLine(placed, *line, drawing_);
  }

  void drawBorders(const ShapeKey& cell) {
    const TextArea area = cellArea(cell);
    const CellPlace place = cellPlace(cell.node);
    const double x1 = area.left, y1 = area.top, x2 = area.left + area.width, y2 = area.top + area.height;
    const bool lastColumn = place.column + cellColumns(cell.node) >= tableColumns(table_.node);
    const bool lastRow = place.row + cellRows(cell.node) >= tableRows(table_.node);
    drawSide(cell, left, place.column == 0, x1, y1, x1, y2);
    drawSide(cell, right, lastColumn, x2, y1, x2, y2);
    drawSide(cell, top, place.row == 0, x1, y1, x2, y1);
    drawSide(cell, bottom, lastRow, x1, y2, x2, y2);
  }

  const ShapeKey& table_;
  const Affine& turn_;
  Drawing& drawing_;
};

}  // namespace

void drawTable(const ShapeKey& table, const Affine& turn, Drawing& drawing) {
  TableDrawer(table, turn, drawing).draw();
}

}  // namespace vellumark::deck
