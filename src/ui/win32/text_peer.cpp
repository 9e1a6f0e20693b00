#include <algorithm>

#include "ui/form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"

namespace vellumark::ui::win32 {
namespace {

struct Stretch {
  int start = 0;
  int length = 0;
  friend bool operator==(const Stretch&, const Stretch&) = default;
};

/// An edit field of one or many lines.
class TextPeer : public Peer {
 public:
  TextPeer(TextBox& box, PeerWindow& window) : Peer(box, window), box_(box) {
    const DWORD many = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
    create(L"EDIT", box.multiLine() ? many : DWORD{ES_AUTOHSCROLL}, WS_EX_CLIENTEDGE);
    send(EM_SETLIMITTEXT, 0);
  }

  void selectAll() override {
    if (!box_.multiLine()) send(EM_SETSEL, 0, -1);
  }

  void commanded(int notification) override {
    if (notification == EN_CHANGE) typed();
  }

  /// A field that was narrower may have scrolled, and doesn't scroll back by itself.
  void place(const Rect& rect) override {
    RECT before = {};
    GetWindowRect(handle(), &before);
    Peer::place(rect);
    if (box_.multiLine() || rect.width <= before.right - before.left) return;
    const Stretch selected = selection();
    for (const Stretch& stretch : {Stretch{}, selected}) {
      send(EM_SETSEL, static_cast<WPARAM>(stretch.start), stretch.start + stretch.length);
      send(EM_SCROLLCARET);
    }
  }

 private:
  bool clicksByItself() const override { return true; }
  bool keepsKey(WPARAM key) const override { return key == VK_RETURN && box_.multiLine() && !box_.locked(); }

  void show() override {
    const bool readOnly = (GetWindowLongW(handle(), GWL_STYLE) & ES_READONLY) != 0;
    if (readOnly != box_.locked()) send(EM_SETREADONLY, box_.locked());
    const std::wstring text = shown();
    showText(handle(), text);
    const auto length = static_cast<int>(text.size());
    const int start = std::clamp(box_.selStart(), 0, length);
    const Stretch wanted{start, std::clamp(box_.selLength(), 0, length - start)};
    if (selection() == wanted) return;
    send(EM_SETSEL, static_cast<WPARAM>(wanted.start), wanted.start + wanted.length);
    send(EM_SCROLLCARET);
  }

  std::wstring shown() const { return box_.multiLine() ? toWideLines(box_.text()) : toWide(box_.text()); }

  Stretch selection() const {
    DWORD start = 0;
    DWORD end = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), &end);
    return {static_cast<int>(start), static_cast<int>(end - start)};
  }

  void typed() {
    if (!byUser()) return;
    const std::wstring text = textOf(handle());
    tellSelection();
    if (text != shown()) act([&] { box_.text(fromWide(text)); });
  }

  void tellSelection() {
    const Stretch now = selection();
    box_.userSelected(now.start, now.length);
  }

  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_CHAR && filtered(message.wParam)) return 0;
    return Peer::received(message);
  }

  /// The handler may swallow a typed character (0) or put another one in its place. Keys that type nothing
  /// are not its business.
  bool filtered(WPARAM unit) {
    constexpr WPARAM selectAllKey = 1;  // Ctrl+A
    if (unit == selectAllKey) {
      send(EM_SETSEL, 0, -1);
      return true;
    }
    const bool prints = unit >= L' ' && unit != 0x7F;
    const bool halfCharacter = unit >= 0xD800 && unit <= 0xDFFF;
    if (!box_.onKeyPress || box_.locked() || !prints || halfCharacter) return false;
    auto key = static_cast<char32_t>(unit);
    window().perform([&] { box_.onKeyPress(key); });
    if (!window().live() || key == 0) return true;
    if (key == static_cast<char32_t>(unit)) return false;
    const wchar_t instead[] = {static_cast<wchar_t>(key), L'\0'};
    send(EM_REPLACESEL, TRUE, instead);
    return true;
  }

  /// The field doesn't tell of its selection, nor of all ways to change its text.
  void passed(const Message& message) override {
    switch (message.code) {
      case WM_SETTEXT:
      case WM_CHAR:
      case WM_PASTE:
        return typed();
      case WM_KEYDOWN:
      case WM_LBUTTONDOWN:
      case WM_LBUTTONUP:
      case WM_LBUTTONDBLCLK:
      case EM_SETSEL:
        if (byUser()) tellSelection();
        return;
      default:
        return;
    }
  }

  TextBox& box_;
};

}  // namespace

std::unique_ptr<Peer> makeTextPeer(TextBox& box, PeerWindow& window) {
  return std::make_unique<TextPeer>(box, window);
}

}  // namespace vellumark::ui::win32
