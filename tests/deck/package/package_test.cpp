// The package layer: what a save keeps, adds and drops, and what it makes of hostile files.

#include "deck/package/package.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "support/deck_builder.h"
#include "support/temp_folder.h"
#include "support/zip_entries.h"

namespace vellumark::deck {
namespace {

using test::DeckBuilder;
using test::ZipEntries;

DeckBuilder smallDeck() {
  DeckBuilder deck;
  auto slide = deck.slide("titleOnly");
  slide.placeholder("title").text("Title & <more>");
  slide.shape("rect", 10, 20, 100, 50).named("A").text("line one\nline \ttwo");
  slide.picture(100, 100, 40, 40);
  slide.notes("notes");
  slide.tag("KEY", "value");
  deck.slide("blank").picture(0, 0, 10, 10);
  return deck;
}

/// What open(), and then parsing every part and saving, say of a file: nothing, or the one line of a
/// FormatError.
std::string faultOf(const std::string& path, const std::string& saveTo = {}) {
  try {
    const auto package = Package::open(path);
    package->requiredRoot("officeDocument");
    for (const std::string& name : package->partNames()) {
      const PartRef part = package->part(name);
      if (!name.ends_with(".xml")) {
        part->bytes();
        continue;
      }
      part->root();
      part->relationships();
      part->touch();
    }
    if (!saveTo.empty()) package->save(saveTo, false);
    return {};
  } catch (const FormatError& error) {
    EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
    return error.what();
  }
}

class PackageTest : public ::testing::Test {
 protected:
  std::string saved(const DeckBuilder& deck) {
    deck.save(folder.path("deck.pptx"));
    return folder.path("deck.pptx");
  }
  std::string zip(const ZipEntries& entries) {
    return folder.write("made" + std::to_string(++made_) + ".pptx", test::writeZip(entries));
  }
  ZipEntries entries(const DeckBuilder& deck) { return test::readZip(deck.bytes()); }
  test::TempFolder folder;

