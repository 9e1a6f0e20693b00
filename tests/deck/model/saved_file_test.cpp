// What a saved file is and tells, beside its slides: kind, ids, properties, picture.

#include <algorithm>
#include <pugixml.hpp>

#include "deck/model/shape_fixture.h"

namespace vellumark::deck {
namespace {

using Strings = std::vector<std::string>;

const std::string officeRelationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
const std::string presentationType =
    "application/vnd.openxmlformats-officedocument.presentationml.presentation.main+xml";

class SavedFile : public test::ShapeTest {
 protected:
  decks::ZipEntries entries() { return decks::readZip(deck.bytes()); }
  /// Opens a file of these entries.
  void openEntries(const decks::ZipEntries& entries, const std::string& name = "deck.pptx") {
    openFile(folder.write(name, decks::writeZip(entries)));
  }
  decks::ZipEntries savedCopy(const std::string& name = "look.pptx") {
    presentation.SaveCopyAs(folder.path(name));
    return test::readZipFile(folder.path(name));
  }
  static void replace(std::string& text, const std::string& what, const std::string& with) {
    const std::size_t at = text.find(what);
    ASSERT_NE(at, std::string::npos) << what;
    text.replace(at, what.size(), with);
  }
  /// Relates a part of the entries to another one.
  static void relate(decks::ZipEntries& entries, const std::string& rels, const std::string& id,
                     const std::string& type, const std::string& target) {
    replace(
        entries[rels].bytes, "</Relationships>",
        "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"/></Relationships>");
  }
  static void declare(decks::ZipEntries& entries, const std::string& part, const std::string& type) {
    replace(entries["[Content_Types].xml"].bytes, "</Types>",
            "<Override PartName=\"/" + part + "\" ContentType=\"" + type + "\"/></Types>");
  }
  static std::string typeOf(const decks::ZipEntries& entries, const std::string& part) {
    pugi::xml_document types;
    types.load_string(entries.at("[Content_Types].xml").bytes.c_str());
    return types.first_child()
        .find_child_by_attribute("PartName", ("/" + part).c_str())
        .attribute("ContentType")
        .value();
  }
  /// docProps/app.xml as lines: "Slides 3", and the titles of parts.
  static Strings told(const decks::ZipEntries& entries) {
    pugi::xml_document document;
    document.load_string(entries.at("docProps/app.xml").bytes.c_str());
    Strings lines;
    for (const pugi::xml_node node : document.document_element().children()) {
      const std::string name = node.name();
      if (node.first_child().type() == pugi::node_pcdata) lines.push_back(name + " " + node.text().get());
    }
    for (const auto& found : document.select_nodes("//vt:vector/@size"))
      lines.push_back(found.attribute().value());
    for (const auto& found : document.select_nodes("//*[self::vt:i4 or self::vt:lpstr]")) {
      lines.push_back(found.node().text().get());
    }
    return lines;
  }
  /// Three slides, "One", "Two" and one without a title, with properties in German, and a picture.
  decks::ZipEntries withProperties() {
    for (const char* title : {"One", "Two"}) deck.slide("titleOnly").placeholder("title").text(title);
    deck.slide("blank").shape("rect", 0, 0, 10, 10);
    decks::ZipEntries made = entries();
    made["docProps/app.xml"].bytes =
        R"(<Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties")"
        R"( xmlns:vt="http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes"><Words>9</Words>)"
        R"(<Application>X</Application><Slides>3</Slides><Notes>0</Notes><HiddenSlides>0</HiddenSlides>)"
        R"(<HeadingPairs><vt:vector size="4" baseType="variant"><vt:variant><vt:lpstr>Design</vt:lpstr>)"
        R"(</vt:variant><vt:variant><vt:i4>1</vt:i4></vt:variant><vt:variant><vt:lpstr>Folientitel</vt:lpstr>)"
        R"(</vt:variant><vt:variant><vt:i4>3</vt:i4></vt:variant></vt:vector></HeadingPairs><TitlesOfParts>)"
        R"(<vt:vector size="4" baseType="lpstr"><vt:lpstr>Plain</vt:lpstr><vt:lpstr>One</vt:lpstr>)"
        R"(<vt:lpstr>Two</vt:lpstr><vt:lpstr>Slide 3</vt:lpstr></vt:vector></TitlesOfParts></Properties>)";
    made["docProps/thumbnail.jpeg"].bytes = "picture of One";
    if (made["_rels/.rels"].bytes.find("docProps/app.xml") == std::string::npos) {
      relate(made, "_rels/.rels", "rIdApp", officeRelationships + "/extended-properties", "docProps/app.xml");
      declare(made, "docProps/app.xml",
              "application/vnd.openxmlformats-officedocument.extended-properties+xml");
    }
    relate(made, "_rels/.rels", "rIdThumb",
           "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
           "docProps/thumbnail.jpeg");
    replace(made["[Content_Types].xml"].bytes, "<Default ",
            "<Default Extension=\"jpeg\" ContentType=\"image/jpeg\"/><Default ");
    return made;
  }
};

TEST_F(SavedFile, PropertiesTellOfTheSlidesThatAreThere) {
  const struct {
    std::string what;
    std::function<void()> act;
    Strings told;
    bool picture;
  } cases[] = {
      {"the last ones go",
       [&] {
         for (int i = 3; i > 1; --i) presentation.Slides().Item(i).Delete();
       },
       {"Application X", "Slides 1", "Notes 0", "HiddenSlides 0", "4", "2", "Design", "1", "Folientitel", "1",
        "Plain", "One"},
       true},
      {"the first one goes",
       [&] { presentation.Slides().Item(1).Delete(); },
       {"Application X", "Slides 2", "Notes 0", "HiddenSlides 0", "4", "3", "Design", "1", "Folientitel", "2",
        "Plain", "Two", "Slide 2"},
       false},
      {"one comes",
       [&] { presentation.Slides().Add(3, host::ppLayoutBlank); },
       {"Application X", "Slides 4", "Notes 0", "HiddenSlides 0", "4", "5", "Design", "1", "Folientitel", "4",
        "Plain", "One", "Two", "Slide 3", "Slide 4"},
       true},
      {"a title changes",
       [&] { shapes(2).Item(1).TextFrame().TextRange().Text("Zwei\rdrei"); },
       {"Application X", "Slides 3", "Notes 0", "HiddenSlides 0", "4", "4", "Design", "1", "Folientitel", "3",
        "Plain", "One", "Zwei drei", "Slide 3"},
       true},
      {"a shape moves",
       [&] { shapes(3).Item(1).Left(5); },
       {"Words 9", "Application X", "Slides 3", "Notes 0", "HiddenSlides 0", "4", "4", "Design", "1",
        "Folientitel", "3", "Plain", "One", "Two", "Slide 3"},
       true},
  };
  const decks::ZipEntries made = withProperties();
  for (const auto& [what, act, expected, picture] : cases) {
    SCOPED_TRACE(what);
    openEntries(made);
    act();
    const decks::ZipEntries saved = savedCopy();
    EXPECT_EQ(told(saved), expected);
    EXPECT_EQ(saved.contains("docProps/thumbnail.jpeg"), picture);
    EXPECT_EQ(test::packageFaults(saved), Strings());
  }
}

TEST_F(SavedFile, TheExtensionSaysWhatKindOfFileIsWritten) {
  deck.slide();
  decks::ZipEntries made = entries();
  replace(made["[Content_Types].xml"].bytes, "presentation.main+xml", "template.main+xml");
  const std::string open = "application/vnd.openxmlformats-officedocument.presentationml.";
  const std::pair<const char*, std::string> kinds[] = {
      {"a.PPTX", presentationType},
      {"a.ppsx", open + "slideshow.main+xml"},
      {"a.potm", "application/vnd.ms-powerpoint.template.macroEnabled.main+xml"},
      {"a.other", open + "template.main+xml"}};
  openEntries(made, "deck.potx");
  for (const auto& [name, type] : kinds) {
    EXPECT_EQ(typeOf(savedCopy(name), "ppt/presentation.xml"), type) << name;
  }
  presentation.Save();
  EXPECT_EQ(typeOf(test::readZipFile(folder.path("deck.potx")), "ppt/presentation.xml"),
            open + "template.main+xml")
      << "a copy of another kind leaves the file's own";
}

TEST_F(SavedFile, MacrosStayBehindWhereTheKindOfFileHoldsNone) {
  deck.slide();
  decks::ZipEntries made = entries();
  replace(made["[Content_Types].xml"].bytes, presentationType,
          "application/vnd.ms-powerpoint.presentation.macroEnabled.main+xml");
  made["ppt/vbaProject.bin"].bytes = "macros";
  declare(made, "ppt/vbaProject.bin", "application/vnd.ms-office.vbaProject");
  relate(made, "ppt/_rels/presentation.xml.rels", "rIdVba",
         "http://schemas.microsoft.com/office/2006/relationships/vbaProject", "vbaProject.bin");
  openEntries(made, "deck.pptm");
  const decks::ZipEntries without = savedCopy("a.pptx"), with = savedCopy("a.pptm");
  EXPECT_FALSE(without.contains("ppt/vbaProject.bin"));
  EXPECT_EQ(test::packageFaults(without), Strings());
  EXPECT_EQ(test::changedEntries(made, with).size(),
            test::changedEntries(made, test::readZipFile(folder.path("deck.pptm"))).size())
      << "what is open has lost nothing";
  EXPECT_TRUE(with.contains("ppt/vbaProject.bin"));
}

TEST_F(SavedFile, SlidesOfOneIdAreToldApart) {
  for (const char* name : {"A", "B", "C"}) deck.slide().shape("rect", 0, 0, 10, 10).named(name);
  decks::ZipEntries made = entries();
  std::string& xml = made["ppt/presentation.xml"].bytes;
  for (const char* id : {"\"257\"", "\"258\""})
    replace(xml, std::string("<p:sldId id=") + id, "<p:sldId id=\"256\"");
  openEntries(made);
  EXPECT_NE(presentation.Saved(), host::msoFalse) << "the user changed nothing";
  host->application().ActiveWindow().View().GotoSlide(3);
  EXPECT_EQ(host::Slide(host->application().ActiveWindow().View().Slide()).Shapes().Item(1).Name(), "C");
  presentation.Slides().Item(2).Delete();
  EXPECT_EQ(shapes(1).Item(1).Name(), "A");
  EXPECT_EQ(shapes(2).Item(1).Name(), "C");
  EXPECT_EQ(test::packageFaults(savedCopy()), Strings());
}

TEST_F(SavedFile, NothingLeadsToASlideThatIsGone) {
  for (int i = 0; i < 3; ++i) deck.slide();
  decks::ZipEntries made = entries();
  const std::string main = R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main")";
  const std::string link = " xmlns:r=\"" + officeRelationships + "\" r:id=\"rIdTo2\"/>";
  made["ppt/viewProps.xml"].bytes = "<p:viewPr" + main + "><p:outlineViewPr><p:sldLst><p:sld" + link +
                                    "</p:sldLst></p:outlineViewPr></p:viewPr>";
  if (made["[Content_Types].xml"].bytes.find("/ppt/viewProps.xml") == std::string::npos) {
    declare(made, "ppt/viewProps.xml",
            "application/vnd.openxmlformats-officedocument.presentationml.viewProps+xml");
    relate(made, "ppt/_rels/presentation.xml.rels", "rIdView", officeRelationships + "/viewProps",
           "viewProps.xml");
  }
  made["ppt/_rels/viewProps.xml.rels"].bytes =
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"></Relationships>)";
  relate(made, "ppt/_rels/viewProps.xml.rels", "rIdTo2", officeRelationships + "/slide", "slides/slide2.xml");
  const std::string layout = "ppt/slideLayouts/slideLayout1.xml";
  replace(made[layout].bytes, "<p:cNvPr id=\"2\" name=\"", "<p:cNvPr id=\"2\" descr=\"\" name=\"");
  const std::size_t properties = made[layout].bytes.find("<p:cNvPr id=\"2\"");
  const std::size_t end = made[layout].bytes.find("/>", properties);
  made[layout].bytes.replace(end, 2, "><a:hlinkClick" + link + "</p:cNvPr>");
  relate(made, "ppt/slideLayouts/_rels/slideLayout1.xml.rels", "rIdTo2", officeRelationships + "/slide",
         "../slides/slide2.xml");
  ASSERT_EQ(test::packageFaults(made), Strings());
  openEntries(made);
  presentation.Slides().Item(2).Delete();
  EXPECT_EQ(test::packageFaults(savedCopy()), Strings());
}

TEST_F(SavedFile, ADiagramGoesWithItsDrawing) {
  const std::string types = "application/vnd.openxmlformats-officedocument.drawingml.";
  const std::string frame =
      R"(<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="9" name="Diagram"/><p:cNvGraphicFramePr/><p:nvPr/>)"
      R"(</p:nvGraphicFramePr><p:xfrm><a:off x="0" y="0"/><a:ext cx="99" cy="99"/></p:xfrm><a:graphic>)"
      R"(<a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/diagram"><dgm:relIds)"
      R"( xmlns:dgm="http://schemas.openxmlformats.org/drawingml/2006/diagram" r:dm="rIdData"/></a:graphicData>)"
      R"(</a:graphic></p:graphicFrame>)";
  deck.slide().xml(frame);
  decks::ZipEntries made = entries();
  made["ppt/diagrams/data1.xml"].bytes =
      R"(<dgm:dataModel xmlns:dgm="http://schemas.openxmlformats.org/drawingml/2006/diagram")"
      R"( xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main"><dgm:extLst><a:ext uri="x">)"
      R"(<dsp:dataModelExt xmlns:dsp="http://schemas.microsoft.com/office/drawing/2008/diagram" relId="rIdDraw"/>)"
      R"(</a:ext></dgm:extLst></dgm:dataModel>)";
  made["ppt/diagrams/drawing1.xml"].bytes = "<drawing/>";
  declare(made, "ppt/diagrams/data1.xml", types + "diagramData+xml");
  declare(made, "ppt/diagrams/drawing1.xml", "application/vnd.ms-office.drawingml.diagramDrawing+xml");
  const std::string rels = "ppt/slides/_rels/slide1.xml.rels";
  relate(made, rels, "rIdData", officeRelationships + "/diagramData", "../diagrams/data1.xml");
  relate(made, rels, "rIdDraw", "http://schemas.microsoft.com/office/2007/relationships/diagramDrawing",
         "../diagrams/drawing1.xml");
  openEntries(made);
  shapes().Item(1).Copy();
  const host::Shape copy = shapes().Paste().Item(1);
  shapes().Item(1).Delete();
  decks::ZipEntries saved = savedCopy();
  const auto diagrams = [&] {
    return std::ranges::count_if(saved,
                                 [](const auto& entry) { return entry.first.starts_with("ppt/diagrams/"); });
  };
  EXPECT_EQ(diagrams(), 2) << "the copy has its own";
  EXPECT_EQ(test::packageFaults(saved), Strings());
  copy.Delete();
  saved = savedCopy();
  EXPECT_EQ(diagrams(), 0);
  EXPECT_EQ(test::packageFaults(saved), Strings());
}

