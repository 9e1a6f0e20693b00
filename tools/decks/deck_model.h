#pragma once
// What the builders gather: plain data, from which the writer makes the parts.

#include <map>
#include <optional>

#include "decks/deck_builder.h"

namespace vellumark::decks {

struct Frame {
  double x = 0, y = 0, width = 0, height = 0;
};

struct Run {
  std::string text;
  TextStyle style;
};

struct Paragraph {
  TextStyle style;
  std::vector<Run> runs;
};

struct Outline {
  bool none = false;
  std::string color = {};  ///< empty: as the shape's style has it
  double width = 0.75;
  std::string dash = {};
  bool arrowHead = false;
};

struct Cell {
  std::string text;
  TextStyle style;
  std::string fill;
  std::optional<std::array<double, 4>> insets = {};  ///< instead of those of the table
  std::map<char, Outline> borders = {};              ///< by their edges: 'L', 'R', 'T', 'B'
};

/// What the end of a connector is glued to.
struct Glue {
  int shape, site;
};

using Tags = std::vector<std::pair<std::string, std::string>>;

enum class ShapeKind {
  autoShape,
  textBox,
  picture,
  connector,
  group,
  table,
  freeform,
  placeholder,
  chart,
  xml
};
enum class Alternate { none, choice, fallback };  ///< whether, and in which branch, the shape stands

struct ShapeData {
  ShapeKind kind = ShapeKind::autoShape;
  std::shared_ptr<int> lastId;  ///< of the slide, for an id that is set later
  int id = 0;
  std::string name;
  std::string description;
  std::optional<Frame> frame;
  double rotation = 0;
  bool flipH = false, flipV = false, hidden = false;
  Alternate alternate = Alternate::none;
  Tags tags;

  std::string preset = "rect";
  std::vector<int> adjustments;
  std::optional<std::string> fill;  ///< empty text: no fill
  std::optional<Outline> outline;
  std::vector<Glue> glue;  ///< of a connector: none, or of both ends

  bool hasText = false;  ///< whether a text body is written, though it may be empty
  std::vector<Paragraph> paragraphs;
  std::string anchor;
  std::optional<std::array<double, 4>> insets;
  bool wrap = true, fitToText = false, upright = false;

  std::string placeholderType;
  int placeholderIndex = 0;
  std::string pictureColor;
  std::vector<PathStep> path;
  bool closed = true;
  std::vector<std::pair<std::string, double>> bars;
  std::string xml;

  std::shared_ptr<TreeData> children;
  std::optional<Frame> childSpace;

  std::vector<std::vector<Cell>> cells;
  std::vector<double> columnWidths, rowHeights;
  std::string tableStyleId;
  std::vector<std::string> tableFlags{"firstRow"};
};

struct TreeData {
  std::shared_ptr<int> lastId = std::make_shared<int>(1);  ///< shared by all groups of a slide
  std::vector<std::shared_ptr<ShapeData>> shapes;
};

struct SlideData {
  std::shared_ptr<TreeData> tree = std::make_shared<TreeData>();
  std::string layout;
  int master = 0;
  int id = 0;
  bool hidden = false, unusualPrefixes = false;
  std::string background;
  std::optional<std::string> notes;
  Tags tags;
};

struct LayoutData {
  std::shared_ptr<TreeData> tree = std::make_shared<TreeData>();
  std::string type, name, background;
  bool hideMasterShapes = false;
};

struct MasterData {
  std::shared_ptr<TreeData> tree = std::make_shared<TreeData>();
  Theme theme;
  std::string background = "bg1";
  double width = 960, height = 540;
  std::vector<std::shared_ptr<LayoutData>> layouts;
};

struct DeckData {
  double width = 960, height = 540;
  std::string title = "Presentation";
  int firstSlideNumber = 1;
  std::vector<std::string> extraColors;
  std::map<std::string, std::string> tableStyles;  ///< their parts by their ids
  Tags tags;
  bool unusualPrefixes = false;
  std::vector<std::shared_ptr<MasterData>> masters;
  std::vector<std::shared_ptr<SlideData>> slides;
};

}  // namespace vellumark::decks
