#include "base/IndexedArray.h"

#include <gtest/gtest.h>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(IndexedArray, StartsWithZerosWithinItsBounds) {
  const IndexedArray<float, 1, 3> array;
  EXPECT_EQ(array(1), 0.0f);
  EXPECT_EQ(array(2), 0.0f);
  EXPECT_EQ(array(3), 0.0f);
}

TEST(IndexedArray, KeepsEachElementApart) {
  IndexedArray<int, -1, 1> array;
  array(-1) = 10;
  array(0) = 20;
  array(1) = 30;
  EXPECT_EQ(array(-1), 10);
  EXPECT_EQ(array(0), 20);
  EXPECT_EQ(array(1), 30);
}

TEST(IndexedArray, RaisesSubscriptOutOfRangeOutside) {
  IndexedArray<int, 1, 4> array;
  const auto& constant = array;
  EXPECT_EQ(raisedBy([&] { array(0) = 1; }), 9);
  EXPECT_EQ(raisedBy([&] { array(5) = 1; }), 9);
  EXPECT_EQ(raisedBy([&] { static_cast<void>(constant(0)); }), 9);
  EXPECT_EQ(raisedBy([&] { static_cast<void>(constant(-2147483647)); }), 9);
}

}  // namespace
}  // namespace vorlent
