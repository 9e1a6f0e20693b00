#include <QLabel>

#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

class LabelPeer : public Peer {
 public:
  LabelPeer(Label& label, PeerWindow& window)
      : Peer(label, window), label_(label), view_(new QLabel(&window.widget())) {
    view_->setTextFormat(Qt::PlainText);
    use(view_);
  }

 private:
  bool clicksByItself() const override { return true; }

  void show() override {
    view_->setText(text());
    view_->setWordWrap(label_.wrapAt() > 0);
    view_->setAlignment(Qt::AlignLeft | (label_.wrapAt() > 0 ? Qt::AlignTop : Qt::AlignVCenter));
    if (label_.link()) showLink();
  }

  void showLink() {
    QFont font = fontOf(label_);
    font.setUnderline(true);
    view_->setFont(font);
    if (label_.foreColor() || !label_.enabled()) return;
    QPalette palette = view_->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Link));
    view_->setPalette(palette);
  }

  /// Qt underlines an access key only in front of a widget that it leads to.
  QString text() {
    if (label_.link()) return toQtLines(label_.caption());
    QWidget* target = label_.accessKey() ? &window().widget() : nullptr;
    view_->setBuddy(target);
    return toQtLines(target ? label_.caption() : plainCaption(label_.caption()));
  }

  Label& label_;
  QLabel* view_;
};

}  // namespace

std::unique_ptr<Peer> makeLabelPeer(Label& label, PeerWindow& window) {
  return std::make_unique<LabelPeer>(label, window);
}

}  // namespace vellumark::ui::qt