// Shapes that fit their text keep what the text decides; the height follows a width.
TEST_F(SavedFile, BoxesThatFitTheirTextAreFittedAgain) {
  deck.slide().textBox(100, 100, 200, 10, "some words that need a line or two").named("wraps").fitToText();
  deck.slide().textBox(100, 100, 200, 10, "words").named("grows").fitToText().noWrap();
  auto group = deck.slide().group(0, 0, 400, 100);
  group.children().textBox(0, 0, 400, 10, "some words that need a line or two").named("inner").fitToText();
  group.children().shape("rect", 0, 50, 400, 50);
  open();
  const auto fitted = [&](int slide) {
    const host::Shape box = shapes(slide).Item(1);
    box.TextFrame().TextRange().InsertAfter("");
    return box.Height();
  };
  const host::Shape box = shapes(1).Item(1);
  const float two = (fitted(1), box.Height());
  box.Width(400);
  const float one = box.Height();
  EXPECT_LT(one, two);
  box.Height(300);
  EXPECT_EQ(box.Height(), one);
  EXPECT_EQ(box.Width(), 400);
  box.Width(200);
  EXPECT_EQ(box.Height(), two);

  const host::Shape grows = shapes(2).Item(1);
  const float width = (fitted(2), grows.Width());
  grows.Width(500);
  EXPECT_EQ(grows.Width(), width);

  const host::Shape whole = shapes(3).Item(1);
  const host::Shape inner = whole.GroupItems().Item(1);
  whole.Width(200);
  EXPECT_EQ(inner.Width(), 200);
  EXPECT_EQ(inner.Height(), two);
}

}  // namespace
}  // namespace vellumark::deck
