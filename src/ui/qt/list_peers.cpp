#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QIcon>
#include <QLineEdit>
#include <QListWidget>

#include "platform/paths.h"
#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

class ComboPeer : public Peer {
 public:
  ComboPeer(ComboBox& box, PeerWindow& window)
      : Peer(box, window), box_(box), view_(new QComboBox(&window.widget())) {
    if (box.editable()) {
      view_->setEditable(true);
      view_->setInsertPolicy(QComboBox::NoInsert);
      view_->setCompleter(nullptr);
      connect(view_->lineEdit(), &QLineEdit::textEdited, this,
              [this](const QString& text) { act([&] { box_.text(fromQt(text)); }); });
    }
    use(view_);
    if (view_->lineEdit()) watch(view_->lineEdit());
    connect(view_, &QComboBox::activated, this, [this](int index) {
      act([&] {
        if (index < box_.listCount()) box_.listIndex(index);
      });
    });
  }

 private:
  void show() override {
    const auto& items = box_.items();
    while (view_->count() > box_.listCount()) view_->removeItem(view_->count() - 1);
    for (int i = 0; i < box_.listCount(); ++i) {
      const QString text = toQt(items[static_cast<std::size_t>(i)].text);
      if (i == view_->count()) {
        view_->addItem(text);
      } else if (view_->itemText(i) != text) {
        view_->setItemText(i, text);
      }
    }
    if (box_.droppedWidth() > 0) view_->view()->setMinimumWidth(box_.droppedWidth());
    if (view_->currentIndex() != box_.listIndex()) showIndex();
    if (QLineEdit* line = view_->lineEdit(); line && line->text() != toQt(box_.text())) {
      const int cursor = line->cursorPosition();
      line->setText(toQt(box_.text()));
      line->setCursorPosition(cursor);
    }
  }

  /// Keeps the cursor, because what is typed may be an item's text in between.
  void showIndex() {
    QLineEdit* line = view_->lineEdit();
    const int cursor = line ? line->cursorPosition() : 0;
    view_->setCurrentIndex(box_.listIndex());
    if (line) line->setCursorPosition(cursor);
  }

  /// The wheel scrolls the choices of the box that is worked on, not of whichever lies under the pointer.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Wheel && !view_->hasFocus()) {
      event->ignore();
      return true;
    }
    return Peer::eventFilter(watched, event);
  }

  ComboBox& box_;
  QComboBox* view_;
};

class ListPeer : public Peer {
 public:
  ListPeer(ListBox& list, PeerWindow& window)
      : Peer(list, window), list_(list), view_(new QListWidget(&window.widget())) {
    use(view_);
    watch(view_->viewport());
    connect(view_, &QListWidget::itemSelectionChanged, this, [this] {
      actOnItems([&] {
        if (const int row = selectedRow(); row >= 0 && row < list_.listCount()) list_.listIndex(row);
      });
    });
    connect(view_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
      actOnItems([&] {
        const int row = view_->row(item);
        if (row < list_.listCount()) list_.checked(row, item->checkState() == Qt::Checked);
      });
    });
  }

 private:
  void show() override {
    while (view_->count() > list_.listCount()) delete view_->takeItem(view_->count() - 1);
    while (view_->count() < list_.listCount()) view_->addItem(QString());
    for (int i = 0; i < list_.listCount(); ++i) {
      QListWidgetItem& row = *view_->item(i);
      const ListItem& item = list_.items()[static_cast<std::size_t>(i)];
      row.setText(toQt(item.text));
      if (!list_.checkBoxes()) continue;
      row.setCheckState(item.checked ? Qt::Checked : Qt::Unchecked);
      if (row.data(pictureFile).toString() == toQt(item.image)) continue;
      row.setData(pictureFile, toQt(item.image));
      row.setIcon(QIcon(toQt(platform::toSystem(item.image))));
    }
    if (selectedRow() != list_.listIndex()) view_->setCurrentRow(list_.listIndex());
  }

  /// Qt has a current row as soon as the list has the focus; chosen is what is selected.
  int selectedRow() const {
    const auto selected = view_->selectedItems();
    return selected.empty() ? -1 : view_->row(selected.front());
  }

  static constexpr int pictureFile = Qt::UserRole;  ///< what an item's picture was made from

  ListBox& list_;
  QListWidget* view_;
};

}  // namespace

std::unique_ptr<Peer> makeComboPeer(ComboBox& box, PeerWindow& window) {
  return std::make_unique<ComboPeer>(box, window);
}

std::unique_ptr<Peer> makeListPeer(ListBox& list, PeerWindow& window) {
  return std::make_unique<ListPeer>(list, window);
}

}  // namespace vellumark::ui::qt
