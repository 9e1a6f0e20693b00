#include "library/insertion.h"

#include "core/globals.h"

namespace vellumark::library {

void insertSlide(const std::string& path, const std::function<host::Slide(const host::Slides&)>& find) {
  const host::Application& application = core::globals().powerPointApp;
  const host::Presentation source = application.Presentations().Open(path, false, false, false);
  find(source.Slides()).Shapes().Range().Copy();
  application.ActiveWindow().View().Paste();
  source.Saved(true);
  source.Close();
}

}  // namespace vellumark::library
