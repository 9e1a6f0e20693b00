#include <QGuiApplication>
#include <QHeaderView>
#include <QIcon>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

constexpr int keyRole = Qt::UserRole;

std::string keyOf(const QTreeWidgetItem* item) {
  return item ? fromQt(item->data(0, keyRole).toString()) : "";
}

/// Hands over what the user made of a label, changed or not, and leaves the item as it is.
class LabelEditor : public QStyledItemDelegate {
 public:
  using Edited = std::function<void(const std::string& key, const std::string& text)>;
  LabelEditor(QObject* parent, Edited edited) : QStyledItemDelegate(parent), edited_(std::move(edited)) {}

  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
    if (const auto* line = qobject_cast<QLineEdit*>(editor)) {
      edited_(fromQt(index.data(keyRole).toString()), fromQt(line->text()));
    }
  }

 private:
  Edited edited_;
};

class TreePeer : public Peer {
 public:
  TreePeer(TreeView& tree, PeerWindow& window)
      : Peer(tree, window), tree_(tree), view_(new QTreeWidget(&window.widget())) {
    view_->setHeaderHidden(true);
    view_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    use(view_);
    watch(view_->viewport());
    connect(view_, &QTreeWidget::itemSelectionChanged, this, [this] {
      selectedByPress_ = QGuiApplication::mouseButtons() != Qt::NoButton;
      actOnNode(selectedItem(), [this](const std::string& key) { tree_.select(key); });
    });
    // A click on the selected item changes nothing, and is one all the same.
    connect(view_, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) {
      if (std::exchange(selectedByPress_, false)) return;
      actOnNode(item, [this](const std::string& key) { tree_.userClick(key); });
    });
    view_->setItemDelegate(new LabelEditor(this, [this](const std::string& key, const std::string& text) {
      actOnItems([&] {
        if (tree_.find(key)) tree_.userEditLabel(key, text);
      });
    }));
    connect(view_, &QTreeWidget::itemExpanded, this,
            [this](const QTreeWidgetItem* item) { expand(item, true); });
    connect(view_, &QTreeWidget::itemCollapsed, this,
            [this](const QTreeWidgetItem* item) { expand(item, false); });
  }

 private:
  /// The node of an item may have gone already.
  void actOnNode(const QTreeWidgetItem* item, const std::function<void(const std::string& key)>& what) {
    actOnItems([&] {
      if (const std::string key = keyOf(item); tree_.find(key)) what(key);
    });
  }

  void expand(const QTreeWidgetItem* item, bool on) {
    actOnNode(item, [this, on](const std::string& key) { tree_.setExpanded(key, on); });
  }

  void show() override {
    loadImages();
    showChildren(*view_->invisibleRootItem(), tree_.root());
    QTreeWidgetItem* selected = nullptr;
    for (QTreeWidgetItemIterator item(view_); *item; ++item) {
      if (!tree_.selectedKey().empty() && keyOf(*item) == tree_.selectedKey()) selected = *item;
    }
    if (selectedItem() != selected) view_->setCurrentItem(selected);
    if (tree_.takeLabelEdit() && selected) view_->editItem(selected);
  }

  /// Qt has a current item as soon as the tree has the focus; selected is another thing.
  QTreeWidgetItem* selectedItem() const {
    const auto selected = view_->selectedItems();
    return selected.empty() ? nullptr : selected.front();
  }

  void loadImages() {
    if (paths_ == tree_.images) return;
    paths_ = tree_.images;
    images_.clear();
    for (const std::string& path : paths_) images_.emplace_back(toQt(platform::toSystem(path)));
  }

  /// Keeps the items of nodes that are still in their place, and with them what is scrolled and edited.
  void showChildren(QTreeWidgetItem& parent, const TreeView::Node& node) {
    int place = 0;
    for (const auto& child : node.children) {
      while (place < parent.childCount() && keyOf(parent.child(place)) != child->key &&
             !isKept(parent, place, node)) {
        delete parent.takeChild(place);
      }
      if (place == parent.childCount() || keyOf(parent.child(place)) != child->key) {
        parent.insertChild(place, takeByKey(parent, place, child->key));
      }
      showNode(*parent.child(place++), *child);
    }
    while (parent.childCount() > place) delete parent.takeChild(place);
  }

  static bool isKept(const QTreeWidgetItem& parent, int place, const TreeView::Node& node) {
    const std::string key = keyOf(parent.child(place));
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](const auto& child) { return child->key == key; });
  }

  static QTreeWidgetItem* takeByKey(QTreeWidgetItem& parent, int from, const std::string& key) {
    for (int i = from; i < parent.childCount(); ++i) {
      if (keyOf(parent.child(i)) == key) return parent.takeChild(i);
    }
    auto* item = new QTreeWidgetItem;
    item->setData(0, keyRole, toQt(key));
    return item;
  }

  void showNode(QTreeWidgetItem& item, const TreeView::Node& node) {
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    item.setFlags(tree_.labelEdit() ? usual | Qt::ItemIsEditable : usual);
    item.setText(0, toQt(node.text));
    const auto image = static_cast<std::size_t>(node.image);
    item.setIcon(0, node.image > 0 && image <= images_.size() ? images_[image - 1] : QIcon());
    showChildren(item, node);
    item.setExpanded(node.expanded);
  }

  TreeView& tree_;
  QTreeWidget* view_;
  std::vector<std::string> paths_;
  std::vector<QIcon> images_;
  bool selectedByPress_ = false;  ///< the mouse button that is down has changed the selection
};

}  // namespace

std::unique_ptr<Peer> makeTreePeer(TreeView& tree, PeerWindow& window) {
  return std::make_unique<TreePeer>(tree, window);
}

}  // namespace vellumark::ui::qt
