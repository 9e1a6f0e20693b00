#include <cstdlib>

#include "ui/form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"

namespace vellumark::ui::win32 {
namespace {

/// The system's colour of links, unless its theme makes it as good as invisible on a dialog.
Color linkColor() {
  const Color color = GetSysColor(COLOR_HOTLIGHT);
  const Color ground = GetSysColor(COLOR_BTNFACE);
  const int contrast = std::abs(redOf(color) - redOf(ground)) + std::abs(greenOf(color) - greenOf(ground)) +
                       std::abs(blueOf(color) - blueOf(ground));
  constexpr int readable = 200;
  return contrast < readable ? rgb(0, 102, 204) : color;
}

class LabelPeer : public Peer {
 public:
  LabelPeer(Label& label, PeerWindow& window) : Peer(label, window), label_(label) {
    create(L"STATIC", SS_LEFT | SS_NOTIFY);
  }

 private:
  bool clicksByItself() const override { return true; }
  HFONT font() override { return window().resources().fontOf(label_, window().zoom(), label_.link()); }

  void show() override {
    changeStyle(SS_TYPEMASK, label_.wrapAt() > 0 ? SS_LEFT : SS_LEFTNOWORDWRAP);
    // On a ground of its own it is taller than its line.
    changeStyle(SS_CENTERIMAGE, label_.backColor() && label_.wrapAt() == 0 ? SS_CENTERIMAGE : 0);
    changeStyle(SS_NOPREFIX, label_.link() ? SS_NOPREFIX : 0);
    showText(handle(), toWideLines(label_.caption()));
  }

  HBRUSH colors(HDC target, bool) override {
    SetTextColor(target, label_.link() ? linkColor() : GetSysColor(COLOR_BTNTEXT));
    return Peer::colors(target, false);
  }

  Label& label_;
};

}  // namespace

std::unique_ptr<Peer> makeLabelPeer(Label& label, PeerWindow& window) {
  return std::make_unique<LabelPeer>(label, window);
}

}  // namespace vellumark::ui::win32
