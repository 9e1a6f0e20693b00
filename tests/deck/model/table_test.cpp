// Tables: cells as shapes, sizes, and what their styles say of text.

#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

class TableTest : public ShapeTest {
 protected:
  host::Shape cell(int row, int column) { return shape("T").Table().Cell(row, column).Shape(); }
  host::TextRange text(int row, int column) { return cell(row, column).TextFrame().TextRange(); }
};

TEST_F(TableTest, CellsAreShapesWithText) {
  deck.slide().table(50, 60, 200, 80, {{"a", "b"}, {"c", "d"}}).named("T");
  open();
  const host::Table table = shape("T").Table();
  EXPECT_EQ(table.Rows().Count(), 2);
  EXPECT_EQ(table.Columns().Count(), 2);
  const host::Shape cell = table.Cell(2, 1).Shape();
  EXPECT_EQ(cell.TextFrame().TextRange().Text(), "c");
  cell.TextFrame().TextRange().Text("new\rtext");
  cell.TextFrame().TextRange().Font().Bold(true);
  cell.TextFrame().MarginLeft(20);
  cell.TextFrame().VerticalAnchor(host::msoAnchorBottom);
  EXPECT_EQ(cell.Left(), 50);
  EXPECT_EQ(cell.Top(), 100);
  EXPECT_EQ(cell.Width(), 100);
  reopen();
  const host::Shape again = shape("T").Table().Cell(2, 1).Shape();
  EXPECT_EQ(again.TextFrame().TextRange().Text(), "new\rtext");
  EXPECT_EQ(again.TextFrame().TextRange().Font().Bold(), host::msoTrue);
  EXPECT_EQ(again.TextFrame().MarginLeft(), 20);
  EXPECT_EQ(again.TextFrame().VerticalAnchor(), host::msoAnchorBottom);
  EXPECT_EQ(shape("T").Table().Cell(1, 1).Shape().TextFrame().MarginLeft(), 7.2F);

  EXPECT_FALSE(shape("T").Table().Cell(1, 2).Selected());
  const host::Cell cells[] = {shape("T").Table().Cell(1, 2), shape("T").Table().Cell(2, 2)};
  host->selectCells(cells);
  EXPECT_TRUE(shape("T").Table().Cell(1, 2).Selected());
  EXPECT_TRUE(shape("T").Table().Cell(2, 2).Selected());
  EXPECT_FALSE(shape("T").Table().Cell(1, 1).Selected());
  EXPECT_EQ(selection().Type(), host::ppSelectionShapes);
  EXPECT_EQ(errorOf([&] { shape("T").Table().Cell(3, 1); }), base::errors::invalidRequest);
}

TEST_F(TableTest, ColumnsAndRowsFollowTheFrame) {
  deck.slide()
      .table(50, 60, 200, 120, {{"a", "b"}, {"c", "d"}})
      .named("T")
      .columnWidths({50, 150})
      .rowHeights({40, 80});
  open();
  shape("T").Width(301);
  shape("T").Height(180);
  reopen();
  EXPECT_EQ(shape("T").Width(), 301);
  EXPECT_EQ(cell(1, 1).Width(), 75.25F);
  EXPECT_EQ(cell(1, 2).Left(), 125.25F);
  EXPECT_EQ(cell(1, 2).Width(), 225.75F);
  EXPECT_EQ(cell(1, 1).Height(), 60);
  EXPECT_EQ(cell(2, 1).Height(), 120);
  shape("T").Left(10);
  EXPECT_EQ(cell(2, 2).Left(), 85.25F);
  EXPECT_EQ(cell(2, 2).Top(), 120);

  // A line of 18 points takes 21.6, the margins 7.2.
  shape("T").Height(30);
  EXPECT_NEAR(cell(1, 1).Height(), 28.8, 0.001);
  EXPECT_NEAR(cell(2, 1).Height(), 28.8, 0.001);
  EXPECT_NEAR(shape("T").Height(), 57.6, 0.001);
  text(1, 1).Text("several words");
  const float before = cell(1, 1).Height();
  EXPECT_GT(before, 50);
  shape("T").Width(600);
  EXPECT_EQ(cell(1, 1).Height(), before) << "rows stay where text needs less";
}

