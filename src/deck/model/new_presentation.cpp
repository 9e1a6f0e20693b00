#include "deck/model/new_presentation.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string_view>
#include <vector>

namespace vellumark::deck {
namespace {

constexpr std::string_view declaration = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                                         "\n";
constexpr std::string_view namespaces =
    R"( xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
    R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main")";
constexpr std::string_view groupProperties =
    R"(<p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr><a:xfrm>)"
    R"(<a:off x="0" y="0"/><a:ext cx="0" cy="0"/><a:chOff x="0" y="0"/><a:chExt cx="0" cy="0"/></a:xfrm></p:grpSpPr>)";

/// A placeholder of a layout or master; lengths in EMU.
struct Placeholder {
  const char* name;
  const char* type;          ///< p:ph/@type, empty for a content placeholder
  int index;                 ///< p:ph/@idx, 0 for none
  long x, y, width, height;  ///< a width of 0 leaves the frame to the master
  const char* prompt;
};

struct LayoutPlan {
  const char* type;
  const char* name;
  std::vector<Placeholder> placeholders;
};

constexpr std::string_view colorMapOverride = "<p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr>";

// Lengths are EMU; the margins are 66 points.
constexpr long slideWidth = 12192000, slideHeight = 6858000;
constexpr long left = 838200, wide = 10515600, bodyTop = 1825625, bodyHigh = 4351338, half = 5181600;
constexpr long rightHalf = left + wide - half;

constexpr Placeholder titleOnTop{"Title", "title", 0,       left,
                                 365125,  wide,    1325563, "Click to edit Master title style"};
constexpr const char* bodyPrompt = "Click to edit Master text styles";

const std::vector<LayoutPlan>& layoutPlans() {
  static const std::vector<LayoutPlan> plans{
      {"title",
       "Title Slide",
       {{"Title", "ctrTitle", 0, 1524000, 1122363, 9144000, 2387600, "Click to edit Master title style"},
        {"Subtitle", "subTitle", 1, 1524000, 3602038, 9144000, 1655762,
         "Click to edit Master subtitle style"}}},
      {"obj",
       "Title and Content",
       {titleOnTop, {"Content Placeholder", "", 1, left, bodyTop, wide, bodyHigh, bodyPrompt}}},
      {"secHead",
       "Section Header",
       {{"Title", "title", 0, 831850, 1709738, wide, 2852737, "Click to edit Master title style"},
        {"Text Placeholder", "body", 1, 831850, 4589463, wide, 1500187, bodyPrompt}}},
      {"twoObj",
       "Two Content",
       {titleOnTop,
        {"Content Placeholder", "", 1, left, bodyTop, half, bodyHigh, bodyPrompt},
        {"Content Placeholder", "", 2, rightHalf, bodyTop, half, bodyHigh, bodyPrompt}}},
      {"tx",
       "Title and Text",
       {titleOnTop, {"Text Placeholder", "body", 1, left, bodyTop, wide, bodyHigh, bodyPrompt}}},
      {"titleOnly", "Title Only", {titleOnTop}},
      {"blank", "Blank", {}},
  };
  return plans;
}

void writePlaceholder(std::ostream& out, const Placeholder& placeholder, int id) {
  out << "<p:sp><p:nvSpPr><p:cNvPr id=\"" << id << "\" name=\"" << placeholder.name << ' ' << id - 1
      << "\"/><p:cNvSpPr><a:spLocks noGrp=\"1\"/></p:cNvSpPr><p:nvPr><p:ph";
  if (*placeholder.type) out << " type=\"" << placeholder.type << '"';
  if (placeholder.index) out << " idx=\"" << placeholder.index << '"';
  out << "/></p:nvPr></p:nvSpPr><p:spPr>";
  if (placeholder.width > 0) {
    out << "<a:xfrm><a:off x=\"" << placeholder.x << "\" y=\"" << placeholder.y << "\"/><a:ext cx=\""
        << placeholder.width << "\" cy=\"" << placeholder.height
        << R"("/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>)";
  }
  out << "</p:spPr><p:txBody><a:bodyPr/><a:lstStyle/><a:p><a:r><a:rPr lang=\"en-US\"/><a:t>"
      << placeholder.prompt << "</a:t></a:r></a:p></p:txBody></p:sp>";
}

std::string sheetXml(std::string_view element, std::string_view attributes, const char* name,
                     std::string_view background, const std::vector<Placeholder>& placeholders,
                     std::string_view tail) {
  std::ostringstream out;
  out << declaration << "<p:" << element << namespaces << attributes << "><p:cSld";
  if (*name) out << " name=\"" << name << '"';
  out << '>' << background << "<p:spTree>" << groupProperties;
  int id = 2;
  for (const Placeholder& placeholder : placeholders) writePlaceholder(out, placeholder, id++);
  out << "</p:spTree></p:cSld>" << tail << "</p:" << element << '>';
  return out.str();
}

std::string textStyles() {
  std::ostringstream out;
  const auto level = [&](int number, long margin, long indent, int size, std::string_view font, bool bullet) {
    out << "<a:lvl" << number << "pPr marL=\"" << margin << "\" indent=\"" << indent << "\" algn=\"l\">";
    out << (bullet ? R"(<a:buFont typeface="Arial"/><a:buChar char="&#x2022;"/>)" : "<a:buNone/>");
    out << "<a:defRPr sz=\"" << size
        << R"("><a:solidFill><a:schemeClr val="tx1"/></a:solidFill><a:latin typeface=")" << font
        << R"("/></a:defRPr></a:lvl)" << number << "pPr>";
  };
  out << "<p:txStyles><p:titleStyle>";
  level(1, 0, 0, 4400, "+mj-lt", false);
  out << "</p:titleStyle><p:bodyStyle>";
  constexpr int sizes[] = {2800, 2400, 2000, 1800, 1800, 1800, 1800, 1800, 1800};
  for (int number = 1; number <= 9; ++number) {
    level(number, 228600 + 457200L * (number - 1), -228600, sizes[number - 1], "+mn-lt", true);
  }
  out << "</p:bodyStyle><p:otherStyle>";
  for (int number = 1; number <= 9; ++number) level(number, 457200L * (number - 1), 0, 1800, "+mn-lt", false);
  out << "</p:otherStyle></p:txStyles>";
  return out.str();
}

std::string themeXml() {
  std::ostringstream out;
  out << declaration
      << R"(<a:theme xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" name="Office Theme">)"
      << R"(<a:themeElements><a:clrScheme name="Office">)";
  constexpr std::pair<const char*, const char*> colors[] = {
      {"dk1", "000000"},     {"lt1", "FFFFFF"},     {"dk2", "44546A"},     {"lt2", "E7E6E6"},
      {"accent1", "4472C4"}, {"accent2", "ED7D31"}, {"accent3", "A5A5A5"}, {"accent4", "FFC000"},
      {"accent5", "5B9BD5"}, {"accent6", "70AD47"}, {"hlink", "0563C1"},   {"folHlink", "954F72"}};
  for (const auto& [name, rgb] : colors) {
    out << "<a:" << name << "><a:srgbClr val=\"" << rgb << "\"/></a:" << name << '>';
  }
  out << R"(</a:clrScheme><a:fontScheme name="Office">)";
  for (const char* font : {"major", "minor"}) {
    out << "<a:" << font << R"(Font><a:latin typeface="Arial"/><a:ea typeface=""/><a:cs typeface=""/></a:)"
        << font << "Font>";
  }
  constexpr std::string_view fill = R"(<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>)";
  out << R"(</a:fontScheme><a:fmtScheme name="Office"><a:fillStyleLst>)" << fill << fill << fill
      << "</a:fillStyleLst><a:lnStyleLst>";
  for (const int width : {6350, 12700, 19050}) {
    out << "<a:ln w=\"" << width << "\">" << fill << R"(<a:prstDash val="solid"/></a:ln>)";
  }
  out << "</a:lnStyleLst><a:effectStyleLst>";
  for (int i = 0; i < 3; ++i) out << "<a:effectStyle><a:effectLst/></a:effectStyle>";
  out << "</a:effectStyleLst><a:bgFillStyleLst>" << fill << fill << fill
      << "</a:bgFillStyleLst></a:fmtScheme></a:themeElements></a:theme>";
  return out.str();
}

}  // namespace

