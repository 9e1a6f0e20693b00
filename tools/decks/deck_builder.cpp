#include "decks/deck_builder.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "decks/deck_model.h"
#include "decks/deck_writer.h"
#include "decks/layouts.h"

namespace vellumark::decks {
namespace {

/// Adds a shape of that kind to the tree, with the next free id and a name such as "TextBox 7".
ShapeBuilder add(const std::shared_ptr<TreeData>& tree, ShapeKind kind, const std::string& name,
                 const std::optional<Frame>& frame = {}) {
  auto data = std::make_shared<ShapeData>();
  data->kind = kind;
  data->lastId = tree->lastId;
  data->id = ++*tree->lastId;
  data->name = name + " " + std::to_string(data->id);
  data->frame = frame;
  tree->shapes.push_back(data);
  return ShapeBuilder(data);
}

void appendParagraphs(ShapeData& shape, const std::string& text, const TextStyle& style) {
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    Paragraph& paragraph = shape.paragraphs.emplace_back(Paragraph{style, {}});
    if (end > start) paragraph.runs.push_back({text.substr(start, end - start), style});
    start = end + 1;
  }
  shape.hasText = true;
}

/// The cells of a row and a column, of all of them where it is -1.
std::vector<Cell*> chosenCells(ShapeData& table, int row, int column) {
  std::vector<Cell*> chosen;
  for (int r = 0; r < static_cast<int>(table.cells.size()); ++r) {
    for (int c = 0; c < static_cast<int>(table.cells[r].size()); ++c) {
      if ((row == -1 || row == r) && (column == -1 || column == c)) chosen.push_back(&table.cells[r][c]);
    }
  }
  return chosen;
}

/// The last shape of a tree: the one that add() has just made.
ShapeData& last(const std::shared_ptr<TreeData>& tree) { return *tree->shapes.back(); }

}  // namespace

// ---- ShapeBuilder

ShapeBuilder ShapeBuilder::named(const std::string& name) const {
  data_->name = name;
  return *this;
}

ShapeBuilder ShapeBuilder::withId(int id) const {
  data_->id = id;
  *data_->lastId = std::max(*data_->lastId, id);
  return *this;
}

int ShapeBuilder::id() const { return data_->id; }

ShapeBuilder ShapeBuilder::frame(double x, double y, double width, double height) const {
  data_->frame = Frame{x, y, width, height};
  return *this;
}

ShapeBuilder ShapeBuilder::rotate(double degrees) const {
  data_->rotation = degrees;
  return *this;
}

ShapeBuilder ShapeBuilder::flipHorizontally() const {
  data_->flipH = !data_->flipH;
  return *this;
}

ShapeBuilder ShapeBuilder::flipVertically() const {
  data_->flipV = !data_->flipV;
  return *this;
}

ShapeBuilder ShapeBuilder::hidden() const {
  data_->hidden = true;
  return *this;
}

ShapeBuilder ShapeBuilder::tag(const std::string& name, const std::string& value) const {
  data_->tags.emplace_back(name, value);
  return *this;
}

ShapeBuilder ShapeBuilder::describe(const std::string& alternativeText) const {
  data_->description = alternativeText;
  return *this;
}

ShapeBuilder ShapeBuilder::adjust(std::vector<int> values) const {
  data_->adjustments = std::move(values);
  return *this;
}

ShapeBuilder ShapeBuilder::text(const std::string& text, const TextStyle& style) const {
  appendParagraphs(*data_, text, style);
  return *this;
}

ShapeBuilder ShapeBuilder::run(const std::string& text, const TextStyle& style) const {
  if (data_->paragraphs.empty()) data_->paragraphs.push_back({style, {}});
  data_->paragraphs.back().runs.push_back({text, style});
  data_->hasText = true;
  return *this;
}

ShapeBuilder ShapeBuilder::anchor(const std::string& edge) const {
  data_->anchor = edge;
  return *this;
}

ShapeBuilder ShapeBuilder::insets(double left, double top, double right, double bottom) const {
  data_->insets = {left, top, right, bottom};
  return *this;
}

ShapeBuilder ShapeBuilder::noWrap() const {
  data_->wrap = false;
  return *this;
}

ShapeBuilder ShapeBuilder::fitToText() const {
  data_->fitToText = true;
  return *this;
}

