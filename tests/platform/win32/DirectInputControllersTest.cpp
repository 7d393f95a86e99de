#include "platform/win32/DirectInputControllers.h"

#include <gtest/gtest.h>

#include "platform/win32/DirectInputResult.h"

namespace vorlent {
namespace {

using Result = ControllerResult;

TEST(DirectInputControllers, ANumberThatIsNotInTheListIsAnUnpluggedDevice) {
  DirectInputControllers controllers;
  const std::size_t beyond = controllers.devices().size();
  EXPECT_LE(beyond, 8U);
  ControllerState state;
  state.x = 4711;
  EXPECT_EQ(controllers.Acquire(beyond), Result::Unplugged);
  EXPECT_EQ(controllers.Poll(beyond), Result::Unplugged);
  EXPECT_EQ(controllers.GetDeviceState(beyond, state), Result::Unplugged);
  EXPECT_EQ(state.x, 4711);
}

TEST(DirectInputControllers, TheListCanBeMadeAgainAndAgain) {
  DirectInputControllers controllers;
  const std::size_t first = controllers.devices().size();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(controllers.devices().size(), first);
  DirectInputControllers second;
  EXPECT_EQ(second.devices().size(), first);
}

long failure(unsigned long code) { return static_cast<long>(code); }

TEST(DirectInputResult, SaysWhatHasHappenedToTheDevice) {
  EXPECT_EQ(controllerResult(0), Result::Ok);
  EXPECT_EQ(controllerResult(1), Result::Ok);                             // nothing to do
  EXPECT_EQ(controllerResult(failure(0x8007000C)), Result::NotAcquired);  // invalid access
  EXPECT_EQ(controllerResult(failure(0x8000000A)), Result::NotReady);     // pending
  EXPECT_EQ(controllerResult(failure(0x8007001E)), Result::Unplugged);    // read fault: input lost
  EXPECT_EQ(controllerResult(failure(0x80040209)), Result::Unplugged);
  EXPECT_EQ(controllerResult(failure(0x80004005)), Result::Unplugged);  // unspecified
}

}  // namespace
}  // namespace vorlent
