#include "windows/driven_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "base/conversions.h"
#include "base/error.h"
#include "base/text.h"
#include "host/automation/com.h"
#include "ui/control.h"
#include "ui/keys.h"
#include "ui/toolkit.h"
#include "windows/driven_mouse.h"

namespace vellumark::app {
namespace {

using host::automation::fromWide;
using host::automation::toWide;

constexpr int messageText = 0xFFFF;

/// The name of a form (no child) or of one of its controls; empty for other windows.
std::string nameOf(HWND form, HWND child) {
  static const UINT askName = RegisterWindowMessageW(L"VellumarkControlName");
  std::array<wchar_t, 64> name{};
  SendMessageW(form, askName, reinterpret_cast<WPARAM>(child), reinterpret_cast<LPARAM>(name.data()));
  return fromWide(name.data());
}

template <typename Visit>
void eachChild(HWND parent, Visit visit) {
  EnumChildWindows(
      parent,
      [](HWND child, LPARAM context) -> BOOL {
        (*reinterpret_cast<Visit*>(context))(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&visit));
}

[[noreturn]] void refuse(const std::string& form, const ui::DialogStep& step, const std::string& why) {
  base::raise(base::errors::invalidCall, "dialog " + form + ", step \"" + step.text + "\": " + why);
}

/// A click at a place in pixels of 96 to the inch.
void clickAt(HWND control, const ui::PictureClick& click) {
  const HDC screen = GetDC(nullptr);
  const double scale = GetDeviceCaps(screen, LOGPIXELSX) / 96.0;
  ReleaseDC(nullptr, screen);
  const LPARAM place = MAKELPARAM(std::lround(click.x * scale), std::lround(click.y * scale));
  const UINT down = click.button == 1 ? WM_LBUTTONDOWN : click.button == 2 ? WM_RBUTTONDOWN : WM_MBUTTONDOWN;
  SendMessageW(control, down, 0, place);
  SendMessageW(control, down + 1, 0, place);  // and up
}

LONG buttonKind(HWND button) { return GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK; }

bool isButton(HWND control) { return base::equalsIgnoreCase(windowClass(control), "Button"); }

}  // namespace

std::string windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return fromWide(text.c_str());
}

std::string windowClass(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return fromWide(name.data());
}

std::optional<DrivenMessageBox> DrivenMessageBox::from(HWND window) {
  if (windowClass(window) != "#32770" || GetDlgItem(window, messageText) == nullptr) return std::nullopt;
  return DrivenMessageBox(window);
}

std::string DrivenMessageBox::text() const { return windowText(GetDlgItem(window_, messageText)); }

ui::Icon DrivenMessageBox::icon() const {
  HICON shown = nullptr;
  eachChild(window_, [&](HWND child) {
    if (!base::equalsIgnoreCase(windowClass(child), "Static") || shown != nullptr) return;
    shown = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
  });
  if (shown == nullptr) return ui::Icon::none;
  const std::pair<LPWSTR, ui::Icon> icons[] = {{IDI_HAND, ui::Icon::critical},
                                               {IDI_QUESTION, ui::Icon::question},
                                               {IDI_EXCLAMATION, ui::Icon::exclamation},
                                               {IDI_ASTERISK, ui::Icon::information}};
  for (const auto& [resource, icon] : icons) {
    if (LoadIconW(nullptr, resource) == shown) return icon;
  }
  return ui::Icon::none;
}

std::string DrivenMessageBox::defaultButton() const {
  // Enter presses the button that has the focus. A box that isn't the first button's doesn't tell the dialog.
  const HWND focus = GetFocus();
  if (focus != nullptr && IsChild(window_, focus) && isButton(focus))
    return ui::plainCaption(windowText(focus));
  const LRESULT answer = SendMessageW(window_, DM_GETDEFID, 0, 0);
  if (HIWORD(answer) != DC_HASDEFID) return {};
  return ui::plainCaption(windowText(GetDlgItem(window_, LOWORD(answer))));
}

std::vector<std::string> DrivenMessageBox::buttons() const {
  std::vector<std::string> captions;
  eachChild(window_, [&](HWND child) {
    if (isButton(child)) captions.push_back(ui::plainCaption(windowText(child)));
  });
  return captions;
}

bool DrivenMessageBox::press(const std::string& caption) const {
  bool pressed = false;
  eachChild(window_, [&](HWND child) {
    if (pressed || !isButton(child)) return;
    if (!base::equalsIgnoreCase(ui::plainCaption(windowText(child)), caption)) return;
    PostMessageW(child, BM_CLICK, 0, 0);
    pressed = true;
  });
  return pressed;
}

std::optional<DrivenForm> DrivenForm::from(HWND window) {
  if (windowClass(window) != "VellumarkForm") return std::nullopt;
  return DrivenForm(window, nameOf(window, nullptr));
}

HWND DrivenForm::control(const std::string& name) const {
  HWND found = nullptr;
  eachChild(window_, [&](HWND child) {
    if (found == nullptr && base::equalsIgnoreCase(nameOf(window_, child), name)) found = child;
  });
  return found;
}

std::string DrivenForm::labels() const {
  std::string text;
  eachChild(window_, [&](HWND child) {
    if (!base::equalsIgnoreCase(windowClass(child), "Static") || !IsWindowVisible(child)) return;
    const std::string label = windowText(child);
    if (!label.empty()) text += (text.empty() ? "" : "\r\n") + label;
  });
  return text;
}

HWND DrivenForm::keyboard() const {
  const HWND focus = GetFocus();
  return focus != nullptr && IsChild(window_, focus) ? focus : window_;
}

void DrivenForm::press(int key) const {
  if (ui::keys::codeOf(static_cast<char32_t>(key)) == key) return type(static_cast<wchar_t>(key));
  SendMessageW(keyboard(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
}

void DrivenForm::type(wchar_t unit) const {
  if (const int key = ui::keys::codeOf(char32_t{unit})) {
    SendMessageW(keyboard(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  }
  if (IsWindow(window_)) SendMessageW(keyboard(), WM_CHAR, unit, 1);
}

void DrivenForm::wait(int milliseconds) const {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(std::max(0, milliseconds));
  for (ULONGLONG now = GetTickCount64(); now < end && IsWindow(window_); now = GetTickCount64()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

void DrivenForm::performOnForm(const ui::DialogStep& step) const {
  if (step.act == "click") {
    SendMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, 0);
  } else if (step.act == "close") {
    SendMessageW(window_, WM_CLOSE, 0, 0);
  } else if (step.act == "wait") {
    wait(base::toInt32(step.value));
  } else if (step.act == "type") {
    for (const wchar_t unit : toWide(step.value)) type(unit);
  } else if (const auto key = ui::keys::codeOf(step.value); key && step.act == "press") {
    press(*key);
  } else {
    refuse(name_, step, "there is no such act or key");
  }
}

void DrivenForm::perform(const ui::DialogStep& step) const {
  if (!IsWindow(window_)) refuse(name_, step, "the dialog was closed before");
  if (base::equalsIgnoreCase(step.control, "form")) return performOnForm(step);
  const HWND target = control(step.control);
  if (const auto click = ui::screenClickOf(step); click && target == nullptr)
    return clickScreen(*click, window_);
  if (target == nullptr) refuse(name_, step, "there is no such control");
  if (!IsWindowVisible(target) || !IsWindowEnabled(target))
    refuse(name_, step, "the control can't be used now");
  if (const auto click = ui::pictureClickOf(step)) return clickAt(target, *click);
  if (step.kind == ui::DialogStep::Kind::click && base::equalsIgnoreCase(windowClass(target), "Static"))
    return clickAt(target, {1, 1, 1});
  SetFocus(target);
  // A field that was left may have refused, and kept the focus.
  const HWND focus = GetFocus();
  if (isButton(target) && focus != target && IsWindowEnabled(target))
    refuse(name_, step, "the focus can't go there");
  switch (step.kind) {
    case ui::DialogStep::Kind::click:
      SendMessageW(target, BM_CLICK, 0, 0);
      break;
    case ui::DialogStep::Kind::set:
      set(target, step);
      break;
    default:
      refuse(name_, step, "only values and clicks are worked through windows");
  }
}

void DrivenForm::set(HWND control, const ui::DialogStep& step) const {
  const std::string kind = windowClass(control);
  const std::wstring value = toWide(step.value);
  if (isButton(control)) {
    const bool wanted = base::toBool(step.value);
    const bool checkable = buttonKind(control) != BS_PUSHBUTTON && buttonKind(control) != BS_DEFPUSHBUTTON;
    if (!checkable) refuse(name_, step, "a button takes no value");
    if ((SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED) != wanted)
      SendMessageW(control, BM_CLICK, 0, 0);
  } else if (base::equalsIgnoreCase(kind, "Edit")) {
    SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(value.c_str()));
  } else if (base::equalsIgnoreCase(kind, "ComboBox")) {
    const auto text = reinterpret_cast<LPARAM>(value.c_str());
    const LRESULT item = SendMessageW(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), text);
    if (item == CB_ERR) refuse(name_, step, "the list has no such item");
    SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    const WPARAM told = MAKEWPARAM(GetDlgCtrlID(control), CBN_SELCHANGE);
    SendMessageW(GetParent(control), WM_COMMAND, told, reinterpret_cast<LPARAM>(control));
  } else {
    refuse(name_, step, "this kind of control (" + kind + ") is not worked through windows");
  }
}

}  // namespace vellumark::app
