// Decks from elsewhere, where they are there: what is written again says the same, all else keeps its bytes.

#include <filesystem>

#include "deck/package/package_fixture.h"

namespace vellumark::deck {
namespace {

/// The first difference of two trees, as the path of the node; empty where there is none.
std::string difference(pugi::xml_node a, pugi::xml_node b) {
  const std::string here = a.path();
  if (a.type() != b.type() || std::string_view(a.name()) != b.name() ||
      std::string_view(a.value()) != b.value()) {
    return here;
  }
  pugi::xml_attribute other = b.first_attribute();
  for (pugi::xml_attribute attribute : a.attributes()) {
    if (std::string_view(attribute.name()) != other.name() ||
        std::string_view(attribute.value()) != other.value()) {
      return here + "/@" + attribute.name();
    }
    other = other.next_attribute();
  }
  if (other) return here + "/@" + other.name();
  pugi::xml_node counterpart = b.first_child();
  for (pugi::xml_node child : a.children()) {
    if (std::string found = difference(child, counterpart); !found.empty()) return found;
    counterpart = counterpart.next_sibling();
  }
  return counterpart ? here + '/' + counterpart.name() : std::string();
}

TEST_F(PackageTest, DecksFromElsewhereLoseNothing) {
  if (!std::filesystem::is_directory(TEST_SHARED_DECKS)) GTEST_SKIP() << "no decks in " << TEST_SHARED_DECKS;
  const std::string out = folder.path("out.pptx");
  int decks = 0;
  for (const auto& file : std::filesystem::directory_iterator(TEST_SHARED_DECKS)) {
    const std::string path = file.path().string();
    if (file.path().extension() != ".pptx" || !faultOf(path).empty()) continue;
    SCOPED_TRACE(path);
    const decks::ZipEntries before = test::readZipFile(path);
    {
      const auto package = Package::open(path);
      const PartRef slide = package->part("ppt/slides/slide1.xml");
      if (slide) slide->touch();
      package->save(out, false);
      for (const std::string& name : test::changedEntries(before, test::readZipFile(out))) {
        EXPECT_TRUE(slide && name == slide->name()) << name;
      }
    }
    const auto package = Package::open(path);
    for (const std::string& name : package->partNames()) {
      if (!name.ends_with(".xml")) continue;
      package->part(name)->root();
      package->part(name)->touch();
    }
    package->save(out, false);
    const auto written = Package::open(out);
    EXPECT_EQ(written->partNames().size(), package->partNames().size());
    for (const std::string& name : package->partNames()) {
      if (!name.ends_with(".xml")) continue;
      EXPECT_EQ(difference(package->part(name)->root(), written->part(name)->root()), "") << name;
    }
    ++decks;
  }
  EXPECT_GT(decks, 20);
}

}  // namespace
}  // namespace vellumark::deck
