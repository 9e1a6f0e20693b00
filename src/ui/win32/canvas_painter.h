#pragma once

#include "ui/canvas.h"
#include "ui/win32/resources.h"

namespace vellumark::ui::win32 {

/// Draws a canvas with its left upper corner at the origin.
void paintCanvas(const Canvas& canvas, HDC target, Resources& resources);

/// A picture file scaled to a square, on the ground of a list; nullptr where it can't be read. The caller
/// deletes it.
HBITMAP loadPicture(const std::string& path, int side, Resources& resources);

}  // namespace vellumark::ui::win32
