#include <sstream>
#include <string>
#include <vector>

#include "base/controls.h"
#include "console/OperatorConsole.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmDesk : public Form {
 public:
  FrmDesk() : Form("FrmDesk") {
    for (Control* control : std::initializer_list<Control*>{&txtA, &txtB, &cmdGo, &chkOn, &optOne,
                                                            &cboList, &pic, &shp, &mnuFile})
      add(*control);
    Caption("A desk");
  }
  void Form_KeyDown(int keyCode, int shift) override {
    previewed.push_back(std::to_string(keyCode) + "/" + std::to_string(shift));
  }

  TextBox txtA{"txtA"}, txtB{"txtB"};
  Button cmdGo{"cmdGo", "Go"};
  CheckBox chkOn{"chkOn", "On"};
  OptionButton optOne{"optOne(0)", "One"};
  ComboBox cboList{"cboList"};
  Picture pic{"Pic1", 2000, 400};
  Shape shp{"shpLamp"};
  MenuItem mnuFile{"mnuFile(0)", "&Open"};
  std::vector<std::string> previewed;
};

class OperatorHand : public testing::Test {
 protected:
  OperatorHand() {
    for (TextBox* box : {&form.txtA, &form.txtB}) {
      box->onGotFocus([this, box] { steps.push_back("to " + box->name()); });
      box->onLostFocus([this, box] { steps.push_back("from " + box->name()); });
      box->onKeyDown([this, box](int keyCode, int shift) {
        steps.push_back(box->name() + " " + std::to_string(keyCode) + "/" + std::to_string(shift));
      });
    }
  }
  std::string answerTo(const std::string& command) {
    stream.str("");
    console.execute(command);
    return stream.str();
  }
  std::vector<std::string> take() { return std::exchange(steps, {}); }

  std::ostringstream stream;
  ConsoleOutput output{[this](std::string_view line) { stream << line; }};
  FrmDesk form;
  OperatorConsole console{output, {&form}};
  std::vector<std::string> steps;
};

TEST_F(OperatorHand, FocusLeavesTheControlThatHadIt) {
  EXPECT_EQ(answerTo("focus FrmDesk.txtA"), "=\n");
  answerTo("focus FrmDesk.txtA");
  answerTo("focus FrmDesk.txtB");
  EXPECT_THAT(take(), ElementsAre("to txtA", "from txtA", "to txtB"));
  EXPECT_EQ(answerTo("get FrmDesk.ActiveControl"), "= txtB\n");
}

TEST_F(OperatorHand, WhatIsWorkedTakesTheFocusButAMenuEntryDoesNot) {
  answerTo("focus FrmDesk.txtA");
  answerTo("press FrmDesk.mnuFile(0)");
  EXPECT_EQ(answerTo("get FrmDesk.ActiveControl"), "= txtA\n");
  answerTo("press FrmDesk.cmdGo");
  EXPECT_THAT(take(), ElementsAre("to txtA", "from txtA"));
  EXPECT_EQ(answerTo("get FrmDesk.ActiveControl"), "= cmdGo\n");
}

TEST_F(OperatorHand, ATextThatIsSetIsLeftOnce) {
  answerTo("set FrmDesk.txtA 5");
  answerTo("press FrmDesk.cmdGo");
  EXPECT_THAT(take(), ElementsAre("to txtA", "from txtA"));
}

