#pragma once
// What a save tells and asks.

namespace vellumark::commands {

inline constexpr const char* temporaryFolderWarning =
    "Caution! This presentation is being saved in a temporary folder.\r\nData in this folder may be "
    "deleted or overwritten inadvertently.";

/// The end of the question whether to save a presentation in which shapes are hidden.
inline constexpr const char* hiddenShapesQuestion =
    "Would you like to save the presentation with hidden shapes now?";

}  // namespace vellumark::commands
