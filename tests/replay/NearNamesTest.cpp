#include "replay/nearNames.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

using Names = std::vector<std::string>;

TEST(NearNames, ThoseThatHoldItComeFirst) {
  EXPECT_EQ(nearNames("heading", {"TrueHeadin", "MagHeading", "Ias", "ApHeadingSim"}),
            (Names{"MagHeading", "ApHeadingSim"}));
}

TEST(NearNames, ThreeSlipsAtMostOneToThreeLetters) {
  EXPECT_EQ(nearNames("LeftBreak", {"LeftBrake", "RightBrake"}), Names{"LeftBrake"});
  EXPECT_EQ(nearNames("Mach", {"Much", "Mute"}), Names{"Much"});
  EXPECT_EQ(nearNames("", {"Ias"}), Names{});
}

TEST(NearNames, FiveAtMost) {
  EXPECT_EQ(nearNames("N1", {"N1", "N11", "N12", "N13", "N14", "N15"}).size(), 5U);
}

}  // namespace
}  // namespace vorlent
