#pragma once
// Shapes as the XML of a shape tree.

#include <functional>
#include <pugixml.hpp>

#include "decks/deck_model.h"

namespace vellumark::decks {

/// What a shape needs of its part: each function adds a part that the shape relates to and gives the
/// relationship's id.
struct PartLinks {
  std::function<std::string(const Tags&)> tags;
  std::function<std::string(const std::string& color)> picture;
  std::function<std::string(const ShapeData&)> chart;
};

/// EMU, 12700 to the point.
long long emu(double points);

pugi::xml_node appendShapes(pugi::xml_node parent, const TreeData& tree, const PartLinks& links);
void appendSolidFill(pugi::xml_node parent, const std::string& color);
void appendTagsReference(pugi::xml_node parent, const std::string& relationship);
/// p:bg of one colour; nothing where the colour is empty.
void appendBackground(pugi::xml_node parent, const std::string& color);

/// The part of a bar chart.
std::string chartXml(const ShapeData& shape);

}  // namespace vellumark::decks
