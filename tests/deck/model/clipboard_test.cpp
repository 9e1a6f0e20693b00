// Shapes and slides that are copied, pasted, duplicated and inserted.

#include <filesystem>
#include <pugixml.hpp>
#include <set>

#include "deck/model/shape_fixture.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using host::callByName;
using host::Value;
using test::errorOf;

class Copying : public test::ShapeTest {
 protected:
  /// Saves what another deck has become and opens it without a window.
  host::Presentation other(const DeckBuilder& builder, const char* name = "other.pptx") {
    builder.save(folder.path(name));
    return host->application().Presentations().Open(folder.path(name), false, false, false);
  }
  decks::ZipEntries saved(const host::Presentation& what) {
    what.SaveCopyAs(folder.path("look.pptx"));
    return test::readZipFile(folder.path("look.pptx"));
  }
  static int parts(const decks::ZipEntries& entries, const std::string& folder) {
    int found = 0;
    for (const auto& [name, entry] : entries) {
      if (name.starts_with(folder) && name.find("_rels") == std::string::npos) ++found;
    }
    return found;
  }
  static void close(const host::Presentation& what) {
    what.Saved(true);
    what.Close();
  }
};

TEST_F(Copying, ShapesTakeAlongWhatTheyReferTo) {
  auto slide = deck.slide("titleOnly");
  slide.picture(10, 10, 50, 40).named("Picture").tag("KIND", "logo");
  slide.chart(100, 100, 200, 150, {{"A", 1}, {"B", 2}}).named("Chart");
  const std::string style = "{11111111-2222-3333-4444-555555555555}";
  deck.tableStyle(style, R"(<a:wholeTbl><a:tcTxStyle b="on"/></a:wholeTbl>)");
  slide.table(300, 10, 100, 60, {{"a", "b"}}).named("Table").tableStyle(style, {});
  slide.shape("rect", 400, 300, 90, 30).named("Turned").rotate(30).alternateContent();
  auto group = slide.group(500, 300, 100, 80).named("Group");
  group.children().picture(500, 300, 50, 80, "C8553D").named("Inner");
  open();
  range().Copy();
  DeckBuilder plain;
  plain.unusualPrefixes();
  plain.slide("blank");
  const host::Presentation target = other(plain);
  close(presentation);  // the clipboard outlives what it comes from

  const host::ShapeRange pasted = target.Slides().Item(1).Shapes().Paste();
  const char* names[] = {"Picture", "Chart", "Table", "Turned", "Group"};
  ASSERT_EQ(pasted.Count(), 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(pasted.Item(i + 1).Name(), names[i]);
  EXPECT_EQ(pasted.Item(1).Tags().Item("kind"), "logo");
  EXPECT_EQ(pasted.Item(4).Rotation(), 30);
  EXPECT_EQ(pasted.Item(5).GroupItems().Item(1).Name(), "Inner");
  EXPECT_EQ(pasted.Item(1).Left(), 10);
  EXPECT_EQ(pasted.Item(3).Table().Cell(1, 1).Shape().TextFrame().TextRange().Font().Bold(), host::msoTrue);

  decks::ZipEntries entries = saved(target);
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());
  EXPECT_EQ(parts(entries, "ppt/media/"), 2);
  EXPECT_EQ(parts(entries, "ppt/charts/"), 1);
  EXPECT_EQ(parts(entries, "ppt/tags/"), 1);

  // Once more: pictures are shared, holders of tags and charts have their own.
  target.Slides().Item(1).Shapes().Paste();
  entries = saved(target);
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());
  EXPECT_EQ(parts(entries, "ppt/media/"), 2);
  EXPECT_EQ(parts(entries, "ppt/charts/"), 2);
  EXPECT_EQ(parts(entries, "ppt/tags/"), 2);
}

