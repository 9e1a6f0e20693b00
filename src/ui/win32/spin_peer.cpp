#include "ui/form.h"
#include "ui/win32/make_peers.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

/// A pair of arrows. Their range is turned round, because the upper one decreases the value.
class SpinPeer : public Peer {
 public:
  SpinPeer(ScrollBar& bar, PeerWindow& window) : Peer(bar, window), bar_(bar) { create(UPDOWN_CLASSW, 0); }

  LRESULT notified(NMHDR& notification) override {
    if (notification.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
    const int direction = reinterpret_cast<const NMUPDOWN&>(notification).iDelta < 0 ? -1 : 1;
    act([&] { bar_.step(direction); });
    return TRUE;  // the value is the form's to change
  }

 private:
  void show() override {
    send(UDM_SETRANGE32, static_cast<WPARAM>(bar_.max()), bar_.min());
    send(UDM_SETPOS32, 0, bar_.value());
  }

  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_KEYDOWN && (message.wParam == VK_UP || message.wParam == VK_DOWN)) {
      act([&] { bar_.step(message.wParam == VK_UP ? -1 : 1); });
      return 0;
    }
    if (message.code == WM_KEYDOWN && (message.wParam == VK_PRIOR || message.wParam == VK_NEXT)) {
      act([&] { bar_.page(message.wParam == VK_PRIOR ? -1 : 1); });
      return 0;
    }
    return Peer::received(message);
  }

  ScrollBar& bar_;
};

}  // namespace

std::unique_ptr<Peer> makeSpinPeer(ScrollBar& bar, PeerWindow& window) {
  return std::make_unique<SpinPeer>(bar, window);
}

}  // namespace vellumark::ui::win32
