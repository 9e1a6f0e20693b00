#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <algorithm>

#include "ui/form.h"
#include "ui/qt/canvas_painter.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

/// What is there to be looked at and clicked.
class PassivePeer : public Peer {
 protected:
  using Peer::Peer;

 private:
  bool clicksByItself() const override { return true; }
};

class PictureView : public QWidget {
 public:
  PictureView(const Canvas& canvas, PeerWindow& window)
      : QWidget(&window.widget()), canvas_(canvas), window_(window) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!window_.live()) return;
    QPainter painter(this);
    paintCanvas(canvas_, painter);
  }

 private:
  const Canvas& canvas_;
  PeerWindow& window_;
};

/// Its widget counts the pixels of its canvas.
class PicturePeer : public PassivePeer {
 public:
  PicturePeer(PictureBox& picture, PeerWindow& window) : PassivePeer(picture, window), picture_(picture) {
    use(new PictureView(picture.canvas(), window));
  }
  bool changesSize() const override { return false; }

 private:
  using UserAct = void (PictureBox::*)(int, int, double, double) const;

  void show() override { widget()->update(); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        mouse(&PictureBox::mouseDown, *event);
        break;
      case QEvent::MouseMove:
        mouse(&PictureBox::mouseMove, *event);
        break;
      case QEvent::MouseButtonRelease:
        mouse(&PictureBox::mouseUp, *event);
        break;
      default:
        break;
    }
    return PassivePeer::eventFilter(watched, event);
  }

  void mouse(UserAct userAct, const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    // While the mouse moves, what is held down counts.
    const auto buttons =
        event.type() == QEvent::MouseMove ? mouse.buttons() : Qt::MouseButtons(mouse.button());
    const int button = static_cast<int>(buttons & (Qt::LeftButton | Qt::RightButton | Qt::MiddleButton));
    const QPointF place = mouse.position();
    act([&] { (picture_.*userAct)(button, shiftOf(mouse.modifiers()), place.x(), place.y()); });
  }

  PictureBox& picture_;
};

class ColorPeer : public PassivePeer {
 public:
  ColorPeer(ColorBox& box, PeerWindow& window)
      : PassivePeer(box, window), box_(box), view_(new QFrame(&window.widget())) {
    view_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    use(view_);
  }

 private:
  void show() override {
    QPalette palette = view_->palette();
    palette.setColor(QPalette::Window, toQt(box_.color()));
    view_->setPalette(palette);
    view_->setAutoFillBackground(true);
  }

  ColorBox& box_;
  QFrame* view_;
};

class LinePeer : public PassivePeer {
 public:
  LinePeer(Line& line, PeerWindow& window) : PassivePeer(line, window) {
    auto* view = new QFrame(&window.widget());
    view->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    use(view);
  }
};

/// A border with its title in the upper edge, as the layout leaves room for it.
class FrameView : public QWidget {
 public:
  using QWidget::QWidget;
  void title(const QString& text) {
    title_ = text;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const int gap = metrics.height() / 4;
    const QRect text(3 * gap, 0, title_.isEmpty() ? 0 : metrics.horizontalAdvance(title_), metrics.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRegion(title_.isEmpty() ? QRegion(rect())
                                           : QRegion(rect()) - text.adjusted(-gap, 0, gap, 0));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, metrics.height() / 2 + 0.5, -0.5, -0.5), 3, 3);
    painter.restore();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, title_);
  }

 private:
  QString title_;
};

class FramePeer : public PassivePeer {
 public:
  FramePeer(Frame& frame, PeerWindow& window)
      : PassivePeer(frame, window), frame_(frame), view_(new FrameView(&window.widget())) {
    use(view_);
    view_->lower();  // what it frames lies on it
  }

 private:
  void show() override { view_->title(toQt(plainCaption(frame_.caption()))); }

  Frame& frame_;
  FrameView* view_;
};

class ProgressPeer : public PassivePeer {
 public:
  ProgressPeer(ProgressBar& bar, PeerWindow& window)
      : PassivePeer(bar, window), bar_(bar), view_(new QProgressBar(&window.widget())) {
    view_->setTextVisible(false);
    use(view_);
  }

 private:
  /// A range of nothing would be a bar that runs forever.
  void show() override {
    view_->setRange(bar_.min(), std::max(bar_.max(), bar_.min() + 1));
    view_->setValue(bar_.value());
  }

  ProgressBar& bar_;
  QProgressBar* view_;
};

}  // namespace

std::unique_ptr<Peer> makeProgressPeer(ProgressBar& bar, PeerWindow& window) {
  return std::make_unique<ProgressPeer>(bar, window);
}

std::unique_ptr<Peer> makePicturePeer(PictureBox& picture, PeerWindow& window) {
  return std::make_unique<PicturePeer>(picture, window);
}

std::unique_ptr<Peer> makeColorPeer(ColorBox& box, PeerWindow& window) {
  return std::make_unique<ColorPeer>(box, window);
}

std::unique_ptr<Peer> makeLinePeer(Line& line, PeerWindow& window) {
  return std::make_unique<LinePeer>(line, window);
}

std::unique_ptr<Peer> makeFramePeer(Frame& frame, PeerWindow& window) {
  return std::make_unique<FramePeer>(frame, window);
}

}  // namespace vellumark::ui::qt
