// Picking a colour from a screen that only a script shows.

#include "tools/pick_color.h"

#include <gtest/gtest.h>

#include "tools/mouse_hook.h"
#include "tools/stage.h"
#include "ui/keys.h"

namespace vellumark::tools {
namespace {

using test::Texts;
using ui::Canvas;
using ui::Color;
using ui::MouseAnswer;
using ui::Point;
using ui::Rect;
using ui::rgb;

const std::string product = "Vellumark for presentations ";

/// Where the dialog lies.
struct Placed : ui::FormView {
  explicit Placed(Rect place) : area(place) {}
  void controlChanged(ui::Control&) override {}
  void captionChanged() override {}
  void focusChanged(ui::Control*) override {}
  void visibilityChanged(bool) override {}
  void repaint() override {}
  void perform(const std::function<void()>& act) override { act(); }
  Rect frame() const override { return area; }
  Rect area;
};

class PickColor : public test::Stage {
 protected:
  PickColor() {
    deck.slide().shape("rect", 0, 0, 10, 10).named("A");
    open();
    // Each pixel tells its place.
    screen.resolution = {100, 80};
    screen.picture = [](const Point& point) { return rgb(point.x, point.y, 7); };
    screen.mouse = {50, 40};
  }
  void tick() { messages.toolkit().pass(50); }
  void click(Point place) {
    screen.mouse = place;
    EXPECT_EQ(screen.tellHook(0, ui::leftButtonDown), MouseAnswer::swallow);
    tick();
  }
  std::vector<int> extraColors() {
    std::vector<int> all;
    for (int i = 1; i <= presentation.ExtraColors().Count(); ++i)
      all.push_back(presentation.ExtraColors().Item(i));
    return all;
  }
  static std::vector<int> shapes(const ColorRow& row) {
    std::vector<int> all;
    for (int i = 0; i < ColorRow::count; ++i) {
      if (const auto color = row.shape(i)) all.push_back(static_cast<int>(*color));
    }
    return all;
  }