 private:
  int made_ = 0;
};

TEST_F(PackageTest, OnlyWhatChangedIsWrittenAnew) {
  const std::string path = saved(smallDeck());
  const auto package = Package::open(path);
  EXPECT_FALSE(package->changed());
  package->part("ppt/slides/slide1.xml")->root();
  package->part("PPT/Slides/SLIDE2.xml")->root();
  EXPECT_FALSE(package->changed());
  package->save(folder.path("same.pptx"), false);
  EXPECT_EQ(test::changedEntries(test::readZipFile(path), test::readZipFile(folder.path("same.pptx"))),
            std::vector<std::string>{});

  pugi::xml_node name = package->part("ppt/slides/slide1.xml")->root().child("p:cSld");
  name.append_attribute("name").set_value("x");
  package->part("ppt/slides/slide1.xml")->touch();
  package->save(path);
  EXPECT_FALSE(package->changed());
  const auto before = test::readZipFile(folder.path("same.pptx"));
  EXPECT_EQ(test::changedEntries(before, test::readZipFile(path)),
            std::vector<std::string>{"ppt/slides/slide1.xml"});
  // The package goes on from the file that it wrote over its own source.
  EXPECT_FALSE(package->part("ppt/media/image2F5D8C.png")->bytes().empty());
  package->save(path);
  EXPECT_EQ(test::packageFaults(test::readZipFile(path)), std::vector<std::string>{});
}

TEST_F(PackageTest, AddedAndRemovedPartsLeaveASoundPackage) {
  const std::string path = saved(smallDeck());
  const auto package = Package::open(path);
  const PartRef slide = package->part("ppt/slides/slide1.xml");
  const PartRef added =
      package->addXml(package->freeName("ppt/extra/extra%d.xml"), "application/x-extra+xml", "<x/>");
  const std::string id = slide->relate(*added, "http://example.com/extra");
  EXPECT_EQ(slide->relate(*added, "http://example.com/extra"), id) << "related already";
  slide->relateExternal("http://example.com/", "hyperlink");
  const PartRef picture = package->addBytes("ppt/media/new.png", "image/png", std::string("\x89PNG\0\1", 6));
  package->part("ppt/slides/slide2.xml")->relate(*picture, "image");
  package->save(path);
  ZipEntries written = test::readZipFile(path);
  EXPECT_EQ(test::packageFaults(written), std::vector<std::string>{});
  EXPECT_EQ(written.at("ppt/media/new.png").bytes, std::string("\x89PNG\0\1", 6));

  // The picture of both slides stays with the second one; the notes, the tags and the extra part go with the
  // first.
  const PartRef presentation = package->requiredRoot("officeDocument");
  for (const Relationship& relationship : std::vector(presentation->relationships())) {
    if (presentation->target(relationship) == slide) {
      for (pugi::xml_node node : presentation->root().child("p:sldIdLst").children()) {
        if (relationship.id == node.attribute("r:id").value()) presentation->bury(node);
      }
      presentation->unrelate(relationship.id);
    }
  }
  package->remove(slide);
  EXPECT_TRUE(slide->removed());
  EXPECT_EQ(package->part("ppt/slides/slide1.xml"), nullptr);
  package->save(path);
  written = test::readZipFile(path);
  EXPECT_EQ(test::packageFaults(written), std::vector<std::string>{});
  for (const char* gone : {"ppt/notesSlides/notesSlide1.xml", "ppt/tags/tag1.xml", "ppt/extra/extra1.xml"}) {
    EXPECT_FALSE(written.contains(gone)) << gone;
  }
  EXPECT_TRUE(written.contains("ppt/media/image2F5D8C.png"));
  EXPECT_EQ(package->freeName("ppt/slides/slide%d.xml"), "ppt/slides/slide1.xml");
}

TEST_F(PackageTest, BuriedNodesStayReadableAndAreNotWritten) {
  const auto package = Package::open(saved(smallDeck()));
  const PartRef part = package->part("ppt/slides/slide1.xml");
  pugi::xml_node tree = part->root().child("p:cSld").child("p:spTree");
  const pugi::xml_node shape = tree.child("p:pic");
  const pugi::xml_node inner = shape.child("p:spPr");
  EXPECT_FALSE(part->isBuried(inner));
  part->bury(shape);
  EXPECT_TRUE(part->isBuried(inner));
  EXPECT_STREQ(inner.name(), "p:spPr");
  EXPECT_FALSE(part->isBuried(tree));
  EXPECT_EQ(part->bytes().find("<p:pic>"), std::string::npos);
  EXPECT_EQ(part->bytes().find("graveyard"), std::string::npos);
}

TEST_F(PackageTest, XmlKeepsWhatItSays) {
  const std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
      "<!-- kept --><?app data?><p:tagLst "
      "xmlns:p=\"http://schemas.openxmlformats.org/presentationml/2006/main\">"
      "<p:tag name=\"A\" val=\"one&#10;two&#09;&amp;&lt;&quot;\"/><x xml:space=\"preserve\"> <y/>  &#13;</x>"
      "<z><![CDATA[<raw>]]></z></p:tagLst>";
  const auto package = Package::create();
  const PartRef part = package->addXml("a.xml", "application/xml", xml);
  EXPECT_EQ(part->bytes(), xml);
}

TEST_F(PackageTest, PrefixesAreTheUsualOnesWhateverTheFileUses) {
  const std::string main = "http://schemas.openxmlformats.org/presentationml/2006/main";
  const std::string drawing = "http://schemas.openxmlformats.org/drawingml/2006/main";
  const std::string mc = "http://schemas.openxmlformats.org/markup-compatibility/2006";
  const struct {
    std::string xml;
    const char* path;  ///< finds one node afterwards
  } cases[] = {
      {"<sld xmlns='" + main + "'><cSld name='n'/></sld>", "/p:sld/p:cSld[@name='n']"},
      {"<q:sld xmlns:q='" + main + "'><w:t xmlns:w='" + drawing + "'/></q:sld>", "/p:sld/a:t"},
      {"<q:sld xmlns:q='" + main + "' xmlns:p='urn:other'><p:x/></q:sld>",
       "/p:sld/*[local-name()='x'][name()!='p:x']"},
      {"<a:sld xmlns:a='" + main + "'><p:t xmlns:p='" + drawing + "'/></a:sld>", "/p:sld/a:t"},
      {"<sld xmlns='" + main + "' xmlns:p='" + main + "'><p:cSld/></sld>", "/p:sld/p:cSld"},
      {"<sld xmlns='" + main + "' xmlns:z='" + mc + "' xmlns:p='urn:x' z:Ignorable='p'/>",
       "/p:sld[@mc:Ignorable!='p']"},
      {"<sld xmlns='" + main + "'><b xmlns='urn:x'><c/></b></sld>", "/p:sld/b/c"},
      {"<s:sld xmlns:s='http://purl.oclc.org/ooxml/presentationml/main'><s:cSld/></s:sld>", "/p:sld/p:cSld"},
  };
  for (const auto& [xml, path] : cases) {
    ZipEntries made = entries(smallDeck());
    made["ppt/slides/slide1.xml"].bytes = xml;
    const auto package = Package::open(zip(made));
    const PartRef part = package->part("ppt/slides/slide1.xml");
    EXPECT_TRUE(part->root().select_node(path)) << xml << "\n" << (part->touch(), part->bytes());
    // What is written means the same: the usual prefixes are bound to their namespaces again.
    part->touch();
    pugi::xml_document again;
    ASSERT_TRUE(again.load_string(part->bytes().c_str()));
  }
  DeckBuilder unusual = smallDeck();
  unusual.unusualPrefixes();
  const auto package = Package::open(saved(unusual));
  EXPECT_STREQ(package->requiredRoot("officeDocument")->root().name(), "p:presentation");
  EXPECT_TRUE(package->part("ppt/slides/slide1.xml")
                  ->root()
                  .select_node("p:cSld/p:spTree/p:sp/p:txBody/a:p/a:r/a:t"));
}

TEST_F(PackageTest, Utf16PartsAreReadAndWrittenAsUtf8) {
  ZipEntries made = entries(smallDeck());
  std::string utf16 = "\xFF\xFE";
  for (const char c :
       std::string("<?xml version=\"1.0\" encoding=\"UTF-16\"?><x:sld xmlns:x=\"http://schemas."
                   "openxmlformats.org/presentationml/2006/main\"/>")) {
    utf16 += c;
    utf16 += '\0';
  }
  made["ppt/slides/slide1.xml"].bytes = utf16;
  const auto package = Package::open(zip(made));
  const PartRef part = package->part("ppt/slides/slide1.xml");
  EXPECT_STREQ(part->root().name(), "p:sld");
  part->touch();
  EXPECT_NE(part->bytes().find("encoding=\"UTF-8\""), std::string::npos);
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
      {folder.write("text.pptx", "hello"), "no zip"},
      {folder.write("old.ppt", std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") + std::string(600, '\0')),
       "password"},
      {folder.write("cut.pptx", wholeZip.substr(0, wholeZip.size() / 2)), "no zip"},
      {without("[Content_Types].xml"), "no Office file"},
      {without("_rels/.rels"), "no relationship"},
      {with("[Content_Types].xml", "<Types"), "[Content_Types].xml: is not well-formed"},
      {with(slide, "<p:sld>"), "ppt/slides/slide1.xml: is not well-formed"},
      {with(slide, ""), "ppt/slides/slide1.xml"},
      {with(slide, "<a/><b/>"), "2 root elements"},
      {with(slide, "<!DOCTYPE x [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><x>&e;</x>"), "document type"},
      {with(slide, deep), "nested deeper"},
      {with("../evil.xml", "<x/>"), "leads out of the package"},
      {with("ppt/%2e%2e%2fevil.xml", "<x/>"), "leads out of the package"},
      {with("ppt\\evil.xml", "<x/>"), "leads out of the package"},
      {with("ppt/bomb.bin", std::string(64 << 20, '\0')), "out of all proportion"},
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

TEST_F(PackageTest, RelationshipsNeverLeadOutOfThePackage) {
  ZipEntries made = entries(smallDeck());
  made["ppt/slides/_rels/slide1.xml.rels"].bytes =
      "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>"
      "<Relationship Id='a' Type='t/x' Target='../../../etc/passwd'/>"
      "<Relationship Id='b' Type='t/x' Target='/ppt/slides/slide2.xml'/>"
      "<Relationship Id='c' Type='t/x' Target='./../slides/slide%32.xml#frag'/>"
      "<Relationship Id='d' Type='t/x' Target='..\\slides\\slide2.xml'/>"
      "<Relationship Id='e' Type='t/x' Target='slide1.xml'/></Relationships>";
  const auto package = Package::open(zip(made));
  const PartRef part = package->part("ppt/slides/slide1.xml");
  const PartRef other = package->part("ppt/slides/slide2.xml");
  EXPECT_EQ(part->target(*part->relationship("a")), nullptr);
  EXPECT_EQ(part->target(*part->relationship("b")), other);
  EXPECT_EQ(part->target(*part->relationship("c")), other);
  EXPECT_EQ(part->target(*part->relationship("d")), nullptr);
  EXPECT_EQ(part->target(*part->relationship("e")), part) << "a part may relate to itself";
  package->remove(part);
}

TEST_F(PackageTest, ASaveThatFailsLosesNothing) {
  const std::string path = saved(smallDeck());
  const auto package = Package::open(path);
  package->part("ppt/slides/slide1.xml")->touch();
  std::filesystem::create_directory(folder.path("folder.pptx"));
  for (const std::string target :
       {folder.path("folder.pptx"), folder.root().string() + "/no/such/folder/x.pptx"}) {
    EXPECT_THROW(package->save(target), FormatError) << target;
  }
  EXPECT_TRUE(package->changed());
  package->save(path);
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(folder.root())) {
    left.push_back(entry.path().filename().string());
  }
  std::ranges::sort(left);
  EXPECT_EQ(left, (std::vector<std::string>{"deck.pptx", "folder.pptx"}));
  std::filesystem::create_symlink(path, folder.path("link.pptx"));
  package->save(folder.path("link.pptx"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.pptx")));
}

// Truncated and bit-flipped copies of decks end in a FormatError or go through; how many there are can be
// raised by the environment for a long run.
TEST_F(PackageTest, DamagedCopiesNeverCrash) {
  std::vector<std::string> decks{smallDeck().bytes()};
  if (std::filesystem::is_directory(TEST_SHARED_DECKS)) {
    for (const auto& entry : std::filesystem::directory_iterator(TEST_SHARED_DECKS)) {
      if (entry.file_size() < 40'000) decks.push_back(test::readFile(entry.path().string()));
    }
  }
  const char* asked = std::getenv("VELLUMARK_FUZZ_ROUNDS");
  const int rounds = asked ? std::atoi(asked) : 600;
  std::mt19937 random(20240101);
  int refused = 0;
  for (int round = 0; round < rounds; ++round) {
    std::string bytes = decks[random() % decks.size()];
    if (round % 3 == 0) {
      bytes.resize(random() % bytes.size());
    } else {
      for (unsigned flips = 1 + random() % 8; flips > 0; --flips) {
        // Half of the faults hit the directory at the end, which all else hangs on.
        const std::size_t place =
            random() % 2 ? random() % bytes.size()
                         : bytes.size() - 1 - random() % std::min<std::size_t>(bytes.size(), 6000);
        bytes[place] = static_cast<char>(bytes[place] ^ (1 << random() % 8));
      }
    }
    refused += !faultOf(folder.write("fuzz.pptx", bytes), folder.path("out.pptx")).empty();
  }
  EXPECT_GT(refused, rounds / 3);
}

}  // namespace
}  // namespace vellumark::deck
