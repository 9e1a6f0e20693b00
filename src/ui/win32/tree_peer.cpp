#include <algorithm>
#include <map>

#include "ui/form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"
#include "ui/win32/picture_list.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

class TreePeer : public Peer {
 public:
  TreePeer(TreeView& tree, PeerWindow& window) : Peer(tree, window), tree_(tree) {
    create(WC_TREEVIEWW,
           TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
               (tree.labelEdit() ? TVS_EDITLABELS : 0),
           WS_EX_CLIENTEDGE);
  }

  LRESULT notified(NMHDR& notification) override {
    switch (notification.code) {
      case TVN_SELCHANGEDW:
        actOnNode(reinterpret_cast<const NMTREEVIEWW&>(notification).itemNew.hItem,
                  [this](const std::string& key) { tree_.select(key); });
        return 0;
      case NM_CLICK:
        // A click on the selected item changes nothing, and is one all the same.
        actOnNode(itemUnderMouse(), [this](const std::string& key) {
          if (key == tree_.selectedKey()) tree_.userClick(key);
        });
        return 0;
      case TVN_ITEMEXPANDEDW: {
        const auto& change = reinterpret_cast<const NMTREEVIEWW&>(notification);
        actOnNode(change.itemNew.hItem, [this, on = change.action == TVE_EXPAND](const std::string& key) {
          tree_.setExpanded(key, on);
        });
        return 0;
      }
      case TVN_ENDLABELEDITW: {
        const auto& item = reinterpret_cast<const NMTVDISPINFOW&>(notification).item;
        if (item.pszText) {
          actOnNode(item.hItem, [this, text = fromWide(item.pszText)](const std::string& key) {
            tree_.userEditLabel(key, text);
          });
        }
        return FALSE;  // the new text comes from the form
      }
      default:
        return 0;
    }
  }

 private:
  /// What an item of the window shows.
  struct Shown {
    std::string key;
    std::string text;
    int image = 0;
  };

  /// The node of an item may have gone already.
  void actOnNode(HTREEITEM item, const std::function<void(const std::string& key)>& what) {
    const auto found = shown_.find(item);
    if (found == shown_.end()) return;
    actOnItems([this, key = found->second.key, &what] {
      if (tree_.find(key)) what(key);
    });
  }

  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_KEYDOWN && message.wParam == VK_F2 && tree_.labelEdit()) {
      if (HTREEITEM item = selectedItem()) send(TVM_EDITLABELW, 0, item);
      return 0;
    }
    return Peer::received(message);
  }

  HTREEITEM next(HTREEITEM item, UINT which) const {
    return reinterpret_cast<HTREEITEM>(send(TVM_GETNEXTITEM, which, item));
  }
  HTREEITEM itemUnderMouse() const {
    const DWORD place = GetMessagePos();
    TVHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    ScreenToClient(handle(), &hit.pt);
    send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & TVHT_ONITEM) != 0 ? hit.hItem : nullptr;
  }
  HTREEITEM selectedItem() const { return next(nullptr, TVGN_CARET); }

  void show() override {
    loadPictures();
    selected_ = nullptr;
    showChildren(TVI_ROOT, tree_.root());
    if (selectedItem() != selected_) send(TVM_SELECTITEM, TVGN_CARET, selected_);
    if (tree_.takeLabelEdit() && selected_) send(TVM_EDITLABELW, 0, selected_);
  }

  void loadPictures() {
    const int side = std::max(16, static_cast<int>(send(TVM_GETITEMHEIGHT)) - 2);
    if (!pictures_.load(tree_.images, side, window().resources())) return;
    send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(pictures_.handle()));
  }

  /// Keeps the items of nodes that are still in their place, and with them what is scrolled and edited.
  void showChildren(HTREEITEM parent, const TreeView::Node& node) {
    HTREEITEM before = TVI_FIRST;
    HTREEITEM item = next(parent, TVGN_CHILD);
    for (const auto& child : node.children) {
      while (item && shown_[item].key != child->key && !isKept(item, node)) item = removed(item);
      if (!item || shown_[item].key != child->key) {
        removeByKey(item, child->key);
        before = inserted(parent, before, *child);
      } else {
        before = item;
        item = next(item, TVGN_NEXT);
      }
      showNode(before, *child);
    }
    while (item) item = removed(item);
  }

  bool isKept(HTREEITEM item, const TreeView::Node& node) {
    const std::string& key = shown_[item].key;
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](const auto& child) { return child->key == key; });
  }

  /// Removes an item with all below it; the answer is the one behind it.
  HTREEITEM removed(HTREEITEM item) {
    HTREEITEM behind = next(item, TVGN_NEXT);
    forget(item);
    send(TVM_DELETEITEM, 0, item);
    return behind;
  }

  void forget(HTREEITEM item) {
    for (HTREEITEM child = next(item, TVGN_CHILD); child; child = next(child, TVGN_NEXT)) forget(child);
    shown_.erase(item);
  }

  void removeByKey(HTREEITEM from, const std::string& key) {
    for (HTREEITEM item = from; item; item = next(item, TVGN_NEXT)) {
      if (shown_[item].key != key) continue;
      removed(item);
      return;
    }
  }

  HTREEITEM inserted(HTREEITEM parent, HTREEITEM before, const TreeView::Node& node) {
    std::wstring text = toWide(node.text);
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = before;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = text.data();
    insert.item.iImage = insert.item.iSelectedImage = imageOf(node);
    auto* item = reinterpret_cast<HTREEITEM>(send(TVM_INSERTITEMW, 0, &insert));
    shown_[item] = {node.key, node.text, insert.item.iImage};
    return item;
  }

  int imageOf(const TreeView::Node& node) const {
    return node.image > 0 && static_cast<std::size_t>(node.image) <= pictures_.size() ? node.image - 1
                                                                                      : I_IMAGENONE;
  }

  void showNode(HTREEITEM item, const TreeView::Node& node) {
    Shown& shown = shown_[item];
    if (shown.text != node.text || shown.image != imageOf(node)) {
      shown.text = node.text;
      shown.image = imageOf(node);
      std::wstring text = toWide(node.text);
      TVITEMW change = {};
      change.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
      change.hItem = item;
      change.pszText = text.data();
      change.iImage = change.iSelectedImage = shown.image;
      send(TVM_SETITEMW, 0, &change);
    }
    if (!node.key.empty() && node.key == tree_.selectedKey()) selected_ = item;
    showChildren(item, node);
    const auto state =
        static_cast<UINT>(send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), LPARAM{TVIS_EXPANDED}));
    const bool expanded = (state & TVIS_EXPANDED) != 0;
    if (expanded != node.expanded && !node.children.empty()) {
      send(TVM_EXPAND, node.expanded ? TVE_EXPAND : TVE_COLLAPSE, item);
    }
  }

  TreeView& tree_;
  std::map<HTREEITEM, Shown> shown_;
  HTREEITEM selected_ = nullptr;
  PictureList pictures_;
};

}  // namespace

std::unique_ptr<Peer> makeTreePeer(TreeView& tree, PeerWindow& window) {
  return std::make_unique<TreePeer>(tree, window);
}

}  // namespace vellumark::ui::win32