std::unique_ptr<Package> newPresentation() {
  constexpr const char* base = "application/vnd.openxmlformats-officedocument.presentationml.";
  constexpr std::string_view colorMap =
      R"(<p:clrMap bg1="lt1" tx1="dk1" bg2="lt2" tx2="dk2" accent1="accent1" accent2="accent2" accent3="accent3" )"
      R"(accent4="accent4" accent5="accent5" accent6="accent6" hlink="hlink" folHlink="folHlink"/>)";
  constexpr std::string_view background =
      R"(<p:bg><p:bgRef idx="1001"><a:schemeClr val="bg1"/></p:bgRef></p:bg>)";
  // Ids of masters and layouts share one range, from 2^31 up.
  constexpr long long masterId = 2147483648LL;

  auto package = Package::create();
  const PartRef theme = package->addXml(
      "ppt/theme/theme1.xml", "application/vnd.openxmlformats-officedocument.theme+xml", themeXml());

  std::ostringstream layoutIds;
  const auto& plans = layoutPlans();
  for (std::size_t i = 0; i < plans.size(); ++i) {
    layoutIds << "<p:sldLayoutId id=\"" << masterId + 1 + static_cast<long long>(i) << "\" r:id=\"rId"
              << i + 1 << "\"/>";
  }
  const PartRef master = package->addXml(
      "ppt/slideMasters/slideMaster1.xml", base + std::string("slideMaster+xml"),
      sheetXml("sldMaster", "", "", background,
               {titleOnTop, {"Text Placeholder", "body", 1, left, bodyTop, wide, bodyHigh, bodyPrompt}},
               std::string(colorMap) + "<p:sldLayoutIdLst>" + layoutIds.str() + "</p:sldLayoutIdLst>" +
                   textStyles()));
  for (std::size_t i = 0; i < plans.size(); ++i) {
    const PartRef layout =
        package->addXml("ppt/slideLayouts/slideLayout" + std::to_string(i + 1) + ".xml",
                        base + std::string("slideLayout+xml"),
                        sheetXml("sldLayout", " type=\"" + std::string(plans[i].type) + "\" preserve=\"1\"",
                                 plans[i].name, "", plans[i].placeholders, colorMapOverride));
    layout->relate(*master, "slideMaster");
    master->relate(*layout, "slideLayout");
  }
  master->relate(*theme, "theme");

  std::ostringstream presentationXml;
  presentationXml << declaration << "<p:presentation" << namespaces
                  << " saveSubsetFonts=\"1\"><p:sldMasterIdLst><p:sldMasterId id=\"" << masterId
                  << R"(" r:id="rId1"/></p:sldMasterIdLst><p:sldSz cx="12192000" cy="6858000"/>)"
                  << R"(<p:notesSz cx="6858000" cy="9144000"/></p:presentation>)";
  const PartRef presentation = package->addXml(
      "ppt/presentation.xml", base + std::string("presentation.main+xml"), presentationXml.str());
  presentation->relate(*master, "slideMaster");
  presentation->relate(*theme, "theme");
  package->relate(*presentation, "officeDocument");
  return package;
}

