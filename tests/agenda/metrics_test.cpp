// How rows are fitted into the frame.

#include <gtest/gtest.h>

#include "agenda/agenda_metrics.h"
#include "base/error.h"

namespace vellumark::agenda {
namespace {

/// A frame of 640 by 360 points with a font of 20 points.
AgendaMetrics frame(int items, bool canon = false) {
  AgendaMetrics metrics;
  metrics.visibleItemCount = static_cast<std::int16_t>(items);
  metrics.frameWidth = 640;
  metrics.frameHeight = 360;
  metrics.rowFontSize = 20;
  metrics.boxFontRatio = 1.4;
  metrics.boxBarSpacing = 6;
  metrics.goldenCanon = canon;
  metrics.takeSizesFromFont();
  return metrics;
}

TEST(AgendaMetrics, RowsThatFitKeepTheirSize) {
  AgendaMetrics metrics = frame(6, true);
  metrics.fit({.textWidth = 300, .responsibleWidth = 100, .showResponsible = true});
  EXPECT_DOUBLE_EQ(metrics.rowFontSize, 20);
  EXPECT_DOUBLE_EQ(metrics.boxSize, 28);
  EXPECT_DOUBLE_EQ(metrics.textMargin, 8);
  EXPECT_DOUBLE_EQ(metrics.columnGap, 20);
  EXPECT_DOUBLE_EQ(metrics.rowGap, 28);
  EXPECT_NEAR(metrics.canonOffset, 17.333333, 1e-6);
  EXPECT_DOUBLE_EQ(metrics.firstTabPosition, 447.5);
  EXPECT_EQ(metrics.hasRightTab, 0);
  metrics.frameTop = 100;
  EXPECT_NEAR(metrics.rowTop(3), 229.333333, 1e-6);
}

TEST(AgendaMetrics, WideTextsReduceTheFont) {
  AgendaMetrics metrics = frame(14);
  metrics.fit({.textWidth = 500,
               .responsibleWidth = 150,
               .timeWidth = 120,
               .showResponsible = true,
               .showTime = true});
  EXPECT_DOUBLE_EQ(metrics.rowFontSize, 14);
  EXPECT_DOUBLE_EQ(metrics.boxSize, 19.6);
  EXPECT_DOUBLE_EQ(metrics.textMargin, 5.6);
  EXPECT_DOUBLE_EQ(metrics.columnGap, 14);
  EXPECT_NEAR(metrics.rowGap, 6.584615, 1e-6) << "the gap shrinks from the new height of a row";
  EXPECT_NEAR(metrics.firstTabPosition, 371.142857, 1e-6);
  EXPECT_EQ(metrics.hasRightTab, 1.0);
  EXPECT_EQ(metrics.canonOffset, 0);
}

TEST(AgendaMetrics, ManyRowsReduceTheFontAgain) {
  AgendaMetrics metrics = frame(20, true);
  metrics.fit({.textWidth = 300, .pageWidth = 40, .showPage = true});
  EXPECT_DOUBLE_EQ(metrics.rowFontSize, 10);  // 360 / (19 x 0.2 x 28 + 20 x 28) x 20 = 10.8
  EXPECT_DOUBLE_EQ(metrics.boxSize, 14);
  EXPECT_NEAR(metrics.rowGap, (360 - 20 * 14) / 19.0, 1e-9) << "rows fill the frame";
  EXPECT_EQ(metrics.canonOffset, 0);
  EXPECT_EQ(metrics.firstTabPosition, 0);
  EXPECT_EQ(metrics.hasRightTab, 1.0);
}

TEST(AgendaMetrics, Edges) {
  AgendaMetrics none = frame(0);
  none.fit({.textWidth = 34});
  EXPECT_DOUBLE_EQ(none.rowFontSize, 20);
  EXPECT_THROW(none.fit({.showResponsible = true}), base::Error) << "no text at all has no share";

  AgendaMetrics fraction = frame(1);
  fraction.rowFontSize = 20.5;
  fraction.takeSizesFromFont();
  fraction.fit({.textWidth = 100});
  EXPECT_DOUBLE_EQ(fraction.rowFontSize, 20.5) << "only a reduction gives whole points";

  AgendaMetrics single = frame(1);
  single.frameHeight = 20;
  EXPECT_THROW(single.fit({.textWidth = 100}), base::Error) << "one row that is higher than the frame";

  AgendaMetrics both = frame(2);
  both.fit({.textWidth = 100, .timeWidth = 100, .pageWidth = 30, .showTime = true, .showPage = true});
  EXPECT_EQ(both.hasRightTab, 1.0) << "one tab for both columns";
}

}  // namespace
}  // namespace vellumark::agenda
