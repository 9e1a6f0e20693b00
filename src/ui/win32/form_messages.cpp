#include "ui/win32/form_messages.h"

#include <algorithm>

#include "ui/win32/conversions.h"
#include "ui/win32/form_window.h"

namespace vellumark::ui::win32 {
namespace {

UINT nameMessage() {
  static const UINT message = RegisterWindowMessageW(L"VellumarkControlName");
  return message;
}

}  // namespace

FormClass::FormClass(const Resources& resources) : instance_(resources.instance()) {
  WNDCLASSEXW form = {};
  form.cbSize = sizeof form;
  form.lpfnWndProc = FormWindow::procedure;
  form.hInstance = instance_;
  form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  form.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  form.lpszClassName = name;
  registered_ = RegisterClassExW(&form) != 0;
}

FormClass::~FormClass() {
  if (registered_) UnregisterClassW(name, instance_);
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam) {
  auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!form) return DefWindowProcW(window, code, wParam, lParam);
  if (code == deleteMessage) {
    if (form->busy_ == 0 && form->gone_) std::function(form->gone_)(*form);
    return 0;
  }
  form->busy(1);
  std::optional<LRESULT> answer;
  try {
    answer = form->received({window, code, wParam, lParam});
  } catch (...) {
    form->caught();
  }
  if (!answer) answer = DefWindowProcW(window, code, wParam, lParam);
  form->busy(-1);
  return *answer;
}

std::optional<LRESULT> FormWindow::received(const Message& message) {
  if (message.code == WM_NCDESTROY) {
    // Its owner takes it along.
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    handle_ = nullptr;
    if (live_) loops_.perform([this] { form_->hide(); }, false);
    return std::nullopt;
  }
  return live_ ? receivedLive(message) : std::nullopt;
}

std::optional<LRESULT> FormWindow::receivedLive(const Message& message) {
  const auto sender = reinterpret_cast<HWND>(message.lParam);
  switch (message.code) {
    case WM_COMMAND:
      if (Peer* peer = peerOf(sender)) peer->commanded(HIWORD(message.wParam));
      return 0;
    case WM_NOTIFY: {
      auto& notification = *reinterpret_cast<NMHDR*>(message.lParam);
      Peer* peer = peerOf(notification.hwndFrom);
      if (!peer) return std::nullopt;
      return peer->notified(notification);
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      if (HBRUSH brush = colorsOf(message)) return reinterpret_cast<LRESULT>(brush);
      return std::nullopt;
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
      if (previewKey(message) || formKey(message)) return 0;
      return std::nullopt;
    case WM_SETFOCUS:
    case restoreFocusMessage:
      restoreFocus();
      return 0;
    case refreshMessage:
      if (Peer* peer = peerAt(static_cast<UINT_PTR>(message.lParam))) peer->refresh();
      return 0;
    case arrangeMessage:
      arrangeAnew();
      return 0;
    case WM_SIZE:
      if (message.wParam != SIZE_MINIMIZED) arrangeIn(inner());
      return 0;
    case dpiChangedMessage:
      dpiChanged(HIWORD(message.wParam), *reinterpret_cast<const RECT*>(message.lParam));
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE least = outer(natural_);
      reinterpret_cast<MINMAXINFO*>(message.lParam)->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_LBUTTONDOWN:
      perform([this] { form_->clickBackground(); });
      return 0;
    case WM_CLOSE:
      perform([this] { form_->close(); });
      return 0;
    default:
      if (message.code != nameMessage()) return std::nullopt;
      return tellName(reinterpret_cast<HWND>(message.wParam), reinterpret_cast<wchar_t*>(message.lParam));
  }
}

LRESULT FormWindow::tellName(HWND window, wchar_t* name) const {
  constexpr std::size_t room = 64;
  const Peer* peer = peerOf(window);
  if (window && !peer) return 0;
  std::wstring text = toWide(peer ? peer->control().name() : form_->name());
  text.resize(std::min(text.size(), room - 1));
  std::copy(text.begin(), text.end(), name);
  name[text.size()] = L'\0';
  return static_cast<LRESULT>(text.size());
}

HBRUSH FormWindow::colorsOf(const Message& message) const {
  Peer* peer = peerOf(reinterpret_cast<HWND>(message.lParam));
  if (!peer) return nullptr;
  const bool field = message.code == WM_CTLCOLOREDIT || message.code == WM_CTLCOLORLISTBOX;
  return peer->colors(reinterpret_cast<HDC>(message.wParam), field);
}

bool FormWindow::previewKey(const Message& message) {
  bool passes = true;
  if (message.code == WM_KEYDOWN) {
    perform([&] { form_->keyDown(static_cast<int>(message.wParam), heldKeys()); });
  } else if (message.code == WM_CHAR) {
    perform([&] { passes = form_->keyPress(static_cast<char32_t>(message.wParam)); });
  }
  return !passes || !live_;
}

bool FormWindow::formKey(const Message& message) {
  const auto key = message.wParam;
  if (message.code == WM_SYSCHAR) {
    if (key <= L' ' || key >= 0x7F) return false;
    bool found = false;
    perform([&] { found = form_->pressAccessKey(static_cast<char>(key)); });
    return found || !live_;
  }
  if (key != VK_TAB && key != VK_RETURN && key != VK_ESCAPE) return false;
  // The characters of these keys type nothing.
  if (message.code == WM_CHAR) return true;
  if (key == VK_TAB) {
    tab(GetKeyState(VK_SHIFT) >= 0);
  } else {
    perform([&] { key == VK_RETURN ? form_->pressEnter() : form_->pressEscape(); });
  }
  return true;
}

void FormWindow::tab(bool forward) {
  bool moved = false;
  perform([&] { moved = form_->tab(forward); });
  if (!moved || !live_) return;
  if (Peer* peer = peerOf(form_->focused())) peer->selectAll();
}

}  // namespace vellumark::ui::win32