  ui::ScriptedScreen& screen = messages.toolkit().scriptedScreen();
};

TEST_F(PickColor, TheHookTakesClicksOutsideTheDialogAndNothingElse) {
  struct Case {
    int code;
    bool inDialog;
    std::uint32_t message;
    MouseAnswer answer;
    bool clicked;
  };
  const Case cases[] = {
      {0, false, 0x0201, MouseAnswer::swallow, true}, {0, false, 0x0204, MouseAnswer::swallow, true},
      {0, true, 0x0201, MouseAnswer::passOn, false},  {-1, false, 0x0201, MouseAnswer::passOn, false},
      {3, false, 0x0201, MouseAnswer::drop, false},   {0, false, 0x0200, MouseAnswer::passOn, false},
      {0, false, 0x0202, MouseAnswer::passOn, false}, {0, false, 0x0207, MouseAnswer::passOn, false},
      {3, true, 0x0201, MouseAnswer::passOn, false},
  };
  for (const Case& c : cases) {
    mouseHook::cursorInDialog = c.inDialog;
    mouseHook::colorClicked = false;
    EXPECT_EQ(mouseHook::MouseProc(c.code, c.message), c.answer) << c.code << ' ' << c.message;
    EXPECT_EQ(mouseHook::colorClicked, c.clicked) << c.code << ' ' << c.message;
  }
}

TEST_F(PickColor, TheMagnifierShowsSevenPixelsEachWayAndHatchesWhatLiesOffTheScreen) {
  struct Case {
    Point cursor;
    Rect shown;   ///< within the magnifier; empty where nothing is
    Point first;  ///< the pixel of the screen at its upper left corner
    std::vector<Rect> strips;
  };
  const Rect all{4, 4, 56, 56};
  const Case cases[] = {
      {{50, 40}, all, {47, 37}, {}},
      {{3, 3}, all, {0, 0}, {}},
      {{96, 76}, all, {93, 73}, {}},
      {{2, 40}, {12, 4, 48, 56}, {0, 37}, {{4, 4, 8, 56}}},
      {{97, 40}, {4, 4, 48, 56}, {94, 37}, {{52, 4, 8, 56}}},
      {{50, 1}, {4, 20, 56, 40}, {47, 0}, {{4, 4, 56, 16}}},
      {{50, 78}, {4, 4, 56, 40}, {47, 75}, {{4, 44, 56, 16}}},
      {{0, 0}, {28, 28, 32, 32}, {0, 0}, {{4, 4, 24, 56}, {4, 4, 56, 24}}},
      {{99, 0}, {4, 28, 32, 32}, {96, 0}, {{36, 4, 24, 56}, {4, 4, 56, 24}}},
      {{0, 79}, {28, 4, 32, 32}, {0, 76}, {{4, 4, 24, 56}, {4, 36, 56, 24}}},
      {{99, 79}, {4, 4, 32, 32}, {96, 76}, {{36, 4, 24, 56}, {4, 36, 56, 24}}},
      // On a further screen.
      {{150, 40}, {}, {}, {{4, 4, 56, 56}}},
      {{50, -300}, {}, {}, {{4, 4, 56, 56}}},
  };
  pickColor dialog;
  dialog.load();
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.cursor.x) + "," + std::to_string(c.cursor.y));
    screen.mouse = c.cursor;
    tick();
    Rect shown;
    std::vector<Rect> strips, lines;
    Color first = 0, inverted = 0;
    for (const Canvas::Command& command : dialog.magnifier.canvas().commands()) {
      const auto area = [](const auto& box) {
        return Rect{static_cast<int>(box.x), static_cast<int>(box.y), static_cast<int>(box.width),
                    static_cast<int>(box.height)};
      };
      if (const auto* pixels = std::get_if<Canvas::Pixels>(&command)) {
        shown = area(*pixels);
        first = pixels->colors.front();
        EXPECT_EQ(pixels->columns * 8, shown.width);
        EXPECT_EQ(pixels->rows() * 8, shown.height);
      } else if (const auto* box = std::get_if<Canvas::Rectangle>(&command)) {
        (box->width > 1 && box->height > 1 ? strips : lines).push_back(area(*box));
        if (lines.size() == 5) inverted = inverted ? inverted : box->fill;
      }
    }
    EXPECT_EQ(shown, c.shown);
    EXPECT_EQ(strips, c.strips);
    EXPECT_EQ(lines, (std::vector<Rect>{{3, 3, 58, 1},
                                        {3, 60, 58, 1},
                                        {3, 3, 1, 58},
                                        {60, 3, 1, 58},
                                        {28, 28, 8, 1},
                                        {28, 35, 8, 1},
                                        {28, 28, 1, 8},
                                        {35, 28, 1, 8}}));
    if (shown == Rect{}) continue;
    EXPECT_EQ(first, rgb(c.first.x, c.first.y, 7));
    EXPECT_EQ(inverted, rgb(255 - c.cursor.x, 255 - c.cursor.y, 248));
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PickColor, AClickTakesTheColorAndTheButtonAddsIt) {
  for (int i = 1; i <= 7; ++i) presentation.ExtraColors().Add(i);
  Placed placed({0, 0, 30, 30});
  pickColor dialog;
  dialog.view(&placed);
  dialog.load();
  EXPECT_EQ(shapes(dialog.schemeColors),
            (std::vector{0xFFFFFF, 0, 0xF5F1EE, 0x442A1F, 0x8C5D2F, 0x3D55C8, 0x8C5D2F, 0x7B5B6C}));
  EXPECT_EQ(shapes(dialog.customColors), (std::vector{1, 2, 3, 4, 5, 6, 7}));
  tick();
  EXPECT_FALSE(dialog.zorpLogo.visible());
  EXPECT_FALSE(dialog.btnAdd.enabled());
  EXPECT_EQ(dialog.RGB_R.caption(), "");

  // Over the dialog the picture stands in for the magnifier, and clicks are the dialog's.
  screen.mouse = {29, 29};
  tick();
  EXPECT_TRUE(dialog.zorpLogo.visible());
  EXPECT_TRUE(dialog.magnifier.canvas().commands().empty());
  EXPECT_EQ(screen.tellHook(0, ui::leftButtonDown), MouseAnswer::passOn);
  screen.mouse = {30, 29};
  tick();
  EXPECT_FALSE(dialog.zorpLogo.visible());
  EXPECT_FALSE(dialog.btnAdd.enabled());

  click({60, 70});
  EXPECT_EQ((Texts{dialog.RGB_R.caption(), dialog.RGB_G.caption(), dialog.RGB_B.caption()}),
            (Texts{"60", "70", "7"}));
  EXPECT_TRUE(dialog.btnAdd.enabled());
  screen.mouse = {61, 70};
  tick();
  EXPECT_EQ(dialog.preview.color(), rgb(60, 70, 7));  // only a click takes another

  dialog.click(dialog.btnAdd);
  const int added = static_cast<int>(rgb(60, 70, 7));
  EXPECT_EQ(extraColors(), (std::vector{1, 2, 3, 4, 5, 6, 7, added}));
  EXPECT_EQ(shapes(dialog.customColors), extraColors());
  EXPECT_EQ(dialog.customColors.marker(), 7 * 19 + 5);
  EXPECT_FALSE(dialog.btnAdd.enabled());

  click({61, 70});
  dialog.click(dialog.btnAdd);
  EXPECT_EQ(shapes(dialog.customColors), (std::vector{2, 3, 4, 5, 6, 7, added, added + 1}));
  click({60, 70});
  dialog.click(dialog.btnAdd);  // which is there already
  EXPECT_EQ(dialog.customColors.marker(), 6 * 19 + 5);
  dialog.unload();
  reopen();
  EXPECT_EQ(extraColors(), (std::vector{2, 3, 4, 5, 6, 7, added, added + 1}));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PickColor, NoHookIsLeftHoweverTheDialogEnds) {
  const std::pair<const char*, std::function<void(pickColor&)>> ways[] = {
      {"Close", [](pickColor& dialog) { dialog.click(dialog.btnClose); }},
      {"Escape", [](pickColor& dialog) { dialog.keyDown(ui::keys::escape, 0); }},
      {"its own close button", [](pickColor& dialog) { dialog.close(); }},
      {"disconnection", [](pickColor&) { mouseHook::remove(); }},
      {"death", [](pickColor&) {}},
  };
  for (const auto& [name, leave] : ways) {
    {
      pickColor dialog;
      dialog.load();
      EXPECT_TRUE(screen.hooked()) << name;
      leave(dialog);
      EXPECT_EQ(screen.hooked(), name == std::string("death")) << name;
    }
    EXPECT_FALSE(screen.hooked()) << name;
  }
}

