#pragma once
// What a save asks.

namespace vellumark::commands {

/// The end of the question whether to save a presentation in which shapes are hidden.
inline constexpr const char* hiddenShapesQuestion =
    "Would you like to save the presentation with hidden shapes now?";

}  // namespace vellumark::commands
