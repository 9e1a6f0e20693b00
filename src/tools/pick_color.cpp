#include "tools/pick_color.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "tools/mouse_hook.h"
#include "tools/pick_color_pictures.h"
#include "tools/trimline_tools.h"
#include "ui/keys.h"
#include "ui/toolkit.h"

namespace vellumark::tools {
namespace {

constexpr ui::Color white = ui::rgb(255, 255, 255);
constexpr ui::Color black = ui::rgb(0, 0, 0);

// The magnifier: so many pixels of the screen each way, how large each is drawn, and where the first one
// begins.
constexpr int pixels = 7;
constexpr int middle = pixels / 2;
constexpr int zoom = 8;
constexpr int origin = 4;
constexpr int end = origin + pixels * zoom;

/// How many of the magnifier's columns or rows lie before the screen's first pixel and behind its last one.
struct Missing {
  int before;
  int behind;
};
Missing missing(int at, int length) {
  const int before = at < middle ? middle - at : 0;
  const int behind = at >= length - middle ? at + middle + 1 - length : 0;
  // A cursor on a further screen is away by more than the magnifier shows.
  return {std::min(before, pixels), std::min(behind, pixels)};
}

/// The outline of a box with both corners in it, one pixel wide.
void box(ui::Canvas& canvas, int first, int last, ui::Color color) {
  const int side = last - first + 1;
  canvas.rectangle(first, first, side, 1, color);
  canvas.rectangle(first, last, side, 1, color);
  canvas.rectangle(first, first, 1, side, color);
  canvas.rectangle(last, first, 1, side, color);
}

host::ExtraColors extraColors() { return core::globals().powerPointApp.ActivePresentation().ExtraColors(); }

}  // namespace

pickColor::pickColor() : Form("pickColor", "Pick color from screen") {
  topMost(true);
  drawLogo(zorpLogo.canvas());
  drawHatch(hatchBMP.canvas());
  Timer1.enabled(true);
  btnAdd.isDefault(true);
  layout(
      ui::column(
          {ui::row({ui::layers({ui::Box(magnifier), ui::Box(zorpLogo)}),
                    ui::column({ui::row({ui::Box(lPreview), ui::Box(preview).stretch()}),
                                ui::row({ui::Box(lR), ui::Box(RGB_R).atLeast(5), ui::Box(lG),
                                         ui::Box(RGB_G).atLeast(5), ui::Box(lB), ui::Box(RGB_B).atLeast(5)})
                                    .gap(1)})
                        .stretch()})
               .gap(4),
           ui::Box(hint), ui::column({ui::Box(lScheme), ui::Box(schemeColors)}).gap(1),
           ui::column({ui::Box(lCustom), ui::Box(customColors)}).gap(1),
           ui::row({ui::space(), ui::Box(btnAdd), ui::Box(btnClose)})})
          .gap(3));
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  onUnload = [this] { Form_Unload(); };
  onKeyDown = [this](int keyCode, int) { Form_KeyDown(keyCode); };
  Timer1.onTimer = [this] { Timer1_Timer(); };
  zorpLogo.onClick = [this] { zorpLogo_Click(); };
  btnAdd.onClick = [this] { btnAdd_Click(); };
  btnClose.onClick = [this] { btnClose_Click(); };
}

pickColor::~pickColor() { stopWatching(); }

/// The trap of the dialog. What takes clicks all over the screen has to go before the failure is shown in
/// another dialog, which would get none of them.
void pickColor::guarded(std::string_view location, const std::function<void()>& body) {
  core::trap(location, [&] {
    try {
      body();
    } catch (...) {
      stopWatching();
      throw;
    }
  });
}

void pickColor::stopWatching() {
  Timer1.enabled(false);
  mouseHook::remove();
}

void pickColor::Form_Load() {
  bool ready = false;
  guarded("pickColor, Form_Load", [&] {
    const host::ColorScheme scheme =
        core::globals().powerPointApp.ActiveWindow().Selection().SlideRange().Item(1).ColorScheme();
    for (int i = 0; i < ColorRow::count; ++i) {
      const auto place = static_cast<host::PpColorSchemeIndex>(host::ppBackground + i);
      schemeColors.shape(i, static_cast<ui::Color>(scheme.Colors(place).RGB()));
    }
    showCustomColors(extraColors());
    btnAdd.enabled(false);
    screen_ = ui::toolkit().wholeScreen();
    hint.caption(screen_ ? "Click anywhere on the screen." : "Click the picture to pick a color.");
    Timer1.enabled(screen_ != nullptr);
    if (screen_) mouseHook::install(*screen_);
    ready = true;
  });
  if (!ready) unload();
}

void pickColor::Form_Activate() {
  if (screen_ || asked_) return;
  asked_ = true;
  askDesktop();
}

void pickColor::Form_Unload() {
  core::trap("pickColor, Form_Unload", [&] { stopWatching(); });
}

void pickColor::Form_KeyDown(int keyCode) {
  guarded("pickColor, Form_KeyDown", [&] {
    if (keyCode == ui::keys::escape) unload();
  });
}

void pickColor::Timer1_Timer() {
  guarded("pickColor, Timer1_Timer", [&] {
    const ui::Point cursor = screen_->cursor();
    mouseHook::cursorInDialog = ui::contains(frame(), cursor);
    zorpLogo.visible(mouseHook::cursorInDialog);
    magnifier.canvas().clear();
    if (!mouseHook::cursorInDialog) {
      magnify(cursor);
      if (mouseHook::colorClicked) {
        btnAdd.enabled(true);
        sample(screen_->pixel(cursor));
        mouseHook::colorClicked = false;
      }
    }
    magnifier.refresh();
  });
}

void pickColor::magnify(const ui::Point& cursor) {
  const ui::Size size = screen_->size();
  const auto [a, b] = missing(cursor.x, size.width);
  const auto [c, d] = missing(cursor.y, size.height);
  ui::Canvas& canvas = magnifier.canvas();
  ui::Color central = white;
  if (const ui::Rect source{cursor.x - middle + a, cursor.y - middle + c, pixels - a - b, pixels - c - d};
      source.width > 0 && source.height > 0) {
    const std::vector<ui::Color> colors = screen_->copy(source);
    if (ui::contains(source, cursor)) {
      central = colors.at(static_cast<std::size_t>((middle - c) * source.width + middle - a));
    }
    canvas.pixels(origin + zoom * a, origin + zoom * c, zoom * source.width, zoom * source.height,
                  source.width, colors);
  }
  box(canvas, origin - 1, end, black);
  // The box lies within the central pixel, so that inverting takes one colour.
  box(canvas, origin + middle * zoom, origin + (middle + 1) * zoom - 1, central ^ white);
  drawHatchRect(origin, origin, origin + zoom * a, end);
  drawHatchRect(end - zoom * b, origin, end, end);
  drawHatchRect(origin, origin, end, origin + zoom * c);
  drawHatchRect(origin, end - zoom * d, end, end);
}

void pickColor::drawHatchRect(int left, int top, int right, int bottom) {
  guarded("pickColor, drawHatchRect", [&] {
    if (left >= right || top >= bottom) return;
    ui::Canvas& canvas = magnifier.canvas();
    canvas.rectangle(left, top, right - left, bottom - top, white);
    // The tiles begin at the corner of the magnifier, which all strips share.
    for (int y = top; y < bottom; y += hatchBMP.canvas().height()) {
      for (int x = left; x < right; x += hatchBMP.canvas().width()) canvas.copy(x, y, hatchBMP.canvas());
    }
  });
}

void pickColor::sample(ui::Color color) {
  preview.color(color);
  RGB_R.caption(std::to_string(ui::redOf(color)));
  RGB_G.caption(std::to_string(ui::greenOf(color)));
  RGB_B.caption(std::to_string(ui::blueOf(color)));
}

void pickColor::showCustomColors(const host::ExtraColors& colors) {
  const int count = colors.Count();
  for (int i = 0; i < ColorRow::count; ++i) {
    customColors.shape(i,
                       i < count ? std::optional(static_cast<ui::Color>(colors.Item(i + 1))) : std::nullopt);
  }
}

void pickColor::btnAdd_Click() {
  guarded("pickColor, btnAdd_Click", [&] {
    const host::ExtraColors colors = extraColors();
    colors.Add(static_cast<int>(preview.color()));
    showCustomColors(colors);
    for (int i = 0; i < ColorRow::count; ++i) {
      if (customColors.shape(i) == preview.color()) customColors.marker(i * 19 + 5);
    }
    btnAdd.enabled(false);
  });
}

void pickColor::btnClose_Click() {
  guarded("pickColor, btnClose_Click", [&] { unload(); });
}

void pickColor::zorpLogo_Click() {
  if (!screen_) askDesktop();
}

void pickColor::askDesktop() {
  if (std::exchange(asking_, true)) return;
  guarded("pickColor, askDesktop", [&] {
    const ui::DesktopColor answer = ui::toolkit().askDesktopColor([this] { return visible(); });
    if (!answer.refusal.empty()) {
      core::message(answer.refusal, ui::Icon::critical);
      unload();
    } else if (answer.color && visible()) {
      btnAdd.enabled(true);
      sample(*answer.color);
    }
  });
  asking_ = false;
}

void TrimlineTools::pickColorFromScreen() {
  core::trap("TrimlineTools, pickColorFromScreen", [&] {
    const host::Application& application = core::globals().powerPointApp;
    if (application.Windows().Count() == 0) {
      core::message("Please open a presentation first.", ui::Icon::information);
      return;
    }
    int slides = 0;
    core::resumeNext([&] { slides = application.ActiveWindow().Selection().SlideRange().Count(); });
    if (slides == 0) {
      core::message("Current color scheme could not be identified. Please select a slide or shape first.",
                    ui::Icon::information);
      return;
    }
    pickColor().showModal();
  });
}

}  // namespace vellumark::tools
