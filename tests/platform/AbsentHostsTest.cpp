#include "platform/AbsentHosts.h"

#include "gtest/gtest.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

TEST(AbsentHosts, AHostIsAbsentFor30SecondsFromItsLastMissedDeadline) {
  VirtualEventLoop clock;
  AbsentHosts absent(clock);
  EXPECT_FALSE(absent.contains("fmc-pc"));
  absent.add("fmc-pc");
  clock.advance(29'999);
  EXPECT_TRUE(absent.contains("fmc-pc"));
  absent.add("fmc-pc");
  clock.advance(29'999);
  EXPECT_TRUE(absent.contains("fmc-pc"));
  clock.advance(1);
  EXPECT_FALSE(absent.contains("fmc-pc"));
}

TEST(AbsentHosts, OtherHostsAreThere) {
  VirtualEventLoop clock;
  AbsentHosts absent(clock);
  absent.add("fmc-pc");
  EXPECT_FALSE(absent.contains("fmc-pc2"));
  EXPECT_TRUE(absent.contains("FMC-PC"));
}

TEST(AbsentHosts, TheClockMayPassItsEnd) {
  VirtualEventLoop clock;
  AbsentHosts absent(clock);
  clock.advance(2'000'000'000);
  clock.advance(2'000'000'000);
  while (clock.tickCount_ms() < 4'294'960'000) clock.advance(1'000);
  absent.add("fmc-pc");
  clock.advance(29'999);
  EXPECT_LT(clock.tickCount_ms(), 30'000u);
  EXPECT_TRUE(absent.contains("fmc-pc"));
  clock.advance(1);
  EXPECT_FALSE(absent.contains("fmc-pc"));
}

}  // namespace
}  // namespace vorlent
