#include <string>

#include "support/DecodeRow.h"

// Frequencies, receivers, names, DME and the simulator's clock.

namespace vorlent {
namespace {

using V = const modPublic&;

TEST(DecodeRadios, EveryFrequencyHasItsOffset) {
  constexpr DecodeCase Rows[] = {
      {"Com1Freq", 0x034E, 2, 0x2345, [](V v) -> double { return v.Com1Freq; }, 123.45F},
      {"Nav1Freq", 0x0350, 2, 0x1030, [](V v) -> double { return v.Nav1Freq; }, 110.3F},
      {"Nav2Freq", 0x0352, 2, 0x1385, [](V v) -> double { return v.Nav2Freq; }, 113.85F},
      {"Transponder", 0x0354, 2, 0x1234, [](V v) -> double { return v.TransponderCode; }, 1234},
      {"Com2Freq", 0x3118, 2, 0x1875, [](V v) -> double { return v.Com2Freq; }, 118.75F},
      {"Com1Standby", 0x311A, 2, 0x2190, [](V v) -> double { return v.Com1Standby; }, 121.9F},
      {"Com2Standby", 0x311C, 2, 0x2500, [](V v) -> double { return v.Com2Standby; }, 125},
      {"Nav1Standby", 0x311E, 2, 0x0990, [](V v) -> double { return v.Nav1Standby; }, 109.9F},
      {"Nav2Standby", 0x3120, 2, 0x1705, [](V v) -> double { return v.Nav2Standby; }, 117.05F},
      {"no BCD", 0x034E, 2, 0xFFFF, [](V v) -> double { return v.Com1Freq; }, 266.65F},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeRadios, BelowVersion2ThreeFrequenciesAreZeroAndTheNavStandbysAreKept) {
  PolledServer sim;
  for (const std::uint32_t at : {0x3118U, 0x311AU, 0x311CU, 0x311EU, 0x3120U})
    sim.bus.put(at, std::uint16_t{0x1875});
  sim.poll();
  sim.store.FsVersionCode = 1;
  sim.bus.put(0x311E, std::uint16_t{0x0990});
  sim.poll();
  EXPECT_EQ(sim.store.Com2Freq, 0);
  EXPECT_EQ(sim.store.Com1Standby, 0);
  EXPECT_EQ(sim.store.Com2Standby, 0);
  EXPECT_EQ(sim.store.Nav1Standby, 118.75F);
  EXPECT_EQ(sim.store.Nav2Standby, 118.75F);
}

TEST(DecodeRadios, AdfFrequenciesAreMadeOfFourBytes) {
  PolledServer sim;
  sim.bus.put(0x034C, std::uint16_t{0x0390});
  sim.bus.put(0x0356, std::uint16_t{0x0105});
  sim.bus.put(0x02D4, std::uint16_t{0x0427});
  EXPECT_EQ(sim.polled(0x02D6, std::uint16_t{0x0003}, &modPublic::Adf2Freq), 427.3F);
  EXPECT_EQ(sim.store.Adf1Freq, 1390.5F);
  EXPECT_EQ(sim.polled(0x0357, std::uint8_t{255}, &modPublic::Adf1Freq), 255390.5F);
}

TEST(DecodeRadios, EveryReceiverVariableHasItsOffset) {
  constexpr DecodeCase Rows[] = {
      {"Adf1Bearing", 0x0C6A, 2, 16384, [](V v) -> double { return v.Adf1Bearing; }, 90},
      {"Adf2Bearing", 0x02D8, 2, 49152, [](V v) -> double { return v.Adf2Bearing; }, 270},
      {"BackCourse", 0x0C4A, 1, 129, [](V v) -> double { return v.NavRadios(1).BackCourse; }, 129},
      {"BackCourse", 0x0C5A, 1, 130, [](V v) -> double { return v.NavRadios(2).BackCourse; }, 130},
      {"ToFrom", 0x0C4B, 1, 1, [](V v) -> double { return v.NavRadios(1).ToFrom; }, 1},
      {"ToFrom", 0x0C5B, 1, 2, [](V v) -> double { return v.NavRadios(2).ToFrom; }, 2},
      {"GsFlag", 0x0C4C, 1, 1, [](V v) -> double { return v.NavRadios(1).GsFlag; }, 1},
      {"Obs", 0x0C4E, 2, 359, [](V v) -> double { return v.NavRadios(1).Obs; }, 359},
      {"Obs", 0x0C5E, 2, 181, [](V v) -> double { return v.NavRadios(2).Obs; }, 181},
      {"Obs beyond", 0x0C5E, 2, 32768, [](V v) -> double { return v.NavRadios(2).Obs; }, 181},
      {"Radial", 0x0C50, 2, 16384, [](V v) -> double { return v.NavRadios(1).Radial; }, 90},
      {"Radial", 0x0C60, 2, 65535, [](V v) -> double { return v.NavRadios(2).Radial; }, 360},
      {"IlsHeading", 0x0870, 2, 65535, [](V v) -> double { return v.NavRadios(1).IlsHeading; },
       360},
      {"IlsHeading", 0x0870, 2, 13107, [](V v) -> double { return v.NavRadios(1).IlsHeading; }, 72},
      {"IlsSlope", 0x0872, 2, 65535, [](V v) -> double { return v.NavRadios(1).IlsSlope; }, 0},
      {"IlsSlope", 0x0872, 2, 13107, [](V v) -> double { return v.NavRadios(1).IlsSlope; }, 288},
      {"Outer", 0x0BB0, 1, 1, [](V v) -> double { return v.NavRadios(1).OuterMarker; }, 1},
      {"Middle", 0x0BAE, 1, 2, [](V v) -> double { return v.NavRadios(1).MiddleMarker; }, 2},
      {"Inner", 0x0BAC, 1, 3, [](V v) -> double { return v.NavRadios(1).InnerMarker; }, 3},
      {"NavGpsSwitch", 0x132C, 1, 1, [](V v) -> double { return v.NavGpsSwitch; }, 1},
      {"Byte3BFB", 0x3BFB, 1, 9, [](V v) -> double { return v.Byte3BFB; }, 9},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeRadios, NeedlesAreSignedBytes) {
  constexpr auto Loc1 = [](V v) -> double { return v.NavRadios(1).LocNeedle; };
  constexpr auto Loc2 = [](V v) -> double { return v.NavRadios(2).LocNeedle; };
  constexpr auto Gs = [](V v) -> double { return v.NavRadios(1).GsNeedle; };
  constexpr DecodeCase Rows[] = {
      {"right", 0x0C48, 1, 127, Loc1, 127}, {"left", 0x0C48, 1, 128, Loc1, -128},
      {"left", 0x0C59, 1, 255, Loc2, -1},   {"right", 0x0C59, 1, 1, Loc2, 1},
      {"down", 0x0C49, 1, 129, Gs, -127},   {"up", 0x0C49, 1, 119, Gs, 119},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeRadios, TheSecondReceiverHasNoGlideslopeAndNoMarkers) {
  PolledServer sim;
  sim.bus.offsets.assign(sim.bus.offsets.size(), 0x31);
  sim.poll();
  const NavRadio& nav2 = sim.store.NavRadios(2);
  EXPECT_EQ(nav2.GsNeedle, 0);
  EXPECT_EQ(nav2.GsFlag, 0);
  EXPECT_EQ(nav2.IlsHeading, 0);
  EXPECT_EQ(nav2.IlsSlope, 0);
  EXPECT_EQ(nav2.OuterMarker + nav2.MiddleMarker + nav2.InnerMarker, 0);
}

TEST(DecodeRadios, NamesEndAtTheFirstZeroAndLoseTheirBlanks) {
  PolledServer sim;
  const auto put = [&sim](std::uint32_t at, const char* text) {
    sim.bus.putText(at, std::string(text) + '\0');
  };
  put(0x02DC, "AB ");
  put(0x02E2, "A long  name");
  put(0x3000, " OR D");
  put(0x301F, "");
  put(0x303E, "  ");
  sim.poll();
  EXPECT_EQ(sim.store.Adf2Id, "AB");
  EXPECT_EQ(sim.store.Adf2Name, "Alongname");
  EXPECT_EQ(sim.store.Vor1Id, "ORD");
  EXPECT_EQ(sim.store.Vor2Id, "");
  EXPECT_EQ(sim.store.Adf1Id, "");
}

TEST(DecodeRadios, NamesKeepEveryOtherByte) {
  PolledServer sim;
  sim.bus.putText(0x3000, std::string("\xC4\x7F\xFF\t", 4) + '\0');
  sim.poll();
  EXPECT_EQ(sim.store.Vor1Id, "\xC4\x7F\xFF\t");
}

TEST(DecodeRadios, ANameWithoutAnEndRunsToTheEndOfItsBlock) {
  PolledServer sim;
  sim.bus.putText(0x3000, std::string(0x100, 'X'));
  sim.bus.putText(0x02DC, std::string(0x1400, 'Y'));
  sim.poll();
  EXPECT_EQ(sim.store.Vor1Id, std::string(96, 'X'));
  EXPECT_EQ(sim.store.Vor2Id, std::string(65, 'X'));
  EXPECT_EQ(sim.store.Adf1Id, std::string(34, 'X'));
  EXPECT_EQ(sim.store.Adf2Id, std::string(4232, 'Y'));
}

TEST(DecodeRadios, TheClockHasThreePairsOfCharacters) {
  PolledServer sim;
  sim.bus.putText(0x0C20, "09:05:07");
  sim.poll();
  EXPECT_EQ(sim.store.LocalTimeText, "09 05 07");
}

struct DmeCase {
  const char* name;
  const char* decimalMark;
  const char* distance;
  const char* speed;
  float expectedDistance;
  float expectedSpeed;
};

/// Before each case the receiver reads 7.5 miles at 75 knots.
class DecodeDme : public testing::TestWithParam<DmeCase> {};

TEST_P(DecodeDme, BothReceivers) {
  PolledServer sim(GetParam().decimalMark);
  for (const std::uint32_t at : {0x0C29U, 0x0C33U}) sim.bus.putText(at, " 7.5");
  for (const std::uint32_t at : {0x0C2EU, 0x0C38U}) sim.bus.putText(at, "  75");
  sim.poll();
  ASSERT_EQ(sim.store.NavRadios(1).DmeDistance, 7.5F);
  ASSERT_EQ(sim.store.NavRadios(2).DmeSpeed, 75);
  for (const std::uint32_t at : {0x0C29U, 0x0C33U}) sim.bus.putText(at, GetParam().distance);
  for (const std::uint32_t at : {0x0C2EU, 0x0C38U}) sim.bus.putText(at, GetParam().speed);
  sim.poll();
  for (int n = 1; n <= 2; ++n) {
    EXPECT_EQ(sim.store.NavRadios(n).DmeDistance, GetParam().expectedDistance);
    EXPECT_EQ(sim.store.NavRadios(n).DmeSpeed, GetParam().expectedSpeed);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DecodeDme,
    testing::Values(DmeCase{"NumbersWithPoint", ".", "12.3", "450.", 12.3F, 450},
                    DmeCase{"NumbersWithComma", ",", "12.3", "99.5", 12.3F, 99.5F},
                    DmeCase{"BlanksAround", ".", " 5.1", " 99 ", 5.1F, 99},
                    DmeCase{"MissingWithPoint", ".", ";;.;", ";;;.", 0, 0},
                    DmeCase{"MissingWithComma", ",", ";;.;", ";;;.", 0, 0},
                    DmeCase{"TheOtherFieldsMarkIsNoNumber", ".", ";;;.", ";;.;", 7.5F, 75},
                    DmeCase{"TheOtherFieldsMarkWithComma", ",", ";;;.", ";;.;", 7.5F, 75},
                    DmeCase{"NoNumberKeeps", ".", "--.-", "    ", 7.5F, 75},
                    DmeCase{"NoNumberKeepsWithComma", ",", "1.2.", "abcd", 7.5F, 75},
                    DmeCase{"CommaIsNoNumberWithPoint", ".", "12,3", "9,99", 7.5F, 75},
                    DmeCase{"CommaIsANumberWithComma", ",", "12,3", "9,99", 12.3F, 9.99F},
                    DmeCase{"TooLargeForASingleKeeps", ".", "1e39", "9E99", 7.5F, 75},
                    DmeCase{"NotFiniteKeeps", ".", "inf ", "nan ", 7.5F, 75}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vorlent
