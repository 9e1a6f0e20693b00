#pragma once
// Presentations made from nothing, for tests and for the delivered samples.
//
//   DeckBuilder deck;
//   auto slide = deck.slide("titleOnly");
//   slide.placeholder("title").text("Sales");
//   slide.shape("rect", 10, 20, 100, 50).rotate(45).named("A");
//   deck.save(folder.path("a.pptx"));
//
// The builder shares no code with the embedded host, so that a fault there can't hide here. All lengths are
// points, all angles degrees, all texts UTF-8. The builders are handles: copies speak of the same slide or
// shape.

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vellumark::decks {

struct DeckData;
struct MasterData;
struct SlideData;
struct ShapeData;
struct TreeData;
struct LayoutData;

/// How text looks. What is left out is inherited. A colour is "1F3864" or a name of the theme ("accent1",
/// "tx1"), which percentages may follow: "accent1 lighter 80", "bg1 darker 15", "accent2 opaque 60".
struct TextStyle {
  double size = 0;  ///< points
  bool bold = false;
  bool italic = false;
  std::string color = {};
  std::string font = {};
  std::string align = {};   ///< "l", "ctr", "r", "just"
  std::string bullet = {};  ///< the bullet's character, "none", or empty: as inherited
  int level = 0;            ///< 0 to 8
  double spaceBefore = 0;   ///< points
  std::string language = {};
};

/// Colours and fonts of a master.
struct Theme {
  std::string name = "Plain";
  /// dk1, lt1, dk2, lt2, accent1 to accent6, hlink, folHlink
  std::array<std::string, 12> colors = {"000000", "FFFFFF", "1F2A44", "EEF1F5", "2F5D8C", "C8553D",
                                        "5B8E7D", "D9A441", "6C5B7B", "8D99AE", "2F5D8C", "6C5B7B"};
  std::string headings = "Arial";
  std::string body = "Arial";
  TextStyle title = {.size = 36, .color = "tx1"};
  double bodySize = 24;  ///< of the first level; each deeper level is 2 points smaller, down to 12
};

/// One step of a path: a line to a point or, with a radius, an arc of a circle from where the path has come
/// to.
struct PathStep {
  double x = 0, y = 0;                      ///< points from the frame's left top corner
  double radius = 0, start = 0, sweep = 0;  ///< angles clockwise from the right
};

/// One shape, whatever its kind. Setters return the same shape.
class ShapeBuilder {
 public:
  explicit ShapeBuilder(std::shared_ptr<ShapeData> data) : data_(std::move(data)) {}

  ShapeBuilder named(const std::string& name) const;
  ShapeBuilder withId(int id) const;
  int id() const;
  ShapeBuilder frame(double x, double y, double width, double height) const;
  ShapeBuilder rotate(double degrees) const;
  ShapeBuilder flipHorizontally() const;
  ShapeBuilder flipVertically() const;
  ShapeBuilder hidden() const;
  ShapeBuilder tag(const std::string& name, const std::string& value) const;
  ShapeBuilder describe(const std::string& alternativeText) const;

  /// Values of the preset's guides as in the file (100000 for 1), in order: "adj" alone, or "adj1", "adj2",
  /// ...
  ShapeBuilder adjust(std::vector<int> values) const;

  /// Paragraphs at each line feed, all in one style; several calls add further paragraphs.
  ShapeBuilder text(const std::string& text, const TextStyle& style = {}) const;
  /// A further run in the last paragraph.
  ShapeBuilder run(const std::string& text, const TextStyle& style = {}) const;
  ShapeBuilder anchor(const std::string& edge) const;  ///< "t", "ctr" or "b"
  ShapeBuilder insets(double left, double top, double right,
                      double bottom) const;  ///< of a table: of each cell
  ShapeBuilder noWrap() const;
  ShapeBuilder fitToText() const;  ///< the shape's height follows the text
  ShapeBuilder upright() const;    ///< the text runs from the bottom up

  ShapeBuilder fill(const std::string& color) const;
  ShapeBuilder noFill() const;
  ShapeBuilder line(const std::string& color, double width = 0.75) const;
  ShapeBuilder noLine() const;
  ShapeBuilder dash(const std::string& preset) const;  ///< "dash", "sysDot", ...
  ShapeBuilder arrowHead() const;                      ///< at the end of a line

  /// Connectors only: glues the ends to connection sites of two shapes, which count from 0. It stays as
  /// drawn.
  ShapeBuilder glue(const ShapeBuilder& from, int fromSite, const ShapeBuilder& to, int toSite) const;

  /// Wraps the shape in mc:AlternateContent. Where `understood`, its choice needs a known extension and holds
  /// this shape, the fallback a plain rectangle with " fallback" behind the name; otherwise the choice needs
  /// an unknown one and holds that rectangle, the fallback this shape.
  ShapeBuilder alternateContent(bool understood = true) const;

  // Groups only.
  /// The children's coordinate space, which is stretched onto the group's frame; without it the two are the
  /// same.
  ShapeBuilder childSpace(double x, double y, double width, double height) const;
  class ShapeTree children() const;

  // Tables only. A row or column of -1 means all of them.
  ShapeBuilder columnWidths(std::vector<double> widths) const;
  ShapeBuilder rowHeights(std::vector<double> heights) const;
  /// The style by its id, and which of its parts are asked for instead of "firstRow" alone.
  ShapeBuilder tableStyle(const std::string& id, std::vector<std::string> flags) const;
  ShapeBuilder cell(int row, int column, const TextStyle& style, const std::string& fill = {}) const;
  ShapeBuilder rule(int row, const std::string& color, double width = 0.75) const;  ///< a line below that row
  ShapeBuilder cellInsets(int row, int column, double left, double top, double right, double bottom) const;
  /// Lines at the edges "L", "R", "T" or "B" of cells, several at once; an empty colour: none.
  ShapeBuilder border(int row, int column, const std::string& edges, const std::string& color,
                      double width = 0.75) const;

 private:
  std::shared_ptr<ShapeData> data_;
};

/// The shapes of a slide, layout, master or group, from back to front.
class ShapeTree {
 public:
  explicit ShapeTree(std::shared_ptr<TreeData> tree) : tree_(std::move(tree)) {}

  ShapeBuilder shape(const std::string& preset, double x, double y, double width, double height) const;
  ShapeBuilder textBox(double x, double y, double width, double height, const std::string& text = {},
                       const TextStyle& style = {}) const;
  /// A picture of one colour, a PNG made here.
  ShapeBuilder picture(double x, double y, double width, double height,
                       const std::string& color = "2F5D8C") const;
  /// A line from one point to another: "line", "straightConnector1", "bentConnector3", ...
  ShapeBuilder connector(const std::string& preset, double x1, double y1, double x2, double y2) const;
  /// An elbow that leaves one point downwards and comes down on another.
  ShapeBuilder elbowDown(double x1, double y1, double x2, double y2) const;
  ShapeBuilder group(double x, double y, double width, double height) const;
  ShapeBuilder table(double x, double y, double width, double height,
                     const std::vector<std::vector<std::string>>& cells) const;
  /// A polygon; its corners in points from the frame's left top corner.
  ShapeBuilder freeform(double x, double y, double width, double height,
                        const std::vector<std::pair<double, double>>& corners, bool closed = true) const;
  /// The same with arcs; it is closed.
  ShapeBuilder path(double x, double y, double width, double height,
                    const std::vector<PathStep>& steps) const;
  /// A placeholder, without a frame of its own (it has that of layout or master) until frame() gives it one.
  ShapeBuilder placeholder(const std::string& type, int index = 0) const;
  /// A bar chart with one series.
  ShapeBuilder chart(double x, double y, double width, double height,
                     const std::vector<std::pair<std::string, double>>& bars) const;
  /// A shape as its XML stands, with the usual prefixes (p, a, r); it brings its own id and name.
  ShapeBuilder xml(const std::string& element) const;

  /// The placeholder of that type that stands here already, as on the usual layouts and masters.
  ShapeBuilder find(const std::string& type, int index = 0) const;

 private:
  std::shared_ptr<TreeData> tree_;
};

class SlideBuilder : public ShapeTree {
 public:
  explicit SlideBuilder(std::shared_ptr<SlideData> data);

  SlideBuilder withId(int id) const;  ///< from 256 up
  SlideBuilder hidden() const;
  SlideBuilder background(const std::string& color) const;
  SlideBuilder notes(const std::string& text) const;
  SlideBuilder tag(const std::string& name, const std::string& value) const;
  /// The whole part is written with other namespace prefixes than the usual ones.
  SlideBuilder unusualPrefixes() const;

 private:
  std::shared_ptr<SlideData> data_;
};

class LayoutBuilder : public ShapeTree {
 public:
  explicit LayoutBuilder(std::shared_ptr<LayoutData> data);
  LayoutBuilder named(const std::string& name) const;
  LayoutBuilder background(const std::string& color) const;
  LayoutBuilder hideMasterShapes() const;

 private:
  std::shared_ptr<LayoutData> data_;
};

/// A master with the five usual placeholders (title, body, dt, ftr, sldNum) and its layouts.
class MasterBuilder : public ShapeTree {
 public:
  explicit MasterBuilder(std::shared_ptr<MasterData> data);
  MasterBuilder theme(const Theme& theme) const;
  MasterBuilder background(const std::string& color) const;
  /// Only these layouts, by type, instead of the usual eleven (title, obj, secHead, twoObj, twoTxTwoObj,
  /// titleOnly, blank, objTx, picTx, vertTx, vertTitleAndTx). twoColTx and cust exist besides.
  MasterBuilder layouts(const std::vector<std::string>& types) const;
  LayoutBuilder layout(const std::string& type) const;

 private:
  std::shared_ptr<MasterData> data_;
};

class DeckBuilder {
 public:
  DeckBuilder();

  DeckBuilder& size(double width, double height);  ///< 960 by 540 unless told otherwise
  DeckBuilder& title(const std::string& title);
  DeckBuilder& firstSlideNumber(int number);
  DeckBuilder& extraColor(const std::string& color);  ///< RRGGBB, into the recently used colours
  DeckBuilder& tag(const std::string& name, const std::string& value);
  /// A table style of that id with these parts (XML).
  DeckBuilder& tableStyle(const std::string& id, const std::string& parts);
  /// presentation.xml and all slides, layouts and masters with other namespace prefixes.
  DeckBuilder& unusualPrefixes();

  MasterBuilder master(int index = 0) const;
  MasterBuilder addMaster(const Theme& theme = {});
  /// A new last slide on the layout of that type of that master.
  SlideBuilder slide(const std::string& layout = "blank", int master = 0);

  /// The whole file. The same deck gives the same bytes.
  std::string bytes() const;
  void save(const std::string& path) const;

 private:
  std::shared_ptr<DeckData> data_;
};

}  // namespace vellumark::decks
