#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

using base::errors::outOfRange;

struct Box {
  float left, top, width, height, rotation = 0;
};
Box boxOf(const host::Shape& shape) {
  return {shape.Left(), shape.Top(), shape.Width(), shape.Height(), shape.Rotation()};
}
void expectBox(const host::Shape& shape, const Box& wanted, float tolerance = 0.0001f) {
  const Box box = boxOf(shape);
  EXPECT_NEAR(box.left, wanted.left, tolerance) << shape.Name();
  EXPECT_NEAR(box.top, wanted.top, tolerance) << shape.Name();
  EXPECT_NEAR(box.width, wanted.width, tolerance) << shape.Name();
  EXPECT_NEAR(box.height, wanted.height, tolerance) << shape.Name();
  EXPECT_NEAR(box.rotation, wanted.rotation, tolerance) << shape.Name();
}

TEST_F(ShapeTest, FramesSurviveTheFileAndWritingWhatWasReadChangesNothing) {
  auto slide = deck.slide();
  slide.shape("rect", 10, 20, 100, 50).rotate(-45).flipVertically().named("A");
  slide.xml(R"(<p:sp><p:nvSpPr><p:cNvPr id="70" name="Odd"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr><a:xfrm>)"
            R"(<a:off x="33333333" y="-777"/><a:ext cx="123457" cy="1"/></a:xfrm>)"
            R"(<a:prstGeom prst="rect"/></p:spPr></p:sp>)");
  open();
  const host::Shape a = shape("A");
  expectBox(a, {10, 20, 100, 50, -45});
  EXPECT_EQ(a.VerticalFlip(), -1);
  EXPECT_EQ(a.HorizontalFlip(), 0);

  const host::Shape odd = shape("Odd");
  presentation.Saved(true);
  odd.Left(odd.Left()), odd.Top(odd.Top()), odd.Width(odd.Width()), odd.Height(odd.Height());
  odd.Rotation(odd.Rotation());
  EXPECT_EQ(presentation.Saved(), -1);

  a.Left(0.1f), a.Height(33.33f), a.Rotation(-90), a.Flip(host::msoFlipHorizontal);
  reopen();
  expectBox(shape("A"), {0.1f, 20, 100, 33.33f, 90});
  EXPECT_EQ(shape("A").HorizontalFlip(), -1);
  EXPECT_NE(slideXml().find(R"(x="33333333" y="-777")"), std::string::npos);
}

/// Some programs draw an embedded object where its picture is, not where its frame is.
TEST_F(ShapeTest, ThePictureOfAnObjectStaysInItsFrame) {
  const std::string place = R"(<a:xfrm><a:off x="127000" y="0"/><a:ext cx="127000" cy="127000"/></a:xfrm>)";
  deck.slide().xml(
      R"(<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="9" name="O"/><p:cNvGraphicFramePr/><p:nvPr/>)"
      R"(</p:nvGraphicFramePr><p:xfrm><a:off x="127000" y="0"/><a:ext cx="127000" cy="127000"/></p:xfrm>)"
      R"(<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/presentationml/2006/ole">)"
      R"(<mc:AlternateContent xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006">)"
      R"(<mc:Choice Requires="v" xmlns:v="urn:schemas-microsoft-com:vml"><p:oleObj><p:embed/></p:oleObj>)"
      R"(</mc:Choice><mc:Fallback><p:oleObj><p:embed/><p:pic><p:nvPicPr><p:cNvPr id="0" name=""/>)"
      R"(<p:cNvPicPr/><p:nvPr/></p:nvPicPr><p:blipFill/><p:spPr>)" +
      place +
      R"(<a:prstGeom prst="rect"/></p:spPr></p:pic></p:oleObj></mc:Fallback></mc:AlternateContent>)"
      R"(</a:graphicData></a:graphic></p:graphicFrame>)");
  open();
  shape("O").Left(30);
  shape("O").Width(40);
  const std::string xml = slideXml(), now = R"(<a:off x="381000" y="0"/><a:ext cx="508000" cy="127000"/>)";
  const std::size_t first = xml.find(now);
  ASSERT_NE(first, std::string::npos) << xml;
  EXPECT_NE(xml.find(now, first + 1), std::string::npos) << xml;
}

