#pragma once
// What a new presentation and a new slide begin with.

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "deck/package/package.h"

namespace vellumark::deck {

inline constexpr const char* slideContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.slide+xml";

inline constexpr const char* layoutContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.slideLayout+xml";

/// A presentation of 960 by 540 points with one master, its theme and the usual layouts, and no slides.
std::unique_ptr<Package> newPresentation();

/// A placeholder in front of the shapes of a tree that stands for one of the layout (`model`): its kind, no
/// frame and no text of its own.
pugi::xml_node appendPlaceholder(pugi::xml_node tree, pugi::xml_node model, std::int32_t id);

/// What a new layout can follow on its master, and the size of the slide in EMU.
struct LayoutSetting {
  bool hasTitle, hasBody;
  double width, height;
};
/// The XML of a layout of one of the types that need nothing but a title and a body ("blank", "titleOnly",
/// "obj", "tx"). They have the master's frames where it has such placeholders. Empty for other types.
std::string simpleLayoutXml(std::string_view type, const LayoutSetting& setting);

/// The XML of an empty slide on a layout: the layout's placeholders but date, footer and slide number.
std::string newSlideXml(pugi::xml_node layout);

}  // namespace vellumark::deck
