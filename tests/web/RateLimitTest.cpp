#include "web/RateLimit.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

TEST(RateLimit, LetsABurstThroughAndThenSoManyASecond) {
  RateLimit limit(3, 2, 1000);
  EXPECT_TRUE(limit.take(2, 1000));
  EXPECT_TRUE(limit.take(1, 1000));
  EXPECT_FALSE(limit.take(1, 1000));
  EXPECT_FALSE(limit.take(1, 1499));
  EXPECT_TRUE(limit.take(1, 1500));
  EXPECT_FALSE(limit.take(1, 1500));
}

TEST(RateLimit, SavesUpNoMoreThanTheBurst) {
  RateLimit limit(3, 2, 0);
  EXPECT_TRUE(limit.take(3, 1'000'000));
  EXPECT_FALSE(limit.take(1, 1'000'000));
}

TEST(RateLimit, WhatIsRefusedCostsNothing) {
  RateLimit limit(3, 2, 0);
  EXPECT_FALSE(limit.take(4, 0));
  EXPECT_TRUE(limit.take(3, 0));
}

TEST(RateLimit, TheClockMayWrap) {
  RateLimit limit(2, 2, 0xFFFFFF00);
  EXPECT_TRUE(limit.take(2, 0xFFFFFF00));
  EXPECT_FALSE(limit.take(2, 0x00000000));
  EXPECT_TRUE(limit.take(2, 0x00000300));
}

}  // namespace
}  // namespace vorlent
