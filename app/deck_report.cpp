#include "deck_report.h"

#include "console.h"

namespace vellumark::app {
namespace {

TagList reportTags(const host::Tags& tags) {
  TagList list;
  const int count = tags.Count();
  for (int i = 1; i <= count; ++i) list.emplace_back(tags.Name(i), tags.Value(i));
  return list;
}

constexpr std::size_t textColumns = 40;

std::string tagLines(const TagList& tags, const std::string& holder) {
  std::string lines;
  for (const auto& [name, value] : tags) {
    lines += "  tag " + holder + oneLine(name) + " = \"" + excerpt(value, textColumns) + "\"\n";
  }
  return lines;
}

void addRows(Table& table, const std::vector<ShapeReport>& shapes, bool members) {
  for (const ShapeReport& shape : shapes) {
    table.row({members ? "" : "@" + std::to_string(shape.index), "#" + std::to_string(shape.id),
               (members ? "  " : "") + shape.name, typeName(shape.type) + (shape.visible ? "" : ", hidden"),
               pointsText(shape.left), pointsText(shape.top), pointsText(shape.width),
               pointsText(shape.height), pointsText(shape.rotation), excerpt(shape.text, textColumns)});
    addRows(table, shape.members, true);
  }
}

std::string shapeTagLines(const std::vector<ShapeReport>& shapes) {
  std::string lines;
  for (const ShapeReport& shape : shapes) {
    lines += tagLines(shape.tags, "of #" + std::to_string(shape.id) + ": ") + shapeTagLines(shape.members);
  }
  return lines;
}

}  // namespace

ShapeReport reportShape(const host::Shape& shape, int index) {
  ShapeReport report;
  report.index = index;
  report.id = shape.Id();
  report.name = shape.Name();
  report.type = shape.Type();
  report.left = shape.Left();
  report.top = shape.Top();
  report.width = shape.Width();
  report.height = shape.Height();
  report.rotation = shape.Rotation();
  report.visible = shape.Visible() != host::msoFalse;
  if (shape.HasTextFrame() != host::msoFalse) report.text = shape.TextFrame().TextRange().Text();
  report.tags = reportTags(shape.Tags());
  if (report.type == host::msoGroup) {
    const host::GroupShapes members = shape.GroupItems();
    const int count = members.Count();
    for (int i = 1; i <= count; ++i) report.members.push_back(reportShape(members.Item(i), i));
  }
  return report;
}

std::vector<ShapeReport> reportShapes(const host::Shapes& shapes) {
  std::vector<ShapeReport> reports;
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) reports.push_back(reportShape(shapes.Item(i), i));
  return reports;
}

DeckReport reportDeck(const host::Presentation& presentation) {
  DeckReport deck;
  deck.name = presentation.Name();
  deck.width = presentation.PageSetup().SlideWidth();
  deck.height = presentation.PageSetup().SlideHeight();
  deck.tags = reportTags(presentation.Tags());
  const host::Slides slides = presentation.Slides();
  const int count = slides.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Slide slide = slides.Item(i);
    deck.slides.push_back({i, slide.SlideID(), reportTags(slide.Tags()), reportShapes(slide.Shapes())});
  }
  return deck;
}

std::string typeName(int type) {
  switch (type) {
    case host::msoAutoShape:
      return "auto shape";
    case host::msoCallout:
      return "callout";
    case host::msoChart:
      return "chart";
    case host::msoFreeform:
      return "freeform";
    case host::msoGroup:
      return "group";
    case host::msoEmbeddedOLEObject:
      return "embedded object";
    case host::msoLine:
      return "line";
    case host::msoLinkedOLEObject:
      return "linked object";
    case host::msoLinkedPicture:
      return "linked picture";
    case host::msoPicture:
      return "picture";
    case host::msoPlaceholder:
      return "placeholder";
    case host::msoMedia:
      return "media";
    case host::msoTextBox:
      return "text box";
    case host::msoTable:
      return "table";
    case host::msoIgxGraphic:
      return "diagram";
    default:
      return "type " + std::to_string(type);
  }
}

std::string toText(const DeckReport& deck) {
  std::string text = oneLine(deck.name) + ": " + std::to_string(deck.slides.size()) +
                     (deck.slides.size() == 1 ? " slide" : " slides") + ", " + pointsText(deck.width) +
                     " x " + pointsText(deck.height) + " points\n" + tagLines(deck.tags, "");
  for (const SlideReport& slide : deck.slides) {
    text += "\nSlide " + std::to_string(slide.index) + " (id " + std::to_string(slide.id) + ")" +
            (slide.shapes.empty() ? ", without shapes" : "") + "\n" + tagLines(slide.tags, "");
    if (slide.shapes.empty()) continue;
    constexpr auto right = Table::Align::right;
    Table table({{"@", right},
                 {"#", right},
                 {"name"},
                 {"type"},
                 {"left", right},
                 {"top", right},
                 {"width", right},
                 {"height", right},
                 {"turned", right},
                 {"text"}});
    addRows(table, slide.shapes, false);
    text += table.text("  ") + shapeTagLines(slide.shapes);
  }
  return text;
}

}  // namespace vellumark::app
