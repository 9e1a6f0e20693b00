#pragma once
// Pictures that the host shows on its controls.

#include <string>

#include "host/object.h"
#include "ui/canvas.h"

namespace vellumark::host {

/// The picture in a file (its path as the system has it), in the form that the host takes; nothing where
/// there is none that can be read.
ObjectRef loadPictureFromFile(const std::string& path);

/// A picture for a toolbar's button, and its mask: black where the picture shows, white where the bar does.
struct MaskedPicture {
  ObjectRef picture, mask;
};
/// Takes the picture in a file apart at its transparent pixels: those that are less than half opaque don't
/// show. Nothing where there is none that can be read.
MaskedPicture loadMaskedPicture(const std::string& path);

/// The picture of what is drawn on a canvas; nothing where the system can make none.
ObjectRef pictureOf(const ui::Canvas& canvas);

}  // namespace vellumark::host
