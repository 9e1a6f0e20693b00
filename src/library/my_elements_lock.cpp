#include "library/my_elements_lock.h"

#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "library/my_elements_index.h"

namespace vellumark::library {

MyElementsLock::MyElementsLock() {
  constexpr std::chrono::seconds patience(30);
  const std::string& folder = core::globals().myElementsFolder;
  core::createFolder(folder);
  lock_.emplace(folder, patience);
  if (held()) {
    takeOverIndex();
  } else {
    core::message("Another program is changing 'My Elements'.\r\nPlease try again when it has finished.",
                  ui::Icon::critical);
  }
}

}  // namespace vellumark::library
