#include <cmath>

#include "platform/environment_guard.h"
#include "services/splash_games.h"
#include "support/temp_folder.h"
#include "ui/message_pump.h"
#include "ui/toolkit.h"
#include "ui/win32/conversions.h"
#include "ui/win32/system.h"
#include "ui/win32/win32_toolkit.h"

namespace vellumark::services {
namespace {

using ui::win32::pump;

/// What the user does next, run by a timer of the thread within whatever loop then waits.
std::vector<std::function<void()>> nextActs;

void later(std::function<void()> act) {
  nextActs.push_back(std::move(act));
  SetTimer(nullptr, 0, 30, [](HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    const auto next = std::move(nextActs.back());
    nextActs.pop_back();
    next();
  });
}

HWND windowOf(HWND form, const ui::Control& control) {
  for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    wchar_t name[64] = {};
    SendMessageW(form, RegisterWindowMessageW(L"VellumarkControlName"), reinterpret_cast<WPARAM>(child),
                 reinterpret_cast<LPARAM>(name));
    if (ui::win32::fromWide(name) == control.name()) return child;
  }
  return nullptr;
}

class SplashWin32Test : public testing::Test {
 protected:
  SplashWin32Test() : before_(ui::setToolkit(&toolkit_)) {}
  ~SplashWin32Test() override { ui::setToolkit(before_); }

  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  ui::win32::Win32Toolkit toolkit_;
  ui::Toolkit* before_;
};

TEST_F(SplashWin32Test, AGameByKeysAndMouse) {
  Splash splash([] { return 0.5F; });
  later([&] {
    HWND window = GetActiveWindow();
    RECT field = {};
    GetClientRect(windowOf(window, splash.field), &field);
    const double scale = static_cast<double>(field.right) / Splash::fieldWidth;
    const Player player{[&](const std::string& keys) {
                          for (const char key : keys)
                            PostMessageW(window, WM_CHAR, static_cast<WPARAM>(key), 1);
                          pump();
                        },
                        [&](const ui::Control& control, int x, int y) {
                          const LPARAM place = MAKELPARAM(std::lround(x * scale), std::lround(y * scale));
                          PostMessageW(windowOf(window, control), WM_LBUTTONDOWN, MK_LBUTTON, place);
                          PostMessageW(windowOf(window, control), WM_LBUTTONUP, 0, place);
                          pump();
                        },
                        [] {
                          later([] {
                            HWND box = FindWindowW(L"#32770", L"Vellumark for presentations");
                            EXPECT_TRUE(box);
                            PostMessageW(box, WM_COMMAND, IDOK, 0);
                          });
                        }};
    playAndLose(splash, player);
    splash.hide();
  });
  showAbout(splash);
}

TEST_F(SplashWin32Test, TheSplashAtStartGoesByItself) {
  showSplash();
  HWND window = FindWindowW(ui::win32::FormClass::name, nullptr);
  EXPECT_TRUE(window && IsWindowVisible(window));
  EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_DLGFRAME, 0);
  for (int i = 0; i < 100 && IsWindow(window); ++i) {
    Sleep(20);
    pump();
  }
  EXPECT_FALSE(IsWindow(window));
  unloadSplash();
}

}  // namespace
}  // namespace vellumark::services
