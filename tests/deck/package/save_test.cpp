// Saving: what is copied and what a failure leaves.

#include <zip.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "deck/package/package_fixture.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using decks::ZipEntries;

/// Everything that a zip file says of its entries, in order.
std::vector<std::string> directory(const std::string& path) {
  std::vector<std::string> lines;
  zip_t* zip = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
  for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
    zip_stat_t stat;
    zip_stat_index(zip, static_cast<zip_uint64_t>(i), 0, &stat);
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    zip_file_get_external_attributes(zip, static_cast<zip_uint64_t>(i), 0, &system, &attributes);
    std::string line = stat.name;
    for (const std::uint64_t figure :
         {std::uint64_t{stat.crc}, std::uint64_t{stat.comp_method}, std::uint64_t{stat.comp_size},
          static_cast<std::uint64_t>(stat.mtime), std::uint64_t{system}, std::uint64_t{attributes}}) {
      line += ' ' + std::to_string(figure);
    }
    lines.push_back(line);
  }
  zip_discard(zip);
  return lines;
}

/// Adds an entry that isn't deflated, with a date and attributes of its own.
void addStored(zip_t* zip, const std::string& name, const std::string& bytes) {
  const auto index = static_cast<zip_uint64_t>(
      zip_file_add(zip, name.c_str(), zip_source_buffer(zip, bytes.data(), bytes.size(), 0), 0));
  zip_set_file_compression(zip, index, ZIP_CM_STORE, 0);
  zip_file_set_dostime(zip, index, 0x6789, (22 << 9) | (3 << 5) | 4, 0);
  zip_file_set_external_attributes(zip, index, 0, ZIP_OPSYS_UNIX, 0100640u << 16);
}

/// The deck with what real files bring besides: stored parts, entries without a content type, relationships
/// of a part that isn't there, a folder, and a part that stands twice.
std::string withOddities(const std::string& path) {
  const std::string pixels(1000, 'x'), twice("second"), none = "<Relationships/>";
  zip_t* zip = zip_open(path.c_str(), 0, nullptr);
  addStored(zip, "ppt/media/stored.png", pixels);
  addStored(zip, "thumbnail", pixels);
  addStored(zip, "ppt/slides/_rels/slide99.xml.rels", none);
  addStored(zip, "ppt/media/storeD.pn_", twice);
  zip_dir_add(zip, "ppt/empty", 0);
  EXPECT_EQ(zip_close(zip), 0);
  std::string bytes = test::readFile(path);
  for (std::size_t at; (at = bytes.find("storeD.pn_")) != std::string::npos;)
    bytes.replace(at, 10, "stored.png");
  std::filesystem::remove(path);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

TEST_F(PackageTest, WhatTheFileBringsStaysInItsPlace) {
  const std::string path = withOddities(saved(smallDeck()));
  const auto package = Package::open(path);
  EXPECT_EQ(package->part("ppt/media/stored.png")->bytes(), std::string(1000, 'x'));
  package->part("ppt/slides/slide1.xml")->touch();
  package->save(folder.path("out.pptx"));

  std::vector<std::string> expected = directory(path);
  ASSERT_TRUE(expected.back().starts_with("ppt/empty/ "));
  expected.pop_back();
  ASSERT_TRUE(expected.back().starts_with("ppt/media/stored.png "));
  expected.pop_back();
  std::vector<std::string> written = directory(folder.path("out.pptx"));
  ASSERT_EQ(written.size(), expected.size());
  for (std::size_t i = 0; i < written.size(); ++i) {
    const bool touched = written[i].starts_with("ppt/slides/slide1.xml ");
    EXPECT_TRUE(touched || written[i] == expected[i]) << written[i] << " was " << expected[i];
  }
}

TEST_F(PackageTest, ADamagedPartIsNamedWhereItCantBeCopied) {
  const std::string path = withOddities(saved(smallDeck()));
  std::string bytes = test::readFile(path);
  bytes[bytes.find("xxxx")] = 'y';
  const auto package = Package::open(folder.write("damaged.pptx", bytes));
  try {
    package->save(folder.path("out.pptx"));
    FAIL() << "a wrong checksum was copied";
  } catch (const FormatError& error) {
    EXPECT_EQ(error.where(), "ppt/media/stored.png");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path("out.pptx")));
}

