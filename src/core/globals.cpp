#include "core/globals.h"

namespace vellumark::core {

Globals& globals() {
  static Globals instance;
  return instance;
}

bool isHostVersion(std::string_view list) {
  return list.find(globals().powerPointApp.Version()) != std::string_view::npos;
}

}  // namespace vellumark::core
