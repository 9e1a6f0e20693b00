#include "ui/win32/peer.h"

#include <utility>

#include "ui/form.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

/// Sets a flag for a while.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

Peer::~Peer() {
  for (HWND window : watched_) RemoveWindowSubclass(window, procedure, reinterpret_cast<UINT_PTR>(this));
}

void Peer::create(const wchar_t* windowClass, DWORD style, DWORD extendedStyle) {
  handle_ = CreateWindowExW(extendedStyle, windowClass, L"", style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                            window_.handle(), nullptr, window_.resources().instance(), nullptr);
  watch(handle_);
}

void Peer::watch(HWND window) {
  if (SetWindowSubclass(window, procedure, reinterpret_cast<UINT_PTR>(this),
                        reinterpret_cast<DWORD_PTR>(this))) {
    watched_.push_back(window);
  }
}

LRESULT CALLBACK Peer::procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                 DWORD_PTR data) {
  auto& peer = *reinterpret_cast<Peer*>(data);
  if (code == WM_NCDESTROY) {
    RemoveWindowSubclass(window, procedure, id);
    std::erase(peer.watched_, window);
    if (window == peer.handle_) peer.handle_ = nullptr;
    return DefSubclassProc(window, code, wParam, lParam);
  }
  const Message message{window, code, wParam, lParam};
  PeerWindow& form = peer.window_;
  form.busy(1);
  std::optional<LRESULT> answer;
  try {
    if (form.live()) answer = form.previewKey(message) ? 0 : peer.received(message);
    if (!answer) {
      {
        bool other = false;
        const Raised arriving(code == WM_SETFOCUS ? peer.focusArrives_ : other);
        answer = DefSubclassProc(window, code, wParam, lParam);
      }
      if (form.live()) peer.passed(message);
    }
  } catch (...) {
    form.caught();
    if (!answer) answer = 0;
  }
  form.busy(-1);
  return *answer;
}

void Peer::refresh() {
  if (refreshing_ || !window_.live()) return;
  const Raised guard(refreshing_);
  if (handle_) look();
  if (window_.live()) show();
}

void Peer::look() {
  const HFONT wanted = font();
  if (reinterpret_cast<HFONT>(send(WM_GETFONT)) != wanted) {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(wanted), MAKELPARAM(TRUE, 0));
  }
  if (foreColor_ != control_.foreColor() || backColor_ != control_.backColor()) {
    foreColor_ = control_.foreColor();
    backColor_ = control_.backColor();
    InvalidateRect(handle_, nullptr, TRUE);
  }
  window_.showToolTip(handle_, control_.toolTip());
  if ((IsWindowEnabled(handle_) != FALSE) != control_.enabled()) EnableWindow(handle_, control_.enabled());
  const bool shown = (GetWindowLongW(handle_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (shown != control_.visible()) ShowWindow(handle_, control_.visible() ? SW_SHOWNA : SW_HIDE);
}

void Peer::place(const Rect& rect) {
  SetWindowPos(handle_, nullptr, rect.x, rect.y, rect.width, rect.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

HBRUSH Peer::colors(HDC target, bool field) {
  const auto fore = control_.foreColor();
  const auto back = control_.backColor();
  if (field && !fore && !back) return nullptr;
  if (fore) SetTextColor(target, *fore);
  const Color ground = back.value_or(GetSysColor(field ? COLOR_WINDOW : COLOR_BTNFACE));
  SetBkColor(target, ground);
  return window_.resources().brush(ground);
}

void Peer::changeStyle(DWORD mask, DWORD style) {
  const auto before = static_cast<DWORD>(GetWindowLongW(handle_, GWL_STYLE));
  const DWORD wanted = (before & ~mask) | style;
  if (wanted == before) return;
  SetWindowLongW(handle_, GWL_STYLE, static_cast<LONG>(wanted));
  InvalidateRect(handle_, nullptr, TRUE);
}

void Peer::act(const std::function<void()>& what) {
  if (!byUser()) return;
  window_.perform(what);
  refresh();
}

void Peer::actOnItems(const std::function<void()>& what) {
  if (!byUser()) return;
  const Raised guard(refreshing_);
  window_.perform(what);
  if (window_.live()) window_.refreshLater(*this);
}

bool Peer::takeFocus() {
  Form& form = control_.form();
  if (form.focused() == &control_) {
    window_.restoreFocus();
    return true;
  }
  bool taken = false;
  window_.perform([&] { taken = form.focus(control_); });
  return taken && window_.live();
}

bool Peer::pressed(const Message& message) {
  if (!control_.enabled()) return false;
  if (control_.focusable() && !takeFocus()) return true;
  pressed_ = message.code == WM_LBUTTONDOWN || message.code == WM_LBUTTONDBLCLK;
  return clicksByItself() && !control_.focusable();
}

bool Peer::released(const Message& message) {
  if (!std::exchange(pressed_, false) || !clicksByItself()) return false;
  RECT area = {};
  GetClientRect(message.window, &area);
  if (PtInRect(&area, {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)})) {
    act([this] { control_.form().click(control_); });
  }
  return !window_.live() || !control_.focusable();
}

std::optional<LRESULT> Peer::received(const Message& message) {
  switch (message.code) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
      if (pressed(message)) return 0;
      break;
    case WM_LBUTTONUP:
      if (released(message)) return 0;
      break;
    case WM_MOUSEMOVE:
      if (control_.onMouseMove && control_.enabled()) act(control_.onMouseMove);
      break;
    case WM_SETCURSOR:
      if (control_.handCursor() && control_.enabled()) {
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
      }
      break;
    case WM_NCHITTEST:
      // Texts and pictures let the mouse through unless told otherwise.
      if (!control_.focusable() && clicksByItself()) return HTCLIENT;
      break;
    case WM_SETFOCUS:
      // By the system itself, as when another window closes.
      if (control_.focusable() && control_.form().focused() != &control_ && !takeFocus() && window_.live()) {
        window_.restoreFocusLater();
      }
      break;
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_SYSCHAR:
      if (message.code != WM_SYSCHAR && keepsKey(message.wParam)) break;
      if (window_.formKey(message)) return 0;
      break;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace vellumark::ui::win32
