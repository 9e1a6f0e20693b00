#pragma once
// What there is on the slides of a deck, for people and for programs.

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <utility>
#include <vector>

#include "host/presentation.h"

namespace vellumark::app {

using TagList = std::vector<std::pair<std::string, std::string>>;

/// One shape as the host tells it. Lengths are points; the frame is that before rotation.
struct ShapeReport {
  int index = 0;  ///< from 1 on its slide, the one at the back first; in a group that of the member
  int id = 0;
  std::string name;
  int type = 0;  ///< MsoShapeType
  float left = 0, top = 0, width = 0, height = 0;
  float rotation = 0;  ///< degrees, clockwise
  bool visible = true;
  std::string text;  ///< paragraphs end in CR, line breaks are VT
  TagList tags;
  std::vector<ShapeReport> members;  ///< of a group, all levels flat
};

struct SlideReport {
  int index = 0;  ///< from 1; 0 for a master
  int id = 0;
  TagList tags;
  std::vector<ShapeReport> shapes;
};

struct DeckReport {
  std::string name;
  float width = 0, height = 0;  ///< of a slide
  TagList tags;
  std::vector<SlideReport> slides;
};

ShapeReport reportShape(const host::Shape& shape, int index);
std::vector<ShapeReport> reportShapes(const host::Shapes& shapes);
DeckReport reportDeck(const host::Presentation& presentation);

/// The shape type as people call it: "auto shape", "text box", ...
std::string typeName(int type);

/// As JSON. A number is the shortest that reads as the host's single.
nlohmann::ordered_json toJson(const std::vector<ShapeReport>& shapes);
nlohmann::ordered_json toJson(const DeckReport& deck);
/// The text of a JSON value, malformed UTF-8 in it replaced, with a line feed at the end.
std::string jsonText(const nlohmann::ordered_json& json);

/// As tables.
std::string toText(const DeckReport& deck);

}  // namespace vellumark::app
