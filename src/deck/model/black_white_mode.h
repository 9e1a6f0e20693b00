#pragma once
// How shapes and backgrounds are drawn in black and white.

#include <cstdint>

#include "deck/model/document.h"

namespace vellumark::deck {

/// MsoBlackWhiteMode of a shape, 1 (automatic) where it says nothing.
std::int32_t blackWhiteMode(const ShapeKey& shape);
/// Sets it, for all members of a group too; -2147024809 unless the mode is one from 1 to 10.
void setBlackWhiteMode(const ShapeKey& shape, std::int32_t mode);

/// The same of the background of a sheet; one without a background of its own has that of layout or master.
std::int32_t backgroundMode(const Sheet& sheet);
/// A sheet without a background of its own gets that of layout or master as its own.
void setBackgroundMode(const Sheet& sheet, std::int32_t mode);

}  // namespace vellumark::deck
