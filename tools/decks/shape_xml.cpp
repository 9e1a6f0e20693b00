#include "decks/shape_xml.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

#include "decks/xml_add.h"

namespace vellumark::decks {
namespace {

using pugi::xml_node;

void appendColor(xml_node parent, const std::string& color) {
  const bool rgb =
      color.size() == 6 && color.find_first_not_of("0123456789ABCDEFabcdef") == std::string::npos;
  if (rgb) {
    add(parent, "a:srgbClr", {{"val", color}});
    return;
  }
  std::istringstream words(color);
  std::string name, how;
  words >> name;
  const xml_node node = add(parent, "a:schemeClr", {{"val", name}});
  for (int percent = 0; words >> how >> percent;) {
    const bool lighter = how == "lighter";
    if (lighter || how == "darker") add(node, "a:lumMod", {{"val", (100 - percent) * 1000}});
    if (lighter) add(node, "a:lumOff", {{"val", percent * 1000}});
    if (how == "opaque") add(node, "a:alpha", {{"val", percent * 1000}});
  }
}

void appendTransform(xml_node parent, const char* name, const ShapeData& shape) {
  if (!shape.frame) return;
  const Frame& frame = *shape.frame;
  const long long turn = std::llround(shape.rotation * 60000);
  const xml_node transform = add(parent, name,
                                 {{"rot", turn ? std::to_string(turn) : ""},
                                  {"flipH", shape.flipH ? "1" : ""},
                                  {"flipV", shape.flipV ? "1" : ""}});
  add(transform, "a:off", {{"x", emu(frame.x)}, {"y", emu(frame.y)}});
  add(transform, "a:ext", {{"cx", emu(frame.width)}, {"cy", emu(frame.height)}});
  if (shape.kind != ShapeKind::group) return;
  const Frame inner = shape.childSpace.value_or(frame);
  add(transform, "a:chOff", {{"x", emu(inner.x)}, {"y", emu(inner.y)}});
  add(transform, "a:chExt", {{"cx", emu(inner.width)}, {"cy", emu(inner.height)}});
}

void appendPresetGeometry(xml_node parent, const ShapeData& shape) {
  const xml_node guides = add(add(parent, "a:prstGeom", {{"prst", shape.preset}}), "a:avLst");
  for (std::size_t i = 0; i < shape.adjustments.size(); ++i) {
    const std::string number = shape.adjustments.size() == 1 ? "" : std::to_string(i + 1);
    add(guides, "a:gd", {{"name", "adj" + number}, {"fmla", "val " + std::to_string(shape.adjustments[i])}});
  }
}

void appendPath(xml_node parent, const ShapeData& shape) {
  const xml_node geometry = add(parent, "a:custGeom");
  for (const char* list : {"a:avLst", "a:gdLst", "a:ahLst", "a:cxnLst"}) add(geometry, list);
  add(geometry, "a:rect", {{"l", "l"}, {"t", "t"}, {"r", "r"}, {"b", "b"}});
  const xml_node path = add(add(geometry, "a:pathLst"), "a:path",
                            {{"w", emu(shape.frame->width)}, {"h", emu(shape.frame->height)}});
  bool first = true;
  for (const PathStep& step : shape.path) {
    if (step.radius > 0) {
      add(path, "a:arcTo",
          {{"wR", emu(step.radius)},
           {"hR", emu(step.radius)},
           {"stAng", std::llround(step.start * 60000)},
           {"swAng", std::llround(step.sweep * 60000)}});
    } else {
      add(add(path, first ? "a:moveTo" : "a:lnTo"), "a:pt", {{"x", emu(step.x)}, {"y", emu(step.y)}});
    }
    first = false;
  }
  if (shape.closed) add(path, "a:close");
}

void appendOutline(xml_node parent, const char* name, const Outline& outline) {
  const xml_node line = add(parent, name, {{"w", outline.none ? "" : std::to_string(emu(outline.width))}});
  if (outline.none) add(line, "a:noFill");
  if (!outline.color.empty()) appendSolidFill(line, outline.color);
  if (!outline.dash.empty()) add(line, "a:prstDash", {{"val", outline.dash}});
  if (outline.arrowHead) add(line, "a:tailEnd", {{"type", "triangle"}});
}

void appendProperties(xml_node parent, const ShapeData& shape) {
  const xml_node properties = add(parent, "p:spPr");
  appendTransform(properties, "a:xfrm", shape);
  if (shape.kind == ShapeKind::freeform) {
    appendPath(properties, shape);
  } else if (shape.kind != ShapeKind::placeholder) {
    appendPresetGeometry(properties, shape);
  }
  if (shape.fill && shape.fill->empty()) add(properties, "a:noFill");
  if (shape.fill && !shape.fill->empty()) appendSolidFill(properties, *shape.fill);
  if (shape.kind == ShapeKind::textBox && !shape.fill) add(properties, "a:noFill");
  if (shape.outline) appendOutline(properties, "a:ln", *shape.outline);
}

/// The style of a new shape: filled with accent 1, a darker line of it, light text. A line has no fill.
void appendStyle(xml_node parent, const ShapeData& shape) {
  const bool line = shape.kind == ShapeKind::connector;
  const xml_node style = add(parent, "p:style");
  const xml_node outline =
      add(add(style, "a:lnRef", {{"idx", line ? 1 : 2}}), "a:schemeClr", {{"val", "accent1"}});
  if (!line) add(outline, "a:shade", {{"val", 50000}});
  add(add(style, "a:fillRef", {{"idx", line ? 0 : 1}}), "a:schemeClr", {{"val", "accent1"}});
  add(add(style, "a:effectRef", {{"idx", 0}}), "a:schemeClr", {{"val", "accent1"}});
  add(add(style, "a:fontRef", {{"idx", "minor"}}), "a:schemeClr", {{"val", line ? "tx1" : "lt1"}});
}

void appendParagraphProperties(xml_node parent, const TextStyle& style, const std::string& align) {
  const std::string alignment = style.align.empty() ? align : style.align;
  const bool bullet = !style.bullet.empty() && style.bullet != "none";
  if (alignment.empty() && style.bullet.empty() && style.level == 0 && style.spaceBefore == 0) return;
  constexpr double indent = 14;  // points a level
  const std::string plain = style.bullet == "none" ? "0" : "";
  const xml_node properties = add(parent, "a:pPr",
                                  {{"marL", bullet ? std::to_string(emu(indent * (style.level + 1))) : plain},
                                   {"lvl", style.level ? std::to_string(style.level) : ""},
                                   {"indent", bullet ? std::to_string(emu(-indent)) : plain},
                                   {"algn", alignment}});
  if (style.spaceBefore > 0) {
    add(add(properties, "a:spcBef"), "a:spcPts", {{"val", std::llround(style.spaceBefore * 100)}});
  }
  if (bullet) add(properties, "a:buChar", {{"char", style.bullet}});
  if (style.bullet == "none") add(properties, "a:buNone");
}

void appendRunProperties(xml_node parent, const char* name, const TextStyle& style) {
  const xml_node properties =
      add(parent, name,
          {{"lang", style.language.empty() ? "en-GB" : style.language},
           {"sz", style.size > 0 ? std::to_string(std::llround(style.size * 100)) : ""},
           {"b", style.bold ? "1" : ""},
           {"i", style.italic ? "1" : ""}});
  if (!style.color.empty()) appendSolidFill(properties, style.color);
  if (!style.font.empty()) add(properties, "a:latin", {{"typeface", style.font}});
}

/// A run; a vertical tab in it is a line break.
void appendRun(xml_node paragraph, const Run& run) {
  for (std::size_t start = 0; start <= run.text.size();) {
    const std::size_t end = std::min(run.text.find('\v', start), run.text.size());
    if (start > 0) appendRunProperties(add(paragraph, "a:br"), "a:rPr", run.style);
    if (end > start) {
      const xml_node node = add(paragraph, "a:r");
      appendRunProperties(node, "a:rPr", run.style);
      add(node, "a:t").text() = run.text.substr(start, end - start).c_str();
    }
    start = end + 1;
  }
}

void appendParagraphs(xml_node body, const std::vector<Paragraph>& paragraphs, const std::string& align) {
  for (const auto& paragraph : paragraphs) {
    const xml_node node = add(body, "a:p");
    appendParagraphProperties(node, paragraph.style, align);
    for (const auto& run : paragraph.runs) appendRun(node, run);
    if (paragraph.runs.empty()) appendRunProperties(node, "a:endParaRPr", paragraph.style);
  }
  if (paragraphs.empty()) add(body, "a:p");
}

/// The number of the slide as a field, in the style of the first paragraph.
void appendSlideNumber(xml_node body, const std::vector<Paragraph>& paragraphs) {
  const TextStyle style = paragraphs.empty() ? TextStyle{} : paragraphs.front().style;
  const xml_node paragraph = add(body, "a:p");
  appendParagraphProperties(paragraph, style, "");
  const xml_node field =
      add(paragraph, "a:fld", {{"id", "{6F0C5A1E-3B0B-4C51-9A57-2D6A1B7E4C01}"}, {"type", "slidenum"}});
  appendRunProperties(field, "a:rPr", style);
  add(field, "a:t").text() = "‹#›";
}

/// A margin of the text: left, top, right, bottom; empty where none is told.
std::string inset(const std::optional<std::array<double, 4>>& insets, int side) {
  return insets ? std::to_string(emu((*insets)[side])) : "";
}

void appendText(xml_node parent, const ShapeData& shape) {
  if (!shape.hasText) return;
  const xml_node body = add(parent, "p:txBody");
  const xml_node properties = add(body, "a:bodyPr",
                                  {{"vert", shape.upright ? "vert270" : ""},
                                   {"wrap", shape.wrap ? "" : "none"},
                                   {"lIns", inset(shape.insets, 0)},
                                   {"tIns", inset(shape.insets, 1)},
                                   {"rIns", inset(shape.insets, 2)},
                                   {"bIns", inset(shape.insets, 3)},
                                   {"anchor", shape.anchor}});
  if (shape.fitToText) add(properties, "a:spAutoFit");
  add(body, "a:lstStyle");
  if (shape.placeholderType == "sldNum") return appendSlideNumber(body, shape.paragraphs);
  appendParagraphs(body, shape.paragraphs, shape.kind == ShapeKind::autoShape ? "ctr" : "");
}

class TreeWriter {
 public:
  explicit TreeWriter(const PartLinks& links) : links_(links) {}