ShapeBuilder ShapeBuilder::upright() const {
  data_->upright = true;
  return *this;
}

ShapeBuilder ShapeBuilder::fill(const std::string& color) const {
  data_->fill = color;
  return *this;
}

ShapeBuilder ShapeBuilder::noFill() const { return fill(""); }

ShapeBuilder ShapeBuilder::line(const std::string& color, double width) const {
  if (!data_->outline) data_->outline.emplace();
  data_->outline->none = false;
  data_->outline->color = color;
  data_->outline->width = width;
  return *this;
}

ShapeBuilder ShapeBuilder::noLine() const {
  data_->outline = Outline{.none = true};
  return *this;
}

ShapeBuilder ShapeBuilder::dash(const std::string& preset) const {
  if (!data_->outline) data_->outline.emplace();
  data_->outline->dash = preset;
  return *this;
}

ShapeBuilder ShapeBuilder::arrowHead() const {
  if (!data_->outline) data_->outline.emplace();
  data_->outline->arrowHead = true;
  return *this;
}

ShapeBuilder ShapeBuilder::glue(const ShapeBuilder& from, int fromSite, const ShapeBuilder& to,
                                int toSite) const {
  data_->glue = {{from.id(), fromSite}, {to.id(), toSite}};
  return *this;
}

ShapeBuilder ShapeBuilder::alternateContent(bool understood) const {
  data_->alternate = understood ? Alternate::choice : Alternate::fallback;
  return *this;
}

ShapeBuilder ShapeBuilder::childSpace(double x, double y, double width, double height) const {
  data_->childSpace = Frame{x, y, width, height};
  return *this;
}

ShapeTree ShapeBuilder::children() const {
  if (!data_->children) throw std::logic_error(data_->name + " is no group");
  return ShapeTree(data_->children);
}

ShapeBuilder ShapeBuilder::columnWidths(std::vector<double> widths) const {
  data_->columnWidths = std::move(widths);
  return *this;
}

ShapeBuilder ShapeBuilder::tableStyle(const std::string& id, std::vector<std::string> flags) const {
  data_->tableStyleId = id;
  data_->tableFlags = std::move(flags);
  return *this;
}

ShapeBuilder ShapeBuilder::rowHeights(std::vector<double> heights) const {
  data_->rowHeights = std::move(heights);
  return *this;
}

ShapeBuilder ShapeBuilder::cell(int row, int column, const TextStyle& style, const std::string& fill) const {
  for (Cell* cell : chosenCells(*data_, row, column)) {
    cell->style = style;
    cell->fill = fill;
  }
  return *this;
}

ShapeBuilder ShapeBuilder::cellInsets(int row, int column, double left, double top, double right,
                                      double bottom) const {
  for (Cell* cell : chosenCells(*data_, row, column)) cell->insets = {left, top, right, bottom};
  return *this;
}

ShapeBuilder ShapeBuilder::rule(int row, const std::string& color, double width) const {
  return border(row, -1, "B", color, width);
}

ShapeBuilder ShapeBuilder::border(int row, int column, const std::string& edges, const std::string& color,
                                  double width) const {
  for (Cell* cell : chosenCells(*data_, row, column)) {
    for (const char edge : edges) {
      cell->borders[edge] = {.none = color.empty(), .color = color, .width = width};
    }
  }
  return *this;
}

// ---- ShapeTree

ShapeBuilder ShapeTree::shape(const std::string& preset, double x, double y, double width,
                              double height) const {
  const auto builder =
      add(tree_, ShapeKind::autoShape, preset == "rect" ? "Rectangle" : "Shape", Frame{x, y, width, height});
  last(tree_).preset = preset;
  last(tree_).hasText = true;
  return builder.anchor("ctr");
}

ShapeBuilder ShapeTree::textBox(double x, double y, double width, double height, const std::string& text,
                                const TextStyle& style) const {
  const auto builder = add(tree_, ShapeKind::textBox, "TextBox", Frame{x, y, width, height});
  last(tree_).hasText = true;
  return text.empty() ? builder : builder.text(text, style);
}

ShapeBuilder ShapeTree::picture(double x, double y, double width, double height,
                                const std::string& color) const {
  const auto builder = add(tree_, ShapeKind::picture, "Picture", Frame{x, y, width, height});
  last(tree_).pictureColor = color;
  return builder;
}