TEST_F(Copying, PastedShapesKeepTheirPlaceUnlessItIsTaken) {
  auto slide = deck.slide();
  slide.shape("rect", 100, 50, 40, 30).named("A");
  slide.shape("rect", 300, 50, 40, 30).named("B");
  deck.slide().shape("rect", 100, 50, 40, 30).named("A");
  open();
  shape("A").Copy();
  const std::pair<int, float> pastes[] = {{1, 112}, {1, 124}, {2, 100}, {2, 112}};
  for (const auto& [index, left] : pastes) {
    const host::Shape pasted = shapes(index).Paste().Item(1);
    EXPECT_EQ(pasted.Left(), left);
    EXPECT_EQ(pasted.Top(), left - 50);
  }
  // Cut out, the place is free.
  callByName(shape("B").object(), "Cut");
  EXPECT_EQ(shapes().Paste().Item(1).Left(), 300);
  // A duplicate always lies beside.
  const host::ShapeRange twin(callByName(shape("B").object(), "Duplicate").toObject());
  EXPECT_EQ(twin.Item(1).Left(), 312);
  EXPECT_EQ(twin.Item(1).Name(), "B");
  std::set<int> ids;
  for (int i = 1; i <= shapes().Count(); ++i) ids.insert(shapes().Item(i).Id());
  EXPECT_EQ(ids.size(), static_cast<std::size_t>(shapes().Count()));
}

TEST_F(Copying, ConnectorsFollowWhatIsCopiedWithThem) {
  const std::string connector =
      R"(<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="9" name="Link"/><p:cNvCxnSpPr><a:stCxn id="7" idx="3"/>)"
      R"(<a:endCxn id="8" idx="1"/></p:cNvCxnSpPr><p:nvPr/></p:nvCxnSpPr><p:spPr><a:xfrm><a:off x="0" y="0"/>)"
      R"(<a:ext cx="9" cy="9"/></a:xfrm><a:prstGeom prst="line"><a:avLst/></a:prstGeom></p:spPr></p:cxnSp>)";
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 10, 10).named("From").withId(7);
  slide.shape("rect", 90, 0, 10, 10).named("To").withId(8);
  slide.xml(connector);
  deck.slide();
  open();
  host->selectShapes(std::vector{shape("Link"), shape("From")});
  selection().Copy();
  const host::ShapeRange pasted = shapes(2).Paste();
  ASSERT_EQ(pasted.Item(1).Name(), "From");  // from the back, not in the order of selecting
  pugi::xml_document document;
  const std::string xml = slideXml(2);
  document.load_string(xml.c_str());
  const pugi::xml_node ends = document.select_node("//p:cNvCxnSpPr").node();
  EXPECT_EQ(ends.child("a:stCxn").attribute("id").as_int(), pasted.Item(1).Id());
  EXPECT_FALSE(ends.child("a:endCxn"));
}

TEST_F(Copying, PlaceholdersTakeAFreePlaceOrBecomePlain) {
  auto slide = deck.slide("titleOnly");
  slide.placeholder("title").text("Sales");
  deck.slide("title");
  deck.slide("blank");
  open();
  const host::Shape title = shapes(1).Item(1);
  const float left = title.Left(), top = title.Top(), width = title.Width();
  title.Copy();

  const host::Shape inPlace = shapes(2).Paste().Item(1);
  EXPECT_EQ(inPlace.Type(), host::msoPlaceholder);
  EXPECT_EQ(inPlace.PlaceholderFormat().Type(), 3);  // the centred title of that layout

  const host::Shape plain = shapes(3).Paste().Item(1);
  EXPECT_EQ(plain.Type(), host::msoTextBox);
  EXPECT_EQ(plain.Left(), left);
  EXPECT_EQ(plain.Top(), top);
  EXPECT_EQ(plain.Width(), width);
  EXPECT_EQ(plain.TextFrame().TextRange().Text(), "Sales");
  EXPECT_EQ(plain.TextFrame().TextRange().Font().Size(), title.TextFrame().TextRange().Font().Size());
  EXPECT_EQ(plain.TextFrame().VerticalAnchor(), title.TextFrame().VerticalAnchor());

  const host::Shape second = shapes(1).Paste().Item(1);  // the layout's title is taken
  EXPECT_EQ(second.Type(), host::msoTextBox);
  EXPECT_EQ(second.Left(), left + 12);
  EXPECT_EQ(test::packageFaults(saved(presentation)), std::vector<std::string>());
}

