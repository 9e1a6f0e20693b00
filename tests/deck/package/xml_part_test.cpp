// Parts as XML: nothing that a text says is lost, and prefixes are the usual ones.

#include "deck/package/package_fixture.h"
#include "deck/package/xml_text.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;
using decks::ZipEntries;

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

TEST_F(PackageTest, CharactersThatNoFileCanHoldEndHere) {
  const auto document = parseXml("p", "<a b='1&#2;2\xE9'>x\xEF\xBF\xBFy<!--\x03--></a>");
  EXPECT_EQ(xmlText(*document), "<a b=\"12\xEF\xBF\xBD\">xy<!----></a>");
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
      {"<sld xmlns='" + main + "' xmlns:z='" + mc +
           "' xmlns:a='urn:x' xmlns:a_1='urn:y' z:ProcessContent='a:b'>" +
           "<z:Choice Requires='a'/><a_1:b/></sld>",
       "/p:sld[@mc:ProcessContent='a_2:b'][mc:Choice/@Requires='a_2']/a_1:b"},
      {"<sld xmlns='http://schemas.openxmlformats.org/presentationml/2006/m&#97;in'/>", "/p:sld"},
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

}  // namespace
}  // namespace vellumark::deck
