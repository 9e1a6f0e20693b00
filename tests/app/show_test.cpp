// What `show` and `commands` list.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "app/program.h"
#include "decks/deck_builder.h"

namespace vellumark::test {

using namespace decks;
namespace {

using Json = nlohmann::json;

class Show : public testing::Test {
 protected:
  Show() {
    DeckBuilder builder;
    builder.tag("zorp_style", "Blue");
    auto slide = builder.slide();
    slide.tag("zorp_slideID", "42");
    slide.shape("rect", 10, 20, 100, 50).rotate(45).named("Turned").tag("zorp_copyright", "1");
    slide.textBox(300, 40, 200, 30, "Umsätze\n売上").named("Text").hidden();
    const auto group = slide.group(100, 200, 80, 60).named("Group");
    group.children().shape("ellipse", 100, 200, 40, 40).named("In group");
    builder.slide();
    builder.save(deck_);
  }
  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(Show, JsonHoldsSlidesShapesAndTags) {
  const Outcome outcome = runProgram({"show", deck_, "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const Json json = Json::parse(outcome.out);
  EXPECT_EQ(json["name"], "deck.pptx");
  EXPECT_EQ(json["width"], 960);
  EXPECT_EQ(json["tags"]["ZORP_STYLE"], "Blue");
  ASSERT_EQ(json["slides"].size(), 2u);
  EXPECT_EQ(json["slides"][0]["tags"]["ZORP_SLIDEID"], "42");
  EXPECT_TRUE(json["slides"][1]["shapes"].empty());

  const Json& shapes = json["slides"][0]["shapes"];
  ASSERT_EQ(shapes.size(), 3u);
  const Json& turned = shapes[0];
  EXPECT_EQ(turned["index"], 1);
  EXPECT_EQ(turned["name"], "Turned");
  EXPECT_EQ(turned["typeName"], "auto shape");
  EXPECT_EQ(turned["left"], 10);
  EXPECT_EQ(turned["height"], 50);
  EXPECT_EQ(turned["rotation"], 45);
  EXPECT_EQ(turned["tags"]["ZORP_COPYRIGHT"], "1");
  EXPECT_EQ(shapes[1]["text"], "Umsätze\r売上");
  EXPECT_EQ(shapes[1]["visible"], false);
  EXPECT_EQ(shapes[2]["members"][0]["name"], "In group");
  EXPECT_EQ(shapes[2]["members"][0]["left"], 100);
}

TEST_F(Show, TextHasOneLineForEachShape) {
  const Outcome outcome = runProgram({"show", deck_});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  for (const std::string part :
       {"deck.pptx: 2 slides, 960 x 540 points", "@1  #2  Turned", "text box, hidden", "Umsätze 売上",
        "  In group", "ZORP_STYLE = \"Blue\"", "Slide 2 (id 257), without"}) {
    EXPECT_NE(outcome.out.find(part), std::string::npos) << part << "\n" << outcome.out;
  }
}

TEST(Commands, TheTableIsWholeInBothForms) {
  const Outcome text = runProgram({"commands"});
  const Outcome json = runProgram({"commands", "--json"});
  ASSERT_EQ(text.status, 0) << text.err;
  ASSERT_EQ(json.status, 0) << json.err;
  std::set<std::string> names;
  for (const Json& command : Json::parse(json.out)) {
    names.insert(command["name"].get<std::string>());
    EXPECT_NE(text.out.find(command["name"].get<std::string>()), std::string::npos);
    EXPECT_FALSE(command["enabledWhen"].get<std::string>().empty()) << command;
  }
  for (const std::string name :
       {"alignLefts", "stretchBottomToMasterTop", "about", "reference", "wrapText"}) {
    EXPECT_TRUE(names.contains(name)) << name;
  }
}

}  // namespace
}  // namespace vellumark::test
