#pragma once
// What stands on the tools bar of hosts before the ribbon, in the order of creation.

#include <span>
#include <string>

#include "core/config.h"

namespace vellumark::commands::toolsBar {

inline constexpr const char* name = core::toolsBarName;
inline constexpr const char* tag = "zorp_TrimlineTools";  ///< on its entries
inline constexpr const char* toolsPopup = "Tools";
inline constexpr const char* helpPopup = "Help";

struct Entry {
  const char* parameter;
  int icon;  ///< index into the add-in's own pictures, or the number of a face of the host's; 0 for none
  bool beginGroup;
  int helpId;             ///< context id of the entry's help; 0 for none
  bool hostFace = false;  ///< which of the two `icon` means

  /// The label of its command.
  std::string caption() const;
};

inline constexpr Entry logo{"!about", 1, false, 1000};
std::span<const Entry> alignEntries();
/// Controls of the host's own, which stand between the two lists on the bar.
inline constexpr int distributeHorizontally = 408;
inline constexpr int distributeVertically = 465;
std::span<const Entry> barEntries();
/// The popup "Tools".
std::span<const Entry> toolsEntries();
/// The popup "Help".
std::span<const Entry> helpEntries();

}  // namespace vellumark::commands::toolsBar