// What the shape's own style says stands before what the master's placeholder does.
TEST_F(Copying, APlainCopyKeepsTheStyleOfItsPlaceholder) {
  deck.master().find("title").noFill().noLine();
  deck.slide("titleOnly")
      .xml(
          "<p:sp><p:nvSpPr><p:cNvPr id='50' name='T'/><p:cNvSpPr/><p:nvPr><p:ph "
          "type='title'/></p:nvPr></p:nvSpPr>"
          "<p:spPr/><p:style><a:lnRef idx='2'><a:schemeClr val='accent2'/></a:lnRef><a:fillRef "
          "idx='1'><a:schemeClr "
          "val='accent1'/></a:fillRef><a:effectRef idx='0'/><a:fontRef idx='minor'><a:srgbClr val='ABCDEF'/>"
          "</a:fontRef></p:style><p:txBody><a:bodyPr/><a:p><a:r><a:t>Sales</a:t></a:r></a:p></p:txBody></"
          "p:sp>");
  deck.slide("blank");
  open();
  shape("T").Copy();
  const host::Shape plain = shapes(2).Paste().Item(1);
  EXPECT_EQ(plain.Type(), host::msoAutoShape);
  EXPECT_EQ(plain.Fill().Visible(), host::msoTrue);
  EXPECT_EQ(plain.Line().Visible(), host::msoTrue);
  EXPECT_EQ(plain.TextFrame().TextRange().Font().Color().RGB(), 0xEFCDAB);
}

TEST_F(Copying, AMemberOfAGroupComesAsItLies) {
  auto slide = deck.slide();
  auto group = slide.group(100, 100, 200, 100).childSpace(0, 0, 100, 50).named("Group");
  group.children().shape("rect", 50, 25, 50, 25).named("Inner");
  deck.slide();
  open();
  const host::Shape inner = shape("Group").GroupItems().Item(1);
  ASSERT_EQ(inner.Left(), 200);
  inner.Copy();
  const host::Shape pasted = shapes(2).Paste().Item(1);
  EXPECT_EQ(pasted.Left(), 200);
  EXPECT_EQ(pasted.Width(), 100);
  EXPECT_EQ(shapes(2).Count(), 1);
}

TEST_F(Copying, TheViewPastesWhatItShowsAndSelectsIt) {
  deck.slide().shape("rect", 0, 0, 10, 10).named("A");
  deck.slide();
  open();
  const host::DocumentWindow window = host->application().ActiveWindow();
  EXPECT_EQ(errorOf([&] { window.View().Paste(); }), base::errors::invalidRequest);  // nothing copied
  EXPECT_EQ(errorOf([&] { window.Selection().Copy(); }), base::errors::invalidRequest);
  shape("A").Copy();
  window.View().GotoSlide(2);
  window.View().Paste();
  EXPECT_EQ(shapes(2).Count(), 1);
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "A");
  EXPECT_EQ(selection().SlideRange().SlideIndex(), 2);
  host->showView(host::ppViewSlideMaster);
  window.View().Paste();
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "A");
  host->showView(host::ppViewSlideSorter);
  EXPECT_EQ(errorOf([&] { window.View().Paste(); }), base::errors::invalidRequest);

  host->selectSlides(std::vector<std::int32_t>{1});
  selection().Copy();
  window.View().Paste();
  EXPECT_EQ(presentation.Slides().Count(), 3);
  EXPECT_EQ(selection().Type(), host::ppSelectionSlides);
  EXPECT_EQ(selection().SlideRange().SlideIndex(), 2);
  EXPECT_EQ(errorOf([&] { shapes(1).Paste(); }), base::errors::invalidRequest);
}

