#include "ui/win32/picture_list.h"

#include "ui/win32/canvas_painter.h"

namespace vellumark::ui::win32 {
namespace {

HBITMAP emptyPicture(int side) {
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  const RECT area = {0, 0, side, side};
  FillRect(memory, &area, GetSysColorBrush(COLOR_WINDOW));
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

void PictureList::clear() {
  if (pictures_) ImageList_Destroy(pictures_);
  pictures_ = nullptr;
}

bool PictureList::load(const std::vector<std::string>& paths, int side, Resources& resources) {
  if (paths_ == paths) return false;
  paths_ = paths;
  clear();
  pictures_ = ImageList_Create(side, side, ILC_COLOR32, static_cast<int>(paths_.size()), 0);
  for (const std::string& path : paths_) {
    HBITMAP picture = loadPicture(path, side, resources);
    if (!picture) picture = emptyPicture(side);
    ImageList_Add(pictures_, picture, nullptr);
    DeleteObject(picture);
  }
  return true;
}

}  // namespace vellumark::ui::win32
