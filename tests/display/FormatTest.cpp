#include "display/format.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

TEST(Format, BytesThatATerminalWouldObeyBecomeQuestionMarks) {
  EXPECT_EQ(printable("a~ \x1b[2J\n\x7f\x9b\xc3\xa4"), "a~ ?[2J?????");
  EXPECT_EQ(printable(std::string("a\0b", 3)), "a?b");
}

TEST(Format, PositionsHaveTheirHemisphere) {
  EXPECT_EQ(latitudeText(47.26035), "N47.26035");
  EXPECT_EQ(latitudeText(-7.5), "S07.50000");
  EXPECT_EQ(longitudeText(11.34391), "E011.34391");
  EXPECT_EQ(longitudeText(-122.5), "W122.50000");
  EXPECT_EQ(longitudeText(0.5), "E000.50000");
}

TEST(Format, BankIsToTheLeftUpToAHundredAndEighty) {
  EXPECT_EQ(bankText(15), "L15.0");
  EXPECT_EQ(bankText(345.5), "R14.5");
  EXPECT_EQ(bankText(180), "L180.0");
}

TEST(Format, ClockReadsMinutesAsHundredths) {
  EXPECT_EQ(clockText(14.05), "14:05");
  EXPECT_EQ(clockText(0), "00:00");
  EXPECT_EQ(clockText(23.59), "23:59");
}

TEST(Format, TravelIsInPercentOfTheFullScale) {
  EXPECT_EQ(travel_percent(0), 0);
  EXPECT_EQ(travel_percent(16383), 100);
}

TEST(Format, EndpointsAreWrittenWithTheirPort) {
  EXPECT_EQ(endpointText({"192.168.1.20", 5000}), "192.168.1.20:5000");
}

}  // namespace
}  // namespace vorlent