  void append(xml_node parent, const ShapeData& shape) {
    if (shape.alternate == Alternate::none) return appendPlain(parent, shape);
    const bool choice = shape.alternate == Alternate::choice;
    ShapeData other;
    other.id = shape.id;
    other.name = shape.name + " fallback";
    other.frame = shape.frame;

    const xml_node alternate =
        add(parent, "mc:AlternateContent",
            {{"xmlns:mc", "http://schemas.openxmlformats.org/markup-compatibility/2006"}});
    const xml_node branch =
        choice ? add(alternate, "mc:Choice",
                     {{"xmlns:p14", "http://schemas.microsoft.com/office/powerpoint/2010/main"},
                      {"Requires", "p14"}})
               : add(alternate, "mc:Choice", {{"xmlns:far", "urn:vellumark:unknown"}, {"Requires", "far"}});
    appendPlain(branch, choice ? shape : other);
    appendPlain(add(alternate, "mc:Fallback"), choice ? other : shape);
  }

 private:
  void appendPlain(xml_node parent, const ShapeData& shape) {
    switch (shape.kind) {
      case ShapeKind::xml:
        return addParsed(parent, shape.xml);
      case ShapeKind::picture:
        return appendPicture(parent, shape);
      case ShapeKind::connector: {
        const xml_node node = add(parent, "p:cxnSp");
        appendIdentity(node, "p:nvCxnSpPr", "p:cNvCxnSpPr", shape);
        appendProperties(node, shape);
        return appendStyle(node, shape);
      }
      case ShapeKind::group:
        return appendGroup(parent, shape);
      case ShapeKind::table:
      case ShapeKind::chart:
        return appendGraphicFrame(parent, shape);
      default: {
        const xml_node node = add(parent, "p:sp");
        appendIdentity(node, "p:nvSpPr", "p:cNvSpPr", shape);
        appendProperties(node, shape);
        if (shape.kind == ShapeKind::autoShape || shape.kind == ShapeKind::freeform) appendStyle(node, shape);
        return appendText(node, shape);
      }
    }
  }

