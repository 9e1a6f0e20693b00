#include <algorithm>

#include "ui/form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/make_peers.h"
#include "ui/win32/picture_list.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

class ComboPeer : public Peer {
 public:
  ComboPeer(ComboBox& box, PeerWindow& window) : Peer(box, window), box_(box) {
    create(L"COMBOBOX", WS_VSCROLL | (box.editable() ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST));
    COMBOBOXINFO parts = {};
    parts.cbSize = sizeof parts;
    if (box.editable() && GetComboBoxInfo(handle(), &parts) && parts.hwndItem) watch(parts.hwndItem);
  }

  void commanded(int notification) override {
    if (notification == CBN_SELCHANGE) {
      act([this] {
        const auto index = static_cast<int>(send(CB_GETCURSEL));
        if (index >= 0 && index < box_.listCount()) box_.listIndex(index);
      });
    } else if (notification == CBN_EDITCHANGE) {
      typed();
    }
  }

  /// The height of such a window is that of its field and its open list together.
  void place(const Rect& rect) override {
    constexpr int rows = 12;
    const auto row = static_cast<int>(send(CB_GETITEMHEIGHT, 0));
    Peer::place({rect.x, rect.y, rect.width, rect.height + rows * row});
    RECT closed = {};
    GetWindowRect(handle(), &closed);
    const int missing = rect.height - static_cast<int>(closed.bottom - closed.top);
    if (missing == 0 || rect.height == 0) return;
    const auto field = static_cast<int>(send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(1, field + missing));
  }

  void selectAll() override {
    if (box_.editable()) send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
  }

 private:
  bool keepsKey(WPARAM key) const override {
    return (key == VK_RETURN || key == VK_ESCAPE) && send(CB_GETDROPPEDSTATE);
  }

  void typed() {
    if (!box_.editable() || !byUser()) return;
    act([this, text = fromWide(textOf(handle()))] { box_.text(text); });
  }

  void passed(const Message& message) override {
    if (message.code == WM_SETTEXT && message.window == handle()) typed();
  }

  void show() override {
    if (showItems()) send(CB_SETCURSEL, static_cast<WPARAM>(-1));
    if (box_.droppedWidth() > 0) send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(box_.droppedWidth()));
    if (static_cast<int>(send(CB_GETCURSEL)) != box_.listIndex()) showIndex();
    if (!box_.editable()) return;
    const std::wstring text = toWide(box_.text());
    if (textOf(handle()) == text) return;
    const LRESULT cursor = send(CB_GETEDITSEL);
    SetWindowTextW(handle(), text.c_str());
    send(CB_SETEDITSEL, 0, cursor);
  }

  /// Whether the items had to be filled in anew.
  bool showItems() {
    std::vector<std::wstring> wanted;
    for (const ListItem& item : box_.items()) wanted.push_back(toWide(item.text));
    if (wanted == shown_) return false;
    const bool grows =
        wanted.size() > shown_.size() && std::equal(shown_.begin(), shown_.end(), wanted.begin());
    if (!grows) send(CB_RESETCONTENT);
    for (std::size_t i = grows ? shown_.size() : 0; i < wanted.size(); ++i)
      send(CB_ADDSTRING, 0, wanted[i].c_str());
    shown_ = std::move(wanted);
    return !grows;
  }

  /// Keeps the cursor, because what is typed may be an item's text in between.
  void showIndex() {
    const LRESULT cursor = send(CB_GETEDITSEL);
    const std::wstring typed = textOf(handle());
    send(CB_SETCURSEL, static_cast<WPARAM>(box_.listIndex()));
    if (!box_.editable()) return;
    if (box_.listIndex() < 0) SetWindowTextW(handle(), typed.c_str());
    send(CB_SETEDITSEL, 0, cursor);
  }

  /// The wheel scrolls the choices of the box that is worked on, not of whichever lies under the pointer.
  std::optional<LRESULT> received(const Message& message) override {
    if (message.code == WM_MOUSEWHEEL && box_.form().focused() != &box_) return 0;
    return Peer::received(message);
  }

  ComboBox& box_;
  std::vector<std::wstring> shown_;
};

class ListPeer : public Peer {
 public:
  ListPeer(ListBox& list, PeerWindow& window) : Peer(list, window), list_(list) {
    create(L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE);
  }

  void commanded(int notification) override {
    if (notification != LBN_SELCHANGE) return;
    actOnItems([this] {
      const auto row = static_cast<int>(send(LB_GETCURSEL));
      if (row >= 0 && row < list_.listCount()) list_.listIndex(row);
    });
  }

 private:
  void show() override {
    std::vector<std::wstring> wanted;
    for (const ListItem& item : list_.items()) wanted.push_back(toWide(item.text));
    if (wanted != shown_) showItems(std::move(wanted));
    if (static_cast<int>(send(LB_GETCURSEL)) != list_.listIndex()) {
      send(LB_SETCURSEL, static_cast<WPARAM>(list_.listIndex()));
    }
  }

  void showItems(std::vector<std::wstring> wanted) {
    const bool grows =
        wanted.size() > shown_.size() && std::equal(shown_.begin(), shown_.end(), wanted.begin());
    const LRESULT top = send(LB_GETTOPINDEX);
    if (!grows) send(LB_RESETCONTENT);
    for (std::size_t i = grows ? shown_.size() : 0; i < wanted.size(); ++i)
      send(LB_ADDSTRING, 0, wanted[i].c_str());
    if (!grows) send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
    shown_ = std::move(wanted);
  }

