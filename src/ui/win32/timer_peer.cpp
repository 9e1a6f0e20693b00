#include "ui/form.h"
#include "ui/win32/make_peers.h"

namespace vellumark::ui::win32 {
namespace {

class TimerPeer : public Peer {
 public:
  TimerPeer(Timer& timer, PeerWindow& window) : Peer(timer, window), timer_(timer) {}
  ~TimerPeer() override { TimerPeer::stop(); }

  void stop() override {
    if (interval_ > 0) KillTimer(window().handle(), id());
    interval_ = 0;
  }

  void ticked() override {
    if (timer_.onTimer) act(timer_.onTimer);
  }

 private:
  /// The form's window passes the ticks on to the peer of this address.
  UINT_PTR id() { return reinterpret_cast<UINT_PTR>(static_cast<Peer*>(this)); }

  /// An interval that is set anew starts anew; other changes leave the beat alone.
  void show() override {
    const int wanted = timer_.enabled() ? timer_.interval() : 0;
    if (wanted == interval_) return;
    stop();
    if (wanted > 0) SetTimer(window().handle(), id(), static_cast<UINT>(wanted), nullptr);
    interval_ = wanted;
  }

  Timer& timer_;
  int interval_ = 0;
};

}  // namespace

std::unique_ptr<Peer> makeTimerPeer(Timer& timer, PeerWindow& window) {
  return std::make_unique<TimerPeer>(timer, window);
}

}  // namespace vellumark::ui::win32