TEST_F(TableTest, RowsGrowWithTheirText) {
  deck.slide().table(50, 60, 400, 60, {{"a", "b"}, {"c", "d"}}).named("T");
  open();
  text(1, 2).Text("1\r2\r3");
  EXPECT_NEAR(cell(1, 1).Height(), 3 * 21.6 + 7.2, 0.001);
  EXPECT_NEAR(cell(2, 1).Top(), 60 + 72, 0.001);
  EXPECT_EQ(cell(2, 1).Height(), 30);
  EXPECT_NEAR(shape("T").Height(), 102, 0.001);
  text(1, 1).Font().Size(36);
  EXPECT_NEAR(cell(1, 1).Height(), 72, 0.001) << "there is room";
  cell(2, 2).TextFrame().MarginTop(20);
  EXPECT_NEAR(cell(2, 1).Height(), 20 + 21.6 + 3.6, 0.001);
  text(1, 2).Text("1");
  EXPECT_NEAR(cell(1, 1).Height(), 72, 0.001);
}

TEST_F(TableTest, TheTextOfCellsOverSeveralRowsGrowsTheLastOfThem) {
  const auto body = [](const char* attributes) {
    return std::string("<a:tc ") + attributes +
           "><a:txBody><a:bodyPr/><a:lstStyle/><a:p/></a:txBody><a:tcPr/></a:tc>";
  };
  const auto row = [](const std::string& cells) { return "<a:tr h=\"381000\">" + cells + "</a:tr>"; };
  deck.slide().xml(
      R"(<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="9" name="T"/><p:cNvGraphicFramePr/><p:nvPr/>)"
      R"(</p:nvGraphicFramePr><p:xfrm><a:off x="0" y="0"/><a:ext cx="2540000" cy="1143000"/></p:xfrm>)"
      R"(<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/table"><a:tbl>)"
      R"(<a:tblPr/><a:tblGrid><a:gridCol w="1270000"/><a:gridCol w="1270000"/></a:tblGrid>)" +
      row(body(R"(rowSpan="2")") + body("")) + row(body(R"(vMerge="1")") + body("")) +
      row(body("") + body("")) + "</a:tbl></a:graphicData></a:graphic></p:graphicFrame>");
  open();
  text(1, 1).Text("1\r2\r3\r4");
  EXPECT_NEAR(cell(1, 1).Height(), 4 * 21.6 + 7.2, 0.001);
  EXPECT_EQ(cell(1, 2).Height(), 30);
  EXPECT_NEAR(cell(2, 2).Height(), 4 * 21.6 + 7.2 - 30, 0.001);
  EXPECT_EQ(cell(3, 2).Height(), 30);
  EXPECT_NEAR(shape("T").Height(), 4 * 21.6 + 7.2 + 30, 0.001);
}

TEST_F(TableTest, TextTakesItsLookFromTheStyleOfTheTable) {
  const std::string id = "{11111111-2222-3333-4444-555555555555}";
  deck.tableStyle(
      id, R"(<a:wholeTbl><a:tcTxStyle><a:fontRef idx="major"/><a:srgbClr val="102030"/></a:tcTxStyle>)"
          R"(</a:wholeTbl><a:band2H><a:tcTxStyle i="on"/></a:band2H>)"
          R"(<a:firstCol><a:tcTxStyle b="on" i="off"/></a:firstCol>)"
          R"(<a:firstRow><a:tcTxStyle b="on"><a:srgbClr val="FFFFFF"/></a:tcTxStyle></a:firstRow>)"
          R"(<a:nwCell><a:tcTxStyle b="off"/></a:nwCell>)");
  Theme theme;
  theme.headings = "Verdana";
  deck.master().theme(theme);
  deck.slide()
      .table(0, 0, 200, 80, {{"a", "b"}, {"c", "d"}, {"e", "f"}})
      .named("T")
      .tableStyle(id, {"firstRow", "firstCol", "bandRow"});
  open();
  const auto look = [&](int row, int column) {
    const host::Font font = text(row, column).Font();
    return std::string(font.Bold() ? "b" : "-") + (font.Italic() ? "i" : "-");
  };
  EXPECT_EQ(look(1, 1) + look(1, 2), "--b-");
  EXPECT_EQ(look(2, 1) + look(2, 2), "b---");
  EXPECT_EQ(look(3, 1) + look(3, 2), "b--i");
  EXPECT_EQ(text(1, 2).Font().Color().RGB(), 0xFFFFFF);
  EXPECT_EQ(text(3, 2).Font().Color().RGB(), 0x302010);
  EXPECT_EQ(text(3, 2).Font().Name(), "Verdana");
  text(2, 1).Font().Bold(false);
  text(2, 1).Font().Color().RGB(0x0000FF);
  EXPECT_EQ(look(2, 1), "--");
  EXPECT_EQ(text(2, 1).Font().Color().RGB(), 0x0000FF);
}

}  // namespace
}  // namespace vellumark::test
