#include <gtest/gtest.h>

#include "host/picture_gdi.h"

namespace vellumark::host {
namespace {

TEST(FitRect, KeepsProportionsInTheMiddle) {
  const struct {
    std::int32_t width, height;
    bool enlarge;
    std::int32_t left, top, fittedWidth, fittedHeight;
  } cases[] = {
      {100, 50, false, 30, 35, 100, 50},  // smaller: as it is
      {101, 51, false, 29, 34, 101, 51},  // the odd pixel goes to the right and below
      {160, 120, false, 0, 0, 160, 120},  // as large
      {320, 120, false, 0, 30, 160, 60},  // too wide
      {100, 240, false, 55, 0, 50, 120},  // too high
      {320, 239, false, 0, 0, 160, 120},  // 119.5 goes to the even neighbour
      {320, 241, false, 0, 0, 159, 120},  // 159.3
      {5000, 3, false, 0, 59, 160, 1},    // never below 1
      {2, 5000, false, 79, 0, 1, 120},   {16, 12, true, 0, 0, 160, 120},  // enlarged
      {1, 1, true, 20, 0, 120, 120},
  };
  for (const auto& c : cases) {
    std::int32_t left = -1, top = -1, width = -1, height = -1;
    fitRect(c.width, c.height, 160, 120, left, top, width, height, c.enlarge);
    EXPECT_EQ(left, c.left) << c.width << " x " << c.height;
    EXPECT_EQ(top, c.top) << c.width << " x " << c.height;
    EXPECT_EQ(width, c.fittedWidth) << c.width << " x " << c.height;
    EXPECT_EQ(height, c.fittedHeight) << c.width << " x " << c.height;
  }
}

}  // namespace
}  // namespace vellumark::host
