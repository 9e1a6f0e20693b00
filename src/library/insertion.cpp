#include "library/insertion.h"

#include "core/globals.h"
#include "library/hidden_presentation.h"

namespace vellumark::library {

void insertSlide(const std::string& path, const std::function<host::Slide(const host::Slides&)>& find) {
  const host::Presentation source = openHidden(path);
  find(source.Slides()).Shapes().Range().Copy();
  core::globals().powerPointApp.ActiveWindow().View().Paste();
  closeUnsaved(source);
}

}  // namespace vellumark::library