TEST_F(PackageTest, ASaveKeepsModeAndLinks) {
  namespace fs = std::filesystem;
  const std::string path = saved(smallDeck());
  constexpr fs::perms mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  fs::permissions(path, mode);
  const auto package = Package::open(path);
  fs::create_symlink("deck.pptx", folder.path("link.pptx"));
  fs::create_symlink("later.pptx", folder.path("early.pptx"));
  package->part("ppt/slides/slide1.xml")->touch();
  package->save(folder.path("link.pptx"));
  package->save(folder.path("early.pptx"));
  EXPECT_TRUE(fs::is_symlink(folder.path("link.pptx")));
  EXPECT_EQ(fs::status(path).permissions(), mode);
  EXPECT_TRUE(fs::is_symlink(folder.path("early.pptx")));
  EXPECT_TRUE(fs::is_regular_file(folder.path("later.pptx")));

  const fs::path before = fs::current_path();
  fs::current_path(folder.root());
  const std::string longName = std::string(250, 'n') + ".pptx";
  EXPECT_NO_THROW(package->save(longName)) << "a name without a folder, as long as names can be";
  fs::current_path(before);
  EXPECT_TRUE(fs::exists(folder.path(longName)));
}

// Some programs name each .rels part in the content types and leave their extension out.
TEST_F(PackageTest, RelationshipsHaveATypeWithoutOneOfTheirExtension) {
  ZipEntries made = entries(smallDeck());
  std::string& types = made["[Content_Types].xml"].bytes;
  const std::size_t rule = types.find("<Default Extension=\"rels\"");
  ASSERT_NE(rule, std::string::npos);
  types.erase(rule, types.find("/>", rule) + 2 - rule);
  for (const auto& [name, entry] : made) {
    if (!name.ends_with(".rels")) continue;
    types.insert(types.find("</Types>"),
                 "<Override PartName=\"/" + name + "\" ContentType=\"" + Relationships::contentType + "\"/>");
  }
  const std::string path = zip(made);
  ASSERT_EQ(test::packageFaults(test::readZipFile(path)), std::vector<std::string>());
  const auto package = Package::open(path);
  const PartRef presentation = package->requiredRoot("officeDocument");
  const PartRef slide = package->part("ppt/slides/slide1.xml");
  for (const Relationship& relationship : presentation->relationships()) {
    if (presentation->target(relationship) != slide) continue;
    pugi::xml_node entry =
        presentation->root().child("p:sldIdLst").find_child_by_attribute("r:id", relationship.id.c_str());
    presentation->bury(entry);
    presentation->unrelate(std::string(relationship.id));
    break;
  }
  package->remove(slide);
  const PartRef theme = package->part("ppt/theme/theme1.xml");
  theme->relate(*package->addBytes("ppt/media/new.png", "image/png", "pixels"), "image");
  package->save(folder.path("out.pptx"));
  EXPECT_EQ(test::packageFaults(test::readZipFile(folder.path("out.pptx"))), std::vector<std::string>());
}

TEST_F(PackageTest, ASaveThatFailsLosesNothing) {
  const std::string path = saved(smallDeck());
  const auto package = Package::open(path);
  package->part("ppt/slides/slide1.xml")->touch();
  std::filesystem::create_directory(folder.path("folder.pptx"));
  for (const std::string& target : {folder.path("folder.pptx"), std::string("/dev/null"),
                                    folder.root().string() + "/no/such/folder/x.pptx"}) {
    try {
      package->save(target);
      FAIL() << target;
    } catch (const FormatError& error) {
      EXPECT_EQ(error.where(), target);
    }
  }
  EXPECT_TRUE(package->changed());
  package->save(path);
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(folder.root())) {
    left.push_back(entry.path().filename().string());
  }
  std::ranges::sort(left);
  EXPECT_EQ(left, (std::vector<std::string>{"deck.pptx", "folder.pptx"}));
}

}  // namespace
}  // namespace vellumark::deck