ShapeBuilder ShapeTree::connector(const std::string& preset, double x1, double y1, double x2,
                                  double y2) const {
  const auto builder = add(tree_, ShapeKind::connector, "Connector",
                           Frame{std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1)});
  last(tree_).preset = preset;
  last(tree_).flipH = x2 < x1;
  last(tree_).flipV = y2 < y1;
  return builder;
}

ShapeBuilder ShapeTree::elbowDown(double x1, double y1, double x2, double y2) const {
  if (x1 == x2) return connector("straightConnector1", x1, y1, x2, y2);
  // The preset runs across, down and across: it is drawn lying and turned, to the other side as its mirror
  // image.
  const double down = y2 - y1, across = std::abs(x2 - x1);
  const auto elbow = connector("bentConnector3", 0, 0, 0, 0)
                         .frame((x1 + x2 - down) / 2, (y1 + y2 - across) / 2, down, across)
                         .rotate(x2 < x1 ? 90 : 270);
  return x2 < x1 ? elbow : elbow.flipHorizontally();
}

ShapeBuilder ShapeTree::group(double x, double y, double width, double height) const {
  const auto builder = add(tree_, ShapeKind::group, "Group", Frame{x, y, width, height});
  last(tree_).children = std::make_shared<TreeData>();
  last(tree_).children->lastId = tree_->lastId;
  return builder;
}

ShapeBuilder ShapeTree::table(double x, double y, double width, double height,
                              const std::vector<std::vector<std::string>>& cells) const {
  if (cells.empty() || cells.front().empty()) throw std::invalid_argument("a table needs a cell");
  const auto builder = add(tree_, ShapeKind::table, "Table", Frame{x, y, width, height});
  for (const auto& row : cells) {
    auto& target = last(tree_).cells.emplace_back();
    for (const auto& text : row) target.push_back({.text = text, .style = {}, .fill = {}});
  }
  return builder
      .columnWidths(std::vector(cells.front().size(), width / static_cast<double>(cells.front().size())))
      .rowHeights(std::vector(cells.size(), height / static_cast<double>(cells.size())));
}

ShapeBuilder ShapeTree::freeform(double x, double y, double width, double height,
                                 const std::vector<std::pair<double, double>>& corners, bool closed) const {
  const auto builder = add(tree_, ShapeKind::freeform, "Freeform", Frame{x, y, width, height});
  for (const auto& [cornerX, cornerY] : corners) last(tree_).path.push_back({.x = cornerX, .y = cornerY});
  last(tree_).closed = closed;
  last(tree_).hasText = true;
  return builder;
}

ShapeBuilder ShapeTree::path(double x, double y, double width, double height,
                             const std::vector<PathStep>& steps) const {
  const auto builder = freeform(x, y, width, height, {});
  last(tree_).path = steps;
  return builder;
}

ShapeBuilder ShapeTree::placeholder(const std::string& type, int index) const {
  const auto builder = add(tree_, ShapeKind::placeholder, "Placeholder");
  last(tree_).placeholderType = type;
  last(tree_).placeholderIndex = index;
  last(tree_).hasText = true;
  return builder;
}

ShapeBuilder ShapeTree::chart(double x, double y, double width, double height,
                              const std::vector<std::pair<std::string, double>>& bars) const {
  const auto builder = add(tree_, ShapeKind::chart, "Chart", Frame{x, y, width, height});
  last(tree_).bars = bars;
  return builder;
}

ShapeBuilder ShapeTree::xml(const std::string& element) const {
  const auto builder = add(tree_, ShapeKind::xml, "XML");
  last(tree_).xml = element;
  return builder;
}

ShapeBuilder ShapeTree::find(const std::string& type, int index) const {
  for (const auto& shape : tree_->shapes) {
    if (shape->kind == ShapeKind::placeholder && shape->placeholderType == type &&
        (index == 0 || shape->placeholderIndex == index)) {
      return ShapeBuilder(shape);
    }
  }
  throw std::invalid_argument("no placeholder of type " + type);
}

// ---- SlideBuilder, LayoutBuilder, MasterBuilder

SlideBuilder::SlideBuilder(std::shared_ptr<SlideData> data) : ShapeTree(data->tree), data_(std::move(data)) {}

SlideBuilder SlideBuilder::withId(int id) const {
  data_->id = id;
  return *this;
}

