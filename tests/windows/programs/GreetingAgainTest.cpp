#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

/// A display that runs before the server is there.
class DisplayAlone : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    display = cockpit.program("vorlent-display", {"127.0.0.1", std::to_string(cockpit.basePort)});
  }
  void expectRecords() {
    EXPECT_TRUE(display->waitForLine("connected to 127.0.0.1:")) << display->output();
    // A line each second.
    EXPECT_TRUE(display->waitForLine(" ias ")) << display->output();
  }
  /// Of a server that takes the place of one that is gone.
  void expectRecordsOfTheNext() {
    ASSERT_TRUE(cockpit.server->waitForEnd());
    ASSERT_TRUE(display->waitForLine("nothing has come from 127.0.0.1:")) << display->output();
    cockpit.bringServerUp();
    expectRecords();
  }

  WindowsCockpit cockpit;
  std::unique_ptr<Program> display;
};

TEST_F(DisplayAlone, GreetsTheServerThatComesLaterAndTheNextOnes) {
  ASSERT_TRUE(display->waitForLine("no answer from 127.0.0.1:"));
  cockpit.bringServerUp();
  expectRecords();
  cockpit.server->type("exit");
  expectRecordsOfTheNext();
  cockpit.server->kill();
  expectRecordsOfTheNext();
}

}  // namespace
}  // namespace vorlent
