#pragma once
// What a new presentation and a new slide begin with.

#include <memory>
#include <pugixml.hpp>
#include <string>

#include "deck/package/package.h"

namespace vellumark::deck {

inline constexpr const char* slideContentType =
    "application/vnd.openxmlformats-officedocument.presentationml.slide+xml";

/// A presentation of 960 by 540 points with one master, its theme and the usual layouts, and no slides.
std::unique_ptr<Package> newPresentation();

/// The XML of an empty slide on a layout: the layout's placeholders but date, footer and slide number.
std::string newSlideXml(pugi::xml_node layout);

}  // namespace vellumark::deck
