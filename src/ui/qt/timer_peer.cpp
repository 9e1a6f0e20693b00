#include <QTimer>

#include "ui/form.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

class TimerPeer : public Peer {
 public:
  TimerPeer(Timer& timer, PeerWindow& window) : Peer(timer, window), timer_(timer) {
    connect(&ticker_, &QTimer::timeout, this, [this] {
      if (timer_.onTimer) act(timer_.onTimer);
    });
  }

  void stop() override { ticker_.stop(); }

 private:
  /// An interval that is set anew starts anew; other changes leave the beat alone.
  void show() override {
    const bool runs = timer_.enabled() && timer_.interval() > 0;
    if (!runs) {
      ticker_.stop();
    } else if (!ticker_.isActive() || ticker_.interval() != timer_.interval()) {
      ticker_.start(timer_.interval());
    }
  }

  Timer& timer_;
  QTimer ticker_;
};

}  // namespace

std::unique_ptr<Peer> makeTimerPeer(Timer& timer, PeerWindow& window) {
  return std::make_unique<TimerPeer>(timer, window);
}

}  // namespace vellumark::ui::qt