/// A deck with all that a slide can bring along, on layouts that the target has by name, by type or not.
DeckBuilder rich() {
  DeckBuilder deck;
  deck.master().layout("titleOnly").named("House title");
  auto first = deck.slide("titleOnly");
  first.placeholder("title").text("One");
  first.notes("Say this").tag("MARK", "1");
  first.picture(10, 10, 50, 40).named("Picture");
  first.chart(100, 100, 200, 150, {{"A", 1}}).named("Chart");
  deck.slide("twoObj").notes("And that").picture(10, 10, 50, 40);
  deck.slide("blank").hidden();
  return deck;
}

TEST_F(Copying, SlidesComeWithTheirNotesAndFollowTheLayoutsThere) {
  deck = DeckBuilder();
  deck.master().layout("title").named("House title");
  deck.slide("blank");
  open();
  const host::Presentation source = other(rich());
  source.Slides().Range().Copy();
  close(source);
  const host::SlideRange pasted = presentation.Slides().Paste(1);
  ASSERT_EQ(pasted.Count(), 3);
  EXPECT_EQ(presentation.Slides().Count(), 4);
  EXPECT_EQ(pasted.Item(1).SlideIndex(), 1);
  EXPECT_EQ(pasted.Item(1).Layout(), 1);   // by name
  EXPECT_EQ(pasted.Item(2).Layout(), 29);  // by type
  EXPECT_EQ(pasted.Item(1).Tags().Item("Mark"), "1");
  for (const auto& [slide, text] : {std::pair{1, "Say this"}, {2, "And that"}}) {
    const host::Placeholders notes = pasted.Item(slide).NotesPage().Shapes().Placeholders();
    bool found = false;
    for (int i = 1; i <= notes.Count(); ++i) {
      if (notes.Item(i).PlaceholderFormat().Type() != host::ppPlaceholderBody) continue;
      found = notes.Item(i).TextFrame().TextRange().Text() == text;
    }
    EXPECT_TRUE(found) << text;
  }
  std::set<int> ids;
  for (int i = 1; i <= 4; ++i) ids.insert(presentation.Slides().Item(i).SlideID());
  EXPECT_EQ(ids.size(), 4u);
  const decks::ZipEntries entries = saved(presentation);
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());
  EXPECT_EQ(parts(entries, "ppt/notesMasters/"), 1);
  EXPECT_EQ(parts(entries, "ppt/notesSlides/"), 2);
}

TEST_F(Copying, LayoutsThatAreNotThereComeAlong) {
  DeckBuilder house;
  const auto layout = house.master().layouts({"cust"}).layout("cust").named("House layout");
  layout.picture(700, 500, 50, 40).named("Logo");
  layout.placeholder("body", 7).frame(40, 60, 300, 200);
  house.slide("cust").placeholder("body", 7).text("First");
  house.slide("cust").placeholder("body", 7).text("Second");
  deck.slide("blank");
  open();
  const int layouts = parts(saved(presentation), "ppt/slideLayouts/");
  const host::Presentation source = other(house);
  source.Slides().Range().Copy();
  close(source);
  presentation.Slides().Paste();
  presentation.Slides().Paste();
  const decks::ZipEntries entries = saved(presentation);
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());
  EXPECT_EQ(parts(entries, "ppt/slideLayouts/"), layouts + 1) << "once, with its picture";
  EXPECT_EQ(parts(entries, "ppt/media/"), 1);
  reopen();
  EXPECT_EQ(presentation.Slides().Count(), 5);
  EXPECT_EQ(shapes(5).Item(1).Left(), 40);
  EXPECT_EQ(shapes(5).Item(1).Width(), 300);
}

