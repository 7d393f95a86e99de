#include "display/Greeting.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

TEST(Greeting, HasTwoWordsThenIntervalAndMachineName) {
  EXPECT_EQ(greeting(100, "cockpit-1"), "Connection on vorlent display 100 cockpit-1");
  EXPECT_EQ(greeting(1, "a.b"), "Connection on vorlent display 1 a.b");
  EXPECT_EQ(greeting(65535, "PC_2"), "Connection on vorlent display 65535 PC_2");
}

TEST(Greeting, IsRefusedWithAnIntervalThatTheServerCannotTake) {
  EXPECT_THROW(greeting(0, "cockpit"), RuntimeError);
  EXPECT_THROW(greeting(-1, "cockpit"), RuntimeError);
  EXPECT_THROW(greeting(65536, "cockpit"), RuntimeError);
}

TEST(Greeting, IsRefusedWithANameThatIsNoMachines) {
  for (const char* name : {"", "two words", "..", "a\\b", "a/b", "x\ny"})
    EXPECT_THROW(greeting(100, name), RuntimeError) << name;
}

TEST(GreetingReply, IsReadFieldByField) {
  const auto reply = readGreetingReply("81\\Boeing 737-700\\2\\2047\\,");
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->simulatorVersion, 8);
  EXPECT_EQ(reply->folder, "Boeing 737-700");
  EXPECT_EQ(reply->engineCount, 2);
  EXPECT_EQ(reply->flapIncrement, 2047);
  EXPECT_EQ(reply->decimalMark, ",");
}

TEST(GreetingReply, TheLastDigitOfTheFirstFieldDoesNotBelongToTheVersion) {
  EXPECT_EQ(readGreetingReply("11\\x\\1\\0\\.")->simulatorVersion, 1);
  EXPECT_EQ(readGreetingReply("101\\x\\1\\0\\.")->simulatorVersion, 10);
}

TEST(GreetingReply, CanHaveNoMarkAndNoFolder) {
  const auto reply = readGreetingReply("71\\\\4\\-1\\");
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->folder, "");
  EXPECT_EQ(reply->engineCount, 4);
  EXPECT_EQ(reply->flapIncrement, -1);
  EXPECT_EQ(reply->decimalMark, "");
}

TEST(GreetingReply, IsNothingElse) {
  for (const char* text :
       {"", "Xterm", "81", "1\\x\\2\\2047\\.", "82\\x\\2\\2047\\.", "x1\\x\\2\\2047\\.",
        "81\\x\\two\\2047\\.", "81\\x\\2\\\\.", "81\\x\\2\\2047", "81\\x\\2\\2047\\.\\", "\\\\\\\\",
        "81\\x\\99999999999\\2047\\."})
    EXPECT_FALSE(readGreetingReply(text)) << text;
}

}  // namespace
}  // namespace vorlent
