#include "host/picture.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>

#include "base/error.h"

namespace vellumark::host {
namespace {

/// A picture for hosts that show none: its size in pixels.
class Picture : public Object {
 public:
  Picture(std::int32_t width, std::int32_t height) : width_(width), height_(height) {}
  std::string typeName() const override { return "Picture"; }
  Value invoke(Member name, Invoke kind, std::span<const Value> arguments) override {
    if (kind != Invoke::put && arguments.empty()) {
      if (name == member::Width) return width_;
      if (name == member::Height) return height_;
    }
    base::raise(base::errors::noSuchMember);
  }

 private:
  std::int32_t width_;
  std::int32_t height_;
};

}  // namespace

/// Reads the head of a PNG file.
ObjectRef loadPictureFromFile(const std::string& path) {
  constexpr std::array<unsigned char, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  constexpr std::size_t widthAt = 16, heightAt = 20, headLength = 24;
  std::array<unsigned char, headLength> head{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(reinterpret_cast<char*>(head.data()), head.size())) return nullptr;
  if (!std::equal(signature.begin(), signature.end(), head.begin())) return nullptr;
  const auto number = [&](std::size_t at) {
    return static_cast<std::int32_t>(std::uint32_t{head[at]} << 24 | std::uint32_t{head[at + 1]} << 16 |
                                     std::uint32_t{head[at + 2]} << 8 | std::uint32_t{head[at + 3]});
  };
  return std::make_shared<Picture>(number(widthAt), number(heightAt));
}

MaskedPicture loadMaskedPicture(const std::string& path) {
  return {loadPictureFromFile(path), loadPictureFromFile(path)};
}

ObjectRef pictureOf(const ui::Canvas& canvas) {
  return std::make_shared<Picture>(canvas.width(), canvas.height());
}

}  // namespace vellumark::host