  /// Id, name, what the kind needs between them, placeholder and tags.
  void appendIdentity(xml_node parent, const char* name, const char* kindName, const ShapeData& shape) {
    const xml_node identity = add(parent, name);
    add(identity, "p:cNvPr",
        {{"id", shape.id},
         {"name", shape.name},
         {"descr", shape.description},
         {"hidden", shape.hidden ? "1" : ""}});
    xml_node kind = add(identity, kindName, {{"txBox", shape.kind == ShapeKind::textBox ? "1" : ""}});
    for (std::size_t i = 0; i < shape.glue.size(); ++i) {
      add(kind, i == 0 ? "a:stCxn" : "a:endCxn", {{"id", shape.glue[i].shape}, {"idx", shape.glue[i].site}});
    }
    if (shape.kind == ShapeKind::placeholder) add(kind, "a:spLocks", {{"noGrp", 1}});
    if (shape.kind == ShapeKind::picture) add(kind, "a:picLocks", {{"noChangeAspect", 1}});
    if (shape.kind == ShapeKind::table) add(kind, "a:graphicFrameLocks", {{"noGrp", 1}});

    const xml_node properties = add(identity, "p:nvPr");
    if (shape.kind == ShapeKind::placeholder) appendPlaceholder(properties, shape);
    if (!shape.tags.empty()) appendTagsReference(properties, links_.tags(shape.tags));
  }

