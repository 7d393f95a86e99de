#include "platform/qt/QtEventLoop.h"

#include <QEventLoop>
#include <stdexcept>

#include "platform/qt/QtFixture.h"

namespace vorlent {
namespace {

class QtEventLoopTest : public QtFixture {
 protected:
  QtEventLoop loop;
  int ticks = 0;
};

TEST_F(QtEventLoopTest, ATimerTicksNeverEarlyUntilItIsStopped) {
  const auto timer = loop.createTimer([&] { ++ticks; });
  const auto start = loop.tickCount_ms();
  timer->start(20);
  EXPECT_TRUE(comes([&] { return ticks == 5; }));
  EXPECT_GE(loop.tickCount_ms() - start, 99u);
  timer->stop();
  bool passed = false;
  const auto later = loop.createTimer([&] { passed = true; });
  later->start(60);
  EXPECT_TRUE(comes([&] { return passed; }));
  EXPECT_EQ(ticks, 5);
}

TEST_F(QtEventLoopTest, ALateTickIsNotMadeUpForByOthers) {
  const auto timer = loop.createTimer([&] {
    if (++ticks == 1) loop.sleep(1000);
  });
  timer->start(200);
  ASSERT_TRUE(comes([&] { return ticks == 1; }));
  loop.pump();
  loop.pump();
  loop.pump();
  EXPECT_EQ(ticks, 2);
}

TEST_F(QtEventLoopTest, ATimerStartsAnewWithAnotherInterval) {
  const auto timer = loop.createTimer([&] { ++ticks; });
  timer->start(60000);
  timer->start(5);
  EXPECT_TRUE(comes([&] { return ticks > 0; }));
}

TEST_F(QtEventLoopTest, ATimerDoesNotTickInsideItsOwnTickButOthersDo) {
  int deepest = 0;
  int depth = 0;
  const auto other = loop.createTimer([&] { ++ticks; });
  const auto timer = loop.createTimer([&] {
    deepest = std::max(deepest, ++depth);
    const int before = ticks;
    comes([&] {
      loop.pump();
      return ticks >= before + 3;
    });
    --depth;
  });
  other->start(2);
  timer->start(1);
  EXPECT_TRUE(comes([&] { return ticks >= 6; }));
  EXPECT_EQ(deepest, 1);
}

TEST_F(QtEventLoopTest, AStoppedTimerDoesNotTickThoughItsTickWasDue) {
  const auto timer = loop.createTimer([&] { ++ticks; });
  timer->start(1);
  loop.sleep(20);
  timer->stop();
  loop.pump();
  EXPECT_EQ(ticks, 0);
}

TEST_F(QtEventLoopTest, EndLeavesTheLoopWithItsStatus) {
  const auto timer = loop.createTimer([&] { loop.end(7); });
  timer->start(1);
  EXPECT_EQ(loop.exec(), 7);
}

TEST_F(QtEventLoopTest, EndBeforeTheLoopIsRemembered) {
  loop.end(1);
  EXPECT_EQ(loop.exec(), 1);
}

TEST_F(QtEventLoopTest, TheFirstStatusStays) {
  const auto timer = loop.createTimer([&] {
    loop.end(1);
    loop.end(0);
  });
  timer->start(1);
  EXPECT_EQ(loop.exec(), 1);
}

TEST_F(QtEventLoopTest, EndLeavesNestedLoopsToo) {
  bool left = false;
  const auto timer = loop.createTimer([&] {
    const auto ending = loop.createTimer([&] { loop.end(3); });
    ending->start(1);
    QEventLoop nested;
    nested.exec();
    left = true;
  });
  timer->start(1);
  EXPECT_EQ(loop.exec(), 3);
  EXPECT_TRUE(left);
}

TEST_F(QtEventLoopTest, EndInsideANestedPumpLeavesTheLoop) {
  const auto ending = loop.createTimer([&] { loop.end(4); });
  const auto timer = loop.createTimer([&] {
    ending->start(1);
    loop.sleep(10);
    loop.pump();
  });
  timer->start(1);
  EXPECT_EQ(loop.exec(), 4);
}

TEST_F(QtEventLoopTest, SleepPassesTimeAndDispatchesNothing) {
  const auto timer = loop.createTimer([&] { ++ticks; });
  timer->start(1);
  const auto start = loop.tickCount_ms();
  loop.sleep(30);
  const auto passed_ms = loop.tickCount_ms() - start;
  EXPECT_GE(passed_ms, 30u);
  EXPECT_LT(passed_ms, 10000u);
  EXPECT_EQ(ticks, 0);
}

TEST_F(QtEventLoopTest, AnExceptionOutOfATickEndsTheProcess) {
  EXPECT_DEATH(
      {
        const auto timer = loop.createTimer([] { throw std::runtime_error("out of a tick"); });
        timer->start(1);
        loop.exec();
      },
      "out of a tick");
}

}  // namespace
}  // namespace vorlent
