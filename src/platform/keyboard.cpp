#include "platform/keyboard.h"

#include <utility>

namespace vellumark::platform {
namespace {

KeyReader& keyReader() {
  static KeyReader reader;
  return reader;
}

}  // namespace

bool isKeyDown(Key key) { return keyReader() ? keyReader()(key) : detail::isSystemKeyDown(key); }

void setKeyReader(KeyReader reader) { keyReader() = std::move(reader); }

}  // namespace vellumark::platform
