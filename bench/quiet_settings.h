#pragma once

#include <cstdlib>

#include "support/temp_folder.h"

namespace vellumark::bench {

/// A settings store of the benchmark's own, so that the user's counters stay as they are.
class QuietSettings {
 public:
  QuietSettings() { setenv("VELLUMARK_SETTINGS", file().c_str(), 1); }

 private:
  /// The store is opened once for the whole process, so its file is one as well.
  static const std::string& file() {
    static const test::TempFolder folder;
    static const std::string path = folder.path("settings.db");
    return path;
  }
};

}  // namespace vellumark::bench
