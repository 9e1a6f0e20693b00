#include "deck/model/notes_pages.h"

#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>

#include "deck/model/document_properties.h"
#include "deck/model/references.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_copier.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr const char* notesType =
    "application/vnd.openxmlformats-officedocument.presentationml.notesSlide+xml";
constexpr const char* masterType =
    "application/vnd.openxmlformats-officedocument.presentationml.notesMaster+xml";
constexpr const char* themeType = "application/vnd.openxmlformats-officedocument.theme+xml";
constexpr const char* notesPattern = "ppt/notesSlides/notesSlide%d.xml";
constexpr const char* masterPattern = "ppt/notesMasters/notesMaster%d.xml";
constexpr const char* themePattern = "ppt/theme/theme%d.xml";

constexpr std::string_view namespaces =
    R"( xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
    R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main")";
constexpr std::string_view group =
    R"(<p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr/>)";
constexpr std::string_view imageLocks = R"(<a:spLocks noGrp="1" noRot="1" noChangeAspect="1"/>)";
constexpr std::string_view numberField =
    R"(<a:p><a:fld id="{8D3B1F60-5C1B-4F0B-9B0A-0B8B7A6F2E11}" type="slidenum"><a:rPr lang="en-US"/><a:t>1</a:t></a:fld></a:p>)";

/// A placeholder of the usual notes master, on a page of 540 by 720 points; lengths in EMU.
struct Place {
  const char* name;
  const char* type;
  int index;
  long x, y, width, height;
};
constexpr Place places[] = {{"Slide Image Placeholder", "sldImg", 0, 1143000, 685800, 4572000, 3429000},
                            {"Notes Placeholder", "body", 1, 685800, 4343400, 5486400, 4114800},
                            {"Slide Number Placeholder", "sldNum", 2, 3884613, 8685213, 2971800, 457200}};

std::string masterXml() {
  std::ostringstream out;
  out << "<p:notesMaster" << namespaces
      << R"(><p:cSld><p:bg><p:bgRef idx="1001"><a:schemeClr val="bg1"/></p:bgRef></p:bg><p:spTree>)" << group;
  int id = 2;
  for (const Place& place : places) {
    const bool image = std::string_view(place.type) == "sldImg";
    out << "<p:sp><p:nvSpPr><p:cNvPr id=\"" << id << "\" name=\"" << place.name << ' ' << id - 1
        << "\"/><p:cNvSpPr>" << (image ? imageLocks : R"(<a:spLocks noGrp="1"/>)")
        << "</p:cNvSpPr><p:nvPr><p:ph type=\"" << place.type << '"';
    if (place.index > 0) out << " idx=\"" << place.index << '"';
    out << "/></p:nvPr></p:nvSpPr><p:spPr><a:xfrm><a:off x=\"" << place.x << "\" y=\"" << place.y
        << "\"/><a:ext cx=\"" << place.width << "\" cy=\"" << place.height
        << R"("/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>)";
    if (image)
      out << R"(<a:noFill/><a:ln w="12700"><a:solidFill><a:prstClr val="black"/></a:solidFill></a:ln>)";
    out << "</p:spPr>";
    if (!image) {
      out << "<p:txBody><a:bodyPr/><a:lstStyle/>"
          << (place.index == 1
                  ? R"(<a:p><a:r><a:rPr lang="en-US"/><a:t>Click to edit Master text styles</a:t></a:r></a:p>)"
                  : numberField)
          << "</p:txBody>";
    }
    out << "</p:sp>";
    ++id;
  }
  out << R"(</p:spTree></p:cSld><p:clrMap bg1="lt1" tx1="dk1" bg2="lt2" tx2="dk2" accent1="accent1")"
      << R"( accent2="accent2" accent3="accent3" accent4="accent4" accent5="accent5" accent6="accent6")"
      << R"( hlink="hlink" folHlink="folHlink"/><p:notesStyle>)";
  for (int level = 1; level <= 9; ++level) {
    out << "<a:lvl" << level << "pPr marL=\"" << 457200L * (level - 1)
        << R"(" algn="l"><a:defRPr sz="1200"><a:solidFill><a:schemeClr val="tx1"/></a:solidFill>)"
        << R"(<a:latin typeface="+mn-lt"/></a:defRPr></a:lvl)" << level << "pPr>";
  }
  out << "</p:notesStyle></p:notesMaster>";
  return out.str();
}

