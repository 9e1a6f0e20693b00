// Deck reports as JSON.

#include <charconv>
#include <nlohmann/json.hpp>

#include "deck_report.h"

namespace vellumark::app {
namespace {

using Json = nlohmann::ordered_json;

/// The double whose shortest text is that of the single: 0.1f is 0.1, not 0.10000000149.
double tidy(float number) {
  char text[64];
  const auto written = std::to_chars(text, text + sizeof text, number);
  double value = number;
  std::from_chars(text, written.ptr, value);
  return value;
}

Json tagsJson(const TagList& tags) {
  Json json = Json::object();
  for (const auto& [name, value] : tags) json[name] = value;
  return json;
}

Json shapeJson(const ShapeReport& shape) {
  Json json{{"index", shape.index},
            {"id", shape.id},
            {"name", shape.name},
            {"type", shape.type},
            {"typeName", typeName(shape.type)},
            {"left", tidy(shape.left)},
            {"top", tidy(shape.top)},
            {"width", tidy(shape.width)},
            {"height", tidy(shape.height)},
            {"rotation", tidy(shape.rotation)},
            {"visible", shape.visible},
            {"text", shape.text},
            {"tags", tagsJson(shape.tags)}};
  if (!shape.members.empty()) json["members"] = toJson(shape.members);
  return json;
}

}  // namespace

Json toJson(const std::vector<ShapeReport>& shapes) {
  Json json = Json::array();
  for (const ShapeReport& shape : shapes) json.push_back(shapeJson(shape));
  return json;
}

Json toJson(const DeckReport& deck) {
  Json slides = Json::array();
  for (const SlideReport& slide : deck.slides) {
    slides.push_back(Json{{"index", slide.index},
                          {"id", slide.id},
                          {"tags", tagsJson(slide.tags)},
                          {"shapes", toJson(slide.shapes)}});
  }
  return Json{{"name", deck.name},
              {"width", tidy(deck.width)},
              {"height", tidy(deck.height)},
              {"tags", tagsJson(deck.tags)},
              {"slides", std::move(slides)}};
}

std::string jsonText(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace vellumark::app
