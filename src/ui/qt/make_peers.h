#pragma once
// The peers of the kinds of controls, for makePeer() alone.

#include "ui/controls.h"
#include "ui/lists.h"
#include "ui/qt/peer.h"

namespace vellumark::ui::qt {

std::unique_ptr<Peer> makeLabelPeer(Label& label, PeerWindow& window);
std::unique_ptr<Peer> makeTextPeer(TextBox& box, PeerWindow& window);
std::unique_ptr<Peer> makeButtonPeer(CommandButton& button, PeerWindow& window);
std::unique_ptr<Peer> makeCheckPeer(CheckBox& box, PeerWindow& window);
std::unique_ptr<Peer> makeOptionPeer(OptionButton& option, PeerWindow& window);
std::unique_ptr<Peer> makeSpinPeer(ScrollBar& bar, PeerWindow& window);
std::unique_ptr<Peer> makeComboPeer(ComboBox& box, PeerWindow& window);
std::unique_ptr<Peer> makeListPeer(ListBox& list, PeerWindow& window);
std::unique_ptr<Peer> makeTreePeer(TreeView& tree, PeerWindow& window);
std::unique_ptr<Peer> makeProgressPeer(ProgressBar& bar, PeerWindow& window);
std::unique_ptr<Peer> makePicturePeer(PictureBox& picture, PeerWindow& window);
std::unique_ptr<Peer> makeColorPeer(ColorBox& box, PeerWindow& window);
std::unique_ptr<Peer> makeLinePeer(Line& line, PeerWindow& window);
std::unique_ptr<Peer> makeFramePeer(Frame& frame, PeerWindow& window);

}  // namespace vellumark::ui::qt
