#include "ui/win32/form_window.h"

#include <algorithm>

#include "ui/win32/conversions.h"
#include "ui/win32/font_measurer.h"
#include "ui/win32/form_messages.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

constexpr const wchar_t* modalProperty = L"VellumarkModal";
constexpr const wchar_t* unaskedProperty = L"VellumarkUnasked";

void layAt(HWND place, const Peer& peer) {
  SetWindowPos(peer.handle(), place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

/// Whether anything but empty space grows with the window.
bool stretches(const Box& box) {
  if (box.kind() != Box::Kind::space && box.stretchFactor() > 0) return true;
  return std::any_of(box.children().begin(), box.children().end(), stretches);
}

}  // namespace

FormWindow::FormWindow(Form& form, EventLoops& loops, Resources& resources)
    : form_(&form), loops_(loops), resources_(resources) {
  create(ownerWindow());
  captionChanged();
  makePeers();
  arrangeAnew();
  form.view(this);
}

FormWindow::~FormWindow() {
  end();
  peers_.clear();
  if (!handle_) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

void FormWindow::create(HWND owner) {
  const VisualStyles styles(resources_);
  const DWORD framed = WS_CAPTION | WS_SYSMENU | (stretches(form_->layout()) ? WS_THICKFRAME : 0);
  const DWORD frame = form_->bare() ? WS_BORDER : framed;
  handle_ = CreateWindowExW((form_->bare() ? 0 : WS_EX_DLGMODALFRAME) | WS_EX_CONTROLPARENT, FormClass::name,
                            L"", WS_POPUP | WS_CLIPCHILDREN | frame, 0, 0, 0, 0, owner, nullptr,
                            resources_.instance(), nullptr);
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  zoom_ = zoomOf(handle_);
}

void FormWindow::makePeers() {
  const VisualStyles styles(resources_);
  for (Control* control : form_->controls()) {
    if (auto peer = makePeer(*control, *this)) {
      peer->refresh();
      // The system lays what comes later below what was there before.
      if (dynamic_cast<PictureBox*>(control)) layAt(HWND_TOP, *peer);
      peers_.push_back(std::move(peer));
    }
  }
  // What a frame holds lies on it, and a frame in a frame on the outer one.
  for (auto peer = peers_.rbegin(); peer != peers_.rend(); ++peer) {
    if (dynamic_cast<Frame*>(&(*peer)->control())) layAt(HWND_BOTTOM, **peer);
  }
}

void FormWindow::runModal() {
  modality_ = std::make_unique<Modality>(handle_);
  SetPropW(handle_, modalProperty, handle_);
  if (form_->unasked()) SetPropW(handle_, unaskedProperty, handle_);
  present();
  loops_.run([this] { return live_; });
  if (!handle_) return;
  RemovePropW(handle_, modalProperty);
  RemovePropW(handle_, unaskedProperty);
}

void FormWindow::runModeless(std::function<void(FormWindow&)> gone) {
  present();
  gone_ = std::move(gone);
  keepsFailures_ = false;
  if (!live_) PostMessageW(handle_, deleteMessage, 0, 0);
  loops_.rethrow();
}

void FormWindow::present() {
  placeAbove(GetWindow(handle_, GW_OWNER));
  ShowWindow(handle_, SW_SHOW);
  SetActiveWindow(handle_);
  restoreFocus();
  UpdateWindow(handle_);
  perform([this] { form_->activated(); });
  applyTopMost();
}

/// In the middle of the owner, but wholly on the screen, its upper left corner above all.
void FormWindow::placeAbove(HWND owner) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const RECT& screen = monitor.rcWork;
  RECT area = screen;
  if (owner && !IsIconic(owner)) GetWindowRect(owner, &area);
  RECT own = {};
  GetWindowRect(handle_, &own);
  const auto place = [](LONG from, LONG to, LONG length, LONG first, LONG last) {
    return static_cast<int>(std::max(first, std::min((from + to - length) / 2, last - length)));
  };
  SetWindowPos(handle_, nullptr,
               place(area.left, area.right, own.right - own.left, screen.left, screen.right),
               place(area.top, area.bottom, own.bottom - own.top, screen.top, screen.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::applyTopMost() {
  if (!live_) return;
  const bool topMost = (GetWindowLongW(handle_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  if (form_->topMost() == topMost) return;
  SetWindowPos(handle_, form_->topMost() ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FormWindow::end() {
  if (!live_) return;
  live_ = false;
  form_->view(nullptr);
  form_ = nullptr;
  // The owner takes input again before this window goes, so that it becomes the active one.
  modality_.reset();
  if (handle_) {
    ShowWindow(handle_, SW_HIDE);
    if (gone_) PostMessageW(handle_, deleteMessage, 0, 0);
  }
  EventLoops::wake();
}

/// A window that is no longer live waits for its deletion until it handles no message.
void FormWindow::busy(int change) {
  busy_ += change;
  if (busy_ == 0 && !live_ && gone_ && handle_) PostMessageW(handle_, deleteMessage, 0, 0);
}

void FormWindow::perform(const std::function<void()>& act) {
  if (!live_) return;
  busy(1);
  loops_.perform(act, keepsFailures_);
  if (live_) {
    applyTopMost();
    // A control that the act disabled, hid or covered passes its focus on.
    if (Control* focused = form_->focused(); focused && !form_->reachable(*focused)) {
      loops_.perform([this] { form_->tab(); }, keepsFailures_);
    }
  }
  busy(-1);
}

Peer* FormWindow::peerOf(const Control* control) const {
  const auto found = std::find_if(peers_.begin(), peers_.end(),
                                  [&](const auto& peer) { return &peer->control() == control; });
  return found == peers_.end() ? nullptr : found->get();
}

Peer* FormWindow::peerOf(HWND window) const {
  const auto found = std::find_if(peers_.begin(), peers_.end(),
                                  [&](const auto& peer) { return window && peer->handle() == window; });
  return found == peers_.end() ? nullptr : found->get();
}

Peer* FormWindow::peerAt(UINT_PTR address) const {
  const auto found = std::find_if(peers_.begin(), peers_.end(), [&](const auto& peer) {
    return reinterpret_cast<UINT_PTR>(peer.get()) == address;
  });
  return found == peers_.end() ? nullptr : found->get();
}

void FormWindow::controlChanged(Control& control) {
  Peer* peer = peerOf(&control);
  if (!peer) return;
  peer->refresh();
  if (peer->handle() && peer->changesSize()) arrangeLater();
}

void FormWindow::captionChanged() { showText(handle_, toWide(form_->caption())); }

/// A window that isn't in front gets the focus right when it comes there.
void FormWindow::focusChanged(Control* control) {
  for (const auto& peer : peers_) peer->focusMoved();
  const Peer* peer = peerOf(control);
  if (!peer || !peer->handle() || GetActiveWindow() != handle_) return;
  HWND focus = GetFocus();
  if (focus != peer->handle() && !IsChild(peer->handle(), focus)) SetFocus(peer->handle());
}

void FormWindow::visibilityChanged(bool visible) {
  if (!visible) end();
}

Rect FormWindow::frame() const {
  RECT own = {};
  GetWindowRect(handle_, &own);
  return {own.left, own.top, own.right - own.left, own.bottom - own.top};
}

/// No message is taken from the queue: what the host and its user want waits until the work is done.
void FormWindow::repaint() {
  if (!live_) return;
  if (arranging_) arrangeAnew();
  RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::restoreFocus() {
  if (live_) focusChanged(form_->focused());
}

void FormWindow::restoreFocusLater() { PostMessageW(handle_, restoreFocusMessage, 0, 0); }

void FormWindow::refreshLater(Peer& peer) {
  PostMessageW(handle_, refreshMessage, 0, reinterpret_cast<LPARAM>(&peer));
}

/// The window for tips is made for the first one.
void FormWindow::showToolTip(HWND window, const std::string& text) {
  if (!toolTips_) {
    if (text.empty()) return;
    constexpr LPARAM widest = 400;  // makes it break lines
    toolTips_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                        0, 0, 0, handle_, nullptr, resources_.instance(), nullptr);
    SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, widest);
  }
  std::wstring wide = toWideLines(text);
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = handle_;
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  tool.lpszText = wide.data();
  const auto tell = [&](UINT message) {
    return SendMessageW(toolTips_, message, 0, reinterpret_cast<LPARAM>(&tool));
  };
  if (text.empty()) {
    tell(TTM_DELTOOLW);
  } else if (!tell(TTM_ADDTOOLW)) {
    tell(TTM_UPDATETIPTEXTW);
  }
}

/// Many changes of controls in a row arrange the form once.
void FormWindow::arrangeLater() {
  if (arranging_) return;
  arranging_ = true;
  PostMessageW(handle_, arrangeMessage, 0, 0);
}

SIZE FormWindow::outer(SIZE inner) const {
  RECT area = {0, 0, inner.cx, inner.cy};
  AdjustWindowRectEx(&area, static_cast<DWORD>(GetWindowLongW(handle_, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongW(handle_, GWL_EXSTYLE)));
  return {area.right - area.left, area.bottom - area.top};
}

SIZE FormWindow::inner() const {
  RECT area = {};
  GetClientRect(handle_, &area);
  return {area.right, area.bottom};
}

/// The window came to a screen of another resolution, where the system proposes that place for it.
void FormWindow::dpiChanged(UINT dpi, const RECT& proposed) {
  const SIZE before = inner();
  const bool natural = before.cx == natural_.cx && before.cy == natural_.cy;
  zoom_ = zoomOf(dpi);
  for (const auto& peer : peers_) peer->refresh();
  SetWindowPos(handle_, nullptr, proposed.left, proposed.top, proposed.right - proposed.left,
               proposed.bottom - proposed.top, SWP_NOZORDER | SWP_NOACTIVATE);
  if (natural) natural_ = inner();
  arrangeAnew();
}

/// A window of its natural size keeps to that; one that the user made larger stays so.
void FormWindow::arrangeAnew() {
  arranging_ = false;
  const Size needed = arrange(form_->layout(), FontMeasurer(resources_, zoom_)).size;
  const SIZE before = inner();
  const bool natural = !IsWindowVisible(handle_) || (before.cx == natural_.cx && before.cy == natural_.cy);
  natural_ = {needed.width, needed.height};
  const SIZE wanted =
      natural ? natural_ : SIZE{std::max(before.cx, natural_.cx), std::max(before.cy, natural_.cy)};
  const SIZE size = outer(wanted);
  SetWindowPos(handle_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  arrangeIn(inner());
}

void FormWindow::arrangeIn(SIZE size) {
  const Arrangement arrangement =
      arrange(form_->layout(), FontMeasurer(resources_, zoom_), {size.cx, size.cy});
  for (const auto& peer : peers_) {
    if (!peer->handle()) continue;
    // A control that no layout names is not seen.
    const auto found = arrangement.places.find(&peer->control());
    peer->place(found == arrangement.places.end() ? Rect{} : found->second);
  }
}

}  // namespace vellumark::ui::win32