TEST_F(ShapeTest, RefusesFramesThatTheFileCannotHold) {
  deck.slide().shape("rect", 10, 20, 100, 50).named("A");
  open();
  const host::Shape a = shape("A");
  EXPECT_EQ(errorOf([&] { a.Width(-1); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.Height(-0.01f); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.Left(2.2e9f); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.Top(-3e38f); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.Left(std::numeric_limits<float>::quiet_NaN()); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.Rotation(std::numeric_limits<float>::infinity()); }), outOfRange);
  expectBox(a, {10, 20, 100, 50});
  a.Width(0);
  EXPECT_EQ(a.Width(), 0);
}

TEST_F(ShapeTest, ReadsBrokenAndOddFrames) {
  struct Case {
    const char* name;
    const char* transform;
    Box box;
  };
  const Case cases[] = {
      {"none", "", {0, 0, 0, 0}},
      {"empty", "<a:xfrm/>", {0, 0, 0, 0}},
      {"units",
       R"(<a:xfrm><a:off x="1in" y="-25.4mm"/><a:ext cx="12.5pt" cy="1cm"/></a:xfrm>)",
       {72, -72, 12.5f, 28.3464f}},
      {"absurd",
       R"(<a:xfrm rot="x"><a:off x="9999999999999999999999" y=" 12700"/><a:ext cx="-5" cy="nan"/></a:xfrm>)",
       {2147483647.0f, 1, 0, 0}},
  };
  auto slide = deck.slide();
  int id = 100;
  for (const Case& one : cases) {
    slide.xml("<p:sp><p:nvSpPr><p:cNvPr id=\"" + std::to_string(++id) + "\" name=\"" + one.name +
              "\"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr>" + one.transform + "</p:spPr></p:sp>");
  }
  slide.xml("<p:sp/>");
  open();
  for (const Case& one : cases) {
    const Box& box = one.box;
    EXPECT_FLOAT_EQ(shape(one.name).Left(), box.left) << one.name;
    EXPECT_FLOAT_EQ(shape(one.name).Top(), box.top) << one.name;
    EXPECT_FLOAT_EQ(shape(one.name).Width(), box.width) << one.name;
    EXPECT_NEAR(shape(one.name).Height(), box.height, 0.001) << one.name;
  }
  // A shape with nothing in it becomes whole by being written to, in the order of the schema.
  const host::Shape bare = shapes().Item(5);
  EXPECT_EQ(bare.Id(), 0);
  bare.Left(5);
  bare.Name("Bare");
  bare.TextFrame().TextRange().Text("x");
  EXPECT_NE(slideXml().find(
                R"(<p:sp><p:nvSpPr><p:cNvPr id="105" name="Bare"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr>)"
                R"(<a:xfrm><a:off x="63500" y="0"/><a:ext cx="0" cy="0"/></a:xfrm></p:spPr><p:txBody>)"),
            std::string::npos)
      << slideXml();
}

TEST_F(ShapeTest, KeepsTheProportionsOfALockedPicture) {
  deck.slide().picture(0, 0, 100, 50).named("P");
  open();
  const host::Shape picture = shape("P");
  host::putByName(picture.object(), "LockAspectRatio", host::Value(0));
  picture.Width(50);
  expectBox(picture, {0, 0, 50, 50});
  host::putByName(picture.object(), "LockAspectRatio", host::Value(-1));
  picture.Height(100);
  expectBox(picture, {0, 0, 100, 100});
}