TEST_F(Copying, SlidesAreInsertedFromAFileAndDuplicated) {
  rich().save(folder.path("rich.pptx"));
  deck.slide("blank").withId(300);
  open();
  const host::Slides slides = presentation.Slides();
  EXPECT_EQ(slides.InsertFromFile(folder.path("rich.pptx"), 1, 2, 3), 2);
  EXPECT_EQ(slides.InsertFromFile(folder.path("rich.pptx"), 0, 1, -1), 3);
  EXPECT_EQ(slides.Count(), 6);
  EXPECT_EQ(slides.Item(4).SlideID(), 300);
  EXPECT_EQ(slides.Item(1).Shapes().Item(1).TextFrame().TextRange().Text(), "One");
  const int before = parts(saved(presentation), "ppt/media/");
  callByName(slides.Item(1).object(), "Duplicate");
  EXPECT_EQ(slides.Item(2).Shapes().Item(1).TextFrame().TextRange().Text(), "One");
  EXPECT_EQ(slides.Count(), 7);
  const decks::ZipEntries entries = saved(presentation);
  EXPECT_EQ(parts(entries, "ppt/media/"), before);
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());

  const std::pair<int, std::pair<int, int>> wrong[] = {{8, {1, 1}}, {0, {0, 1}}, {0, {3, 2}}, {0, {1, 4}}};
  for (const auto& [index, range] : wrong) {
    EXPECT_EQ(
        errorOf([&] { slides.InsertFromFile(folder.path("rich.pptx"), index, range.first, range.second); }),
        base::errors::invalidRequest)
        << index << ", " << range.first << " to " << range.second;
  }
  EXPECT_EQ(errorOf([&] { slides.InsertFromFile(folder.path("none.pptx"), 0, 1, 1); }),
            base::errors::unspecific);
  EXPECT_EQ(slides.Count(), 7);
}

TEST_F(Copying, LinksAmongSlidesFollowOrGo) {
  const auto link = [](const char* name, int id, const char* relationship) {
    return std::string(R"(<p:sp><p:nvSpPr><p:cNvPr id=")") + std::to_string(id) + R"(" name=")" + name +
           R"("><a:hlinkClick r:id=")" + relationship +
           R"(" action="ppaction://hlinksldjump"/></p:cNvPr><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr/></p:sp>)";
  };
  deck.slide().xml(link("Next", 5, "rId8")).named("Next");
  deck.slide().shape("rect", 0, 0, 1, 1).named("End");
  deck.save(folder.path("plain.pptx"));
  // The builder knows no links between slides.
  decks::ZipEntries entries = test::readZipFile(folder.path("plain.pptx"));
  std::string& relationships = entries.at("ppt/slides/_rels/slide1.xml.rels").bytes;
  relationships.insert(
      relationships.find("</Relationships>"),
      R"(<Relationship Id="rId8" Type="http://schemas.openxmlformats.org/officeDocument/2006/)"
      R"(relationships/slide" Target="slide2.xml"/>)");
  openFile(folder.write("linked.pptx", decks::writeZip(entries)));
  const auto links = [&](const host::Presentation& where, int slide) {
    const decks::ZipEntries now = saved(where);
    EXPECT_EQ(test::packageFaults(now), std::vector<std::string>());
    const std::string part = "ppt/slides/slide" + std::to_string(slide) + ".xml";
    return test::count(now.at(part).bytes, "hlinkClick");
  };
  DeckBuilder empty;
  empty.slide();
  const host::Presentation target = other(empty);
  presentation.Slides().Range(1).Copy();
  target.Slides().Paste();
  EXPECT_EQ(links(target, 2), 0);  // leads nowhere there
  presentation.Slides().Range().Copy();
  target.Slides().Paste();
  EXPECT_EQ(links(target, 3), 1);  // its target came too
  shapes().Item(1).Copy();
  shapes(2).Paste();
  EXPECT_EQ(links(presentation, 2), 1);  // the very slide that it leads to
}

