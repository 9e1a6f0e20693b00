#include "platform/keyboard.h"

#include <dlfcn.h>

#include <type_traits>

namespace vellumark::platform {
namespace {

// The few functions of libX11 that are used, as its manual declares them.
struct Display;
using Window = unsigned long;

/// A connection to the display, held until the program ends; none where there is no display.
class Keyboard {
 public:
  Keyboard() {
    void* library = dlopen("libX11.so.6", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return;
    const auto find = [&](auto& function, const char* name) {
      function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
      return function != nullptr;
    };
    Display* (*open)(const char* name) = nullptr;
    Window (*defaultRoot)(Display * display) = nullptr;
    if (!find(open, "XOpenDisplay") || !find(defaultRoot, "XDefaultRootWindow") ||
        !find(queryPointer_, "XQueryPointer")) {
      return;
    }
    display_ = open(nullptr);
    if (display_ != nullptr) root_ = defaultRoot(display_);
  }

  /// The modifier keys that are down, as bits.
  unsigned modifiers() const {
    if (display_ == nullptr) return 0;
    Window root = 0, child = 0;
    int rootX = 0, rootY = 0, x = 0, y = 0;
    unsigned mask = 0;
    queryPointer_(display_, root_, &root, &child, &rootX, &rootY, &x, &y, &mask);
    return mask;
  }

 private:
  int (*queryPointer_)(Display* display, Window window, Window* root, Window* child, int* rootX, int* rootY,
                       int* x, int* y, unsigned* mask) = nullptr;
  Display* display_ = nullptr;
  Window root_ = 0;
};

}  // namespace

bool detail::isSystemKeyDown(Key key) {
  static const Keyboard keyboard;
  constexpr unsigned shiftBit = 1, controlBit = 4;
  return (keyboard.modifiers() & (key == Key::control ? controlBit : shiftBit)) != 0;
}

}  // namespace vellumark::platform