  void appendPlaceholder(xml_node parent, const ShapeData& shape) {
    const std::string& type = shape.placeholderType;
    const std::string index = shape.placeholderIndex ? std::to_string(shape.placeholderIndex) : "";
    add(parent, "p:ph", {{"type", type == "obj" ? "" : type}, {"idx", index}});
  }

  void appendPicture(xml_node parent, const ShapeData& shape) {
    const xml_node node = add(parent, "p:pic");
    appendIdentity(node, "p:nvPicPr", "p:cNvPicPr", shape);
    const xml_node fill = add(node, "p:blipFill");
    add(fill, "a:blip", {{"r:embed", links_.picture(shape.pictureColor)}});
    add(add(fill, "a:stretch"), "a:fillRect");
    appendProperties(node, shape);
  }

  void appendGroup(xml_node parent, const ShapeData& shape) {
    const xml_node node = add(parent, "p:grpSp");
    appendIdentity(node, "p:nvGrpSpPr", "p:cNvGrpSpPr", shape);
    appendTransform(add(node, "p:grpSpPr"), "a:xfrm", shape);
    for (const auto& child : shape.children->shapes) append(node, *child);
  }

  void appendGraphicFrame(xml_node parent, const ShapeData& shape) {
    const xml_node node = add(parent, "p:graphicFrame");
    appendIdentity(node, "p:nvGraphicFramePr", "p:cNvGraphicFramePr", shape);
    appendTransform(node, "p:xfrm", shape);
    const xml_node graphic = add(node, "a:graphic");
    if (shape.kind == ShapeKind::table) {
      appendTable(
          add(graphic, "a:graphicData", {{"uri", "http://schemas.openxmlformats.org/drawingml/2006/table"}}),
          shape);
    } else {
      constexpr const char* charts = "http://schemas.openxmlformats.org/drawingml/2006/chart";
      add(add(graphic, "a:graphicData", {{"uri", charts}}), "c:chart",
          {{"xmlns:c", charts}, {"r:id", links_.chart(shape)}});
    }
  }

  void appendTable(xml_node parent, const ShapeData& shape) {
    const xml_node table = add(parent, "a:tbl");
    xml_node look = add(table, "a:tblPr");
    for (const std::string& flag : shape.tableFlags) look.append_attribute(flag.c_str()) = 1;
    if (!shape.tableStyleId.empty()) add(look, "a:tableStyleId").text() = shape.tableStyleId.c_str();
    const xml_node grid = add(table, "a:tblGrid");
    for (const double width : shape.columnWidths) add(grid, "a:gridCol", {{"w", emu(width)}});
    for (std::size_t r = 0; r < shape.cells.size(); ++r) {
      const xml_node row = add(table, "a:tr", {{"h", emu(shape.rowHeights.at(r))}});
      for (const Cell& cell : shape.cells[r]) {
        const xml_node node = add(row, "a:tc");
        const xml_node body = add(node, "a:txBody");
        add(body, "a:bodyPr");
        add(body, "a:lstStyle");
        Paragraph paragraph{cell.style, {}};
        if (!cell.text.empty()) paragraph.runs.push_back({cell.text, cell.style});
        appendParagraphs(body, {paragraph}, "");
        const auto& insets = cell.insets ? cell.insets : shape.insets;
        const xml_node properties = add(node, "a:tcPr",
                                        {{"marL", inset(insets, 0)},
                                         {"marR", inset(insets, 2)},
                                         {"marT", inset(insets, 1)},
                                         {"marB", inset(insets, 3)},
                                         {"anchor", "ctr"}});
        for (const char edge : {'L', 'R', 'T', 'B'}) {
          const auto border = cell.borders.find(edge);
          if (border != cell.borders.end()) {
            appendOutline(properties, (std::string("a:ln") + edge).c_str(), border->second);
          }
        }
        if (!cell.fill.empty()) appendSolidFill(properties, cell.fill);
      }
    }
  }

