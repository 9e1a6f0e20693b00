#include "decks/layouts.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "decks/shape_xml.h"
#include "decks/xml_add.h"

namespace vellumark::decks {
namespace {

/// A placeholder of a layout. Its frame is in thousandths of the slide; without a width it has that of the
/// master.
struct Slot {
  const char* type;
  int index;
  const char* name;
  int x, y, width, height;
};

struct LayoutPlan {
  const char* type;
  const char* name;
  std::vector<Slot> slots;
};

const Slot inheritedTitle{"title", 0, "Title", 0, 0, 0, 0};
const Slot wideBody{"body", 1, "Text", 60, 250, 880, 620};

const std::vector<LayoutPlan>& plans() {
  static const std::vector<LayoutPlan> all{
      {"title",
       "Title Slide",
       {{"ctrTitle", 0, "Title", 125, 165, 750, 345}, {"subTitle", 1, "Subtitle", 125, 525, 750, 240}}},
      {"obj", "Title and Content", {inheritedTitle, {"obj", 1, "Content", 0, 0, 0, 0}}},
      {"secHead",
       "Section Header",
       {{"title", 0, "Title", 65, 250, 870, 415}, {"body", 1, "Text", 65, 670, 870, 220}}},
      {"twoObj",
       "Two Content",
       {inheritedTitle, {"obj", 1, "Content", 60, 250, 430, 620}, {"obj", 2, "Content", 510, 250, 430, 620}}},
      {"twoTxTwoObj",
       "Comparison",
       {inheritedTitle,
        {"body", 1, "Text", 60, 250, 430, 110},
        {"obj", 2, "Content", 60, 365, 430, 505},
        {"body", 3, "Text", 510, 250, 430, 110},
        {"obj", 4, "Content", 510, 365, 430, 505}}},
      {"titleOnly", "Title Only", {inheritedTitle}},
      {"blank", "Blank", {}},
      {"objTx",
       "Content with Caption",
       {{"title", 0, "Title", 65, 70, 320, 230},
        {"obj", 1, "Content", 425, 145, 505, 710},
        {"body", 2, "Text", 65, 300, 320, 555}}},
      {"picTx",
       "Picture with Caption",
       {{"title", 0, "Title", 65, 70, 320, 230},
        {"pic", 1, "Picture", 425, 145, 505, 710},
        {"body", 2, "Text", 65, 300, 320, 555}}},
      {"vertTx", "Title and Vertical Text", {inheritedTitle, wideBody}},
      {"vertTitleAndTx",
       "Vertical Title and Text",
       {{"title", 0, "Title", 715, 55, 225, 850}, {"body", 1, "Text", 60, 55, 640, 850}}},
      {"twoColTx",
       "Two Columns of Text",
       {inheritedTitle, {"body", 1, "Text", 60, 250, 430, 620}, {"body", 2, "Text", 510, 250, 430, 620}}},
      {"cust", "Custom", {inheritedTitle, wideBody}},
  };
  return all;
}

void place(const ShapeTree& tree, const Slot& slot, double width, double height) {
  const auto shape = tree.placeholder(slot.type, slot.index);
  shape.named(std::string(slot.name) + " Placeholder " + std::to_string(shape.id()));
  if (slot.width > 0) {
    shape.frame(slot.x * width / 1000, slot.y * height / 1000, slot.width * width / 1000,
                slot.height * height / 1000);
  }
  const std::string type = slot.type;
  if (type == "title" || type == "ctrTitle") shape.text("Click to edit title");
  if (type == "body" || type == "obj" || type == "subTitle") shape.text("Click to edit text");
}

/// Date, footer and number: on a master with indexes and frames, on a layout with the frames of the master.
void placeFooters(const ShapeTree& tree, bool master, double width, double height) {
  const int first = master ? 2 : 10;
  const int shown = master ? 1 : 0;
  place(tree, {"dt", first, "Date", 60, 920, 225 * shown, 50}, width, height);
  place(tree, {"ftr", first + 1, "Footer", 330, 920, 340 * shown, 50}, width, height);
  place(tree, {"sldNum", first + 2, "Slide Number", 715, 920, 225 * shown, 50}, width, height);
}

}  // namespace

const std::vector<std::string> usualLayouts{"title",       "obj",       "secHead",       "twoObj",
                                            "twoTxTwoObj", "titleOnly", "blank",         "objTx",
                                            "picTx",       "vertTx",    "vertTitleAndTx"};

std::shared_ptr<MasterData> makeMaster(const Theme& theme, double width, double height) {
  auto master = std::make_shared<MasterData>();
  master->theme = theme;
  master->width = width;
  master->height = height;
  const ShapeTree tree(master->tree);
  place(tree, {"title", 0, "Title", 60, 55, 880, 175}, width, height);
  tree.find("title").anchor("ctr");
  place(tree, wideBody, width, height);
  placeFooters(tree, true, width, height);
  for (const auto& type : usualLayouts) master->layouts.push_back(makeLayout(type, width, height));
  return master;
}

std::shared_ptr<LayoutData> makeLayout(const std::string& type, double width, double height) {
  const auto plan =
      std::find_if(plans().begin(), plans().end(), [&](const LayoutPlan& plan) { return plan.type == type; });
  if (plan == plans().end()) throw std::invalid_argument("no layout of type " + type);
  auto layout = std::make_shared<LayoutData>();
  layout->type = type;
  layout->name = plan->name;
  for (const Slot& slot : plan->slots) place(ShapeTree(layout->tree), slot, width, height);
  placeFooters(ShapeTree(layout->tree), false, width, height);
  return layout;
}

std::string themeXml(const Theme& theme) {
  pugi::xml_document document;
  const auto root =
      add(document, "a:theme",
          {{"xmlns:a", "http://schemas.openxmlformats.org/drawingml/2006/main"}, {"name", theme.name}});
  const auto elements = add(root, "a:themeElements");

  const auto colors = add(elements, "a:clrScheme", {{"name", theme.name}});
  const char* names[] = {"a:dk1",     "a:lt1",     "a:dk2",     "a:lt2",     "a:accent1", "a:accent2",
                         "a:accent3", "a:accent4", "a:accent5", "a:accent6", "a:hlink",   "a:folHlink"};
  for (std::size_t i = 0; i < theme.colors.size(); ++i) {
    add(add(colors, names[i]), "a:srgbClr", {{"val", theme.colors[i]}});
  }

  const auto fonts = add(elements, "a:fontScheme", {{"name", theme.name}});
  for (const bool major : {true, false}) {
    const auto font = add(fonts, major ? "a:majorFont" : "a:minorFont");
    add(font, "a:latin", {{"typeface", major ? theme.headings : theme.body}});
    for (const char* script : {"a:ea", "a:cs"}) add(font, script).append_attribute("typeface") = "";
  }

  const auto formats = add(elements, "a:fmtScheme", {{"name", theme.name}});
  const auto plainFills = [&](const char* name) {
    const auto fills = add(formats, name);
    for (int i = 0; i < 3; ++i) appendSolidFill(fills, "phClr");
  };
  plainFills("a:fillStyleLst");
  const auto lines = add(formats, "a:lnStyleLst");
  for (const double width : {0.75, 1.0, 1.5}) {
    appendSolidFill(add(lines, "a:ln", {{"w", emu(width)}}), "phClr");
  }
  const auto effects = add(formats, "a:effectStyleLst");
  for (int i = 0; i < 3; ++i) add(add(effects, "a:effectStyle"), "a:effectLst");
  plainFills("a:bgFillStyleLst");
  return xmlText(document);
}

void appendTextStyles(pugi::xml_node master, const Theme& theme) {
  const auto character = [](pugi::xml_node level, double size, const std::string& color, const char* font) {
    const auto properties = add(level, "a:defRPr", {{"sz", std::llround(size * 100)}});
    appendSolidFill(properties, color.empty() ? "tx1" : color);
    add(properties, "a:latin", {{"typeface", font}});
    return properties;
  };
  const auto styles = add(master, "p:txStyles");

  const auto title = add(add(styles, "p:titleStyle"), "a:lvl1pPr",
                         {{"algn", theme.title.align.empty() ? "l" : theme.title.align}});
  add(title, "a:buNone");
  auto letters = character(title, theme.title.size > 0 ? theme.title.size : 36, theme.title.color, "+mj-lt");
  if (theme.title.bold) letters.append_attribute("b") = "1";

  const auto body = add(styles, "p:bodyStyle");
  const auto other = add(styles, "p:otherStyle");
  for (int i = 1; i <= 9; ++i) {
    const std::string name = "a:lvl" + std::to_string(i) + "pPr";
    const auto level =
        add(body, name.c_str(), {{"marL", emu(14.0 * i)}, {"indent", emu(-14)}, {"algn", "l"}});
    add(add(level, "a:spcBef"), "a:spcPts", {{"val", 600}});
    add(level, "a:buChar", {{"char", "•"}});
    character(level, std::max(12.0, theme.bodySize - 2 * (i - 1)), "tx1", "+mn-lt");
    character(add(other, name.c_str(), {{"marL", 0}, {"algn", "l"}}), 18, "tx1", "+mn-lt");
  }
}

}  // namespace vellumark::decks
