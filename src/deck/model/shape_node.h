#pragma once
// The elements of a shape tree: which of them are shapes, what stands where in them, and how alternatives
// (mc:AlternateContent) are seen through.

#include <cstdint>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

enum class ShapeElement { none, shape, picture, graphicFrame, connector, group, contentPart };

/// What an element of a shape tree is; `none` for everything that is no shape.
ShapeElement shapeElement(pugi::xml_node node);

/// The shapes right under a shape tree or group, the one at the back first. Of an mc:AlternateContent those
/// of the branch that is shown: the first choice that needs known extensions only and holds a shape, else the
/// fallback.
std::vector<pugi::xml_node> shapeNodes(pugi::xml_node parent);

/// The node that stands for a shape among its siblings: the outermost mc:AlternateContent around it if it is
/// the only shape of its branch, else the shape itself.
pugi::xml_node treeNode(pugi::xml_node shape);
/// The nodes right under `parent` that are shapes or show shapes, in order.
std::vector<pugi::xml_node> treeNodes(pugi::xml_node parent);
/// p:spTree or p:grpSp that a shape or its tree node stands in, seen through alternatives.
pugi::xml_node treeParent(pugi::xml_node node);
/// The group that a shape stands in; nothing for one right on the sheet.
pugi::xml_node parentGroup(pugi::xml_node shape);
/// All shapes of a group but the groups among them, in order.
void appendLeaves(pugi::xml_node group, std::vector<pugi::xml_node>& leaves);

/// A shape and its counterparts in the other branches of its mc:AlternateContent, which are kept in step.
std::vector<pugi::xml_node> withCounterparts(pugi::xml_node shape);

/// p:cNvPr (id, name, description, visibility); nothing where a broken file lacks it.
pugi::xml_node drawingProperties(pugi::xml_node shape);
/// p:nvPr (placeholder, media, tags); nothing where it is missing.
pugi::xml_node applicationProperties(pugi::xml_node shape);
/// p:cNvSpPr and its like.
pugi::xml_node kindProperties(pugi::xml_node shape);
/// The same, made in their places where they are missing.
pugi::xml_node requireDrawingProperties(pugi::xml_node shape);
pugi::xml_node requireApplicationProperties(pugi::xml_node shape);

/// p:spPr or p:grpSpPr; nothing where it is missing, and for graphic frames, which have none.
pugi::xml_node visualProperties(pugi::xml_node shape);
pugi::xml_node requireVisualProperties(pugi::xml_node shape);

/// The a:graphicData/@uri of a graphic frame; empty for others.
std::string_view graphicUri(pugi::xml_node shape);

/// p:cNvPr/@id; 0 where there is none.
std::int32_t shapeId(pugi::xml_node shape);
/// An id above all that stand on a sheet.
std::int32_t freeShapeId(const Sheet& sheet);

/// A name without its namespace prefix.
std::string_view localName(pugi::xml_node node);
/// An attribute as whole number: leading blanks are skipped, what follows the digits is left out, too large
/// numbers are brought into the range; `otherwise` where there is no number.
std::int64_t wholeNumber(pugi::xml_attribute attribute, std::int64_t lowest, std::int64_t highest,
                         std::int64_t otherwise = 0);
/// An attribute that counts 100000 to one, between -100 and 100.
double shareOf(pugi::xml_attribute attribute, double otherwise = 0);

}  // namespace vellumark::deck
