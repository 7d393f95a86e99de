#include "base/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Recorder {
  std::vector<std::string> calls;
  std::function<void()> as(std::string name) {
    return [this, name] { calls.push_back(name); };
  }
};

TEST(Property, RunsTheHandlerAndThenEveryViewForANewValue) {
  Property<int> property(1);
  Recorder recorder;
  property.addView(recorder.as("first view"));
  property.addView(recorder.as("second view"));
  property.onChange(recorder.as("handler"));
  property(2);
  EXPECT_EQ(property(), 2);
  EXPECT_THAT(recorder.calls, ElementsAre("handler", "first view", "second view"));
}

TEST(Property, RunsNothingForTheValueItHas) {
  Property<int> property(1);
  Recorder recorder;
  property.onChange(recorder.as("handler"));
  property.addView(recorder.as("view"));
  property(1);
  property.setQuietly(1);
  EXPECT_THAT(recorder.calls, IsEmpty());
}

TEST(Property, SetQuietlyTellsTheViewsButNotTheHandler) {
  Property<int> property(1);
  Recorder recorder;
  property.onChange(recorder.as("handler"));
  property.addView(recorder.as("view"));
  property.setQuietly(2);
  EXPECT_EQ(property(), 2);
  EXPECT_THAT(recorder.calls, ElementsAre("view"));
}

TEST(Property, ShowsItsViewsWhatTheHandlerPutRight) {
  Property<std::string> property;
  std::vector<std::string> shown;
  property.onChange([&] { property.setQuietly("0"); });
  property.addView([&] { shown.push_back(property()); });
  property("wrong");
  EXPECT_EQ(property(), "0");
  EXPECT_EQ(shown.back(), "0");
}

TEST(Property, ASecondHandlerTakesTheFirstOnesPlace) {
  Property<int> property;
  Recorder recorder;
  property.onChange(recorder.as("first"));
  property.onChange(recorder.as("second"));
  property(1);
  EXPECT_THAT(recorder.calls, ElementsAre("second"));
}

TEST(Property, TheHandlerCanBeRunWithoutAChange) {
  Property<int> property(1);
  property.runHandler();
  Recorder recorder;
  property.onChange(recorder.as("handler"));
  property.addView(recorder.as("view"));
  property.runHandler();
  EXPECT_THAT(recorder.calls, ElementsAre("handler"));
}

TEST(TextBox, RunsItsHandlerWhenItLosesTheFocus) {
  TextBox box("txtPort");
  box.loseFocus();
  Recorder recorder;
  box.onLostFocus(recorder.as("lost focus"));
  box.loseFocus();
  EXPECT_THAT(recorder.calls, ElementsAre("lost focus"));
}

TEST(Controls, StartEnabledAndVisible) {
  const TextBox box("txtPort");
  EXPECT_EQ(box.name(), "txtPort");
  EXPECT_TRUE(box.Enabled());
  EXPECT_TRUE(box.Visible());
  EXPECT_EQ(box.Text(), "");
}

TEST(Controls, TellWhatTheyHoldAsText) {
  TextBox text("txtIP");
  text.Text("10.0.0.1");
  EXPECT_EQ(text.content(), "10.0.0.1");
  CheckBox check("chkStick", "Sticks");
  EXPECT_EQ(check.content(), "0");
  check.Value(1);
  EXPECT_EQ(check.content(), "1");
  OptionButton option("optAxes(1)", "Axis");
  EXPECT_EQ(option.content(), "False");
  option.Value(true);
  EXPECT_EQ(option.content(), "True");
  MenuItem item("Settings(0)", "&Automatic TQ");
  EXPECT_EQ(item.content(), "False");
  item.Checked(true);
  EXPECT_EQ(item.content(), "True");
  EXPECT_EQ(Button("cmdStop", "Stop").content(), "Stop");
}

TEST(Button, RunsItsHandlerWhenPressed) {
  Button button("cmdStop", "Stop");
  button.press();
  Recorder recorder;
  button.onClick(recorder.as("click"));
  button.press();
  button.press();
  EXPECT_THAT(recorder.calls, ElementsAre("click", "click"));
}

TEST(ComboBox, HasTheTextOfTheSelectedItem) {
  ComboBox box("cboDir");
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(box.Text(), "");
  box.addItem("737-700");
  box.addItem("747-400", 4);
  EXPECT_EQ(box.Text(), "");
  box.ListIndex(1);
  EXPECT_EQ(box.Text(), "747-400");
  EXPECT_EQ(box.content(), "747-400");
  EXPECT_EQ(box.Items()[1].data, 4);
}

