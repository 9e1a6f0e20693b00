#pragma once
// What is wrong with a file, told so that a user can do something about it.

#include <stdexcept>
#include <string>

namespace vellumark::deck {

/// A package or part that can't be read, or a file that can't be written. `what()` is one whole line: the
/// fault and the part or path it lies in ("ppt/slides/slide3.xml: the XML ends within a tag"). Control
/// characters, which a hostile file may bring in its names, are shown as question marks.
class FormatError : public std::runtime_error {
 public:
  FormatError(std::string where, const std::string& fault)
      : std::runtime_error(oneLine(where.empty() ? fault : where + ": " + fault)), where_(std::move(where)) {}
  /// The part's name, or the path of the file.
  const std::string& where() const noexcept { return where_; }

 private:
  static std::string oneLine(std::string text) {
    for (char& c : text) {
      if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
    }
    return text;
  }

  std::string where_;
};

}  // namespace vellumark::deck
