#include "window/TestMcpWindow.h"

#include <QFrame>
#include <QPushButton>

#include "autoflight/clsXAutoP.h"
#include "mcp/frmTestMCP.h"
#include "support/PolledServer.h"
#include "window/QtOperator.h"
#include "window/spoken.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// A started server whose panel is on the screen.
class TestMcpWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    screen.add(*server.server.testMcp, window);
    server.op.onShow = [this](Form& form) {
      if (&form == server.server.testMcp.get()) screen.showForm(form, Modality::NonModal);
    };
    server.form.Command2.press();
    showActive(window);
  }
  QLineEdit& edit(const char* name) { return child<QLineEdit>(window, name); }
  QPushButton& button(const char* name) { return child<QPushButton>(window, name); }

  PolledServer server;
  QtOperator screen;
  TestMcpWindow window{*server.server.testMcp, [this](const std::function<void()>& work) {
                         server.server.failureDomain.run(work);
                       }};
  clsXAutoP& autopilot = *server.server.autoflight.xAutoP;
};

TEST_F(TestMcpWindowTest, IsBesideTheMainWindowNotOverIt) {
  EXPECT_FALSE(window.isModal());
  EXPECT_EQ(window.windowTitle(), "Test MCP");
}

TEST_F(TestMcpWindowTest, EveryControlOfTheFormIsInTheWindow) {
  for (const Control* control : server.server.testMcp->controls())
    EXPECT_NE(window.findChild<QWidget*>(QString::fromStdString(control->name())), nullptr)
        << control->name();
}

TEST_F(TestMcpWindowTest, ClickFlipsAModeAndItsLampLights) {
  click(button("Command1(9)"));
  EXPECT_EQ(autopilot.apHeadingHold(), 1);
  EXPECT_TRUE(button("Command1(9)").styleSheet().contains("#2e7d32"));
  EXPECT_TRUE(child<QFrame>(window, "Shape1(9)").styleSheet().contains("#2e7d32"));
  click(button("Command1(9)"));
  EXPECT_EQ(autopilot.apHeadingHold(), 0);
  EXPECT_EQ(button("Command1(9)").styleSheet(), "");
}

TEST_F(TestMcpWindowTest, LitButtonKeepsItsPlaceAndSize) {
  const QRect before = button("Command1(9)").geometry();
  click(button("Command1(9)"));
  QCoreApplication::processEvents();
  EXPECT_EQ(button("Command1(9)").geometry(), before);
}

TEST_F(TestMcpWindowTest, TypedAltitudeCountsWhenTheBoxIsLeft) {
  typeInto(edit("Text1(3)"), "12000");
  EXPECT_NE(autopilot.apMcpAltitude(), 12000);
  QTest::keyClick(&edit("Text1(3)"), Qt::Key_Tab);
  EXPECT_EQ(autopilot.apMcpAltitude(), 12000);
}

TEST_F(TestMcpWindowTest, EnterTakesTheTextAndLeadsToTheNextBox) {
  typeInto(edit("Text1(2)"), "275");
  QTest::keyClick(&edit("Text1(2)"), Qt::Key_Return);
  EXPECT_EQ(autopilot.apHeading(), 275);
  EXPECT_EQ(window.focusWidget(), &edit("Text1(3)"));
  EXPECT_TRUE(window.isVisible());
}

TEST_F(TestMcpWindowTest, CycleDoesNotTouchTheBoxThatIsTypedInto) {
  typeInto(edit("Text1(3)"), "35");
  autopilot.apMcpAltitude(9000);
  autopilot.apHeading(10);
  server.server.main->CycleCallback();
  EXPECT_EQ(edit("Text1(3)").text(), "35");
  EXPECT_EQ(edit("Text1(2)").text(), "10");
}

TEST_F(TestMcpWindowTest, EscapeAndTheCloseBoxCloseIt) {
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(server.server.testMcp->Visible());
  server.form.Command2.press();
  EXPECT_TRUE(window.isVisible());
  window.close();
  EXPECT_FALSE(server.server.testMcp->Visible());
}

TEST_F(TestMcpWindowTest, EachControlHasANameForWhoCannotSeeIt) {
  for (auto* box : window.findChildren<QLineEdit*>())
    EXPECT_NE(box->accessibleName(), "") << box->objectName().toStdString();
  for (auto* push : window.findChildren<QPushButton*>())
    EXPECT_NE(push->accessibleName(), "") << push->objectName().toStdString();
}

TEST_F(TestMcpWindowTest, NoTwoControlsHaveOneName) { expectNamesOfTheirOwn(window); }

TEST_F(TestMcpWindowTest, TabLeadsThroughReadOutsThenButtons) {
  QWidget* widget = &edit("Text1(0)");
  std::vector<std::string> order;
  for (int i = 0; i < 25; ++i) {
    order.push_back(widget->objectName().toStdString());
    do widget = widget->nextInFocusChain();
    while (widget->focusPolicy() == Qt::NoFocus);
  }
  std::vector<std::string> expected;
  for (const char* array : {"Text1", "Command1"})
    for (int i = 0; i < (array == std::string("Text1") ? 6 : 18); ++i)
      expected.push_back(array + ("(" + std::to_string(i) + ")"));
  expected.emplace_back("Command2");
  EXPECT_EQ(order, expected);
}

}  // namespace
}  // namespace vorlent
