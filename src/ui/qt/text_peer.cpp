#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>

#include "base/text.h"
#include "ui/form.h"
#include "ui/qt/conversions.h"
#include "ui/qt/make_peers.h"

namespace vellumark::ui::qt {
namespace {

struct Stretch {
  int start = 0;
  int length = 0;
  friend bool operator==(const Stretch&, const Stretch&) = default;
};

/// What fields of one and of many lines share.
class TextPeer : public Peer {
 public:
  TextPeer(TextBox& box, PeerWindow& window) : Peer(box, window), box_(box) {}

 protected:
  TextBox& box() const { return box_; }

  void typed(const std::string& text, Stretch selected) {
    act([&] {
      box_.userSelected(selected.start, selected.length);
      box_.text(text);
    });
  }

  /// Qt may tell of the selection before it tells of the text that moved it.
  void selected(Stretch selected) {
    if (byUser()) box_.userSelected(selected.start, selected.length);
  }

  virtual void insert(const QString& text) = 0;

  /// The handler may swallow a typed character (0) or put another one in its place. Keys that type nothing
  /// are not its business.
  bool keyPressed(const QString& text) override {
    if (!box_.onKeyPress || box_.locked() || text.isEmpty()) return false;
    const char32_t typed = text.toUcs4().front();
    if (!QChar::isPrint(typed)) return false;
    char32_t key = typed;
    window().perform([&] { box_.onKeyPress(key); });
    if (key == typed) return false;
    if (key != 0 && window().live()) insert(QString::fromUcs4(&key, 1));
    return true;
  }

 private:
  bool clicksByItself() const override { return true; }

  TextBox& box_;
};

class LinePeer : public TextPeer {
 public:
  LinePeer(TextBox& box, PeerWindow& window) : TextPeer(box, window), view_(new QLineEdit(&window.widget())) {
    use(view_);
    connect(view_, &QLineEdit::textEdited, this,
            [this](const QString& text) { typed(fromQt(text), selection()); });
    connect(view_, &QLineEdit::cursorPositionChanged, this, [this] { selected(selection()); });
    connect(view_, &QLineEdit::selectionChanged, this, [this] { selected(selection()); });
  }

 private:
  Stretch selection() const {
    return view_->hasSelectedText() ? Stretch{view_->selectionStart(), view_->selectionLength()}
                                    : Stretch{view_->cursorPosition(), 0};
  }

  void insert(const QString& text) override {
    view_->insert(text);
    typed(fromQt(view_->text()), selection());
  }

  void show() override {
    view_->setReadOnly(box().locked());
    const QString text = toQt(box().text());
    if (view_->text() != text) view_->setText(text);
    const auto length = static_cast<int>(text.size());
    const int start = std::clamp(box().selStart(), 0, length);
    const Stretch wanted{start, std::clamp(box().selLength(), 0, length - start)};
    if (selection() != wanted) view_->setSelection(wanted.start, wanted.length);
  }

  QLineEdit* view_;
};

/// Its lines end in a carriage return and a line feed for the program, in one character for Qt.
class LinesPeer : public TextPeer {
 public:
  LinesPeer(TextBox& box, PeerWindow& window)
      : TextPeer(box, window), view_(new QPlainTextEdit(&window.widget())) {
    view_->setTabChangesFocus(true);
    use(view_);
    watch(view_->viewport());
    connect(view_, &QPlainTextEdit::textChanged, this, [this] { typed(text(), selection()); });
    connect(view_, &QPlainTextEdit::selectionChanged, this, [this] { selected(selection()); });
    connect(view_, &QPlainTextEdit::cursorPositionChanged, this, [this] { selected(selection()); });
  }

 private:
  std::string text() const { return base::replaceAll(fromQt(view_->toPlainText()), "\n", "\r\n"); }

  Stretch selection() const {
    const QTextCursor cursor = view_->textCursor();
    const QString text = view_->toPlainText();
    const auto place = [&](int at) { return at + static_cast<int>(text.left(at).count(u'\n')); };
    const int start = place(cursor.selectionStart());
    return {start, place(cursor.selectionEnd()) - start};
  }

  void select(Stretch stretch) {
    const QString text = toQt(box().text());
    const auto place = [&](int at) { return static_cast<int>(toQtLines(fromQt(text.left(at))).size()); };
    const int last = static_cast<int>(view_->toPlainText().size());
    QTextCursor cursor = view_->textCursor();
    cursor.setPosition(std::min(place(stretch.start), last));
    cursor.setPosition(std::min(place(stretch.start + stretch.length), last), QTextCursor::KeepAnchor);
    view_->setTextCursor(cursor);
  }

  void insert(const QString& text) override { view_->insertPlainText(text); }

  void show() override {
    view_->setReadOnly(box().locked());
    const QString text = toQtLines(box().text());
    if (view_->toPlainText() != text) view_->setPlainText(text);
    const Stretch wanted{box().selStart(), box().selLength()};
    if (selection() != wanted) select(wanted);
  }

  QPlainTextEdit* view_;
};

}  // namespace

std::unique_ptr<Peer> makeTextPeer(TextBox& box, PeerWindow& window) {
  if (box.multiLine()) return std::make_unique<LinesPeer>(box, window);
  return std::make_unique<LinePeer>(box, window);
}

}  // namespace vellumark::ui::qt
