#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr int Overflow = 6;

TEST(RealToInteger, RoundsHalfToEven) {
  EXPECT_EQ(toInt16(0.5), 0);
  EXPECT_EQ(toInt16(1.5), 2);
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(-0.5), 0);
  EXPECT_EQ(toInt16(-1.5), -2);
  EXPECT_EQ(toInt16(-2.5), -2);
}

TEST(RealToInteger, RoundsToTheNearestOtherwise) {
  EXPECT_EQ(toInt32(0.49999), 0);
  EXPECT_EQ(toInt32(2.50001), 3);
  EXPECT_EQ(toInt32(-2.50001), -3);
}

TEST(RealToInteger, OverflowsOutside16BitsAfterRounding) {
  EXPECT_EQ(toInt16(32767.49), 32767);
  EXPECT_EQ(raisedBy([] { toInt16(32767.5); }), Overflow);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  EXPECT_EQ(raisedBy([] { toInt16(-32768.51); }), Overflow);
}

TEST(RealToInteger, OverflowsOutside32BitsAfterRounding) {
  EXPECT_EQ(toInt32(2147483647.25), 2147483647);
  EXPECT_EQ(raisedBy([] { toInt32(2147483647.5); }), Overflow);
  EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(raisedBy([] { toInt32(-2147483648.75); }), Overflow);
}

TEST(RealToInteger, OverflowsOutsideAByte) {
  EXPECT_EQ(toByte(255.25), 255);
  EXPECT_EQ(raisedBy([] { toByte(255.5); }), Overflow);
  EXPECT_EQ(toByte(-0.5), 0);
  EXPECT_EQ(raisedBy([] { toByte(-0.75); }), Overflow);
}

TEST(RealToInteger, OverflowsForWhatIsNoNumber) {
  for (const double x : {NaN, Infinity, -Infinity}) {
    EXPECT_EQ(raisedBy([x] { toInt16(x); }), Overflow);
    EXPECT_EQ(raisedBy([x] { toInt32(x); }), Overflow);
    EXPECT_EQ(raisedBy([x] { toByte(x); }), Overflow);
  }
}

TEST(Finite, LetsNumbersThroughAndNothingElse) {
  EXPECT_EQ(finite(1.7e308), 1.7e308);
  EXPECT_EQ(finite(-4.0), -4.0);
  for (const double x : {NaN, Infinity, -Infinity})
    EXPECT_EQ(raisedBy([x] { finite(x); }), Overflow);
}

TEST(RealToSingle, TakesTheNearest) {
  EXPECT_EQ(toSingle(0.1), 0.1f);
  EXPECT_EQ(toSingle(16777217.0), 16777216.0f);
  EXPECT_EQ(toSingle(1e-60), 0.0f);
}

TEST(RealToSingle, OverflowsWhereTheNearestWouldBeInfinite) {
  // The largest single is 2^128 - 2^104; from half a step above it on, rounding leads to infinity.
  const double largest = std::ldexp(1.0, 128) - std::ldexp(1.0, 104);
  const double halfAStepAbove = largest + std::ldexp(1.0, 103);
  EXPECT_EQ(toSingle(largest), std::numeric_limits<float>::max());
  EXPECT_EQ(toSingle(std::nextafter(halfAStepAbove, 0)), std::numeric_limits<float>::max());
  EXPECT_EQ(raisedBy([&] { toSingle(halfAStepAbove); }), Overflow);
  EXPECT_EQ(raisedBy([&] { toSingle(-halfAStepAbove); }), Overflow);
}

TEST(RealToSingle, OverflowsForWhatIsNoNumber) {
  for (const double x : {NaN, Infinity, -Infinity})
    EXPECT_EQ(raisedBy([x] { toSingle(x); }), Overflow);
}

TEST(Quotient, RaisesDivisionByZero) {
  EXPECT_EQ(quotient(7, 2), 3.5);
  EXPECT_EQ(raisedBy([] { quotient(1, 0); }), 11);
  EXPECT_EQ(raisedBy([] { quotient(0, -0.0); }), 11);
}

TEST(AddBytes, OverflowsAbove255) {
  EXPECT_EQ(addBytes(200, 55), 255);
  EXPECT_EQ(raisedBy([] { addBytes(200, 56); }), Overflow);
}

}  // namespace
}  // namespace vorlent
