#pragma once
// The main sequence of a slide's animations: p:timing as PowerPoint writes it.

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// The effects of the main sequence in order, each as the p:cTn that has its class and preset.
std::vector<pugi::xml_node> mainEffects(const Sheet& slide);

/// Adds an effect that a click starts and that moves a shape along a path, before the effect at `position`
/// (from 0) with its click, or at the end; its p:cTn. What is animated already stays as it is.
pugi::xml_node addMotionEffect(const Sheet& slide, std::int32_t shapeId, bool hasText, std::size_t position,
                               std::int32_t preset, const std::string& path);

/// The behaviours of an effect: p:animMotion, p:anim, p:set and their like.
std::vector<pugi::xml_node> behaviorsOf(pugi::xml_node effect);
/// Adds a motion without a path to an effect, before the behaviour at `position` (from 0) or at the end.
pugi::xml_node addMotion(const Sheet& slide, pugi::xml_node effect, std::size_t position);

/// The id of the shape that an effect plays on; 0 where there is none.
std::int32_t animatedShape(pugi::xml_node effect);

}  // namespace vellumark::deck
