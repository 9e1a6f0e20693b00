#include "decks/deck_writer.h"

#include <algorithm>
#include <stdexcept>

#include "decks/layouts.h"
#include "decks/png.h"
#include "decks/shape_xml.h"
#include "decks/xml_add.h"

namespace vellumark::decks {
namespace {

const std::string officeTypes = "application/vnd.openxmlformats-officedocument.";
const std::string presentationTypes = officeTypes + "presentationml.";
const std::string officeRelationships =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
const std::string packageNames = "http://schemas.openxmlformats.org/package/2006/";

/// "../slideLayouts/slideLayout1.xml" from "ppt/slides/slide1.xml" to "ppt/slideLayouts/slideLayout1.xml".
std::string relativePath(const std::string& from, const std::string& to) {
  std::size_t common = 0;
  for (std::size_t i = 0; i < std::min(from.size(), to.size()) && from[i] == to[i]; ++i) {
    if (from[i] == '/') common = i + 1;
  }
  std::string path;
  for (const char c : from.substr(common)) {
    if (c == '/') path += "../";
  }
  return path + to.substr(common);
}

std::string numbered(const std::string& stem, std::size_t number) {
  return stem + std::to_string(number) + ".xml";
}

/// Gives elements and attributes the prefixes `p` -> none, `a` -> draw, `r` -> link, and declares them so.
void usePrefixes(pugi::xml_node node) {
  const auto renamed = [](const std::string& name, bool element) -> std::string {
    if (element && name.starts_with("p:")) return name.substr(2);
    if (name.starts_with("a:")) return "draw:" + name.substr(2);
    if (name.starts_with("r:")) return "link:" + name.substr(2);
    if (name == "xmlns:p") return "xmlns";
    if (name == "xmlns:a") return "xmlns:draw";
    if (name == "xmlns:r") return "xmlns:link";
    return name;
  };
  if (node.type() == pugi::node_element) node.set_name(renamed(node.name(), true).c_str());
  for (auto attribute : node.attributes()) attribute.set_name(renamed(attribute.name(), false).c_str());
  for (auto child : node.children()) usePrefixes(child);
}

class DeckWriter {
 public:
  explicit DeckWriter(const DeckData& deck) : deck_(deck) {}

  ZipEntries run() {
    relate("", "officeDocument", presentationPart);
    writeMasters();
    const bool anyNotes = std::any_of(deck_.slides.begin(), deck_.slides.end(),
                                      [](const auto& slide) { return slide->notes.has_value(); });
    if (anyNotes) writeNotesMaster();
    for (std::size_t i = 0; i < deck_.slides.size(); ++i) writeSlide(i);
    writePresentation(anyNotes);
    writeProperties();
    writeRelationships();
    writeContentTypes();
    return std::move(entries_);
  }

 private:
  static constexpr const char* presentationPart = "ppt/presentation.xml";
  static constexpr const char* notesMasterPart = "ppt/notesMasters/notesMaster1.xml";

  struct Relationship {
    std::string id, type, target;
  };

  // ---- package

  std::string relate(const std::string& from, const std::string& type, const std::string& to) {
    auto& list = relationships_[from];
    list.push_back({"rId" + std::to_string(list.size() + 1),
                    type.find(':') == std::string::npos ? officeRelationships + type : type,
                    relativePath(from, to)});
    return list.back().id;
  }

  void put(const std::string& part, const std::string& contentType, const std::string& bytes) {
    entries_[part].bytes = bytes;
    if (!contentType.empty()) contentTypes_[part] = contentType;
  }

  void put(const std::string& part, const std::string& contentType, pugi::xml_document& document,
           bool unusual) {
    if (unusual) usePrefixes(document);
    put(part, contentType, xmlText(document));
  }

