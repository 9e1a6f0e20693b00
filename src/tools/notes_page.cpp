#include "tools/notes_page.h"

#include "base/conversions.h"
#include "core/globals.h"

namespace vellumark::tools {

bool hasNotesPage(const host::Slide& slide) {
  constexpr double knowsNotesPages = 14;
  if (base::val(core::globals().powerPointApp.Version()) < knowsNotesPages) return true;
  return host::getByName(slide.object(), "HasNotesPage").toInt() != host::msoFalse;
}

}  // namespace vellumark::tools