/// A page with the placeholders that a master has for slide image, notes and number.
std::string pageXml(const Sheet& master) {
  std::ostringstream out;
  out << "<p:notes" << namespaces << "><p:cSld><p:spTree>" << group;
  int id = 2;
  for (const xml_node shape : shapeNodes(master.shapeTree())) {
    const xml_node place = shape.child("p:nvSpPr").child("p:nvPr").child("p:ph");
    const std::string_view type = place.attribute("type").value();
    for (const Place& usual : places) {
      if (type != usual.type) continue;
      const bool image = type == "sldImg";
      out << "<p:sp><p:nvSpPr><p:cNvPr id=\"" << id << "\" name=\"" << usual.name << ' ' << id - 1
          << "\"/><p:cNvSpPr>" << (image ? imageLocks : R"(<a:spLocks noGrp="1"/>)")
          << "</p:cNvSpPr><p:nvPr><p:ph type=\"" << type << '"';
      if (const pugi::xml_attribute index = place.attribute("idx"))
        out << " idx=\"" << index.as_uint() << '"';
      out << "/></p:nvPr></p:nvSpPr><p:spPr/>";
      if (!image) {
        out << "<p:txBody><a:bodyPr/><a:lstStyle/>"
            << (type == "sldNum" ? numberField
                                 : std::string_view(R"(<a:p><a:endParaRPr lang="en-US"/></a:p>)"))
            << "</p:txBody>";
      }
      out << "</p:sp>";
      ++id;
    }
  }
  out << "</p:spTree></p:cSld><p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:notes>";
  return out.str();
}

/// Lists a notes master in presentation.xml.
void listMaster(Document& document, const Part& master) {
  xml_node list = childInOrder(document.presentation(), "p:notesMasterIdLst",
                               {"p:handoutMasterIdLst", "p:sldIdLst", "p:sldSz", "p:notesSz", "p:smartTags",
                                "p:embeddedFontLst", "p:custShowLst", "p:photoAlbum", "p:custDataLst",
                                "p:kinsoku", "p:defaultTextStyle", "p:modifyVerifier", "p:extLst"});
  xml_node entry = list.append_child("p:notesMasterId");
  entry.append_attribute("r:id").set_value(
      document.presentationPart()->relate(master, "notesMaster").c_str());
  document.touch(*document.presentationPart());
}

/// The theme of the first slide master, for a notes master that has to have one of its own.
std::string themeXml(Document& document) {
  for (const Sheet& master : document.masters()) {
    const Relationship* relationship = master.part->firstRelationship("theme");
    if (const PartRef theme = relationship ? master.part->target(*relationship) : nullptr)
      return theme->bytes();
  }
  throw FormatError(document.presentationPart()->name(),
                    "has no slide master with a theme, which notes pages need");
}

/// The notes master, a draft where the file has none.
Sheet masterOrDraft(const DocumentRef& document) {
  if (const Sheet master = document->related("notesMaster")) return master;
  if (PartRef draft = document->draft("notesMaster")) return document->sheet(std::move(draft));
  Package& package = document->package();
  const PartRef theme = package.draftXml(package.freeName(themePattern), themeType, themeXml(*document));
  const PartRef master = package.draftXml(package.freeName(masterPattern), masterType, masterXml());
  master->relate(*theme, "theme");
  document->keepDraft("notesMaster", master, [document = document.get(), master, theme] {
    document->package().adopt(theme);
    document->package().adopt(master);
    listMaster(*document, *master);
  });
  return document->sheet(master);
}

PartRef notesPart(const Sheet& slide) {
  const Relationship* relationship = slide.part->firstRelationship("notesSlide");
  return relationship ? slide.part->target(*relationship) : nullptr;
}

/// The notes master that copies of notes pages follow: the presentation's own, else a copy of theirs.
Sheet masterFor(const DocumentRef& document, const Sheet& like, PartCopier& copier) {
  if (Sheet master = document->related("notesMaster")) return master;
  if (!like || like.document == document) return like;
  const PartRef master = copier.copyAnew(like.part);
  for (const std::string& id : copier.leftOut(master)) dropReferences(master->root(), id);
  listMaster(*document, *master);
  return document->sheet(master);
}

}  // namespace

bool hasNotesPage(const Sheet& slide) { return notesPart(slide) != nullptr; }

Sheet notesPage(const Sheet& slide) {
  const DocumentRef& document = slide.document;
  if (PartRef part = notesPart(slide)) return document->sheet(std::move(part));
  const std::string purpose = "notes of " + slide.part->name();
  if (PartRef draft = document->draft(purpose)) return document->sheet(std::move(draft));
  const Sheet master = masterOrDraft(document);
  Package& package = document->package();
  const PartRef page = package.draftXml(package.freeName(notesPattern), notesType, pageXml(master));
  page->relate(*master.part, "notesMaster");
  page->relate(*slide.part, "slide");
  const auto adopt = [document = document.get(), page, slide = slide.part, master = master.part] {
    if (slide->removed()) return;
    if (!document->related("notesMaster")) document->touch(*master);
    document->package().adopt(page);
    slide->relate(*page, "notesSlide");
    tellOfNotesPage(*document);
  };
  document->keepDraft(purpose, page, adopt);
  return document->sheet(page);
}

void copyNotesPage(const Sheet& slide, const Sheet& to, PartCopier& copier) {
  const PartRef source = notesPart(slide);
  if (!source) return;
  const Sheet page = slide.document->sheet(source);
  const Sheet master = masterFor(to.document, page.parent(), copier);
  if (!master) return;
  copier.standIn(slide.part, to.part);
  to.part->relate(*copyUnder(page, master, copier), "notesSlide");
  to.touch();
}

}  // namespace vellumark::deck
