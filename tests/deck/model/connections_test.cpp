// Connectors follow the shapes that they are glued to.

#include <cctype>

#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

class ConnectionsTest : public ShapeTest {
 protected:
  ConnectionsTest() {
    slide.shape("rect", 0, 0, 100, 50).named("A");
    slide.shape("rect", 300, 200, 100, 50).named("B");
  }
  /// A connector from A to B, whose ids are 2 and 3; a frame in EMU.
  static std::string connector(const std::string& preset, const std::string& frame) {
    return R"(<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="90" name="C"/><p:cNvCxnSpPr><a:stCxn id="2" idx="3"/>)"
           R"(<a:endCxn id="3" idx="1"/></p:cNvCxnSpPr><p:nvPr/></p:nvCxnSpPr><p:spPr>)" +
           frame + R"(<a:prstGeom prst=")" + preset + R"("><a:avLst/></a:prstGeom></p:spPr></p:cxnSp>)";
  }
  static std::string straight() {
    return connector("straightConnector1",
                     R"(<a:xfrm><a:off x="1270000" y="317500"/><a:ext cx="2540000" cy="2540000"/></a:xfrm>)");
  }
  void expectFrame(float left, float top, float width, float height) {
    const host::Shape found = shape("C");
    EXPECT_NEAR(found.Left(), left, 0.001);
    EXPECT_NEAR(found.Top(), top, 0.001);
    EXPECT_NEAR(found.Width(), width, 0.001);
    EXPECT_NEAR(found.Height(), height, 0.001);
  }

  SlideBuilder slide = deck.slide();
};

TEST_F(ConnectionsTest, EndsMoveWithTheirShapes) {
  slide.xml(straight());
  open();
  shape("A").Left(50);
  expectFrame(150, 25, 150, 200);
  shape("A").Top(400);
  expectFrame(150, 225, 150, 200);
  EXPECT_EQ(shape("C").VerticalFlip(), host::msoTrue);
  EXPECT_EQ(shape("C").HorizontalFlip(), host::msoFalse);
  shape("B").Height(150);
  expectFrame(150, 275, 150, 150);
  shape("A").Left(350);
  expectFrame(300, 275, 150, 150);
  EXPECT_EQ(shape("C").HorizontalFlip(), host::msoTrue);
  shape("A").Width(20);
  shape("A").Rotation(90);  // its right side is below now, at 360, 435
  expectFrame(300, 275, 60, 160);
  shape("A").Flip(host::msoFlipVertical);
  expectFrame(300, 275, 60, 140);
  shape("C").Left(10);
  EXPECT_EQ(shape("A").Left(), 350) << "shapes don't follow connectors";
  reopen();
  expectFrame(10, 275, 60, 140);
}

TEST_F(ConnectionsTest, ElbowsKeepTheirDirection) {
  // From the middle below A to the middle above B, downwards first.
  slide.xml(connector("bentConnector3", R"(<a:xfrm rot="16200000" flipH="1"><a:off x="1587500" y="-317500"/>)"
                                        R"(<a:ext cx="1905000" cy="3810000"/></a:xfrm>)"));
  open();
  expectFrame(125, -25, 150, 300);
  shape("B").Left(330);
  expectFrame(140, -40, 150, 330);
  EXPECT_EQ(shape("C").Rotation(), 270);
  EXPECT_EQ(shape("C").HorizontalFlip(), host::msoTrue);
  shape("A").Left(330);
  EXPECT_NEAR(shape("C").Height(), 0, 0.001);
  EXPECT_NEAR(shape("C").Left(), 380 - 75, 0.001);
}

