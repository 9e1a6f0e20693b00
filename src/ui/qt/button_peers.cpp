#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <vector>

#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

class CommandPeer : public Peer {
 public:
  CommandPeer(CommandButton& button, PeerWindow& window)
      : Peer(button, window), button_(button), view_(new QPushButton(&window.widget())) {
    view_->setAutoDefault(false);
    use(view_);
    connect(view_, &QPushButton::clicked, this, [this] { act([this] { button_.form().click(button_); }); });
  }

 private:
  void show() override {
    view_->setText(toQtLines(button_.caption()));
    view_->setDefault(button_.isDefault());
  }

  CommandButton& button_;
  QPushButton* view_;
};

class CheckPeer : public Peer {
 public:
  CheckPeer(CheckBox& box, PeerWindow& window)
      : Peer(box, window), box_(box), view_(new QCheckBox(&window.widget())) {
    use(view_);
    connect(view_, &QCheckBox::clicked, this, [this] { act([this] { box_.form().click(box_); }); });
  }

 private:
  void show() override {
    view_->setText(toQtLines(box_.caption()));
    view_->setChecked(box_.value());
  }

  CheckBox& box_;
  QCheckBox* view_;
};

class OptionPeer : public Peer {
 public:
  OptionPeer(OptionButton& option, PeerWindow& window)
      : Peer(option, window), option_(option), view_(new QRadioButton(&window.widget())) {
    // The options of a frame exclude each other by the form's rules, not because they share a window.
    view_->setAutoExclusive(false);
    use(view_);
    connect(view_, &QRadioButton::clicked, this, [this] { act([this] { option_.form().click(option_); }); });
  }

 private:
  void show() override {
    view_->setText(toQtLines(option_.caption()));
    view_->setChecked(option_.value());
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && window().live()) {
      const int key = static_cast<const QKeyEvent&>(*event).key();
      const bool back = key == Qt::Key_Up || key == Qt::Key_Left;
      if (back || key == Qt::Key_Down || key == Qt::Key_Right) {
        act([&] { chooseNeighbour(back ? -1 : 1); });
        return true;
      }
    }
    return Peer::eventFilter(watched, event);
  }

  /// The arrow keys go round the options of the group.
  void chooseNeighbour(int step) {
    std::vector<OptionButton*> group;
    for (Control* control : option_.form().controls()) {
      auto* option = dynamic_cast<OptionButton*>(control);
      if (option && option->group() == option_.group() && option->canFocus()) group.push_back(option);
    }
    const auto found = std::find(group.begin(), group.end(), &option_);
    if (found == group.end()) return;
    const auto count = static_cast<int>(group.size());
    const int next = (static_cast<int>(found - group.begin()) + step + count) % count;
    option_.form().click(*group[static_cast<std::size_t>(next)]);
  }

  OptionButton& option_;
  QRadioButton* view_;
};

}  // namespace

std::unique_ptr<Peer> makeButtonPeer(CommandButton& button, PeerWindow& window) {
  return std::make_unique<CommandPeer>(button, window);
}

std::unique_ptr<Peer> makeCheckPeer(CheckBox& box, PeerWindow& window) {
  return std::make_unique<CheckPeer>(box, window);
}

std::unique_ptr<Peer> makeOptionPeer(OptionButton& option, PeerWindow& window) {
  return std::make_unique<OptionPeer>(option, window);
}

}  // namespace vellumark::ui::qt
