#pragma once
// Placeholders: their types, and what they inherit from on layout and master.

#include <cstdint>
#include <pugixml.hpp>

#include "deck/model/document.h"
#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// p:ph of a shape; nothing where it is no placeholder.
pugi::xml_node placeholderElement(pugi::xml_node shape);

/// What the kinds of placeholders are matched and styled by.
enum class PlaceholderFamily { title, body, date, footer, slideNumber, header, slideImage };
PlaceholderFamily placeholderFamily(pugi::xml_node element);

/// PpPlaceholderType of a p:ph.
std::int32_t placeholderType(pugi::xml_node element);

/// The placeholder that a placeholder takes its frame, geometry and text properties from: on the layout the
/// one with the same index (or, without one, of the same kind), on the master the one of the same kind,
/// titles of all sorts being one kind and everything that holds contents being the body. An empty key where
/// there is none, and for shapes that are no placeholders.
ShapeKey inheritedPlaceholder(const ShapeKey& shape);

host::ObjectRef makePlaceholderFormat(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
