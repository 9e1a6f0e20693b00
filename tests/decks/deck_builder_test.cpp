#include "decks/deck_builder.h"

#include <gtest/gtest.h>

#include <array>
#include <pugixml.hpp>

#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::test {

using namespace decks;
namespace {

/// One of everything.
DeckBuilder fullDeck() {
  DeckBuilder deck;
  deck.title("All kinds").extraColor("336699").tag("zorp_style", "Plain").firstSlideNumber(5);
  deck.addMaster({.name = "Second"}).layouts({"title", "twoColTx", "cust", "blank"}).background("EEEEEE");

  auto first =
      deck.slide("titleOnly").tag("slide", "1").notes("Say hello.\nThen go on.").background("F8F8F8");
  first.placeholder("title").text("All kinds");
  first.shape("rect", 10, 20, 100, 50).rotate(45).named("A").tag("a", "1").tag("b", "2");
  first.shape("homePlate", 150, 20, 100, 50).adjust({25000}).flipHorizontally().text("one\vtwo\nthree");
  first.textBox(300, 20, 200, 50, "Plain text", {.size = 14, .bold = true}).fitToText();
  first.picture(10, 100, 50, 50).describe("a blue square");
  first.connector("straightConnector1", 200, 200, 100, 100).line("accent2", 2).dash("dash").arrowHead();
  first.table(300, 100, 300, 60, {{"a", "b"}, {"c", ""}}).cell(0, -1, {.bold = true}, "bg2").rule(-1, "tx2");
  first.freeform(10, 200, 80, 60, {{0, 0}, {80, 0}, {40, 60}}).fill("accent3").noLine();
  first.path(100, 200, 60, 60, {{0, 60}, {.radius = 60, .start = 180, .sweep = 90}, {60, 60}})
      .fill("bg1 darker 15");
  first.shape("rect", 400, 20, 20, 50).fill("accent1 lighter 80 opaque 50").upright().text("up");
  first.table(300, 180, 300, 30, {{"a", "b"}})
      .border(0, -1, "LRT", "tx1")
      .border(0, 0, "L", "")
      .cellInsets(0, 1, 9, 0, 0, 0);
  first.chart(300, 250, 300, 200, {{"North", 3.5}, {"South", 4}}).tag("chart", "1");
  first.shape("ellipse", 100, 250, 40, 40).hidden().alternateContent();
  first.shape("star5", 150, 250, 40, 40).alternateContent(false).tag("star", "yes");
  const auto group = first.group(10, 300, 100, 100).childSpace(0, 0, 1000, 1000).tag("group", "1");
  group.children().shape("rect", 0, 0, 500, 500);
  group.children().group(500, 500, 500, 500).children().textBox(500, 500, 500, 500, "deep");

  deck.slide("cust", 1).unusualPrefixes().hidden().withId(300).shape("rect", 1, 2, 3, 4).tag("x", "1");
  deck.slide("title").placeholder("ctrTitle").frame(100, 100, 500, 100).text("Own frame").withId(40);
  return deck;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string all;
  for (const auto& line : lines) all += line + "\n";
  return all;
}

TEST(DeckBuilder, writesSoundPackages) {
  EXPECT_EQ("", joined(packageFaults(readZip(DeckBuilder().bytes())))) << "a deck without slides";
  EXPECT_EQ("", joined(packageFaults(readZip(fullDeck().bytes()))));
  EXPECT_EQ("", joined(packageFaults(readZip(fullDeck().unusualPrefixes().bytes()))));
}

TEST(DeckBuilder, writesTheSameBytesForTheSameDeck) { EXPECT_EQ(fullDeck().bytes(), fullDeck().bytes()); }

TEST(DeckBuilder, writesFramesInEmu) {
  pugi::xml_document slide;
  slide.load_string(readZip(fullDeck().bytes()).at("ppt/slides/slide1.xml").bytes.c_str());
  const auto transform = slide.select_node("//p:sp[p:nvSpPr/p:cNvPr/@name='A']/p:spPr/a:xfrm").node();
  EXPECT_EQ(2700000, transform.attribute("rot").as_int());
  EXPECT_EQ(127000, transform.child("a:off").attribute("x").as_int());
  EXPECT_EQ(635000, transform.child("a:ext").attribute("cy").as_int());
  const auto line = slide.select_node("//p:cxnSp/p:spPr/a:xfrm").node();
  EXPECT_TRUE(line.attribute("flipH").as_bool() && line.attribute("flipV").as_bool())
      << "drawn from right bottom";
}

/// Where the ends of an elbow lie: turned and mirrored as its frame says.
std::array<double, 4> endsOf(const pugi::xml_node& transform) {
  const auto points = [&](const char* child, const char* name) {
    return transform.child(child).attribute(name).as_double() / 12700;
  };
  const double half = points("a:ext", "cx") / 2, halfHeight = points("a:ext", "cy") / 2;
  const double x = points("a:off", "x") + half, y = points("a:off", "y") + halfHeight;
  const double start = transform.attribute("flipH").as_bool() ? half : -half;
  const double turn = transform.attribute("rot").as_int() == 5400000 ? 1 : -1;  // else three quarters
  return {x + turn * halfHeight, y + turn * start, x - turn * halfHeight, y - turn * start};
}

TEST(DeckBuilder, drawsElbowsDownwardsFromPointToPoint) {
  for (const double aside : {-200.0, 30.0, 120.0}) {
    DeckBuilder deck;
    auto slide = deck.slide();
    const auto from = slide.shape("rect", 280, 50, 40, 50),
               to = slide.shape("rect", 280 + aside, 180, 40, 50);
    slide.elbowDown(300, 100, 300 + aside, 180).glue(from, 2, to, 0);
    pugi::xml_document written;
    written.load_string(readZip(deck.bytes()).at("ppt/slides/slide1.xml").bytes.c_str());
    const auto elbow = written.select_node("//p:cxnSp").node();
    EXPECT_EQ((std::array{300.0, 100.0, 300 + aside, 180.0}),
              endsOf(elbow.select_node("p:spPr/a:xfrm").node()));
    EXPECT_EQ(from.id(), elbow.select_node(".//a:stCxn/@id").attribute().as_int());
    EXPECT_EQ(to.id(), elbow.select_node(".//a:endCxn/@id").attribute().as_int());
    EXPECT_EQ(2, elbow.select_node(".//a:stCxn/@idx").attribute().as_int());
  }
}

TEST(DeckBuilder, leavesNoUsualPrefixWhenAskedForOthers) {
  const auto entries = readZip(fullDeck().bytes());
  const std::string& slide = entries.at("ppt/slides/slide2.xml").bytes;
  for (const char* prefix : {"<p:", "<a:", " r:id", "xmlns:p", "xmlns:a="}) {
    EXPECT_EQ(std::string::npos, slide.find(prefix)) << prefix;
  }
  EXPECT_NE(std::string::npos, slide.find("link:id=\"rId"));
}

TEST(ZipEntries, tellsWhatChanged) {
  auto entries = readZip(fullDeck().bytes());
  const auto before = entries;
  EXPECT_TRUE(changedEntries(before, readZip(writeZip(entries))).empty());
  entries.erase("docProps/core.xml");
  entries["ppt/slides/slide1.xml"].bytes += " ";
  entries["ppt/zzz.xml"].bytes = "<broken>";
  const auto after = readZip(writeZip(entries));
  EXPECT_EQ((std::vector<std::string>{"docProps/core.xml", "ppt/slides/slide1.xml", "ppt/zzz.xml"}),
            changedEntries(before, after));
}

TEST(PackageFaults, findsEachKind) {
  const auto sound = readZip(fullDeck().bytes());
  const auto faultAfter = [&](const std::string& part, const std::string& from, const std::string& to) {
    auto entries = sound;
    std::string& bytes = entries.at(part).bytes;
    bytes.replace(bytes.find(from), from.size(), to);
    return joined(packageFaults(entries));
  };
  const std::string slide = "ppt/slides/slide1.xml";
  EXPECT_EQ(slide + ": cNvPr id 3 stands twice\n", faultAfter(slide, "id=\"4\"", "id=\"3\""));
  EXPECT_NE("", faultAfter(slide, "</p:sld>", ""));
  EXPECT_EQ(slide + ": lacks relationship rId99\n", faultAfter(slide, "\"rId2\"", "\"rId99\""));
  EXPECT_NE("", faultAfter("ppt/slides/_rels/slide1.xml.rels", "slideLayout6", "slideLayout99"));
  EXPECT_NE("", faultAfter("[Content_Types].xml", "/ppt/slides/slide1.xml", "/ppt/slides/slide9.xml"));
}

TEST(TempFolder, goesWithItsObject) {
  std::string path;
  {
    const TempFolder folder;
    path = folder.write("sub/a.txt", "x");
    EXPECT_EQ("x", readFile(path));
  }
  EXPECT_THROW(readFile(path), std::runtime_error);
}

}  // namespace
}  // namespace vellumark::test
