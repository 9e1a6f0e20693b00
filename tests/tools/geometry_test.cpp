// The visual boxes of turned shapes, on shapes of plain values.

#include <gtest/gtest.h>

#include <memory>

#include "support/failures.h"
#include "support/fake_host.h"
#include "support/messages.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using Texts = std::vector<std::string>;

struct Frame {
  float left, top, width, height;
};

class Geometry : public testing::Test {
 protected:
  static host::Shape shape(Frame frame, float rotation) {
    return host::Shape(std::make_shared<test::FakeObject>("Shape", std::map<std::string, host::Value>{
                                                                       {"Left", frame.left},
                                                                       {"Top", frame.top},
                                                                       {"Width", frame.width},
                                                                       {"Height", frame.height},
                                                                       {"Rotation", rotation},
                                                                   }));
  }
  static void expectFrame(const host::Shape& shape, Frame frame) {
    EXPECT_FLOAT_EQ(shape.Left(), frame.left);
    EXPECT_FLOAT_EQ(shape.Top(), frame.top);
    EXPECT_FLOAT_EQ(shape.Width(), frame.width);
    EXPECT_FLOAT_EQ(shape.Height(), frame.height);
  }

  TrimlineTools tools;
  test::Messages messages;
  test::Failures failures;
};

constexpr Frame example{10, 20, 100, 50};

TEST_F(Geometry, VisualBoxes) {
  struct Case {
    float rotation;
    double left, top, width, height;
  };
  const Case cases[] = {
      {0, 10, 20, 100, 50},
      {90, 35, -5, 50, 100},
      {45, 6.967, -8.033, 106.066, 106.066},
      {135, 42.322, 27.322, 35.355, 35.355},
      {180, 10, 20, 100, 50},
      {225, 6.967, -8.033, 106.066, 106.066},
      {270, 35, -5, 50, 100},
      {-90, 35, -5, 50, 100},
      {315, 42.322, 27.322, 35.355, 35.355},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rotation);
    const host::Shape s = shape(example, c.rotation);
    EXPECT_NEAR(tools.getLeft(s), c.left, 5e-4);
    EXPECT_NEAR(tools.getTop(s), c.top, 5e-4);
    EXPECT_NEAR(tools.getWidth(s), c.width, 5e-4);
    EXPECT_NEAR(tools.getHeight(s), c.height, 5e-4);
  }
}

// The figures keep the noise of pi with 15 digits: nothing is rounded, and nothing is exact but no turn at
// all.
TEST_F(Geometry, NoiseStays) {
  EXPECT_EQ(tools.getWidth(shape(example, 0)), 100);
  const double quarter = tools.getWidth(shape(example, 90));
  EXPECT_NE(quarter, 50);
  EXPECT_NEAR(quarter, 50, 1e-12);
  const double vanished = tools.getWidth(shape({0, 0, 100, 100}, 135));
  EXPECT_GT(vanished, 1e-13);
  EXPECT_LT(vanished, 1e-12);
  EXPECT_NEAR(tools.getWidth(shape({0, 0, 100, 100}, 45)), 141.421, 5e-4);
}

TEST_F(Geometry, PlacingWhereItIsLeavesItThere) {
  for (const float rotation : {0.F, 30.F, 90.F, 135.F, 270.F, 301.5F}) {
    const host::Shape s = shape(example, rotation);
    tools.setLeft(s, tools.getLeft(s));
    tools.setTop(s, tools.getTop(s));
    expectFrame(s, example);
    tools.setLeft(s, 200);
    tools.setTop(s, 300);
    EXPECT_NEAR(tools.getLeft(s), 200, 1e-4) << rotation;
    EXPECT_NEAR(tools.getTop(s), 300, 1e-4) << rotation;
  }
}

TEST_F(Geometry, SizesAtRightAngles) {
  struct Case {
    float rotation;
    Frame afterWidth, afterHeight;  // of 80
  };
  const Case cases[] = {
      {0, {10, 20, 80, 50}, {10, 20, 100, 80}},    {90, {40, 20, 100, 80}, {10, 50, 80, 50}},
      {180, {-10, 20, 80, 50}, {10, 50, 100, 80}}, {270, {-10, 20, 100, 80}, {10, 0, 80, 50}},
      {-90, {-10, 20, 100, 80}, {10, 0, 80, 50}},  {450, {40, 20, 100, 80}, {10, 50, 80, 50}},
      {360, {10, 20, 80, 50}, {10, 20, 100, 80}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.rotation);
    const host::Shape wide = shape(example, c.rotation);
    tools.setWidth(wide, 80);
    expectFrame(wide, c.afterWidth);
    const host::Shape high = shape(example, c.rotation);
    tools.setHeight(high, 80);
    expectFrame(high, c.afterHeight);
  }
  EXPECT_EQ(messages.take(), Texts{});
}

// There is no tolerance; 359.6 and -360 are no whole turn after normalizing.
TEST_F(Geometry, SizesAtOtherAnglesAreRefused) {
  for (const float rotation : {30.F, 90.5F, 359.6F, -360.F}) {
    const host::Shape s = shape(example, rotation);
    tools.setWidth(s, 80);
    tools.setHeight(s, 80);
    expectFrame(s, example);
    EXPECT_EQ(
        messages.take(),
        (Texts{"Vellumark for presentations [critical] Shape width can only be set if shape is rotated by "
               "a multiple of 90 degrees.",
               "Vellumark for presentations [critical] Shape height can only be set if shape is rotated "
               "by a multiple of 90 degrees."}))
        << rotation;
  }
  EXPECT_EQ(failures.take(), Texts{});
}

// Each procedure traps for itself: the innermost reports, the others go on with what it gives.
TEST_F(Geometry, FailuresAreReportedOnce) {
  const host::Shape s{std::make_shared<test::FakeObject>(
      "Shape", std::map<std::string, host::Value>{{"Left", 1.F}, {"Width", 40.F}})};
  tools.setLeft(s, 100);
  EXPECT_EQ(failures.take(), Texts{"TrimlineTools, getRotatedMetrics: 438"});
  EXPECT_EQ(s.Left(), 80) << "100 + 0.5 x 0 - 0.5 x 40";
}

}  // namespace
}  // namespace vellumark::tools
