#include "ui/qt/qt_toolkit.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "platform/paths.h"
#include "platform/posix/desktop_color.h"
#include "ui/qt/canvas_painter.h"
#include "ui/qt/conversions.h"
#include "ui/qt/font_measurer.h"
#include "ui/qt/form_window.h"
#include "ui/qt/x11_screen.h"

namespace vellumark::ui {

using qt::fromQt;
using qt::toQt;
using qt::toQtLines;

namespace {

/// Three bars that share their left edge.
QIcon applicationIcon() {
  QIcon icon;
  for (const int size : {16, 32, 48, 64}) {
    const double unit = size / 16.0;
    Canvas canvas(size, size);
    canvas.rectangle(0, 0, size, size, rgb(31, 73, 125));
    canvas.rectangle(3 * unit, 3 * unit, unit, 10 * unit, rgb(255, 255, 255));
    int top = 4;
    for (const int length : {8, 5, 7}) {
      canvas.rectangle(5 * unit, top * unit, length * unit, 2 * unit, rgb(255, 192, 0));
      top += 3;
    }
    icon.addPixmap(QPixmap::fromImage(renderCanvas(canvas)));
  }
  return icon;
}

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::question:
      return QMessageBox::Question;
    case Icon::exclamation:
      return QMessageBox::Warning;
    case Icon::information:
      return QMessageBox::Information;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

/// Every button but those of Enter and Escape has an access key.
QString buttonCaption(Answer answer) {
  const QString caption = toQt(captionOf(answer));
  return answer == Answer::ok || answer == Answer::cancel ? caption : u'&' + caption;
}

QString filterText(const FileDialog::Filter& filter) {
  return toQt(filter.description) + QLatin1String(" (") + toQt(filter.patterns).replace(u';', u' ') + u')';
}

/// Makes the application on first use. It stays until the process ends, because at exit it would look for
/// what other parts of Qt have put away already.
void useApplication() {
  if (QApplication::instance()) return;
  static int count = 1;
  static char name[] = "vellumark";
  static char* arguments[] = {name, nullptr};
  new QApplication(count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(applicationIcon());
}

}  // namespace

QtToolkit::QtToolkit() = default;

// Windows that are still there stay as the application does.
QtToolkit::~QtToolkit() = default;

int QtToolkit::ask(QDialog& dialog) {
  qt::placeAboveActive(dialog);
  const int result = dialog.exec();
  loops_.rethrow();
  return result;
}

Answer QtToolkit::messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                             int defaultButton) {
  useApplication();
  QMessageBox box;
  box.setTextFormat(Qt::PlainText);
  box.setText(toQtLines(text));
  box.setWindowTitle(toQtLines(title));
  box.setIcon(iconOf(icon));
  const std::vector<Answer> answers = answersOf(buttons);
  const auto chosen =
      static_cast<std::size_t>(std::clamp(defaultButton, 1, static_cast<int>(answers.size())));
  std::vector<QPushButton*> shown;
  for (const Answer answer : answers) {
    const auto role = answer == Answer::cancel ? QMessageBox::RejectRole : QMessageBox::AcceptRole;
    shown.push_back(box.addButton(buttonCaption(answer), role));
    if (answer == closingAnswer(buttons)) box.setEscapeButton(shown.back());
  }
  box.setDefaultButton(shown[chosen - 1]);
  ask(box);
  const auto clicked = std::find(shown.begin(), shown.end(), box.clickedButton());
  if (clicked == shown.end()) return closingAnswer(buttons);
  return answers[static_cast<std::size_t>(clicked - shown.begin())];
}

std::optional<std::string> QtToolkit::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultText) {
  useApplication();
  QInputDialog dialog;
  dialog.setWindowTitle(toQtLines(title));
  dialog.setLabelText(toQtLines(prompt).replace(u'&', QLatin1String("&&")));
  dialog.setTextValue(toQt(defaultText));
  for (QLabel* label : dialog.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  if (ask(dialog) != QDialog::Accepted) return std::nullopt;
  return fromQt(dialog.textValue());
}

std::optional<std::string> QtToolkit::fileDialog(const FileDialog& asked) {
  useApplication();
  QFileDialog dialog;
  dialog.setWindowTitle(toQtLines(asked.title));
  dialog.setAcceptMode(asked.kind == FileDialog::Kind::save ? QFileDialog::AcceptSave
                                                            : QFileDialog::AcceptOpen);
  if (asked.kind == FileDialog::Kind::folder) {
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
  } else {
    dialog.setFileMode(asked.kind == FileDialog::Kind::open ? QFileDialog::ExistingFile
                                                            : QFileDialog::AnyFile);
  }
  dialog.setDefaultSuffix(toQt(asked.defaultExtension));
  QStringList filters;
  for (const FileDialog::Filter& filter : asked.filters) filters += filterText(filter);
  if (!filters.empty()) dialog.setNameFilters(filters);
  if (!asked.initialPath.empty()) {
    const QFileInfo start(toQt(platform::toSystem(asked.initialPath)));
    dialog.setDirectory(start.isDir() ? start.filePath() : start.path());
    if (!start.isDir()) dialog.selectFile(start.fileName());
  }
  if (ask(dialog) != QDialog::Accepted || dialog.selectedFiles().empty()) return std::nullopt;
  return fromQt(dialog.selectedFiles().front());
}

void QtToolkit::showModal(Form& form) {
  useApplication();
  qt::FormWindow(form, loops_).runModal();
}

void QtToolkit::showModeless(Form& form) {
  useApplication();
  std::erase_if(modeless_, [](const auto& window) { return window.isNull(); });
  modeless_.emplace_back(new qt::FormWindow(form, loops_))->runModeless();
}

void QtToolkit::startTimer(Timer& timer) {
  useApplication();
  tickers_.start(timer);
}

int QtToolkit::textWidth(const std::string& text) {
  useApplication();
  return qt::FontMeasurer().text(text, 1, false, 0).width;
}

Screen* QtToolkit::wholeScreen() {
  useApplication();
  if (!screen_ && QApplication::platformName() == QLatin1String("xcb")) screen_ = qt::X11Screen::open();
  return screen_.get();
}

DesktopColor QtToolkit::askDesktopColor(const std::function<bool()>& goesOn) {
  useApplication();
  const platform::PickedColor picked = platform::pickDesktopColor([&] {
    QApplication::processEvents();
    return goesOn();
  });
  if (!picked.color) return {{}, picked.refusal};
  const auto byte = [&](std::size_t i) { return qRound(qBound(0.0, (*picked.color)[i], 1.0) * 255); };
  return {rgb(byte(0), byte(1), byte(2)), {}};
}

}  // namespace vellumark::ui