TEST_F(PickColor, AFailureStopsTheHookBeforeItIsShown) {
  pickColor dialog;
  dialog.load();
  const auto picture = screen.picture;
  screen.picture = [](const Point&) -> Color { base::raise(base::errors::unspecific); };
  tick();
  EXPECT_EQ(failures.take(), Texts{"pickColor, Timer1_Timer: -2147467259"});
  EXPECT_FALSE(screen.hooked());
  EXPECT_FALSE(dialog.Timer1.enabled());
  dialog.unload();

  screen.picture = picture;
  dialog.load();
  click({1, 1});
  presentation.Close();
  dialog.click(dialog.btnAdd);
  EXPECT_EQ(failures.take(), Texts{"pickColor, btnAdd_Click: -2147188160"});
  EXPECT_FALSE(screen.hooked());

  pickColor late;
  late.load();
  EXPECT_EQ(failures.take(), Texts{"pickColor, Form_Load: -2147188160"});
  EXPECT_FALSE(late.loaded());
  EXPECT_FALSE(screen.hooked());
}

TEST_F(PickColor, TheCommandAsksForASlideAndShowsTheDialog) {
  messages.toolkit().addDialog("pickColor: color=#336699; btnAdd; form!press=Escape");
  tools.pickColorFromScreen();
  EXPECT_EQ(extraColors(), std::vector{0x996633});
  EXPECT_FALSE(screen.hooked());
  messages.take();

  host->application().ActiveWindow().ViewType(host::ppViewSlideSorter);
  host->application().ActiveWindow().Selection().Unselect();
  tools.pickColorFromScreen();
  presentation.Close();
  tools.pickColorFromScreen();
  EXPECT_EQ(
      messages.take(),
      (Texts{product + "[information] Current color scheme could not be identified. Please select a slide or "
                       "shape first.",
             product + "[information] Please open a presentation first."}));
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::tools
