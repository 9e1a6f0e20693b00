#include "platform/clipboard_drawing.h"

#include <utility>

#include "platform/posix/offered_drawing.h"

namespace vellumark::platform {
namespace {

/// The clipboard of pictures is the process's own here: the host that copies and the add-in that takes live
/// in one.
std::function<Drawing()>& offered() {
  static std::function<Drawing()> draw;
  return draw;
}

}  // namespace

void offerDrawing(std::function<Drawing()> draw) { offered() = std::move(draw); }

void withdrawDrawing() { offered() = nullptr; }

std::function<Drawing()> posix::takeOfferedDrawing() { return std::exchange(offered(), nullptr); }

}  // namespace vellumark::platform
