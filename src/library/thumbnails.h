#pragma once
// The pictures of elements that the ribbon's galleries show: made from the slides that insertion copies, kept
// as files, and made anew when a menu opens after its source was changed.

#include <cstdint>
#include <string>

namespace vellumark::library {

/// What the pictures go by, as read from the settings when the ribbon was loaded.
struct Thumbnails {
  std::int16_t thumbsWidth = 0;  ///< pixels
  std::int16_t thumbsHeight = 0;
  double thumbsDate_slideWizard = 0;  ///< serial date of the newest template that has pictures
  double thumbsDate_myElements = 0;   ///< that of the store when its pictures were made
  bool thumbsChecked = false;         ///< the Slide Wizard's pictures were looked after in this connection
};

/// Reads the settings; 13 or 6 where a size is no 16-bit number.
Thumbnails readThumbnails();

/// The file of a picture. Those of the Slide Wizard lie in one folder for all styles.
std::string slideWizardThumb(const std::string& file, const std::string& slideNo);
std::string myElementsThumb(const std::string& slideId);

// The makers have no trap: a failure of the host ends them, and dates stay as they were. Both use up what is
// on the clipboard.

/// Makes the pictures of all elements whose template in the first style is newer than any that had pictures
/// before. Missing templates are passed over.
void createSlideWizardThumbs(Thumbnails& thumbnails);

/// Makes the pictures of all of the user's elements if their store is newer than it was when the ribbon was
/// loaded; 91 where there is no store yet.
void createMyElementsThumbs(const Thumbnails& thumbnails);

}  // namespace vellumark::library
