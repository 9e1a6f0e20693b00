#pragma once
// Styles: where their templates lie, and how a presentation remembers its own.

#include <cstdint>
#include <string>

namespace vellumark::core {

/// The presentation's tag with the name of the style that was chosen for it.
inline constexpr const char* styleTag = "zorp_style";

/// A template of a style as ribbon galleries and thumbnails find it: the style's name serves as the name of
/// its folder.
std::string ribbonTemplatePath(const std::string& style, const std::string& file);

/// A template as the toolbars find it, by the style's folder.
std::string toolbarTemplatePath(const std::string& styleFolder, const std::string& file);

/// The file of a style's agenda template.
inline constexpr const char* agendaTemplateName = "agendawizard.xml";
/// The agenda template of the style at that position of the list, from 1, by the style's folder on every
/// host; 9 outside the list.
std::string agendaTemplatePath(std::int32_t stylePosition);

}  // namespace vellumark::core