TEST_F(OperatorHand, AControlThatIsDisabledOrGoesOutOfSightIsLeft) {
  answerTo("focus FrmDesk.txtA");
  form.txtA.Enabled(false);
  EXPECT_THAT(take(), ElementsAre("to txtA", "from txtA"));
  EXPECT_EQ(form.ActiveControl(), nullptr);
  answerTo("focus FrmDesk.txtB");
  form.txtB.Visible(false);
  EXPECT_THAT(take(), ElementsAre("to txtB", "from txtB"));
  EXPECT_EQ(answerTo("focus FrmDesk.txtA"), "error: txtA is disabled\n");
  EXPECT_EQ(answerTo("focus FrmDesk.txtB"), "error: txtB is not visible\n");
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(OperatorHand, AKeyGoesToTheControlWithTheFocusAlone) {
  EXPECT_EQ(answerTo("key FrmDesk.txtA 65 1"), "error: txtA does not have the focus\n");
  answerTo("focus FrmDesk.txtA");
  EXPECT_EQ(answerTo("key FrmDesk.txtA 65 1"), "=\n");
  EXPECT_THAT(take(), ElementsAre("to txtA", "txtA 65/1"));
  EXPECT_THAT(form.previewed, IsEmpty());
}

TEST_F(OperatorHand, AFormThatPreviewsKeysSeesThemToo) {
  form.KeyPreview(true);
  answerTo("focus FrmDesk.txtA");
  answerTo("key FrmDesk.txtA 112 7");
  EXPECT_THAT(form.previewed, ElementsAre("112/7"));
  EXPECT_THAT(take(), ElementsAre("to txtA", "txtA 112/7"));
}

TEST_F(OperatorHand, AKeyNeedsACodeAndModifiers) {
  answerTo("focus FrmDesk.txtA");
  EXPECT_EQ(answerTo("key FrmDesk.txtA 65"), "error: needs 2 numbers\n");
  EXPECT_EQ(answerTo("key FrmDesk.txtA A 0"), "error: \"A\" is no number\n");
  EXPECT_EQ(answerTo("key FrmDesk.txtA 256 0"), "error: 256 is no whole number from 0 to 255\n");
  EXPECT_EQ(answerTo("key FrmDesk.txtA 65 8"), "error: 8 is no whole number from 0 to 7\n");
  EXPECT_EQ(answerTo("key FrmDesk.txtA 6.5 0"), "error: 6.5 is no whole number from 0 to 255\n");
  EXPECT_THAT(take(), ElementsAre("to txtA"));
}

TEST_F(OperatorHand, ADragPressesMovesAndReleases) {
  const auto told = [this](const char* what, Picture::Place place) {
    steps.push_back(std::string(what) + " " + std::to_string(static_cast<int>(place.x)) + "," +
                    std::to_string(static_cast<int>(place.y)));
  };
  form.pic.onMouseDown([=](int button, int shift, Picture::Place place) {
    if (button == 1 && shift == 0) told("down", place);
  });
  form.pic.onMouseMove([=](Picture::Place place) { told("move", place); });
  form.pic.onMouseUp([=](Picture::Place place) { told("up", place); });
  EXPECT_EQ(answerTo("drag FrmDesk.Pic1 10 20 30 40"), "=\n");
  EXPECT_THAT(take(), ElementsAre("down 200,80", "move 600,160", "up 600,160"));
  EXPECT_TRUE(form.pic.hasFocus());
  EXPECT_EQ(answerTo("drag FrmDesk.Pic1 10 20 30"), "error: needs 4 numbers\n");
  EXPECT_EQ(answerTo("drag FrmDesk.Pic1 10 20 30 1e9"), "error: 1000000000 is too far\n");
  EXPECT_EQ(answerTo("drag FrmDesk.txtA 10 20 30 40"), "error: txtA is no picture\n");
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(OperatorHand, ALockedBoxIsToReadOnly) {
  form.txtA.Locked(true);
  EXPECT_EQ(answerTo("set FrmDesk.txtA 5"), "error: txtA is to read only\n");
  EXPECT_EQ(form.txtA.Text(), "");
}

TEST_F(OperatorHand, PropertiesAreToldByName) {
  form.txtA.Text("5");
  form.txtA.Tag("13");
  form.txtA.BackColor(0xC0C0FF);
  form.txtA.ToolTipText("What for");
  form.cboList.Items({{"one", 1}, {"two", 2}});
  form.cboList.ListIndex(1);
  form.optOne.Value(true);
  form.shp.FillColor(Shape::Red);
  form.cmdGo.Enabled(false);
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"txtA.Text", "5"},
      {"txtA.Tag", "13"},
      {"txtA.BackColor", "12632319"},
      {"txtB.BackColor", "-2147483643"},
      {"txtA.tooltiptext", "What for"},
      {"cboList.Text", "two"},
      {"cboList.ListIndex", "1"},
      {"cboList.ListCount", "2"},
      {"chkOn.Value", "0"},
      {"chkOn.Caption", "On"},
      {"optOne(0).Value", "True"},
      {"cmdGo.Enabled", "False"},
      {"cmdGo.Visible", "True"},
      {"cmdGo.Caption", "Go"},
      {"shpLamp.BackColor", "255"},
      {"Caption", "A desk"},
      {"Visible", "False"},
      {"ActiveControl", ""}};
  for (const auto& [name, value] : expected)
    EXPECT_EQ(answerTo("get FrmDesk." + name), "= " + value + "\n") << name;
  EXPECT_EQ(answerTo("get FrmDesk.txtA.Value"), "error: txtA has no property \"Value\"\n");
  EXPECT_EQ(answerTo("get FrmDesk.txtA.Text.Text"), "error: txtA has no property \"Text.Text\"\n");
  EXPECT_EQ(answerTo("get FrmDesk.Text"), "error: FrmDesk has no control \"Text\"\n");
}

}  // namespace
}  // namespace vorlent
