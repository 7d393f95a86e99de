#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <memory>

#include "core/FrmTip.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "extras/frmSound.h"
#include "mcp/frmTestMCP.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "support/Sticks.h"
#include "window/FittingScroll.h"
#include "window/MainWindow.h"
#include "window/SoundWindow.h"
#include "window/TestMcpWindow.h"
#include "window/TipWindow.h"
#include "window/cockpitWindows.h"
#include "window/stickWindows.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// Counts what comes up as a window of its own.
class WindowCount : public QObject {
 public:
  WindowCount() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && widget != nullptr && widget->isWindow())
      ++seen[watched->objectName().toStdString()];
    return false;
  }
  std::map<std::string, int> seen;
};

/// Letters of another size, for as long as it lives.
class LargeLetters {
 public:
  explicit LargeLetters(double factor) : usual_(QApplication::font()) {
    QFont large = usual_;
    large.setPointSizeF(usual_.pointSizeF() * factor);
    QApplication::setFont(large);
  }
  ~LargeLetters() { QApplication::setFont(usual_); }
  LargeLetters(const LargeLetters&) = delete;
  LargeLetters& operator=(const LargeLetters&) = delete;

 private:
  QFont usual_;
};

/// A letter that has a line under it stands apart from the next one. Part of a pixel is nothing
/// that would be missed.
int drawnWidth(const QWidget& widget, const QString& text) {
  const auto mark = text.indexOf('&');
  const QFontMetricsF letters(widget.font());
  if (mark < 0) return static_cast<int>(letters.horizontalAdvance(text));
  return static_cast<int>(letters.horizontalAdvance(text.left(mark)) +
                          letters.horizontalAdvance(text.mid(mark + 1, 1)) +
                          letters.horizontalAdvance(text.mid(mark + 2)));
}

/// Every window of a started server with one stick.
class Looks : public testing::Test {
 protected:
  void SetUp() override {
    addSticks(server, 1);
    server.start();
    server.form.chkStick.Value(1);
    server.server.sticks.XY->InitForStick(0, 0);
  }
  std::vector<std::unique_ptr<QWidget>> dialogs() {
    Server& s = server.server;
    std::vector<std::unique_ptr<QWidget>> all;
    all.push_back(std::make_unique<TipWindow>(*s.tip, guard));
    all.push_back(std::make_unique<TestMcpWindow>(*s.testMcp, guard));
    all.push_back(std::make_unique<SoundWindow>(*s.soundForm, guard));
    all.push_back(newWindow(*s.newCockpit, guard));
    all.push_back(saveWindow(*s.saveTemplate, guard));
    all.push_back(importWindow(*s.importOld, guard));
    all.push_back(zipWindow(*s.zip, guard));
    all.push_back(makeStickWindow(*s.sticks.CStick[0], guard));
    all.push_back(makeStickWindow(*s.sticks.CMore[0], guard));
    all.push_back(makeStickWindow(*s.sticks.XY, guard));
    return all;
  }
  std::vector<std::unique_ptr<QWidget>> windows() {
    auto all = dialogs();
    all.push_back(std::make_unique<MainWindow>(server.form, *server.server.status, guard));
    return all;
  }

  TestServer server;
  Guard guard = [this](const std::function<void()>& work) {
    server.server.failureDomain.run(work);
  };
};

template <class Titled, class Title>
void forEach(const QWidget& window, Title title) {
  for (auto* widget : window.findChildren<Titled*>()) title(*widget);
}

/// As another language's may be. Labels of a column that are as wide as its widest stay so.
void doubleTexts(const QWidget& window) {
  const auto twice = [](const QString& text) {
    return text.isEmpty() ? text : text + ' ' + QString(text).remove('&');
  };
  forEach<QAbstractButton>(window, [&](auto& button) { button.setText(twice(button.text())); });
  forEach<QGroupBox>(window, [&](auto& group) { group.setTitle(twice(group.title())); });
  forEach<QLabel>(window, [&](auto& label) {
    label.setText(twice(label.text()));
    if (label.buddy() != nullptr) label.setMinimumWidth(2 * label.minimumWidth());
  });
}

