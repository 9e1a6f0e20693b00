#include <QKeyEvent>
#include <QToolButton>
#include <algorithm>

#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

/// Two arrows, one above the other.
class Arrows : public QWidget {
 public:
  explicit Arrows(QWidget* parent) : QWidget(parent), up(make(Qt::UpArrow)), down(make(Qt::DownArrow)) {
    setFocusPolicy(Qt::TabFocus);
  }

  QToolButton* up;
  QToolButton* down;

 protected:
  void resizeEvent(QResizeEvent*) override {
    const int half = height() / 2;
    up->setGeometry(0, 0, width(), half);
    down->setGeometry(0, half, width(), height() - half);
  }

 private:
  QToolButton* make(Qt::ArrowType arrow) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
  }
};

class SpinPeer : public Peer {
 public:
  SpinPeer(ScrollBar& bar, PeerWindow& window)
      : Peer(bar, window), bar_(bar), view_(new Arrows(&window.widget())) {
    use(view_);
    for (const auto& [button, direction] : {std::pair(view_->up, -1), std::pair(view_->down, 1)}) {
      watch(button);
      connect(button, &QToolButton::clicked, this,
              [this, step = direction] { act([this, step] { bar_.step(step); }); });
    }
  }

 private:
  void show() override {
    view_->up->setEnabled(bar_.value() != std::min(bar_.min(), bar_.max()));
    view_->down->setEnabled(bar_.value() != std::max(bar_.min(), bar_.max()));
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && window().live()) {
      const int key = static_cast<const QKeyEvent&>(*event).key();
      if (key == Qt::Key_Up || key == Qt::Key_Down) {
        act([&] { bar_.step(key == Qt::Key_Up ? -1 : 1); });
        return true;
      }
      if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        act([&] { bar_.page(key == Qt::Key_PageUp ? -1 : 1); });
        return true;
      }
    }
    return Peer::eventFilter(watched, event);
  }

  ScrollBar& bar_;
  Arrows* view_;
};

}  // namespace

std::unique_ptr<Peer> makeSpinPeer(ScrollBar& bar, PeerWindow& window) {
  return std::make_unique<SpinPeer>(bar, window);
}

}  // namespace vellumark::ui::qt
