#include "platform/FormTimer.h"

#include <gtest/gtest.h>

#include "support/VirtualEventLoop.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

class FormTimerInVirtualTime : public ::testing::Test {
 protected:
  int ticksIn(int duration_ms) {
    const int before = ticks;
    loop.advance(duration_ms);
    return ticks - before;
  }

  VirtualEventLoop loop;
  int ticks = 0;
  FormTimer timer{loop, 100, [this] { ++ticks; }};
};

TEST_F(FormTimerInVirtualTime, IsOffWhenMade) {
  EXPECT_FALSE(timer.Enabled());
  EXPECT_EQ(ticksIn(1000), 0);
}

TEST_F(FormTimerInVirtualTime, TicksAtItsInterval) {
  timer.Enabled(true);
  EXPECT_EQ(ticksIn(99), 0);
  EXPECT_EQ(ticksIn(1), 1);
  EXPECT_EQ(ticksIn(900), 9);
}

TEST_F(FormTimerInVirtualTime, StopsWhenSwitchedOff) {
  timer.Enabled(true);
  loop.advance(150);
  timer.Enabled(false);
  EXPECT_EQ(ticksIn(1000), 0);
}

TEST_F(FormTimerInVirtualTime, SwitchedOnAgainWhileOnDoesNotStartAnew) {
  timer.Enabled(true);
  loop.advance(90);
  timer.Enabled(true);
  EXPECT_EQ(ticksIn(10), 1);
}

TEST_F(FormTimerInVirtualTime, TakesANewIntervalAtOnce) {
  timer.Enabled(true);
  timer.Interval(10);
  EXPECT_EQ(timer.Interval(), 10);
  EXPECT_EQ(ticksIn(100), 10);
}

TEST_F(FormTimerInVirtualTime, ANewIntervalDoesNotSwitchItOn) {
  timer.Interval(10);
  EXPECT_EQ(ticksIn(1000), 0);
}

TEST_F(FormTimerInVirtualTime, AnIntervalOfZeroStopsTheTicks) {
  timer.Enabled(true);
  timer.Interval(0);
  EXPECT_EQ(ticksIn(1000), 0);
  EXPECT_TRUE(timer.Enabled());
  timer.Interval(50);
  EXPECT_EQ(ticksIn(1000), 20);
}

TEST_F(FormTimerInVirtualTime, AnIntervalOutside16BitsIsAFaultAndChangesNothing) {
  EXPECT_EQ(raisedBy([this] { timer.Interval(-1); }), 5);
  EXPECT_EQ(raisedBy([this] { timer.Interval(65536); }), 5);
  EXPECT_EQ(timer.Interval(), 100);
  EXPECT_EQ(raisedBy([this] { timer.Interval(65535); }), 0);
  EXPECT_EQ(timer.Interval(), 65535);
}

}  // namespace
}  // namespace vorlent
