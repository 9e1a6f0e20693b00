#pragma once
// The host's clipboard: shapes of one sheet, or slides, copied as they were.

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// What was copied lives in a presentation of its own, so that the one that it comes from may change and
/// close.
class Clipboard {
 public:
  Clipboard() = default;
  ~Clipboard();
  Clipboard(const Clipboard&) = delete;
  Clipboard& operator=(const Clipboard&) = delete;

  bool holdsShapes() const { return !shapes_.empty(); }
  bool holdsSlides() const { return !slides_.empty(); }

  /// Copies shapes of one sheet, none of which may be deleted, and offers the system a picture of them.
  void copyShapes(const std::vector<ShapeKey>& shapes);
  void copySlides(const DocumentRef& document, const std::vector<std::int32_t>& ids);

  /// Puts the shapes in front of all others on a sheet, the one at the back first. They keep their places;
  /// where the very place is taken by what was copied or pasted before, they come 12 points to the right and
  /// down. "Invalid request." where there are none.
  std::vector<ShapeKey> pasteShapes(const Sheet& target);
  /// Inserts the slides before `position` (from 0); their ids. "Invalid request." where there are none.
  std::vector<std::int32_t> pasteSlides(Document& target, std::size_t position);

 private:
  /// A slide that a link leads to, and what stands for it here.
  struct Linked {
    PartRef stub;
    std::weak_ptr<Part> slide;
  };
  void start(const DocumentRef& from);
  void keepLinks(Part& sheet, PartCopier& copier);
  /// Lets links lead to the slides that they led to, where those stand in the presentation of the copier.
  void restoreLinks(PartCopier& copier) const;
  /// The sheets that were brought already, by those that they are copies of.
  using Parents = std::unordered_map<PartRef, Sheet>;
  Sheet bringParent(const Sheet& sheet, PartCopier& copier, Parents& known);

  DocumentRef store_;
  std::vector<ShapeKey> shapes_;
  std::vector<Sheet> slides_;
  std::vector<Linked> links_;
  SharedMedia media_;
  std::vector<std::weak_ptr<Part>>
      places_;  ///< sheets that have the shapes: the origin, and where they were pasted
};

/// Copies shapes of one sheet in front of it, 12 points to the right and down.
std::vector<ShapeKey> duplicateShapes(const std::vector<ShapeKey>& shapes);

}  // namespace vellumark::deck