/// Two shapes in a group that is stretched to twice the width.
class GroupTest : public ShapeTest {
 protected:
  void openGroup(double rotation = 0, bool flip = false, double childTurn = 0) {
    auto slide = deck.slide();
    auto group = slide.group(100, 100, 200, 100).childSpace(0, 0, 100, 100).rotate(rotation).named("G");
    if (flip) group.flipHorizontally();
    group.children().shape("rect", 0, 0, 20, 20).named("A");
    group.children().shape("rect", 60, 70, 40, 30).rotate(childTurn).named("B");
    open();
  }
  host::Shape child(int index) { return shape("G").GroupItems().Item(index); }
};

TEST_F(GroupTest, ChildrenHaveSlideCoordinates) {
  openGroup();
  expectBox(child(1), {100, 100, 40, 20});
  expectBox(child(2), {220, 170, 80, 30});
  shape("G").Left(0), shape("G").Width(100);
  expectBox(child(2), {60, 170, 40, 30});
}

TEST_F(GroupTest, WritingAChildRefitsTheGroupAndMovesNothingElse) {
  openGroup();
  child(1).Left(150);
  expectBox(child(1), {150, 100, 40, 20});
  expectBox(child(2), {220, 170, 80, 30});
  expectBox(shape("G"), {150, 100, 150, 100});
  child(2).Top(300), child(2).Width(10);
  reopen();
  expectBox(child(1), {150, 100, 40, 20});
  expectBox(child(2), {220, 300, 10, 30});
  expectBox(shape("G"), {150, 100, 80, 230});
}

TEST_F(ShapeTest, AGroupWithCoarseCoordinatesTakesFinePlaces) {
  auto group = deck.slide().group(100, 100, 300, 300).childSpace(0, 0, 0.01, 0.01).named("G");
  group.children().shape("rect", 0, 0, 0.001, 0.001).named("A");
  group.children().shape("rect", 0.009, 0.009, 0.001, 0.001).named("B");
  open();
  const host::Shape b = shape("G").GroupItems().Item(2);
  const Box before = boxOf(shape("G").GroupItems().Item(1));
  b.Left(200.01f), b.Height(7.77f);
  EXPECT_EQ(b.Left(), 200.01f);
  EXPECT_EQ(b.Height(), 7.77f);
  expectBox(shape("G").GroupItems().Item(1), before);
}

TEST_F(GroupTest, TurnedAndMirroredGroupsTurnAndMirrorTheirChildren) {
  openGroup(90);
  // The centre of B lies 60 right of and 35 below the group's (200, 150); a quarter turn brings it 35 to the
  // left and 60 down.
  expectBox(child(2), {165 - 40, 210 - 15, 80, 30, 90});
  child(2).Left(200);
  expectBox(child(2), {200, 195, 80, 30, 90}, 0.001f);
  expectBox(child(1), {240 - 20, 70 - 10, 40, 20, 90}, 0.001f);

  deck = {};
  openGroup(0, true, 30);
  expectBox(child(2), {100, 170, 80, 30, 330});
  EXPECT_EQ(child(2).HorizontalFlip(), -1);
  child(2).Rotation(0), child(2).Left(90);
  expectBox(child(2), {90, 170, 80, 30, 0}, 0.001f);
  expectBox(child(1), {260, 100, 40, 20, 0}, 0.001f);
}

TEST_F(GroupTest, AChildThatLiesAcrossIsStretchedAlongItsOwnSides) {
  openGroup(0, false, 90);
  // 40 by 30, turned: what is seen is 30 wide and becomes 60 wide, so the frame's height doubles.
  expectBox(child(2), {260 - 20, 185 - 30, 40, 60, 90});
  child(2).Height(30);
  expectBox(child(2), {240, 155, 40, 30, 90}, 0.001f);
  expectBox(child(1), {100, 100, 40, 20});
}