  void writeRelationships() {
    for (const auto& [part, list] : relationships_) {
      pugi::xml_document document;
      const auto root = add(document, "Relationships", {{"xmlns", packageNames + "relationships"}});
      for (const auto& entry : list) {
        add(root, "Relationship", {{"Id", entry.id}, {"Type", entry.type}, {"Target", entry.target}});
      }
      const auto slash = part.rfind('/') + 1;  // npos + 1 is 0
      put(part.substr(0, slash) + "_rels/" + part.substr(slash) + ".rels", "", xmlText(document));
    }
  }

  void writeContentTypes() {
    pugi::xml_document document;
    const auto root = add(document, "Types", {{"xmlns", packageNames + "content-types"}});
    add(root, "Default", {{"Extension", "png"}, {"ContentType", "image/png"}});
    add(root, "Default",
        {{"Extension", "rels"}, {"ContentType", "application/vnd.openxmlformats-package.relationships+xml"}});
    add(root, "Default", {{"Extension", "xml"}, {"ContentType", "application/xml"}});
    for (const auto& [part, type] : contentTypes_) {
      add(root, "Override", {{"PartName", "/" + part}, {"ContentType", type}});
    }
    put("[Content_Types].xml", "", xmlText(document));
  }

  // ---- parts that shapes and slides relate to

