// The template presentations that are delivered: what menu.xml promises, and what makes an element fit for
// any slide.

#include "decks/templates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <utility>

#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::test {
namespace {

using decks::ZipEntries;

const std::string customization = TEST_SOURCE_DIR "/product/customization/";

/// The slides that the menu names, by their files.
std::map<std::string, std::set<int>> slidesOfMenu(const pugi::xml_document& menu) {
  std::map<std::string, std::set<int>> slides;
  for (const auto& item : menu.select_nodes("/Vellumark/menu/submenu/menuitem")) {
    slides[item.node().attribute("file").value()].insert(item.node().attribute("slideNo").as_int());
  }
  return slides;
}

pugi::xml_document parsed(const ZipEntries& entries, const std::string& part) {
  pugi::xml_document document;
  const auto entry = entries.find(part);
  EXPECT_TRUE(entry != entries.end() && document.load_string(entry->second.bytes.c_str())) << part;
  return document;
}

std::string slidePart(int number) { return "ppt/slides/slide" + std::to_string(number) + ".xml"; }

struct Box {
  double left, top, right, bottom;  ///< points
};

/// What a shape covers on the slide; quarter turns are taken into account. Groups here don't stretch their
/// children.
Box covered(const pugi::xml_node& transform) {
  const auto points = [&](const char* child, const char* name) {
    return transform.child(child).attribute(name).as_double() / 12700;
  };
  double width = points("a:ext", "cx"), height = points("a:ext", "cy");
  const double x = points("a:off", "x") + width / 2, y = points("a:off", "y") + height / 2;
  if (transform.attribute("rot").as_int() / 5400000 % 2 != 0) std::swap(width, height);
  return {x - width / 2, y - height / 2, x + width / 2, y + height / 2};
}

void expectFitForAnySlide(const pugi::xml_document& slide, double pageWidth) {
  EXPECT_TRUE(
      slide.select_node("/p:sld/p:cSld/p:spTree/*[self::p:sp or self::p:grpSp or self::p:graphicFrame]"))
      << "shapes";
  for (const char* unwanted :
       {"//p:ph", "//a:srgbClr", "//a:sysClr", "//a:latin[not(starts-with(@typeface, '+'))]",
        "//a:rPr[not(a:latin)]", "//a:rPr[not(@sz)]", "//a:rPr[@sz < 1200]"}) {
    EXPECT_FALSE(slide.select_node(unwanted)) << unwanted;
  }
  for (const auto& found : slide.select_nodes("//p:spPr/a:xfrm | //p:grpSpPr/a:xfrm | //p:xfrm")) {
    const Box box = covered(found.node());
    const auto name = found.node().parent().parent().select_node(".//p:cNvPr/@name").attribute().value();
    EXPECT_TRUE(box.left > 47.9 && box.right < pageWidth - 47.9 && box.top > 109.9 && box.bottom < 490.1)
        << name << ": " << box.left << " " << box.top << " " << box.right << " " << box.bottom;
  }
  for (const auto& glue : slide.select_nodes("//a:stCxn | //a:endCxn")) {
    const std::string id = glue.node().attribute("id").value();
    EXPECT_TRUE(slide.select_node(("//p:sp/p:nvSpPr/p:cNvPr[@id='" + id + "']").c_str()))
        << "glued to " << id;
  }
  for (const auto& table : slide.select_nodes("//p:graphicFrame")) {
    for (const auto& [side, lengths] :
         {std::pair{"p:xfrm/a:ext/@cx", ".//a:gridCol/@w"}, {"p:xfrm/a:ext/@cy", ".//a:tr/@h"}}) {
      double sum = 0;
      for (const auto& length : table.node().select_nodes(lengths)) sum += length.attribute().as_double();
      EXPECT_NEAR(table.node().select_node(side).attribute().as_double(), sum, 10) << side;
    }
  }
}

TEST(Templates, EachStyleHasEachElementOfTheMenu) {
  pugi::xml_document menu;
  ASSERT_TRUE(menu.load_file((customization + "menu.xml").c_str()));
  const auto files = slidesOfMenu(menu);
  ASSERT_FALSE(files.empty());
  for (const auto& style : menu.select_nodes("/Vellumark/style")) {
    const std::string name = style.node().attribute("name").value();
    EXPECT_EQ(name, style.node().attribute("folder").value()) << "the ribbon goes by the name";
    for (const auto& [file, numbers] : files) {
      SCOPED_TRACE(name + "/" + file);
      const auto entries = readZipFile(customization + "styles/" + name + "/" + file);
      const auto presentation = parsed(entries, "ppt/presentation.xml");
      const double width = presentation.select_node("//p:sldSz/@cx").attribute().as_double() / 12700;
      EXPECT_EQ(name.ends_with(" Wide") ? 960 : 720, width);
      EXPECT_EQ(numbers.size(), presentation.select_nodes("//p:sldId").size()) << "all are in the menu";
      for (const int number : numbers) {
        SCOPED_TRACE(number);
        expectFitForAnySlide(parsed(entries, slidePart(number)), width);
      }
      EXPECT_STREQ("blank", parsed(entries, "ppt/slideLayouts/slideLayout1.xml")
                                .child("p:sldLayout")
                                .attribute("type")
                                .value());
      EXPECT_FALSE(entries.contains("ppt/slideLayouts/slideLayout2.xml"));
      EXPECT_EQ(std::vector<std::string>{}, packageFaults(entries));
    }
  }
}

TEST(Templates, AreDeliveredAsTheyAreMade) {
  for (const auto& [path, bytes] : samples::templates()) {
    SCOPED_TRACE(path);
    const auto made = decks::readZip(bytes), delivered = readZipFile(customization + "styles/" + path);
    ASSERT_EQ(made.size(), delivered.size());
    for (const auto& [part, entry] : made) {
      ASSERT_TRUE(delivered.contains(part)) << part;
      EXPECT_TRUE(entry.bytes == delivered.at(part).bytes) << part << ": run make_samples product";
    }
  }
}

TEST(Templates, TheLevelsOfThePyramidShareTheirEdges) {
  for (const auto& [path, bytes] : samples::templates()) {
    if (!path.ends_with("structures.pptx")) continue;
    SCOPED_TRACE(path);
    const auto slide = parsed(decks::readZip(bytes), slidePart(3));
    double bottom = 0, base = 0;
    for (const auto& found : slide.select_nodes("//p:sp[starts-with(p:nvSpPr/p:cNvPr/@name, 'Level')]")) {
      const Box box = covered(found.node().select_node("p:spPr/a:xfrm").node());
      const auto guide = found.node().select_node(".//a:gd/@fmla").attribute();
      if (guide) {
        const double inset =
            std::stod(std::string(guide.value()).substr(4)) / 100000 * (box.bottom - box.top);
        EXPECT_NEAR(bottom, box.top, 0.001);
        EXPECT_NEAR(base, box.right - box.left - 2 * inset, 0.01);
      }
      bottom = box.bottom;
      base = box.right - box.left;
    }
    EXPECT_GT(base, 0);
  }
}

}  // namespace
}  // namespace vellumark::test