  ListBox& list_;
  std::vector<std::wstring> shown_;
};

/// A list with a check box at each item.
class CheckListPeer : public Peer {
 public:
  CheckListPeer(ListBox& list, PeerWindow& window) : Peer(list, window), list_(list) {
    create(WC_LISTVIEWW,
           LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS,
           WS_EX_CLIENTEDGE);
    const LPARAM style = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, style);
    LVCOLUMNW column = {};
    send(LVM_INSERTCOLUMNW, 0, &column);
  }

  LRESULT notified(NMHDR& notification) override {
    if (notification.code != static_cast<UINT>(LVN_ITEMCHANGED) || !byUser()) return 0;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
    const int row = change.iItem;
    if (row < 0 || row >= list_.listCount()) return 0;
    const UINT changed = change.uNewState ^ change.uOldState;
    if ((changed & LVIS_STATEIMAGEMASK) != 0 && change.uOldState != 0) {
      const bool on = (change.uNewState & LVIS_STATEIMAGEMASK) == marked(true);
      actOnItems([&] { list_.checked(row, on); });
    }
    if ((changed & change.uNewState & LVIS_SELECTED) != 0) {
      actOnItems([&] {
        if (row < list_.listCount()) list_.listIndex(row);
      });
    }
    return 0;
  }

  void place(const Rect& rect) override {
    Peer::place(rect);
    RECT area = {};
    GetClientRect(handle(), &area);
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const bool full = static_cast<int>(send(LVM_GETCOUNTPERPAGE)) < list_.listCount();
    const bool barShown = (GetWindowLongW(handle(), GWL_STYLE) & WS_VSCROLL) != 0;
    send(LVM_SETCOLUMNWIDTH, 0, area.right - (full && !barShown ? bar : 0));
  }

 private:
  static UINT marked(bool on) { return static_cast<UINT>(INDEXTOSTATEIMAGEMASK(on ? 2 : 1)); }

  void show() override {
    const int count = list_.listCount();
    while (static_cast<int>(shown_.size()) > count) {
      shown_.pop_back();
      send(LVM_DELETEITEM, shown_.size());
    }
    loadPictures();
    for (int row = 0; row < count; ++row) showItem(row, list_.items()[static_cast<std::size_t>(row)]);
    showChosen();
  }

  /// A list without pictures leaves no room for them.
  void loadPictures() {
    std::vector<std::string> files;
    for (const ListItem& item : list_.items()) {
      if (!item.image.empty() && std::find(files.begin(), files.end(), item.image) == files.end()) {
        files.push_back(item.image);
      }
    }
    const int side = GetSystemMetrics(SM_CXSMICON);
    if (files == files_ || !pictures_.load(files, side, window().resources())) return;
    files_ = std::move(files);
    send(LVM_SETIMAGELIST, LVSIL_SMALL, pictures_.handle());
  }

  int imageOf(const ListItem& item) const {
    const auto found = std::find(files_.begin(), files_.end(), item.image);
    return found == files_.end() ? I_IMAGENONE : static_cast<int>(found - files_.begin());
  }

  void showItem(int row, const ListItem& item) {
    const auto place = static_cast<std::size_t>(row);
    std::wstring text = toWide(item.text);
    LVITEMW view = {};
    view.mask = LVIF_TEXT;
    view.iItem = row;
    view.pszText = text.data();
    if (place == shown_.size()) {
      send(LVM_INSERTITEMW, 0, &view);
      shown_.push_back(text);
    } else if (shown_[place] != text) {
      send(LVM_SETITEMTEXTW, place, &view);
      shown_[place] = text;
    }
    LVITEMW picture = {};
    picture.mask = LVIF_IMAGE;
    picture.iItem = row;
    send(LVM_GETITEMW, 0, &picture);
    if (const int image = imageOf(item); picture.iImage != image) {
      picture.iImage = image;
      send(LVM_SETITEMW, 0, &picture);
    }
    const auto state = static_cast<UINT>(send(LVM_GETITEMSTATE, place, LVIS_STATEIMAGEMASK));
    if (state != marked(item.checked)) setState(row, marked(item.checked), LVIS_STATEIMAGEMASK);
  }

  void showChosen() {
    const int wanted = list_.listIndex();
    const auto chosen = static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    if (chosen == wanted) return;
    if (chosen >= 0) setState(chosen, 0, LVIS_SELECTED);
    if (wanted < 0) return;
    setState(wanted, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(wanted), FALSE);
  }

  void setState(int row, UINT state, UINT mask) {
    LVITEMW view = {};
    view.state = state;
    view.stateMask = mask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &view);
  }

  ListBox& list_;
  std::vector<std::wstring> shown_;
  PictureList pictures_;
  std::vector<std::string> files_;  ///< of the pictures, by their place in the list
};

}  // namespace

std::unique_ptr<Peer> makeComboPeer(ComboBox& box, PeerWindow& window) {
  return std::make_unique<ComboPeer>(box, window);
}

std::unique_ptr<Peer> makeListPeer(ListBox& list, PeerWindow& window) {
  if (list.checkBoxes()) return std::make_unique<CheckListPeer>(list, window);
  return std::make_unique<ListPeer>(list, window);
}

}  // namespace vellumark::ui::win32