pugi::xml_node appendPlaceholder(pugi::xml_node tree, pugi::xml_node model, std::int32_t id) {
  // The name is the layout's with the number that fits the new id: "Content Placeholder 2".
  std::string name = model.child("p:nvSpPr").child("p:cNvPr").attribute("name").value();
  name.erase(name.find_last_not_of("0123456789") + 1);
  while (!name.empty() && name.back() == ' ') name.pop_back();
  const pugi::xml_node extensions = tree.child("p:extLst");
  pugi::xml_node made = extensions ? tree.insert_child_before("p:sp", extensions) : tree.append_child("p:sp");
  pugi::xml_node properties = made.append_child("p:nvSpPr");
  pugi::xml_node common = properties.append_child("p:cNvPr");
  common.append_attribute("id").set_value(id);
  common.append_attribute("name").set_value((name + " " + std::to_string(id - 1)).c_str());
  properties.append_child("p:cNvSpPr").append_child("a:spLocks").append_attribute("noGrp").set_value(1);
  const pugi::xml_node placeholder = model.child("p:nvSpPr").child("p:nvPr").child("p:ph");
  pugi::xml_node ph = properties.append_child("p:nvPr").append_child("p:ph");
  for (const char* attribute : {"type", "orient", "sz", "idx"}) {
    if (placeholder.attribute(attribute)) {
      ph.append_attribute(attribute).set_value(placeholder.attribute(attribute).value());
    }
  }
  made.append_child("p:spPr");
  pugi::xml_node body = made.append_child("p:txBody");
  body.append_child("a:bodyPr");
  body.append_child("a:lstStyle");
  body.append_child("a:p");
  return made;
}

std::string simpleLayoutXml(std::string_view type, const LayoutSetting& setting) {
  const auto& plans = layoutPlans();
  const auto plan = std::ranges::find(plans, type, &LayoutPlan::type);
  if (plan == plans.end()) return {};
  std::vector<Placeholder> placeholders = plan->placeholders;
  for (Placeholder& placeholder : placeholders) {
    const bool isTitle = placeholder.x == left && placeholder.y == titleOnTop.y;
    const bool isBody = placeholder.x == left && placeholder.y == bodyTop && placeholder.width == wide;
    if (!isTitle && !isBody) return {};
    if (isTitle ? setting.hasTitle : setting.hasBody) {
      placeholder.width = 0;
      continue;
    }
    const auto scale = [](long& length, double factor) {
      length = std::lround(static_cast<double>(length) * factor);
    };
    scale(placeholder.x, setting.width / slideWidth);
    scale(placeholder.width, setting.width / slideWidth);
    scale(placeholder.y, setting.height / slideHeight);
    scale(placeholder.height, setting.height / slideHeight);
  }
  return sheetXml("sldLayout", " type=\"" + std::string(type) + "\" preserve=\"1\"", plan->name, "",
                  placeholders, colorMapOverride);
}

std::string newSlideXml(pugi::xml_node layout) {
  pugi::xml_document document;
  const std::string empty = sheetXml("sld", "", "", "", {}, colorMapOverride);
  document.load_string(empty.c_str(), pugi::parse_full);
  const pugi::xml_node tree = document.document_element().child("p:cSld").child("p:spTree");
  std::int32_t id = 2;
  for (const pugi::xml_node shape : layout.child("p:cSld").child("p:spTree").children("p:sp")) {
    const pugi::xml_node placeholder = shape.child("p:nvSpPr").child("p:nvPr").child("p:ph");
    const std::string_view type = placeholder.attribute("type").value();
    if (!placeholder || type == "dt" || type == "ftr" || type == "sldNum" || type == "hdr") continue;
    appendPlaceholder(tree, shape, id++);
  }
  std::ostringstream out;
  document.save(out, "", pugi::format_raw);
  return out.str();
}

}  // namespace vellumark::deck
