#include "ui/win32/make_peers.h"

namespace vellumark::ui::win32 {
namespace {

/// The peer where the control is of that kind.
template <typename Kind>
std::unique_ptr<Peer> tryKind(Control& control, PeerWindow& window,
                              std::unique_ptr<Peer> (*make)(Kind&, PeerWindow&)) {
  auto* kind = dynamic_cast<Kind*>(&control);
  return kind ? make(*kind, window) : nullptr;
}

template <typename... Kinds>
std::unique_ptr<Peer> firstKind(Control& control, PeerWindow& window,
                                std::unique_ptr<Peer> (*... make)(Kinds&, PeerWindow&)) {
  std::unique_ptr<Peer> peer;
  ((peer = tryKind(control, window, make)) || ...);
  return peer;
}

}  // namespace

std::unique_ptr<Peer> makePeer(Control& control, PeerWindow& window) {
  return firstKind(control, window, makeLabelPeer, makeTextPeer, makeButtonPeer, makeCheckPeer,
                   makeOptionPeer, makeSpinPeer, makeComboPeer, makeListPeer, makeTreePeer, makeProgressPeer,
                   makePicturePeer, makeColorPeer, makeLinePeer, makeFramePeer);
}

}  // namespace vellumark::ui::win32
