#pragma once

#include "ui/screen.h"

namespace vellumark::ui {

/// A screen that nobody sees: what it shows and what the mouse does on it are told in advance.
class ScriptedScreen : public Screen {
 public:
  /// What it shows; white unless told otherwise.
  std::function<Color(const Point&)> picture = [](const Point&) { return rgb(255, 255, 255); };
  Point mouse{960, 540};
  Size resolution{1920, 1080};

  /// Whether a hook is there.
  bool hooked() const { return hook_ != nullptr; }
  /// What becomes of an event of the mouse: the hook's answer, passed on where there is none.
  MouseAnswer tellHook(int code, std::uint32_t message) const;

  Point cursor() override { return mouse; }
  Size size() override { return resolution; }
  std::vector<Color> copy(const Rect& area) override;
  Color pixel(const Point& point) override { return picture(point); }
  std::unique_ptr<MouseHook> hookMouse(MouseProc procedure) override;

 private:
  struct Hook;
  Hook* hook_ = nullptr;
};

}  // namespace vellumark::ui
