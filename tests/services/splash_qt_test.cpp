#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "platform/environment_guard.h"
#include "services/splash_games.h"
#include "support/temp_folder.h"
#include "ui/qt/qt_toolkit.h"
#include "ui/toolkit.h"

namespace vellumark::services {
namespace {

class SplashQtTest : public testing::Test {
 protected:
  SplashQtTest() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static ui::QtToolkit toolkit;
    before_ = ui::setToolkit(&toolkit);
  }
  ~SplashQtTest() override { ui::setToolkit(before_); }

  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  ui::Toolkit* before_;
};

TEST_F(SplashQtTest, AGameByKeysAndMouse) {
  Splash splash([] { return 0.5F; });
  QTimer::singleShot(0, [&] {
    QWidget* window = QApplication::activeModalWidget();
    ASSERT_TRUE(window && QTest::qWaitForWindowActive(window));
    const Player player{
        [&](const std::string& keys) { QTest::keyClicks(window, QString::fromStdString(keys)); },
        [&](const ui::Control& control, int x, int y) {
          auto* widget = window->findChild<QWidget*>(QString::fromStdString(control.name()));
          QTest::mouseClick(widget, Qt::LeftButton, {}, {x, y});
        },
        [] {
          QTimer::singleShot(0, [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            box->buttons().front()->click();
          });
        }};
    playAndLose(splash, player);
    splash.hide();
  });
  showAbout(splash);
}

TEST_F(SplashQtTest, TheSplashAtStartGoesByItself) {
  showSplash();
  const auto isSplash = [](const QWidget* window) { return window->objectName() == u"Splash"; };
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto found = std::ranges::find_if(windows, isSplash);
  ASSERT_NE(found, windows.end());
  EXPECT_TRUE((*found)->isVisible() && !(*found)->isModal());
  EXPECT_TRUE(QTest::qWaitFor(
      [] { return std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible); }, 4000));
  unloadSplash();
}

}  // namespace
}  // namespace vellumark::services
