#pragma once
// The small pictures of a list's or a tree's items.

#include <string>
#include <vector>

#include "ui/win32/resources.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {

/// Picture files as an image list of the system's, which goes with it.
class PictureList {
 public:
  PictureList() = default;
  ~PictureList() { clear(); }
  PictureList(const PictureList&) = delete;
  PictureList& operator=(const PictureList&) = delete;

  /// Loads the files as squares of so many pixels; a file that can't be read keeps its place. False where the
  /// list holds these files already.
  bool load(const std::vector<std::string>& paths, int side, Resources& resources);
  HIMAGELIST handle() const { return pictures_; }
  std::size_t size() const { return paths_.size(); }

 private:
  void clear();

  HIMAGELIST pictures_ = nullptr;
  std::vector<std::string> paths_;
};

}  // namespace vellumark::ui::win32