TEST(ComboBox, HasNoTextForAnIndexThatIsNotThere) {
  ComboBox box("cboDir");
  box.addItem("737-700");
  box.ListIndex(1);
  EXPECT_EQ(box.Text(), "");
  box.ListIndex(-5);
  EXPECT_EQ(box.Text(), "");
}

TEST(ComboBox, FindsItemsByTheirText) {
  ComboBox box("cboDir");
  box.addItem("a");
  box.addItem("b");
  EXPECT_EQ(box.indexOf("b"), 1);
  EXPECT_EQ(box.indexOf("B"), -1);
}

TEST(ComboBox, ClearTakesItemsAndSelectionWithoutRunningTheSelectionsHandler) {
  ComboBox box("cboDir");
  box.addItem("a");
  box.ListIndex(0);
  Recorder recorder;
  box.ListIndex.onChange(recorder.as("selected"));
  box.clear();
  EXPECT_THAT(box.Items(), IsEmpty());
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_THAT(recorder.calls, IsEmpty());
}

/// Complains about everything but "right".
std::string complaint(const std::string& text) { return text == "right" ? "" : "not right"; }

TEST(TextBox, HasNoComplaintWithoutARuleOrBeforeATextIsPutIn) {
  TextBox box("txtPoll");
  box.Text("wrong");
  EXPECT_EQ(box.Complaint(), "");
  box.rule(complaint);
  EXPECT_EQ(box.Complaint(), "");
}

TEST(TextBox, ComplainsByItsRuleUntilTheTextIsRightAgain) {
  TextBox box("txtPoll");
  box.rule(complaint);
  box.Text("wrong");
  EXPECT_EQ(box.Complaint(), "not right");
  box.Text("right");
  EXPECT_EQ(box.Complaint(), "");
  box.Text.setQuietly("");
  EXPECT_EQ(box.Complaint(), "not right");
}

TEST(TextBox, ItsRuleJudgesWhatTheHandlerMadeOfTheText) {
  TextBox box("txtPoll");
  box.rule(complaint);
  box.Text.onChange([&box] { box.Text.setQuietly("right"); });
  box.Text("wrong");
  EXPECT_EQ(box.Complaint(), "");
}

TEST(Label, ReadsAsItsCaption) {
  Label label("lblPoll");
  EXPECT_EQ(label.content(), "");
  label.Caption("polled 40 ms ago");
  EXPECT_EQ(label.content(), "polled 40 ms ago");
  EXPECT_FALSE(label.Alarm());
}

TEST(Table, ReadsAsALineForEachRow) {
  Table table("lstSessions", {"Slot", "Client"});
  EXPECT_EQ(table.content(), "");
  table.Rows({{"0", "captain"}, {"1", ""}});
  EXPECT_EQ(table.content(), "0, captain\n1, ");
}

TEST(StatusBar, KeepsItsPanelsApart) {
  StatusBar bar("StatusBar1", 2);
  bar.panelText(1, "Ready");
  bar.panelText(2, "10:15");
  EXPECT_EQ(bar.panelText(1), "Ready");
  EXPECT_EQ(bar.panelText(2), "10:15");
  EXPECT_EQ(bar.panelCount(), 2);
  EXPECT_EQ(bar.content(), "Ready | 10:15");
}

TEST(StatusBar, TellsItsViewsEveryTextAlsoTheOneItShows) {
  StatusBar bar("StatusBar1", 2);
  std::vector<int> panels;
  bar.addView([&panels](int panel) { panels.push_back(panel); });
  bar.panelText(2, "same");
  bar.panelText(2, "same");
  bar.panelText(1, "");
  EXPECT_THAT(panels, ElementsAre(2, 2, 1));
}

class TwoControls : public Form {
 public:
  TwoControls() : Form("frmTwo") {
    add(first);
    add(second);
  }
  TextBox first{"txtFirst"};
  MenuItem second{"Settings(0)", "&Automatic TQ"};
};

TEST(Form, HoldsItsControlsInTabOrder) {
  TwoControls form;
  EXPECT_EQ(form.name(), "frmTwo");
  EXPECT_THAT(form.controls(), ElementsAre(&form.first, &form.second));
}

TEST(Form, FindsAControlByItsNameInAnyCaseOfLetters) {
  TwoControls form;
  EXPECT_EQ(form.control("TXTfirst"), &form.first);
  EXPECT_EQ(form.control("settings(0)"), &form.second);
  EXPECT_EQ(form.control("txtThird"), nullptr);
}

TEST(Form, GoesOutOfSightWhenItIsClosed) {
  TwoControls form;
  EXPECT_FALSE(form.Visible());
  form.Visible(true);
  form.close();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace vorlent