SlideBuilder SlideBuilder::hidden() const {
  data_->hidden = true;
  return *this;
}

SlideBuilder SlideBuilder::background(const std::string& color) const {
  data_->background = color;
  return *this;
}

SlideBuilder SlideBuilder::notes(const std::string& text) const {
  data_->notes = text;
  return *this;
}

SlideBuilder SlideBuilder::tag(const std::string& name, const std::string& value) const {
  data_->tags.emplace_back(name, value);
  return *this;
}

SlideBuilder SlideBuilder::unusualPrefixes() const {
  data_->unusualPrefixes = true;
  return *this;
}

LayoutBuilder::LayoutBuilder(std::shared_ptr<LayoutData> data)
    : ShapeTree(data->tree), data_(std::move(data)) {}

LayoutBuilder LayoutBuilder::named(const std::string& name) const {
  data_->name = name;
  return *this;
}

LayoutBuilder LayoutBuilder::background(const std::string& color) const {
  data_->background = color;
  return *this;
}

LayoutBuilder LayoutBuilder::hideMasterShapes() const {
  data_->hideMasterShapes = true;
  return *this;
}

MasterBuilder::MasterBuilder(std::shared_ptr<MasterData> data)
    : ShapeTree(data->tree), data_(std::move(data)) {}

MasterBuilder MasterBuilder::theme(const Theme& theme) const {
  data_->theme = theme;
  return *this;
}

MasterBuilder MasterBuilder::background(const std::string& color) const {
  data_->background = color;
  return *this;
}

MasterBuilder MasterBuilder::layouts(const std::vector<std::string>& types) const {
  data_->layouts.clear();
  for (const auto& type : types) data_->layouts.push_back(makeLayout(type, data_->width, data_->height));
  return *this;
}

LayoutBuilder MasterBuilder::layout(const std::string& type) const {
  for (const auto& layout : data_->layouts) {
    if (layout->type == type) return LayoutBuilder(layout);
  }
  throw std::invalid_argument("no layout of type " + type);
}

// ---- DeckBuilder

DeckBuilder::DeckBuilder() : data_(std::make_shared<DeckData>()) { addMaster(); }

DeckBuilder& DeckBuilder::size(double width, double height) {
  if (!data_->slides.empty()) throw std::logic_error("the size of the slides comes before the slides");
  data_->width = width;
  data_->height = height;
  for (auto& master : data_->masters) master = makeMaster(master->theme, width, height);
  return *this;
}

DeckBuilder& DeckBuilder::title(const std::string& title) {
  data_->title = title;
  return *this;
}

DeckBuilder& DeckBuilder::firstSlideNumber(int number) {
  data_->firstSlideNumber = number;
  return *this;
}

DeckBuilder& DeckBuilder::tableStyle(const std::string& id, const std::string& parts) {
  data_->tableStyles[id] = parts;
  return *this;
}

DeckBuilder& DeckBuilder::extraColor(const std::string& color) {
  data_->extraColors.push_back(color);
  return *this;
}

DeckBuilder& DeckBuilder::tag(const std::string& name, const std::string& value) {
  data_->tags.emplace_back(name, value);
  return *this;
}

DeckBuilder& DeckBuilder::unusualPrefixes() {
  data_->unusualPrefixes = true;
  return *this;
}

MasterBuilder DeckBuilder::master(int index) const { return MasterBuilder(data_->masters.at(index)); }

MasterBuilder DeckBuilder::addMaster(const Theme& theme) {
  data_->masters.push_back(makeMaster(theme, data_->width, data_->height));
  return MasterBuilder(data_->masters.back());
}

SlideBuilder DeckBuilder::slide(const std::string& layout, int master) {
  this->master(master).layout(layout);  // raises where there is none
  auto slide = std::make_shared<SlideData>();
  slide->layout = layout;
  slide->master = master;
  slide->id = 256;
  for (const auto& other : data_->slides) slide->id = std::max(slide->id, other->id + 1);
  data_->slides.push_back(slide);
  return SlideBuilder(slide);
}

std::string DeckBuilder::bytes() const { return writeZip(deckEntries(*data_)); }

void DeckBuilder::save(const std::string& path) const {
  std::ofstream out(path, std::ios::binary);
  out << bytes();
  if (!out.flush()) throw std::runtime_error(path + ": can't be written");
}

}  // namespace vellumark::decks