std::vector<std::filesystem::path> sharedDecks() {
  std::vector<std::filesystem::path> found;
  std::error_code missing;
  for (const auto& entry : std::filesystem::directory_iterator(TEST_SHARED_DECKS, missing)) {
    const bool quick = std::filesystem::file_size(entry.path()) < 400'000;
    const auto opens = [&] { EmbeddedHost().open(entry.path().string()); };
    if (entry.path().extension() == ".pptx" && quick && errorOf(opens) == 0) found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

/// The faults of a package without what tells one part from another: numbers, and the part's name.
std::set<std::string> faultKinds(const decks::ZipEntries& entries) {
  std::set<std::string> kinds;
  for (const std::string& fault : test::packageFaults(entries)) {
    std::string kind;
    for (const char c : fault.substr(std::min(fault.size(), fault.find(": ")))) {
      if (c < '0' || c > '9') kind += c;
    }
    kinds.insert(kind);
  }
  return kinds;
}

TEST_F(Copying, DecksFromElsewhereGiveAndTakeEverything) {
  const std::vector<std::filesystem::path> decks = sharedDecks();
  if (decks.empty()) GTEST_SKIP() << "no decks in " TEST_SHARED_DECKS;
  for (std::size_t i = 0; i < decks.size(); ++i) {
    // Each deck gives to the next one and takes from the one before.
    const std::filesystem::path &source = decks[i], &target = decks[(i + 1) % decks.size()];
    SCOPED_TRACE(source.filename().string() + " to " + target.filename().string());
    openFile(target.string());
    const host::Presentation from =
        host->application().Presentations().Open(source.string(), true, false, false);
    const int count = from.Slides().Count();
    for (int slide = 1; slide <= count; ++slide) {
      const host::Shapes given = from.Slides().Item(slide).Shapes();
      if (given.Count() == 0) continue;
      given.Range().Copy();
      const host::Shapes master = presentation.Designs().Item(1).SlideMaster().Shapes();
      const int before = master.Count();
      EXPECT_EQ(master.Paste().Count(), given.Count());
      EXPECT_EQ(master.Count(), before + given.Count());
    }
    const int before = presentation.Slides().Count();
    if (count > 0) {
      from.Slides().Range().Copy();
      presentation.Slides().Paste();
    }
    EXPECT_EQ(presentation.Slides().Count(), before + count);
    const auto known = faultKinds(test::readZipFile(source.string())),
               own = faultKinds(test::readZipFile(target.string()));
    for (const std::string& kind : faultKinds(saved(presentation))) {
      EXPECT_TRUE(known.contains(kind) || own.contains(kind)) << kind;
    }
  }
}

TEST_F(Copying, DiagramsKeepTheirDrawing) {
  const std::filesystem::path source = std::filesystem::path(TEST_SHARED_DECKS) / "poi-SmartArt.pptx";
  if (!std::filesystem::exists(source)) GTEST_SKIP() << "no " << source;
  deck.slide();
  deck.slide().picture(0, 0, 10, 10);  // ids that are in the diagram's way
  open();
  const host::Presentation from =
      host->application().Presentations().Open(source.string(), true, false, false);
  from.Slides().Item(1).Shapes().Range().Copy();
  shapes(2).Paste();
  const decks::ZipEntries entries = saved(presentation);
  const std::string& data = entries.at("ppt/diagrams/data1.xml").bytes;
  const std::size_t at = data.find("relId=\"") + 7;
  const std::string id = data.substr(at, data.find('"', at) - at);
  const std::string& relationships = entries.at("ppt/slides/_rels/slide2.xml.rels").bytes;
  const std::size_t relationship = relationships.find("Id=\"" + id + "\"");
  ASSERT_NE(relationship, std::string::npos);
  EXPECT_NE(relationships.find("diagramDrawing", relationship), std::string::npos);
}

}  // namespace
}  // namespace vellumark::deck
