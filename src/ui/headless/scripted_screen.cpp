#include "ui/headless/scripted_screen.h"

#include <utility>

namespace vellumark::ui {

struct ScriptedScreen::Hook : MouseHook {
  Hook(ScriptedScreen& owner, MouseProc asked) : screen(owner), procedure(std::move(asked)) {
    screen.hook_ = this;
  }
  ~Hook() override { screen.hook_ = nullptr; }

  ScriptedScreen& screen;
  MouseProc procedure;
};

MouseAnswer ScriptedScreen::tellHook(int code, std::uint32_t message) const {
  return hook_ ? hook_->procedure(code, message) : MouseAnswer::passOn;
}

std::vector<Color> ScriptedScreen::copy(const Rect& area) {
  std::vector<Color> colors;
  for (int y = area.y; y < area.y + area.height; ++y) {
    for (int x = area.x; x < area.x + area.width; ++x) colors.push_back(picture({x, y}));
  }
  return colors;
}

std::unique_ptr<MouseHook> ScriptedScreen::hookMouse(MouseProc procedure) {
  return std::make_unique<Hook>(*this, std::move(procedure));
}

}  // namespace vellumark::ui