TEST_F(ShapeTest, NestedGroupsAreSeenFlatAndKeepTheirPlaces) {
  auto outer = deck.slide().group(0, 0, 400, 400).childSpace(0, 0, 200, 200).named("Outer");
  auto inner = outer.children().group(100, 100, 100, 100).childSpace(1000, 1000, 50, 50).named("Inner");
  outer.children().shape("rect", 0, 0, 10, 10).named("A");
  inner.children().shape("rect", 1000, 1000, 10, 10).named("B");
  inner.children().shape("rect", 1040, 1040, 10, 10).named("C");
  open();
  const host::GroupShapes items = shape("Outer").GroupItems();
  ASSERT_EQ(items.Count(), 3);
  expectBox(items.Item(1), {200, 200, 40, 40});
  expectBox(items.Item(2), {360, 360, 40, 40});
  expectBox(items.Item(3), {0, 0, 20, 20});
  EXPECT_EQ(host::getByName(items.Item(2).object(), "ParentGroup")
                .toObject()
                ->invoke(host::Member("Name"), host::Invoke::get, {}),
            host::Value("Outer"));

  items.Item(2).Left(500);
  expectBox(items.Item(1), {200, 200, 40, 40});
  expectBox(items.Item(2), {500, 360, 40, 40});
  expectBox(items.Item(3), {0, 0, 20, 20});
  expectBox(shape("Outer"), {0, 0, 540, 400});

  items.Item(1).Delete();
  expectBox(items.Item(1), {500, 360, 40, 40});
  items.Item(1).Delete();
  expectBox(shape("Outer"), {0, 0, 20, 20});
  items.Item(1).Delete();
  EXPECT_EQ(shapes().Count(), 0);
}

TEST_F(ShapeTest, PlaceholdersTakeTheirFrameFromLayoutOrMaster) {
  deck.master().find("title").frame(1, 2, 3, 4);
  deck.master().layout("title").find("ctrTitle").frame(5, 6, 7, 8);
  deck.master().find("body").frame(9, 10, 11, 12);
  auto first = deck.slide("title");
  first.placeholder("ctrTitle").named("Centre");
  auto second = deck.slide("obj");
  second.placeholder("title").named("Title");
  second.placeholder("", 1).named("Body");
  open();
  expectBox(shape("Centre"), {5, 6, 7, 8});
  const host::Shape title = shapes(2).Item("Title");
  title.Top(100);
  EXPECT_EQ(title.Top(), 100);
  EXPECT_GT(title.Width(), 0);
  EXPECT_EQ(count(slideXml(2), "<a:xfrm>"), 1);
  EXPECT_EQ(title.PlaceholderFormat().Type(), 1);
  EXPECT_EQ(shapes(2).Item("Body").PlaceholderFormat().Type(), 7);
  EXPECT_EQ(shape("Centre").PlaceholderFormat().Type(), 3);
}

TEST_F(ShapeTest, AlternativesAreOneShapeWhoseBranchesStayInStep) {
  auto slide = deck.slide();
  slide.shape("ellipse", 10, 10, 50, 50).named("New").alternateContent(true);
  slide.shape("ellipse", 70, 10, 50, 50).named("Old").alternateContent(false);
  slide.shape("rect", 0, 0, 5, 5).named("Last");
  open();
  ASSERT_EQ(shapes().Count(), 3);
  EXPECT_EQ(shapes().Item(1).AutoShapeType(), host::msoShapeOval);
  EXPECT_EQ(shapes().Item(2).AutoShapeType(), host::msoShapeOval);

  const host::Shape first = shapes().Item(1);
  first.Left(321), first.Name("Both"), first.Visible(false);
  EXPECT_EQ(count(slideXml(), R"(x="4076700")"), 2);
  EXPECT_EQ(count(slideXml(), R"(name="Both")"), 2);
  EXPECT_EQ(count(slideXml(), R"(hidden="1")"), 2);
  first.ZOrder(host::msoBringToFront);
  EXPECT_EQ(first.ZOrderPosition(), 3);
  reopen();
  EXPECT_EQ(shapes().Item(3).Name(), "Both");
  shapes().Item(3).Delete();
  EXPECT_EQ(count(slideXml(), "<mc:AlternateContent"), 1);
}

}  // namespace
}  // namespace vellumark::test
