#include "library/hidden_presentation.h"

#include "core/globals.h"

namespace vellumark::library {

host::Presentation openHidden(const std::string& path) {
  return core::globals().powerPointApp.Presentations().Open(path, false, false, false);
}

void closeUnsaved(const host::Presentation& presentation) {
  presentation.Saved(true);
  presentation.Close();
}

}  // namespace vellumark::library
