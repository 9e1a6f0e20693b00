// What a package keeps, adds and drops.

#include "deck/package/package_fixture.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using decks::ZipEntries;

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

TEST_F(PackageTest, APartThatWasRemovedLeavesNothingToItsSuccessor) {
  const auto package = Package::open(saved(smallDeck()));
  const PartRef old = package->part("ppt/slides/slide2.xml");
  const std::string type = old->contentType();
  ASSERT_FALSE(old->relationships().empty());
  package->remove(old);
  const PartRef fresh = package->addXml("ppt/slides/slide2.xml", type, "<x/>");
  EXPECT_TRUE(fresh->relationships().empty());
  EXPECT_THROW(package->addBytes("PPT/slides/Slide2.xml", type, ""), FormatError);
  package->save(folder.path("out.pptx"));
  EXPECT_FALSE(test::readZipFile(folder.path("out.pptx")).contains("ppt/slides/_rels/slide2.xml.rels"));
  // Its place in the old file means nothing in the new one.
  EXPECT_THROW(old->root(), FormatError);
  EXPECT_EQ(fresh->bytes(), "<x/>");
}

TEST_F(PackageTest, NewPartsOfAStrictPackageAreStrict) {
  ZipEntries made = entries(smallDeck());
  std::string& relationships = made["_rels/.rels"].bytes;
  const std::string transitional =
      "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
  relationships.replace(relationships.find(transitional), transitional.size(),
                        "http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument");
  const auto package = Package::open(zip(made));
  const PartRef main = package->requiredRoot("officeDocument");
  const PartRef tags =
      package->addXml("ppt/tags/tag9.xml", "application/xml",
                      "<p:tagLst xmlns:p=\"http://schemas.openxmlformats.org/presentationml/2006/main\"/>");
  const Relationship* relationship = main->relationship(main->relate(*tags, "tags"));
  EXPECT_EQ(relationship->type, "http://purl.oclc.org/ooxml/officeDocument/relationships/tags");
  EXPECT_EQ(tags->bytes(), "<p:tagLst xmlns:p=\"http://purl.oclc.org/ooxml/presentationml/main\"/>");
}

TEST_F(PackageTest, NamesMatchInAnyCaseAndEscaped) {
  ZipEntries made = entries(smallDeck());
  made["ppt/media/a picture.bin"].bytes = "1";
  made["ppt/media/b%20picture.bin"].bytes = "2";
  const auto package = Package::open(zip(made));
  const PartRef slide = package->part("ppt/slides/slide1.xml");
  for (const char* name : {"ppt/media/A%20picture.bin", "ppt/media/b picture.bin"}) {
    const PartRef part = package->part(name);
    ASSERT_TRUE(part) << name;
    const std::string id = slide->relate(*part, "image");
    EXPECT_EQ(slide->target(*slide->relationship(id)), part);
  }
  package->save(folder.path("out.pptx"));
  const std::string written =
      test::readZipFile(folder.path("out.pptx")).at("ppt/slides/_rels/slide1.xml.rels").bytes;
  EXPECT_NE(written.find("\"../media/a%20picture.bin\""), std::string::npos);
  EXPECT_NE(written.find("\"../media/b%20picture.bin\""), std::string::npos);
}

}  // namespace
}  // namespace vellumark::deck