  std::string writeTags(const std::string& holder, const Tags& tags) {
    const std::string part = numbered("ppt/tags/tag", ++tagParts_);
    pugi::xml_document document;
    const auto root = addRoot(document, "p:tagLst");
    for (const auto& [name, value] : tags) {
      std::string upper = name;
      std::transform(upper.begin(), upper.end(), upper.begin(),
                     [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
      add(root, "p:tag", {{"name", upper}}).append_attribute("val") = value.c_str();
    }
    put(part, presentationTypes + "tags+xml", document, false);
    return relate(holder, "tags", part);
  }

  PartLinks linksOf(const std::string& holder) {
    return {[=, this](const Tags& tags) { return writeTags(holder, tags); },
            [=, this](const std::string& color) {
              const std::string part = "ppt/media/image" + color + ".png";  // one part for all pictures alike
              put(part, "", png(16, 16, color));
              return relate(holder, "image", part);
            },
            [=, this](const ShapeData& shape) {
              const std::string part = numbered("ppt/charts/chart", ++chartParts_);
              put(part, officeTypes + "drawingml.chart+xml", chartXml(shape));
              return relate(holder, "chart", part);
            }};
  }

  static pugi::xml_node addRoot(pugi::xml_document& document, const char* name) {
    return add(document, name,
               {{"xmlns:a", "http://schemas.openxmlformats.org/drawingml/2006/main"},
                {"xmlns:r", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
                {"xmlns:p", "http://schemas.openxmlformats.org/presentationml/2006/main"}});
  }

  pugi::xml_node addCommonData(pugi::xml_node root, const std::string& part, const TreeData& tree,
                               const std::string& background, const std::string& name = {}) {
    const auto data = add(root, "p:cSld", {{"name", name}});
    appendBackground(data, background);
    appendShapes(data, tree, linksOf(part));
    return data;
  }

  static void addColorMap(pugi::xml_node root) {
    const auto map = add(root, "p:clrMap", {{"bg1", "lt1"}, {"tx1", "dk1"}, {"bg2", "lt2"}, {"tx2", "dk2"}});
    for (const char* name :
         {"accent1", "accent2", "accent3", "accent4", "accent5", "accent6", "hlink", "folHlink"}) {
      pugi::xml_node(map).append_attribute(name) = name;
    }
  }

  static void addMasterColors(pugi::xml_node root) { add(add(root, "p:clrMapOvr"), "a:masterClrMapping"); }

  std::string writeTheme(const Theme& theme) {
    const std::string part = numbered("ppt/theme/theme", ++themeParts_);
    put(part, officeTypes + "theme+xml", themeXml(theme));
    return part;
  }

  // ---- masters, layouts, slides, notes

  void writeMasters() {
    long long id = 2147483648;  // masters and layouts count together from here
    std::size_t layoutNumber = 0;
    for (std::size_t m = 0; m < deck_.masters.size(); ++m) {
      const MasterData& master = *deck_.masters[m];
      const std::string part = numbered("ppt/slideMasters/slideMaster", m + 1);
      masterIds_.emplace_back(id++, relate(presentationPart, "slideMaster", part));
      pugi::xml_document document;
      const auto root = addRoot(document, "p:sldMaster");
      addCommonData(root, part, *master.tree, master.background);
      addColorMap(root);
      const auto list = add(root, "p:sldLayoutIdLst");
      for (const auto& layout : master.layouts) {
        const std::string layoutPart = numbered("ppt/slideLayouts/slideLayout", ++layoutNumber);
        add(list, "p:sldLayoutId", {{"id", id++}, {"r:id", relate(part, "slideLayout", layoutPart)}});
        writeLayout(*layout, layoutPart, part);
        layoutParts_[{static_cast<int>(m), layout->type}] = layoutPart;
      }
      appendTextStyles(root, master.theme);
      relate(part, "theme", writeTheme(master.theme));
      put(part, presentationTypes + "slideMaster+xml", document, deck_.unusualPrefixes);
    }
  }

  void writeLayout(const LayoutData& layout, const std::string& part, const std::string& masterPart) {
    relate(part, "slideMaster", masterPart);
    pugi::xml_document document;
    const auto root = addRoot(document, "p:sldLayout");
    if (layout.hideMasterShapes) pugi::xml_node(root).append_attribute("showMasterSp") = "0";
    if (layout.type != "cust") pugi::xml_node(root).append_attribute("type") = layout.type.c_str();
    pugi::xml_node(root).append_attribute("preserve") = "1";
    addCommonData(root, part, *layout.tree, layout.background, layout.name);
    addMasterColors(root);
    put(part, presentationTypes + "slideLayout+xml", document, deck_.unusualPrefixes);
  }

  void writeSlide(std::size_t index) {
    const SlideData& slide = *deck_.slides[index];
    const std::string part = numbered("ppt/slides/slide", index + 1);
    slideIds_.emplace_back(slide.id, relate(presentationPart, "slide", part));
    const auto layout = layoutParts_.find({slide.master, slide.layout});
    if (layout == layoutParts_.end())
      throw std::logic_error("the layout " + slide.layout + " went after the slide came");
    relate(part, "slideLayout", layout->second);
    pugi::xml_document document;
    const auto root = addRoot(document, "p:sld");
    if (slide.hidden) pugi::xml_node(root).append_attribute("show") = "0";
    const auto data = addCommonData(root, part, *slide.tree, slide.background);
    if (!slide.tags.empty()) appendTagsReference(data, writeTags(part, slide.tags));
    addMasterColors(root);
    put(part, presentationTypes + "slide+xml", document, slide.unusualPrefixes || deck_.unusualPrefixes);
    if (slide.notes) writeNotes(*slide.notes, part, numbered("ppt/notesSlides/notesSlide", index + 1));
  }

  void writeNotesMaster() {
    auto tree = std::make_shared<TreeData>();
    ShapeTree shapes(tree);
    shapes.placeholder("sldImg", 2).frame(60, 60, 420, 236);
    shapes.placeholder("body", 3).frame(60, 330, 420, 320).text("Notes");
    pugi::xml_document document;
    const auto root = addRoot(document, "p:notesMaster");
    addCommonData(root, notesMasterPart, *tree, "bg1");
    addColorMap(root);
    relate(notesMasterPart, "theme", writeTheme(deck_.masters.front()->theme));
    put(notesMasterPart, presentationTypes + "notesMaster+xml", document, false);
  }

  void writeNotes(const std::string& text, const std::string& slidePart, const std::string& part) {
    auto tree = std::make_shared<TreeData>();
    ShapeTree shapes(tree);
    shapes.placeholder("sldImg").named("Slide Image Placeholder 2");
    shapes.placeholder("body", 3).named("Notes Placeholder 3").text(text);
    relate(slidePart, "notesSlide", part);
    relate(part, "notesMaster", notesMasterPart);
    relate(part, "slide", slidePart);
    pugi::xml_document document;
    const auto root = addRoot(document, "p:notes");
    addCommonData(root, part, *tree, "");
    addMasterColors(root);
    put(part, presentationTypes + "notesSlide+xml", document, false);
  }

  // ---- the presentation and what stands beside it

  void writePresentation(bool notes) {
    pugi::xml_document document;
    auto root = addRoot(document, "p:presentation");
    if (deck_.firstSlideNumber != 1) root.append_attribute("firstSlideNum") = deck_.firstSlideNumber;
    const auto masters = add(root, "p:sldMasterIdLst");
    for (const auto& [id, link] : masterIds_) add(masters, "p:sldMasterId", {{"id", id}, {"r:id", link}});
    if (notes) {
      add(add(root, "p:notesMasterIdLst"), "p:notesMasterId",
          {{"r:id", relate(presentationPart, "notesMaster", notesMasterPart)}});
    }
    if (!slideIds_.empty()) {
      const auto slides = add(root, "p:sldIdLst");
      for (const auto& [id, link] : slideIds_) add(slides, "p:sldId", {{"id", id}, {"r:id", link}});
    }
    add(root, "p:sldSz", {{"cx", emu(deck_.width)}, {"cy", emu(deck_.height)}});
    add(root, "p:notesSz", {{"cx", emu(540)}, {"cy", emu(720)}});
    if (!deck_.tags.empty()) appendTagsReference(root, writeTags(presentationPart, deck_.tags));
    put(presentationPart, presentationTypes + "presentation.main+xml", document, deck_.unusualPrefixes);
  }

  void writeProperties() {
    pugi::xml_document settings;
    const auto root = addRoot(settings, "p:presentationPr");
    if (!deck_.extraColors.empty()) {
      const auto colors = add(root, "p:clrMru");
      for (const auto& color : deck_.extraColors) add(colors, "a:srgbClr", {{"val", color}});
    }
    put("ppt/presProps.xml", presentationTypes + "presProps+xml", settings, false);
    relate(presentationPart, "presProps", "ppt/presProps.xml");

    if (!deck_.tableStyles.empty()) writeTableStyles();

    pugi::xml_document core;
    const auto about = add(core, "cp:coreProperties",
                           {{"xmlns:cp", packageNames + "metadata/core-properties"},
                            {"xmlns:dc", "http://purl.org/dc/elements/1.1/"},
                            {"xmlns:dcterms", "http://purl.org/dc/terms/"},
                            {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"}});
    add(about, "dc:title").text() = deck_.title.c_str();
    add(about, "dcterms:created", {{"xsi:type", "dcterms:W3CDTF"}}).text() = "2024-01-01T00:00:00Z";
    put("docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml", xmlText(core));
    relate("", packageNames + "relationships/metadata/core-properties", "docProps/core.xml");
  }

  void writeTableStyles() {
    pugi::xml_document styles;
    auto list = addRoot(styles, "a:tblStyleLst");
    list.append_attribute("def") = deck_.tableStyles.begin()->first.c_str();
    for (const auto& [id, parts] : deck_.tableStyles) {
      addParsed(add(list, "a:tblStyle", {{"styleId", id}, {"styleName", id}}), parts);
    }
    put("ppt/tableStyles.xml", presentationTypes + "tableStyles+xml", styles, false);
    relate(presentationPart, "tableStyles", "ppt/tableStyles.xml");
  }

  const DeckData& deck_;
  ZipEntries entries_;
  std::map<std::string, std::vector<Relationship>> relationships_;
  std::map<std::string, std::string> contentTypes_;
  std::map<std::pair<int, std::string>, std::string> layoutParts_;
  std::vector<std::pair<long long, std::string>> masterIds_, slideIds_;
  std::size_t tagParts_ = 0, chartParts_ = 0, themeParts_ = 0;
};

}  // namespace

ZipEntries deckEntries(const DeckData& deck) { return DeckWriter(deck).run(); }

}  // namespace vellumark::decks
