#include "platform/win32/RecorderProcess.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

#include "platform/helper/Message.h"
#include "support/eventually.h"
#include "support/places.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// A recorder that reads one message and then does what stands in it.
class RecorderSide : public testing::Test {
 protected:
  /// Whether it is there with all of that.
  bool sends(const std::string& bytes) { return link.send(bytes) == bytes.size(); }

  RecorderProcess link{programsFolder() + "/HelperSide.exe", "a folder\\", 1};
};

TEST_F(RecorderSide, ThatReadsNoMoreHoldsNobodyUp) {
  ASSERT_TRUE(sends(packed({"doze"})));
  const std::string portion(300'000, 'x');
  const auto begin = Clock::now();
  std::size_t taken = 0;
  for (int i = 0; i < 100; ++i) taken += link.send(portion);
  EXPECT_LT(Clock::now() - begin, 8s);
  EXPECT_LT(taken, 100 * portion.size());
  EXPECT_EQ(link.send(portion), 0U);
  EXPECT_FALSE(link.lost());
  EXPECT_EQ(link.news(), std::nullopt);
}

TEST_F(RecorderSide, ThatHangsHoldsTheEndUpForTwoSeconds) {
  ASSERT_TRUE(sends(packed({"doze"})));
  const auto begin = Clock::now();
  link.end(std::string(8 << 20, 'x'));
  EXPECT_GE(Clock::now() - begin, 1900ms);
  EXPECT_LT(Clock::now() - begin, 10s);
}

TEST_F(RecorderSide, ThatEndsIsToldOnceAndTakesNothingMore) {
  ASSERT_TRUE(sends(packed({"crash"})));
  EXPECT_TRUE(eventually([this] {
    link.send("x");
    return link.lost();
  }));
  EXPECT_EQ(link.news(), "Nothing is recorded: its helper has ended");
  EXPECT_EQ(link.news(), std::nullopt);
  EXPECT_EQ(link.send("x"), 0U);
}

TEST_F(RecorderSide, ItsWordsAreNews) {
  ASSERT_TRUE(sends(packed({"The disk is full\nTwo\n"})));
  const auto nextWord = [this] {
    std::optional<std::string> word;
    eventually([&] { return (word = link.news()).has_value(); });
    return word.value_or("");
  };
  EXPECT_TRUE(nextWord().ends_with("The disk is full"));
  EXPECT_EQ(nextWord(), "Two");
}

TEST(RecorderProcess, ThatIsMissingIsToldByItsPlace) {
  RecorderProcess link("C:/nowhere/vorlent-recorder.exe", "folder", 1);
  EXPECT_TRUE(link.lost());
  EXPECT_EQ(link.news(),
            "Nothing is recorded: its helper C:/nowhere/vorlent-recorder.exe cannot be started");
}

}  // namespace
}  // namespace vorlent
