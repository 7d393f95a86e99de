#include "window/Binder.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QWheelEvent>
#include <memory>

#include "window/widgets.h"

namespace vorlent {
namespace {

class BinderTest : public testing::Test {
 protected:
  int guarded = 0;
  Binder binder{[this](const std::function<void()>& work) {
    ++guarded;
    work();
  }};
};

TEST_F(BinderTest, TypedTextGoesIntoTheModelOneHandlerRunPerKey) {
  TextBox box("txtPoll");
  int handled = 0;
  box.Text.onChange([&] { ++handled; });
  QLineEdit edit;
  binder.bind(box, edit);
  QTest::keyClicks(&edit, "60");
  EXPECT_EQ(box.Text(), "60");
  EXPECT_EQ(handled, 2);
  EXPECT_EQ(guarded, 2);
}

TEST_F(BinderTest, TextSetInTheModelAppearsAndIsNotWrittenBack) {
  TextBox box("txtPoll");
  int handled = 0;
  box.Text.onChange([&] { ++handled; });
  QLineEdit edit;
  binder.bind(box, edit);
  box.Text("75");
  EXPECT_EQ(edit.text(), "75");
  EXPECT_EQ(handled, 1);
  EXPECT_EQ(guarded, 0);
}

TEST_F(BinderTest, TextThatTheFormPutsRightReplacesTheTypedOne) {
  TextBox box("txtPort");
  box.Text.onChange([&] {
    if (box.Text().find('x') != std::string::npos) box.Text.setQuietly("");
  });
  QLineEdit edit;
  binder.bind(box, edit);
  QTest::keyClicks(&edit, "50x");
  EXPECT_EQ(edit.text(), "");
  EXPECT_EQ(box.Text(), "");
}

TEST_F(BinderTest, TextBeyondAsciiGoesBothWays) {
  TextBox box("Text1");
  QLineEdit edit;
  binder.bind(box, edit);
  box.Text("M\xC3\xBCnchen");
  EXPECT_EQ(edit.text(), QString::fromUtf8("M\xC3\xBCnchen"));
  QTest::keyClick(&edit, Qt::Key_End);
  QTest::keyClicks(&edit, "!");
  EXPECT_EQ(box.Text(), "M\xC3\xBCnchen!");
}

TEST_F(BinderTest, BoxIsLeftWhenAnotherControlTakesTheFocus) {
  TextBox first("first");
  TextBox second("second");
  int left = 0;
  first.onLostFocus([&] { ++left; });
  QWidget window;
  QLineEdit firstEdit(&window);
  QLineEdit secondEdit(&window);
  binder.bind(first, firstEdit);
  binder.bind(second, secondEdit);
  showActive(window);
  firstEdit.setFocus();
  EXPECT_EQ(left, 0);
  guarded = 0;
  QTest::keyClick(&firstEdit, Qt::Key_Tab);
  EXPECT_TRUE(secondEdit.hasFocus());
  EXPECT_EQ(left, 1);
  EXPECT_EQ(guarded, 2);
}

TEST_F(BinderTest, BoxIsNotLeftWhenAnotherWindowComesToTheFront) {
  TextBox box("txtIP");
  int left = 0;
  box.onLostFocus([&] { ++left; });
  QWidget window;
  QLineEdit edit(&window);
  binder.bind(box, edit);
  showActive(window);
  edit.setFocus();
  QWidget other;
  showActive(other);
  EXPECT_FALSE(edit.hasFocus());
  EXPECT_EQ(left, 0);
}

TEST_F(BinderTest, LabelShowsTextAsItIs) {
  TextBox box("Text1");
  QLabel label;
  binder.bind(box, label);
  box.Text("<b>1.</b>\n\t2.");
  EXPECT_EQ(label.text(), "<b>1.</b>\n\t2.");
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST_F(BinderTest, ClickOnACheckBoxTurnsTheModelOverAndTheModelTheCheckBox) {
  CheckBox box("chkStick", "Enable joysticks");
  QCheckBox widget;
  binder.bind(box, widget);
  EXPECT_EQ(widget.text(), "Enable joysticks");
  widget.show();
  click(widget);
  EXPECT_EQ(box.Value(), 1);
  box.Value(0);
  EXPECT_FALSE(widget.isChecked());
  box.Value(1);
  EXPECT_TRUE(widget.isChecked());
  EXPECT_EQ(guarded, 1);
}

TEST_F(BinderTest, CheckBoxThatTheFormRefusesGoesBack) {
  CheckBox box("chkStick", "Enable joysticks");
  box.Value.onChange([&] { box.Value.setQuietly(0); });
  QCheckBox widget;
  binder.bind(box, widget);
  click(widget);
  EXPECT_EQ(box.Value(), 0);
  EXPECT_FALSE(widget.isChecked());
}

TEST_F(BinderTest, ListShowsItemsAndSelectionAndTakesAChoice) {
  ComboBox box("cboDir");
  box.addItem("737-600");
  box.addItem("737-700");
  box.ListIndex(1);
  QComboBox widget;
  binder.bind(box, widget);
  EXPECT_EQ(widget.currentText(), "737-700");
  QTest::keyClick(&widget, Qt::Key_Up);
  EXPECT_EQ(box.ListIndex(), 0);
  EXPECT_EQ(guarded, 1);
  box.ListIndex(1);
  EXPECT_EQ(widget.currentText(), "737-700");
  EXPECT_EQ(guarded, 1);
}

/// A notch downwards over the widget.
bool turnWheel(QWidget& widget) {
  const QPointF at = widget.rect().center();
  QWheelEvent notch(at, widget.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &notch);
  return notch.isAccepted();
}

TEST_F(BinderTest, TheWheelTurnsAListThatHasTheFocusAndPassesOverAnyOther) {
  ComboBox box("cboDir");
  box.Items({{"737-600"}, {"737-700"}});
  box.ListIndex(0);
  QWidget window;
  QLineEdit other(&window);
  QComboBox widget(&window);
  binder.bind(box, widget);
  showActive(window);
  other.setFocus();
  EXPECT_FALSE(turnWheel(widget)) << "it scrolls what is behind";
  EXPECT_EQ(box.ListIndex(), 0);
  EXPECT_EQ(widget.focusPolicy(), Qt::StrongFocus) << "nor does it take the focus";
  widget.setFocus();
  turnWheel(widget);
  EXPECT_EQ(box.ListIndex(), 1);
}

TEST_F(BinderTest, NewItemsSelectNothingByThemselves) {
  ComboBox box("cboStick");
  QComboBox widget;
  binder.bind(box, widget);
  box.Items({{"1"}, {"2"}});
  EXPECT_EQ(widget.count(), 2);
  EXPECT_EQ(widget.currentIndex(), -1);
  box.ListIndex(0);
  box.clear();
  EXPECT_EQ(widget.count(), 0);
  EXPECT_EQ(widget.currentIndex(), -1);
  EXPECT_EQ(guarded, 0);
}

TEST_F(BinderTest, ChoiceThatTheFormRefusesGoesBack) {
  ComboBox box("cboDir");
  box.Items({{"737-600"}, {"737-700"}});
  box.ListIndex(0);
  box.ListIndex.onChange([&] { box.ListIndex.setQuietly(0); });
  QComboBox widget;
  binder.bind(box, widget);
  QTest::keyClick(&widget, Qt::Key_Down);
  EXPECT_EQ(box.ListIndex(), 0);
  EXPECT_EQ(widget.currentIndex(), 0);
}

TEST_F(BinderTest, ClickOnAButtonPressesIt) {
  Button button("cmdStop", "Stop");
  int pressed = 0;
  button.onClick([&] {
    ++pressed;
    button.Caption("Start");
  });
  QPushButton widget;
  binder.bind(button, widget);
  EXPECT_EQ(widget.text(), "Stop");
  click(widget);
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(guarded, 1);
  EXPECT_EQ(widget.text(), "Start");
}

TEST_F(BinderTest, TickOfACheckableEntryIsTheModelsNotTheClicks) {
  MenuItem entry("Settings(2)", "FS on &top");
  int pressed = 0;
  entry.onClick([&] { ++pressed; });
  QAction action;
  action.setCheckable(true);
  binder.bind(entry, action);
  action.trigger();
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(guarded, 1);
  EXPECT_FALSE(action.isChecked());
  entry.Checked(true);
  EXPECT_TRUE(action.isChecked());
}

TEST_F(BinderTest, AltKeyIsMarkedInTheWidgetsCaptionAlone) {
  Button button("cmdStop", "Stop");
  CheckBox box("chkStick", "Enable joysticks");
  QPushButton push;
  QCheckBox check;
  binder.bind(button, push, 't');
  binder.bind(box, check, 'e');
  EXPECT_EQ(push.text(), "S&top");
  EXPECT_EQ(check.text(), "&Enable joysticks");
  button.Caption("Halt");
  EXPECT_EQ(push.text(), "Hal&t");
  button.Caption("End");
  EXPECT_EQ(push.text(), "End");
  EXPECT_EQ(button.Caption(), "End");
  EXPECT_EQ(box.Caption(), "Enable joysticks");
}

TEST_F(BinderTest, ComplaintStandsInTheToolTipAboveThePurpose) {
  TextBox box("txtPoll");
  box.ToolTipText("Get stick data interval");
  QLineEdit edit;
  binder.bind(box, edit);
  EXPECT_EQ(edit.toolTip(), "Get stick data interval");
  box.Complaint("Needs a number");
  EXPECT_EQ(edit.toolTip(), "Needs a number\nGet stick data interval");
  box.ToolTipText("");
  EXPECT_EQ(edit.toolTip(), "Needs a number");
  box.Complaint("");
  EXPECT_EQ(edit.toolTip(), "");
}

TEST_F(BinderTest, LabelIsRedWhileItIsAnAlarm) {
  Label label("lblPoll");
  QLabel widget;
  binder.bind(label, widget);
  const QColor usual = widget.palette().color(QPalette::WindowText);
  label.Caption("<i>no poll</i>\nfor 3 s");
  label.Alarm(true);
  EXPECT_EQ(widget.text(), "<i>no poll</i> for 3 s");
  EXPECT_EQ(widget.textFormat(), Qt::PlainText);
  EXPECT_EQ(widget.palette().color(QPalette::WindowText), QColor(0xc6, 0x28, 0x28));
  label.Alarm(false);
  EXPECT_EQ(widget.palette().color(QPalette::WindowText), usual);
}

TEST_F(BinderTest, TableShowsItsRowsToRead) {
  Table table("lstSessions", {"Slot", "Client"});
  table.Rows({{"0", "captain"}});
  QTableWidget widget;
  binder.bind(table, widget);
  EXPECT_EQ(widget.objectName(), "lstSessions");
  ASSERT_EQ(widget.columnCount(), 2);
  EXPECT_EQ(widget.horizontalHeaderItem(1)->text(), "Client");
  EXPECT_EQ(widget.item(0, 1)->text(), "captain");
  table.Rows({{"0", "first\nofficer"}, {"1", "waiting"}});
  ASSERT_EQ(widget.rowCount(), 2);
  EXPECT_EQ(widget.item(0, 1)->text(), "first officer");
  EXPECT_EQ(widget.item(1, 1)->text(), "waiting");
  table.Rows({});
  EXPECT_EQ(widget.rowCount(), 0);
  EXPECT_EQ(widget.focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(widget.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(BinderTest, EnabledVisibleAndToolTipFollowTheModel) {
  TextBox box("txtFlaps");
  box.Enabled(false);
  box.Visible(false);
  box.ToolTipText("Max: 1725");
  QWidget window;
  QLineEdit edit(&window);
  binder.bind(box, edit);
  window.show();
  EXPECT_EQ(edit.objectName(), "txtFlaps");
  EXPECT_FALSE(edit.isEnabled());
  EXPECT_FALSE(edit.isVisible());
  EXPECT_EQ(edit.toolTip(), "Max: 1725");
  box.Enabled(true);
  box.Visible(true);
  box.ToolTipText("Max: 4000");
  EXPECT_TRUE(edit.isEnabled());
  EXPECT_TRUE(edit.isVisible());
  EXPECT_EQ(edit.toolTip(), "Max: 4000");
}

TEST_F(BinderTest, StatusPanelEndsALongTextInAnEllipsisAndTellsAllOfItInItsToolTip) {
  StatusBar bar("sbStatusBar", 2);
  QStatusBar widget;
  binder.bind(bar, widget);
  auto& label = child<QLabel>(widget, "sbStatusBar.1");
  widget.resize(400, 30);
  const auto drawn = [&](const std::string& text) {
    bar.panelText(1, text);
    return label.grab().toImage();
  };
  const std::string text(200, 'W');
  const QImage seen = drawn(text);
  const std::string cut =
      label.fontMetrics()
          .elidedText(label.text(), Qt::ElideRight, label.contentsRect().width())
          .toStdString();
  EXPECT_TRUE(cut.starts_with("WWW") && cut.ends_with("\u2026")) << cut;
  EXPECT_EQ(seen, drawn(cut));
  bar.panelText(1, "Take it <out> of the file, & start again");
  EXPECT_EQ(label.toolTip(), "<p>Take it &lt;out&gt; of the file, &amp; start again</p>");
}

TEST_F(BinderTest, StatusPanelShowsMarkupAsItIsAndAllInOneLine) {
  StatusBar bar("sbStatusBar", 2);
  bar.panelText(2, "Waiting for clients....");
  QStatusBar widget;
  binder.bind(bar, widget);
  bar.panelText(1, "<h1>p</h1>\r\nP 169");
  EXPECT_EQ(child<QLabel>(widget, "sbStatusBar.1").text(), "<h1>p</h1>  P 169");
  EXPECT_EQ(child<QLabel>(widget, "sbStatusBar.1").textFormat(), Qt::PlainText);
  EXPECT_EQ(child<QLabel>(widget, "sbStatusBar.2").text(), "Waiting for clients....");
}

TEST_F(BinderTest, LongStatusTextDoesNotWidenTheBar) {
  StatusBar bar("sbStatusBar", 2);
  QStatusBar widget;
  binder.bind(bar, widget);
  const int width_px = widget.minimumSizeHint().width();
  bar.panelText(1, std::string(2048, 'W'));
  EXPECT_EQ(widget.minimumSizeHint().width(), width_px);
}

TEST_F(BinderTest, ModelLivesOnWhenItsWidgetsAreGone) {
  TextBox box("txtIP");
  CheckBox check("chkStick", "Enable joysticks");
  StatusBar bar("sbStatusBar", 2);
  auto edit = std::make_unique<QLineEdit>();
  auto checkWidget = std::make_unique<QCheckBox>();
  auto barWidget = std::make_unique<QStatusBar>();
  binder.bind(box, *edit);
  binder.bind(check, *checkWidget);
  binder.bind(bar, *barWidget);
  edit.reset();
  checkWidget.reset();
  barWidget.reset();
  box.Text("127.0.0.1");
  check.Value(1);
  bar.panelText(1, "OK");
  EXPECT_EQ(box.Text(), "127.0.0.1");
  EXPECT_EQ(check.Value(), 1);
  EXPECT_EQ(bar.panelText(1), "OK");
}

}  // namespace
}  // namespace vorlent