/// What is seen less of than there is.
std::string cutTexts(const QWidget& window) {
  std::string cut;
  const auto expect = [&](const QWidget& widget, int needed, const QString& text) {
    if (widget.isVisible() && widget.width() < needed) cut += "|" + text.toStdString();
  };
  forEach<QLabel>(window, [&](const auto& label) {
    if (label.objectName().startsWith("sbStatusBar")) return;
    if (label.wordWrap())
      EXPECT_GE(label.height(), label.heightForWidth(label.width())) << label.text().toStdString();
    else
      expect(label, drawnWidth(label, label.text()), label.text());
  });
  forEach<QCheckBox>(window,
                     [&](const auto& b) { expect(b, b.minimumSizeHint().width(), b.text()); });
  forEach<QRadioButton>(window,
                        [&](const auto& b) { expect(b, b.minimumSizeHint().width(), b.text()); });
  forEach<QPushButton>(window,
                       [&](const auto& b) { expect(b, b.minimumSizeHint().width(), b.text()); });
  forEach<QGroupBox>(window, [&](const auto& group) {
    expect(group, drawnWidth(group, group.title()), group.title());
  });
  return cut;
}

TEST_F(Looks, NothingIsAWindowOfItsOwnWhileAWindowIsMade) {
  const WindowCount count;
  const auto all = windows();
  EXPECT_TRUE(count.seen.empty()) << count.seen.begin()->first;
}

TEST_F(Looks, EveryTextIsSeenWhole) {
  for (const auto& window : windows()) {
    window->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(*window), "") << window->objectName().toStdString();
  }
}

TEST_F(Looks, TextsOfDoubleLengthAreSeenWholeToo) {
  for (const auto& window : windows()) {
    doubleTexts(*window);
    window->show();
    window->adjustSize();
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(*window), "") << window->objectName().toStdString();
  }
}

TEST_F(Looks, NoWindowIsLargerThanItsScreenHoweverLargeTheLetters) {
  const LargeLetters letters(2.5);
  for (const auto& window : windows()) {
    window->show();
    QCoreApplication::processEvents();
    const QSize screen = window->screen()->availableSize();
    EXPECT_LE(window->width(), screen.width()) << window->objectName().toStdString();
    EXPECT_LE(window->height(), screen.height()) << window->objectName().toStdString();
  }
}

TEST_F(Looks, EnterPressesTheButtonThatHasTheFocus) {
  frmCStick& stick = *server.server.sticks.CStick[0];
  stick.Visible(true);
  const auto window = makeStickWindow(stick, guard);
  showActive(*window);
  auto& coder = child<QPushButton>(*window, "cmdCoderAxis");
  coder.setFocus();
  QTest::keyClick(&coder, Qt::Key_Return);
  EXPECT_EQ(stick.AxisMode(), 1);
  EXPECT_TRUE(stick.Visible());
  const std::string before = server.folder.read(stickFileOf(0));
  auto& cancel = child<QPushButton>(*window, "cmdCancel");
  cancel.setFocus();
  QTest::keyClick(&cancel, Qt::Key_Return);
  EXPECT_FALSE(stick.Visible());
  EXPECT_EQ(server.folder.read(stickFileOf(0)), before);
}

TEST(FittingScrollTest, ABarAlongOneSideMakesNoneAlongTheOther) {
  QWidget window;
  auto* content = new QLabel;
  content->setPixmap(QPixmap(3000, 100));
  FittingScroll scroll(&window);
  scroll.setWidget(content);
  scroll.resize(scroll.sizeHint());
  window.show();
  QCoreApplication::processEvents();
  EXPECT_TRUE(scroll.horizontalScrollBar()->isVisible());
  EXPECT_FALSE(scroll.verticalScrollBar()->isVisible());
  EXPECT_EQ(scroll.viewport()->height(), 100);
}

TEST(AlarmTest, IsReadOnADarkGroundToo) {
  QWidget ground;
  ground.setPalette(QPalette(Qt::white, QColor(0x2a, 0x2d, 0x31)));
  Label told("lblTold");
  QLabel label(&ground);
  Binder([](const std::function<void()>& work) { work(); }).bind(told, label);
  told.Alarm(true);
  EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0xff, 0x7b, 0x72));
}

}  // namespace
}  // namespace vorlent
