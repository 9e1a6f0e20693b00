#pragma once
// The pictures that live as long as the add-in is connected.

#include <cstddef>

#include "ui/form.h"

namespace vellumark::services {

/// A dialog that is never shown. It comes to life with its first use and is unloaded at disconnection.
class Icons : public ui::Form {
 public:
  static constexpr int pictureSize = 16;  ///< pixels, both ways
  using LanguagePictures = ui::ControlArray<ui::PictureBox, 3>;

  Icons();

  /// The pictures of the language buttons.
  LanguagePictures languagePictures{*this, "languagePictures", pictureSize, pictureSize};
};

/// The one instance.
Icons& icons();
/// Unloads it, if there is one. The next use makes a new one.
void unloadIcons();

}  // namespace vellumark::services
