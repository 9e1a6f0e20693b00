// Broken and hostile files end in one clear line.

#include <zip.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "deck/package/package_fixture.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using decks::ZipEntries;

/// Encrypts slide 1 of the deck in a file.
std::string encrypted(const std::string& path) {
  zip_t* zip = zip_open(path.c_str(), 0, nullptr);
  const auto index = static_cast<zip_uint64_t>(zip_name_locate(zip, "ppt/slides/slide1.xml", 0));
  zip_file_set_encryption(zip, index, ZIP_EM_AES_256, "secret");
  EXPECT_EQ(zip_close(zip), 0);
  return path;
}

/// A zip file whose directory declares another inflated size for an entry.
std::string withDeclaredSize(std::string zip, const std::string& entry, std::uint32_t size) {
  constexpr std::size_t header = 46;
  constexpr std::size_t sizeField = 24;
  const std::size_t at = zip.rfind(entry) - header + sizeField;
  for (int i = 0; i < 4; ++i) zip[at + static_cast<std::size_t>(i)] = static_cast<char>(size >> (8 * i));
  return zip;
}

TEST_F(PackageTest, HostileAndBrokenFilesAreOneClearLine) {
  const ZipEntries good = entries(smallDeck());
  const auto with = [&](const std::string& name, const std::string& bytes) {
    ZipEntries made = good;
    made[name].bytes = bytes;
    return zip(made);
  };
  const auto without = [&](const std::string& name) {
    ZipEntries made = good;
    made.erase(name);
    return zip(made);
  };
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "<a>";
  for (int i = 0; i < 5000; ++i) deep += "</a>";
  const std::string slide = "ppt/slides/slide1.xml";
  const std::string wholeZip = smallDeck().bytes();
  const struct {
    std::string path;
    const char* says;
  } cases[] = {
      {folder.path("none.pptx"), "no such file"},
      {folder.root().string(), "is a folder"},
      {folder.write("empty.pptx", ""), "empty"},
      {folder.write("text.pptx", "hello"), "zip directory"},
      {folder.write("old.ppt", std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") + std::string(600, '\0')),
       "password"},
      {folder.write("cut.pptx", wholeZip.substr(0, wholeZip.size() / 2)), "zip directory"},
      {without("[Content_Types].xml"), "no Office file"},
      {without("_rels/.rels"), "no relationship"},
      {with("[Content_Types].xml", "<Types"), "[Content_Types].xml: is not well-formed"},
      {with(slide, "<p:sld>"), "ppt/slides/slide1.xml: is not well-formed"},
      {with(slide, ""), "ppt/slides/slide1.xml"},
      {with(slide, "<a/><b/>"), "2 root elements"},
      {with(slide, "<!DOCTYPE x [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><x>&e;</x>"), "document type"},
      {with(slide, deep), "nested deeper"},
      {with("../evil.xml", "<x/>"), "no safe name"},
      {with("ppt/%2e%2e%2fevil.xml", "<x/>"), "no safe name"},
      {with("ppt\\evil.xml", "<x/>"), "no safe name"},
      {with("ppt/a\nb.xml", "<x/>"), "'ppt/a?b.xml', which is no safe name"},
      {"/dev/zero", "no ordinary file"},
      {encrypted(folder.write("locked.pptx", wholeZip)), "protected by a password ('ppt/slides/slide1.xml'"},
      {folder.write("liar.pptx", withDeclaredSize(wholeZip, slide, 100)), "slide1.xml: is damaged"},
      {folder.write("giant.pptx", withDeclaredSize(wholeZip, slide, 500'000'000)), "out of all proportion"},
  };
  for (const auto& [path, says] : cases) {
    const std::string fault = faultOf(path);
    EXPECT_NE(fault.find(says), std::string::npos)
        << path << " should say '" << says << "' but says: " << fault;
  }
  // A damaged byte in the middle of a part is found by its checksum.
  std::string damaged = wholeZip;
  const std::string& packed = good.at(slide).compressed;
  damaged[damaged.find(packed) + packed.size() / 2] ^= 0x55;
  EXPECT_NE(faultOf(folder.write("damaged.pptx", damaged)).find(slide), std::string::npos);
}

TEST_F(PackageTest, LimitsHold) {
  const std::string path = saved(smallDeck());
  const struct {
    Limits limits;
    const char* says;
  } cases[] = {
      {{.parts = 10}, "more than 10 parts"},
      {{.partBytes = 10}, "larger than 10 bytes"},
      {{.xmlBytes = 1000}, "larger than 1000 bytes"},
      {{.allXmlBytes = {10'000, 0, 1 << 30}}, "more than 10000 bytes"},
      {{.allXmlBytes = {100'000, 1, 20'000}}, "more than 20000 bytes"},
      {{.xmlDepth = 3}, "nested deeper than 3"},
      {{.allXmlItems = {300, 0, 1 << 30}}, "more than 300 elements"},
      {{.relationships = 2}, "more than 2 relationships"},
  };
  for (const auto& [limits, says] : cases) {
    const std::string fault = faultOf(path, {}, limits);
    EXPECT_NE(fault.find(says), std::string::npos) << "should say '" << says << "' but says: " << fault;
  }
  ZipEntries made = entries(smallDeck());
  made["ppt/media/blank.bmp"].bytes = std::string(8 << 20, '\xFF');
  EXPECT_EQ(faultOf(zip(made)), "") << "a blank picture is no bomb";
}

// Each part by itself is small, and most of what it holds is blank text.
TEST_F(PackageTest, ManyPartsCostNoMoreThanOne) {
  ZipEntries made = entries(smallDeck());
  std::string blanks = "<x>";
  for (int i = 0; i < 300'000; ++i) blanks += "<a/> ";
  blanks += "</x>";
  for (int part = 0; part < 10; ++part) made["ppt/blank" + std::to_string(part) + ".xml"].bytes = blanks;
  const std::string fault = faultOf(zip(made));
  EXPECT_NE(fault.find(".xml: is too much: the XML of the file has more than 4"), std::string::npos) << fault;
  for (int part = 6; part < 10; ++part) made.erase("ppt/blank" + std::to_string(part) + ".xml");
  EXPECT_EQ(faultOf(zip(made)), "");
}

TEST_F(PackageTest, WhatIsOnlyCopiedMayBeAsLargeAsItIs) {
  ZipEntries made = entries(smallDeck());
  made["ppt/media/film.png"].bytes = std::string(8 << 20, ' ');
  const std::string path = zip(made);
  const auto package = Package::open(path, {.partBytes = 1 << 20, .inflationRatio = 100});
  package->part("ppt/slides/slide1.xml")->root();
  package->part("ppt/slides/slide1.xml")->touch();
  package->save(folder.path("out.pptx"));
  EXPECT_EQ(test::changedEntries(test::readZipFile(path), test::readZipFile(folder.path("out.pptx"))),
            std::vector<std::string>{"ppt/slides/slide1.xml"});
  EXPECT_THROW(package->part("ppt/media/film.png")->bytes(), FormatError);
}

// Truncated and bit-flipped files, and sound zip files of damaged parts, end in a FormatError or go through;
// how many there are can be raised by the environment for a long run.
TEST_F(PackageTest, DamagedCopiesNeverCrash) {
  std::vector<std::string> decks{smallDeck().bytes()};
  if (std::filesystem::is_directory(TEST_SHARED_DECKS)) {
    for (const auto& entry : std::filesystem::directory_iterator(TEST_SHARED_DECKS)) {
      if (entry.file_size() < 40'000) decks.push_back(test::readFile(entry.path().string()));
    }
  }
  DeckBuilder unusual = smallDeck();
  unusual.master().layouts({"titleOnly", "blank"});
  const ZipEntries parts = entries(unusual.unusualPrefixes());

  const char* asked = std::getenv("VELLUMARK_FUZZ_ROUNDS");
  const int rounds = asked ? std::atoi(asked) : 2000;
  std::mt19937 random(20240101);
  const auto flip = [&](std::string& bytes, std::size_t from) {
    char& byte = bytes[from + random() % (bytes.size() - from)];
    byte = static_cast<char>(byte ^ (1 << random() % 8));
  };
  int refused = 0;
  for (int round = 0; round < rounds; ++round) {
    std::string bytes = decks[random() % decks.size()];
    if (round % 4 == 0) {
      bytes.resize(random() % bytes.size());
    } else if (round % 4 == 1) {
      ZipEntries damaged = parts;
      for (auto& [name, entry] : damaged) {
        if (random() % 8 == 0) flip(entry.bytes, 0);
      }
      bytes = decks::writeZip(damaged);
    } else {
      // Half of the faults hit the directory at the end, which all else hangs on.
      for (unsigned flips = 1 + random() % 8; flips > 0; --flips) {
        flip(bytes, random() % 2 || bytes.size() < 6000 ? 0 : bytes.size() - 6000);
      }
    }
    refused += !faultOf(folder.write("fuzz.pptx", bytes), folder.path("out.pptx")).empty();
  }
  EXPECT_GT(refused, rounds / 3);
}

}  // namespace
}  // namespace vellumark::deck