TEST_F(ConnectionsTest, ElbowsThatWouldRunThroughTheirShapesFindAnotherWay) {
  // From the right of A to the left of B; the bend is nearer to A.
  std::string elbow =
      connector("bentConnector3",
                R"(<a:xfrm><a:off x="1270000" y="317500"/><a:ext cx="2540000" cy="2540000"/></a:xfrm>)");
  elbow.replace(elbow.find("<a:avLst/>"), 10, R"(<a:avLst><a:gd name="adj1" fmla="val 20000"/></a:avLst>)");
  slide.xml(elbow);
  open();
  const auto geometry = [&] {
    const std::string xml = slideXml();
    const std::size_t begin = xml.find("prst=\"bent"), end = xml.find("</a:prstGeom>", begin);
    std::string text;
    for (const char character : xml.substr(begin + 6, end - begin - 6)) {
      if (std::isalnum(static_cast<unsigned char>(character)) || character == '-' || character == ' ') {
        text += character;
      }
    }
    return text;
  };
  shape("B").Top(300);
  shape("B").Top(-300);
  EXPECT_EQ(geometry(), "bentConnector3aavLstagd nameadj1 fmlaval 20000aavLst") << "mirrored, but no other";
  EXPECT_EQ(shape("C").VerticalFlip(), host::msoTrue);

  shape("B").Left(-50);
  EXPECT_EQ(geometry(),
            "bentConnector5aavLstagd nameadj1 fmlaval -12000agd nameadj2 fmlaval 50000"
            "agd nameadj3 fmlaval 112000aavLst");
  expectFrame(-50, -275, 150, 300);
  EXPECT_EQ(shape("C").HorizontalFlip(), host::msoTrue);
  shape("B").Left(100);  // one end above the other
  EXPECT_NE(geometry().find("adj1 fmlaval 1800000agd"), std::string::npos) << geometry();
  EXPECT_NEAR(shape("C").Left(), 99.5, 0.001);

  shape("B").Left(300);
  EXPECT_EQ(geometry(), "bentConnector3aavLstagd nameadj1 fmlaval 50000aavLst");
  expectFrame(100, -275, 200, 300);
  shape("B").Rotation(90);  // its left side looks upwards, at 350, -325
  expectFrame(100, -325, 250, 350);
  shape("A").Left(400);
  EXPECT_EQ(geometry().substr(0, 14), "bentConnector4");
  shape("A").Top(-400);
  shape("A").Left(100);
  EXPECT_EQ(geometry().substr(0, 14), "bentConnector2");
}

TEST_F(ConnectionsTest, ShapesInGroupsCarryEndsToo) {
  slide.group(500, 0, 100, 100).named("G").children().shape("ellipse", 500, 0, 100, 100).named("Inner");
  slide.xml(straight());
  open();
  const std::string id = std::to_string(shape("G").GroupItems().Item(1).Id());
  std::string glued = straight();
  glued.replace(glued.find("id=\"90\" name=\"C\""), 16, "id=\"91\" name=\"D\"");
  glued.replace(glued.find("<a:endCxn id=\"3\""), 16, "<a:endCxn id=\"" + id + "\"");
  glued.replace(glued.find("cx=\"2540000\" cy=\"2540000\""), 25, "cx=\"5080000\" cy=\"317500\"");
  slide.xml(glued);  // from A to the left of the ellipse
  open();
  shape("G").Left(600);
  EXPECT_NEAR(shape("D").Width(), 500, 0.001);
  expectFrame(100, 25, 200, 200);
  shape("G").Height(200);
  EXPECT_NEAR(shape("D").Height(), 75, 0.001);
  shape("G").GroupItems().Item(1).Left(700);
  EXPECT_NEAR(shape("D").Width(), 600, 0.001);
}

TEST_F(ConnectionsTest, CopiesMoveAsideWithoutPullingTheirConnectors) {
  slide.xml(straight());
  open();
  range().Copy();
  const host::ShapeRange copies = shapes().Paste();
  ASSERT_EQ(copies.Count(), 3);
  EXPECT_EQ(copies.Item(3).Left(), 112);
  EXPECT_EQ(copies.Item(3).Width(), 200);
  expectFrame(100, 25, 200, 200);
  copies.Item(1).Left(52);
  EXPECT_EQ(copies.Item(3).Left(), 152);
  expectFrame(100, 25, 200, 200);
}

}  // namespace
}  // namespace vellumark::test
