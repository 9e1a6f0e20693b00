#pragma once
// Languages of text: locale ids in the object model, BCP 47 tags in the file.

#include <cstdint>
#include <string_view>

namespace vellumark::deck {

/// The locale id of a tag ("de-DE" is 1031), in any case; 0 for an unknown one.
std::int32_t localeId(std::string_view tag);
/// The tag of a locale id; empty for an unknown one.
std::string_view localeTag(std::int32_t id);

}  // namespace vellumark::deck
