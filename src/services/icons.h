#pragma once
// The pictures and timers that live as long as the add-in is connected.

#include <cstddef>
#include <memory>
#include <string>

#include "host/picture.h"
#include "platform/user_activity.h"
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
  /// Keeps the screen saver away during slide shows.
  ui::Timer screensaverTimer{*this, "screensaverTimer", 30000};

  /// Watches the keys for help mode from the start; hosts with a ribbon have none.
  ui::Timer HelpTimer{*this, "HelpTimer", 50};

  /// Starts or stops the timer against the screen saver.
  void keepScreenSaverAway(bool on);

  /// The file of the picture at an index of the toolbars' image list, as the logic writes paths; empty for an
  /// index without one. The pictures are those of the ribbon's buttons, in their small size.
  static std::string toolbarPictureFile(int index);
  /// That picture with its mask; nothing where the file can't be read.
  static host::MaskedPicture toolbarPicture(int index);

 private:
  void HelpTimer_Timer();
  void screensaverTimer_Timer();

  std::unique_ptr<platform::UserActivity> activity_;  ///< from the first tick on
};

/// The one instance.
Icons& icons();
/// Unloads it, if there is one. The next use makes a new one.
void unloadIcons();

}  // namespace vellumark::services
