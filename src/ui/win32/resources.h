#pragma once
// What the toolkit holds of the system for as long as it lives.

#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>

#include "ui/color.h"

// GDI+'s own header can't be read behind that of the host's interfaces.
namespace Gdiplus {
class Bitmap;
}

namespace vellumark::ui {

class Control;

namespace win32 {

/// Keeps GDI+ running. It starts with the first of these and ends with the last.
class DrawingEngine {
 public:
  DrawingEngine();
  ~DrawingEngine();
  DrawingEngine(const DrawingEngine&) = delete;
  DrawingEngine& operator=(const DrawingEngine&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

/// Fonts, brushes, the drawing engine and the visual styles. All of it goes back to the system at the end, so
/// that the module can be unloaded and loaded again within one process.
class Resources {
 public:
  Resources();
  ~Resources();
  Resources(const Resources&) = delete;
  Resources& operator=(const Resources&) = delete;

  /// The module that this code lies in.
  HINSTANCE instance() const { return instance_; }
  /// The system's message font at a size relative to it.
  HFONT font(double scale, bool bold, bool underlined = false);
  HFONT fontOf(const Control& control, double zoom, bool underlined = false);
  HBRUSH brush(Color color);
  /// The screen's pixels for one of a canvas, which counts 96 to the inch.
  double canvasScale() const { return canvasScale_; }
  /// A picture file, read once for each version of it; nullptr where it can't be read. The file can be
  /// changed and deleted meanwhile.
  Gdiplus::Bitmap* picture(const std::string& path);
  /// Starts GDI+ on first use.
  void startDrawing();
  /// The module's activation context for visual styles; INVALID_HANDLE_VALUE where it has none.
  HANDLE visualStyles() const { return visualStyles_; }

 private:
  HINSTANCE instance_ = nullptr;
  HANDLE visualStyles_ = INVALID_HANDLE_VALUE;
  double canvasScale_;
  std::optional<DrawingEngine> drawing_;
  std::map<std::wstring, std::unique_ptr<Gdiplus::Bitmap>> pictures_;
  std::map<std::tuple<double, bool, bool>, HFONT> fonts_;
  std::map<Color, HBRUSH> brushes_;
};

/// How much larger than in the system's own resolution, for which its fonts are, things are at that many dots
/// per inch, or in a window on its screen.
double zoomOf(UINT dpi);
double zoomOf(HWND window);

/// While it lives, new windows have visual styles.
class VisualStyles {
 public:
  explicit VisualStyles(const Resources& resources);
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace win32
}  // namespace vellumark::ui
