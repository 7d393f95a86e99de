#include "base/SequentialInput.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(SequentialInput, ReadsFieldsWhicheverLineTheyStandOn) {
  SequentialInput input("one, 2\r\nthree\n4\rfive");
  EXPECT_EQ(input.text(), "one");
  EXPECT_EQ(input.int16(), 2);
  EXPECT_EQ(input.text(), "three");
  EXPECT_EQ(input.int16(), 4);
  EXPECT_EQ(input.text(), "five");
  EXPECT_TRUE(input.atEnd());
}

TEST(SequentialInput, ANameBetweenDoubleQuotesMayHoldACommaAndALineBreak) {
  SequentialInput input("\"Flaps, lever\" , 22\r\n\"two\r\nlines\",3");
  EXPECT_EQ(input.text(), "Flaps, lever");
  EXPECT_EQ(input.int16(), 22);
  EXPECT_EQ(input.text(), "two\r\nlines");
  EXPECT_EQ(input.int16(), 3);
}

TEST(SequentialInput, BlanksAroundAFieldAreDropped) {
  SequentialInput input(" \t a b \t,  \t\n x");
  EXPECT_EQ(input.text(), "a b");
  EXPECT_EQ(input.text(), "");
  EXPECT_EQ(input.text(), "x");
}

TEST(SequentialInput, BlanksAndLineBreaksAloneAreTheEnd) {
  EXPECT_TRUE(SequentialInput("").atEnd());
  EXPECT_TRUE(SequentialInput(" \t\r\n\n").atEnd());
  EXPECT_FALSE(SequentialInput("\n,").atEnd());
}

TEST(SequentialInput, AQuoteThatIsNeverClosedRunsToTheEnd) {
  SequentialInput input("\"open, 5\r\nnext,6");
  EXPECT_EQ(input.text(), "open, 5\r\nnext,6");
  EXPECT_TRUE(input.atEnd());
}

TEST(SequentialInput, WhatIsMissingOrNoNumberRaises) {
  EXPECT_EQ(raisedBy([] { SequentialInput("").text(); }), RuntimeError::InputPastEnd);
  EXPECT_EQ(raisedBy([] { SequentialInput("x").int16(); }), RuntimeError::TypeMismatch);
  EXPECT_EQ(raisedBy([] { SequentialInput("32768").int16(); }), RuntimeError::Overflow);
}

}  // namespace
}  // namespace vorlent
