#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "clientlink/ClientAdmission.h"
#include "commands/commands.h"
#include "support/TestServer.h"

namespace vorlent {
namespace {

/// A display that sends commands to a server that runs.
class ButtonKeystrokesTest : public testing::Test {
 protected:
  ButtonKeystrokesTest() {
    t.server.admission = std::make_unique<ClientAdmission>(t.loop, t.network, t.form, "", true);
    t.start();
    t.greet(1);
  }

  TestServer t;
  std::vector<KeyCombination>& pressed = t.keyboard.pressed;
};

TEST_F(ButtonKeystrokesTest, ACodeAbove1000PressesItsKey) {
  t.deliver(1, "p P 2065 1 P 1116 0 ");
  EXPECT_EQ(pressed,
            (std::vector<KeyCombination>{{.Shift = true, .key = U'a'}, {.key = NamedKey::F5}}));
}

TEST_F(ButtonKeystrokesTest, Code1000DoesNothing) {
  t.form.SetStatusText(1, "before");
  t.server.commands->SetButtonValues(1000, 1);
  EXPECT_TRUE(pressed.empty());
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "before");
}

/// It is a mouse button, which no keyboard has.
TEST_F(ButtonKeystrokesTest, Code1001IsSentAsAKeystrokeAndRefusedByTheKeyboard) {
  t.server.commands->SetButtonValues(1001, 1);
  EXPECT_TRUE(pressed.empty());
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "SetButtonValues Invalid procedure call or argument");
}

TEST_F(ButtonKeystrokesTest, TheFirstKeyThatAKeyboardHasIsPressedWithoutAModifier) {
  t.server.commands->SetButtonValues(1008, 1);
  EXPECT_EQ(pressed, (std::vector<KeyCombination>{{.key = NamedKey::Backspace}}));
}

TEST_F(ButtonKeystrokesTest, WithoutADisplayTheStatusLineSaysSoAndTheServerGoesOn) {
  t.keyboard.error =
      RuntimeError(RuntimeError::InternalError, "There is no display to send keys to");
  t.deliver(1, "p P 1065 1 ");
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "SetButtonValues There is no display to send keys to");
  t.keyboard.error.reset();
  t.deliver(1, "p P 1066 1 ");
  EXPECT_EQ(pressed, (std::vector<KeyCombination>{{.key = U'b'}}));
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(ButtonKeystrokesTest, AFaultLeavesTheTriplesBehindItToBeDone) {
  t.deliver(1, "p P 1040 1 P 1065 1 ");
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "SetButtonValues Invalid procedure call or argument");
  EXPECT_EQ(pressed, (std::vector<KeyCombination>{{.key = U'a'}}));
}

}  // namespace
}  // namespace vorlent