  const PartLinks& links_;
};

}  // namespace

long long emu(double points) { return std::llround(points * 12700); }

void appendSolidFill(xml_node parent, const std::string& color) {
  appendColor(add(parent, "a:solidFill"), color);
}

void appendTagsReference(xml_node parent, const std::string& relationship) {
  add(add(parent, "p:custDataLst"), "p:tags", {{"r:id", relationship}});
}

void appendBackground(xml_node parent, const std::string& color) {
  if (color.empty()) return;
  const xml_node properties = add(add(parent, "p:bg"), "p:bgPr");
  appendSolidFill(properties, color);
  add(properties, "a:effectLst");
}

xml_node appendShapes(xml_node parent, const TreeData& tree, const PartLinks& links) {
  const xml_node root = add(parent, "p:spTree");
  const xml_node identity = add(root, "p:nvGrpSpPr");
  add(identity, "p:cNvPr", {{"id", 1}}).append_attribute("name") = "";
  add(identity, "p:cNvGrpSpPr");
  add(identity, "p:nvPr");
  add(root, "p:grpSpPr");
  TreeWriter writer(links);
  for (const auto& shape : tree.shapes) writer.append(root, *shape);
  return root;
}

std::string chartXml(const ShapeData& shape) {
  pugi::xml_document document;
  const xml_node space =
      add(document, "c:chartSpace",
          {{"xmlns:c", "http://schemas.openxmlformats.org/drawingml/2006/chart"},
           {"xmlns:a", "http://schemas.openxmlformats.org/drawingml/2006/main"},
           {"xmlns:r", "http://schemas.openxmlformats.org/officeDocument/2006/relationships"}});
  const xml_node chart = add(space, "c:chart");
  add(chart, "c:autoTitleDeleted", {{"val", 1}});
  const xml_node area = add(chart, "c:plotArea");
  const xml_node bars = add(area, "c:barChart");
  add(bars, "c:barDir", {{"val", "col"}});
  add(bars, "c:grouping", {{"val", "clustered"}});
  const xml_node series = add(bars, "c:ser");
  add(series, "c:idx", {{"val", 0}});
  add(series, "c:order", {{"val", 0}});
  const xml_node labels = add(add(series, "c:cat"), "c:strLit");
  const xml_node values = add(add(series, "c:val"), "c:numLit");
  const int count = static_cast<int>(shape.bars.size());
  add(labels, "c:ptCount", {{"val", count}});
  add(values, "c:ptCount", {{"val", count}});
  for (int i = 0; i < count; ++i) {
    add(add(labels, "c:pt", {{"idx", i}}), "c:v").text() = shape.bars[i].first.c_str();
    add(add(values, "c:pt", {{"idx", i}}), "c:v").text() = shape.bars[i].second;
  }
  add(bars, "c:gapWidth", {{"val", 60}});
  add(bars, "c:axId", {{"val", 1}});
  add(bars, "c:axId", {{"val", 2}});
  for (const int axis : {1, 2}) {
    const xml_node node = add(area, axis == 1 ? "c:catAx" : "c:valAx");
    add(node, "c:axId", {{"val", axis}});
    add(add(node, "c:scaling"), "c:orientation", {{"val", "minMax"}});
    add(node, "c:delete", {{"val", 0}});
    add(node, "c:axPos", {{"val", axis == 1 ? "b" : "l"}});
    add(node, "c:crossAx", {{"val", 3 - axis}});
  }
  return xmlText(document);
}

}  // namespace vellumark::decks
