#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "support/PolledServer.h"

namespace vorlent {
namespace {

/// Tokens in front of the engine blocks, in one block, and behind the blocks, "end" included.
constexpr std::size_t Head = 43;
constexpr std::size_t Block = 34;
constexpr std::size_t Tail = 167;

TEST(DataRecord, StartsWithDataAndEndsWithEndAndABlank) {
  PolledServer sim;
  sim.poll();
  EXPECT_TRUE(sim.store.DataRecord.starts_with("Data 0 0 "));
  EXPECT_TRUE(sim.store.DataRecord.ends_with(" end "));
  EXPECT_FALSE(sim.store.DataRecord.ends_with("  "));
}

struct Blocks {
  int engineCount;
  std::size_t blocks;
};

class DataRecordBlocks : public testing::TestWithParam<Blocks> {};

TEST_P(DataRecordBlocks, TheCountOfTokensFollowsTheEngineBlocksAlone) {
  PolledServer sim;
  sim.bus.put(0x0AEC, static_cast<std::uint8_t>(GetParam().engineCount));
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(fields.size(), Head + GetParam().blocks * Block + Tail);
  EXPECT_EQ(fields[0], std::to_string(GetParam().engineCount));
}

INSTANTIATE_TEST_SUITE_P(Counts, DataRecordBlocks,
                         testing::Values(Blocks{0, 4}, Blocks{1, 1}, Blocks{2, 2}, Blocks{3, 3},
                                         Blocks{4, 4}, Blocks{5, 4}, Blocks{255, 4}),
                         [](const auto& row) { return std::to_string(row.param.engineCount); });

TEST(DataRecord, AnEngineBlockHasSevenReservedZerosAndEndsWithTheEnginesSettings) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{2});
  sim.store.Engines(2).N1Target = 91.5F;
  sim.store.Engines(2).ClientValueB = -3;
  sim.bus.put(0x2230 - 0x100, 1.5);
  sim.bus.put(0x2898, 28.25);
  sim.poll();
  const auto fields = sim.fields();
  const auto block = fields.begin() + Head + Block;
  EXPECT_EQ(block[0], "1.5");
  EXPECT_EQ(block[24], "28.25");
  for (int zero = 25; zero < 32; ++zero) EXPECT_EQ(block[zero], "0");
  EXPECT_EQ(block[32], "91.5");
  EXPECT_EQ(block[33], "-3");
}

TEST(DataRecord, FuelUsedIsInPoundsAtTheDensityOfThePollBefore) {
  PolledServer sim;
  sim.store.FuelBurnt(1) = 10;
  sim.bus.put(0x0AF4, std::uint16_t{1664});
  sim.poll();
  EXPECT_EQ(sim.fields()[Head + 20], "0");
  sim.poll();
  EXPECT_EQ(sim.fields()[Head + 20], "65");
}

TEST(DataRecord, FuelUsedThatIsNoSingleKeepsItsToken) {
  PolledServer sim;
  sim.store.FuelBurnt(1) = 10;
  sim.bus.put(0x0AF4, std::uint16_t{1664});
  sim.poll();
  sim.poll();
  sim.store.FuelBurnt(1) = 3e38F;
  sim.poll();
  EXPECT_EQ(sim.fields()[Head + 20], "65");
}

TEST(DataRecord, AnEmptyNameIsAnEmptyToken) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.bus.putText(0x02DC, std::string("AB", 3));
  sim.poll();
  const auto named = sim.fields();
  const auto place = std::find(named.begin(), named.end(), "AB") - named.begin();
  sim.bus.put(0x02DC, std::uint8_t{0});
  sim.poll();
  EXPECT_EQ(sim.fields().size(), named.size());
  EXPECT_EQ(sim.fields()[static_cast<std::size_t>(place)], "");
}

TEST(DataRecord, ABlankInTheClockDoesNotMakeATokenMore) {
  PolledServer sim;
  sim.bus.putText(0x0C20, "12:34:56");
  sim.poll();
  const auto before = sim.fields();
  const auto place =
      static_cast<std::size_t>(std::find(before.begin(), before.end(), "12") - before.begin());
  sim.bus.putText(0x0C20, " 9:  : 7");
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(fields.size(), before.size());
  EXPECT_EQ(fields[place], "9");
  EXPECT_EQ(fields[place + 1], "");
  EXPECT_EQ(fields[place + 2], "7");
}

TEST(DataRecord, TheFirstRadioValueIsNotInTheGroupOfRadios) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.bus.put(0x02D4, std::uint16_t{0x0427});
  sim.bus.put(0x034E, std::uint16_t{0x2345});
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(fields[Head + Block], "123.45");
  EXPECT_EQ(std::count(fields.begin(), fields.end(), "427"), 1);
}

TEST(DataRecord, TheStandbyGroupHasFiveTokensForEveryGeneration) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.bus.put(0x311A, std::uint16_t{0x2190});
  for (int element = 1; element <= 5; ++element)
    sim.store.StandbyValues(element) = static_cast<float>(element);
  const std::size_t place = Head + Block + 12;
  sim.poll();
  auto fields = sim.fields();
  EXPECT_EQ(std::vector<std::string>(fields.begin() + place, fields.begin() + place + 5),
            (std::vector<std::string>{"121.9", "100", "100", "100", "5"}));
  sim.store.FsVersionCode = 1;
  sim.poll();
  fields = sim.fields();
  EXPECT_EQ(std::vector<std::string>(fields.begin() + place, fields.begin() + place + 5),
            (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST(DataRecord, ADecimalCommaStandsInEveryTokenWithAFraction) {
  PolledServer sim(",");
  sim.bus.put(0x2EB0, 0.01);
  sim.bus.put(0x02BC, std::uint32_t{32032});
  sim.bus.put(0x281C, std::uint32_t{1});
  sim.poll();
  EXPECT_EQ(sim.store.DataRecord.find('.'), std::string::npos);
  const auto fields = sim.fields();
  EXPECT_EQ(fields[14], "250,25");
  EXPECT_EQ(std::count(fields.begin(), fields.end(), "0,57295777918682"), 1);
}

TEST(DataRecord, NumbersHaveSevenDigitsAsSinglesAndFifteenAsDoubles) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.bus.put(0x2030, 1.0 / 3);
  sim.bus.put(0x0918, 1.0 / 3);
  sim.bus.put(0x2028, 12345678.0);
  sim.bus.put(0x08E8, 1.5e20);
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(fields[Head], "0.3333333");
  EXPECT_EQ(fields[Head + 7], "0.333333333333333");
  EXPECT_EQ(fields[Head + 8], "1.5E+20");
  EXPECT_EQ(fields[Head + 11], "1.234568E+07");
}

TEST(DataRecord, ZeroHasNoSign) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  for (const std::uint32_t at : {0x2030U, 0x2028U, 0x0918U, 0x08E8U, 0x2EB0U, 0x0B18U, 0x2840U})
    sim.bus.put(at, -0.0);
  sim.bus.put(0x2880, -1e-60);
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(std::count(fields.begin(), fields.end(), "-0"), 0);
  EXPECT_EQ(fields[Head], "0");
  EXPECT_EQ(fields[Head + 23], "0");
}

TEST(DataRecord, AutopilotModesAreThreeBitSets) {
  PolledServer sim;
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.server.autoflight.afds->fmc.MaxWaypointId = 1;
  sim.server.autoflight.afds->VNAV(1);
  sim.server.autoflight.xAutoP->apCmdRight(1);
  sim.server.autoflight.xAutoP->apCwsRight(1);
  sim.server.autoflight.xAutoP->apAttitudeHold(1);
  sim.server.autoflight.xAutoP->apAirspeedHoldByPitch(1);
  sim.server.autoflight.xAutoT->apAirspeedHoldByRpm(1);
  sim.server.autoflight.xAutoP->apToGa(1);
  sim.bus.put(0x0278, std::uint8_t{1});
  sim.poll();
  const auto fields = sim.fields();
  constexpr std::size_t Place = Head + Block + 20 + 24 + 2 + 3;
  EXPECT_EQ(fields[Place], "137");
  EXPECT_EQ(fields[Place + 1], "136");
  EXPECT_EQ(fields[Place + 2], "38");
  EXPECT_EQ(fields[Place + 3], "-25");
}

TEST(DataRecord, EveryModeTextAndTheWaypointStandInTheFmcGroup) {
  PolledServer sim;
  clsAfds& afds = *sim.server.autoflight.afds;
  Annunciators& shown = sim.server.autoflight.annunciators;
  afds.fmc.LnavCriteria = 2;
  afds.fmc.MessageId = 7;
  afds.fmc.PhaseOfFlightEnum = 3;
  afds.fmc.DxToNextWaypoint = 12.5F;
  shown.ATEngagedMode = "N1";
  shown.RollEngagedMode = "LNAV";
  shown.CwsRollEngagedMode = "CWS_R";
  shown.AutopilotMode = "CMD";
  afds.fmc.Minimums = 200;
  afds.fmc.ActiveWpt = "  KORD ";
  sim.poll();
  EXPECT_NE(sim.store.DataRecord.find(" 2 0 0 7 3 12.5 0 N1 LNAV _ _ _ CWS_R _ CMD 200 KORD "),
            std::string::npos);
}

TEST(DataRecord, TheElectricalGroupStartsWithTheThirdValue) {
  PolledServer sim;
  int element = 1;
  for (const std::uint32_t at : {0x2824U, 0x282CU, 0x2834U, 0x2840U, 0x2848U, 0x2850U, 0x2858U,
                                 0x2860U, 0x2868U, 0x2870U, 0x2878U})
    sim.bus.put(at, 100.5 + element++);
  sim.poll();
  EXPECT_NE(sim.store.DataRecord.find(" 103.5 101.5 102.5 104.5 105.5 106.5 107.5 108.5 109.5 "
                                      "110.5 111.5 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 2047 "
                                      "end "),
            std::string::npos);
}

TEST(DataRecord, SixteenReservedZerosFollowTheLastStateValue) {
  PolledServer sim;
  sim.store.StateValues(20) = 20.5F;
  sim.store.StateValues(21) = 21.5F;
  sim.bus.put(0x0BEC, std::uint16_t{31});
  sim.bus.put(0x0BF0, std::uint16_t{32});
  sim.bus.put(0x0BF4, std::uint16_t{33});
  sim.bus.putText(0x0C20, "01:02:03");
  sim.bus.put(0x0B18, 4.5);
  sim.poll();
  EXPECT_NE(sim.store.DataRecord.find(" 31 33 32 20.5 01 02 03 0 0 0 0 0 0 4.5 21.5 "
                                      "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 _ "),
            std::string::npos);
}

TEST(DataRecord, PanelWordsAndTheSecondAdfStandTogether) {
  PolledServer sim;
  for (int word = 1; word <= 14; ++word)
    sim.store.PanelWord(word) = static_cast<std::int16_t>(-word);
  sim.store.ClientValueC = 0.25F;
  sim.bus.put(0x02D4, std::uint16_t{0x0427});
  sim.bus.putText(0x02DC, std::string("EDS", 4));
  sim.bus.put(0x2E80, std::uint32_t{1});
  sim.poll();
  EXPECT_NE(sim.store.DataRecord.find(" -1 -2 -3 -4 -5 -6 -7 -8 -9 -10 -11 -12 -13 -14 427 0 EDS 0 "
                                      "7 0 1 0 0 0.25 "),
            std::string::npos);
}

TEST(DataRecord, IlsCourseIsMagneticAndNotFolded) {
  PolledServer sim;
  sim.bus.put(0x0870, std::uint16_t{13107});
  sim.bus.put(0x02A0, std::uint16_t{16384});
  sim.poll();
  EXPECT_EQ(sim.fields()[23], "-18");
}

TEST(DataRecord, TheTanksStandInTheOrderOfTheRecord) {
  PolledServer sim;
  for (const auto& [at, tenths] : std::vector<std::pair<std::uint32_t, std::uint32_t>>{
           {0x0B84, 1}, {0x0B9C, 2}, {0x0B7C, 3}, {0x0B94, 4}, {0x0B74, 5}}) {
    sim.bus.put(at, 1048576 * tenths);
    sim.bus.put(at + 4, std::uint32_t{8});
  }
  sim.bus.put(0x0AF4, std::uint16_t{256});
  sim.poll();
  const auto fields = sim.fields();
  EXPECT_EQ(std::vector<std::string>(fields.begin() + 36, fields.begin() + 43),
            (std::vector<std::string>{"12.5", "25", "37.5", "50", "62.5", "15", "1"}));
}

/// Every token is a number in general form or a text, and nothing else.
void expectOnlyCleanNumbers(const std::vector<std::string>& fields) {
  static const std::regex Number(R"(-?(0|[1-9][0-9]*)(\.[0-9]*[1-9])?(E[-+][0-9]{2,3})?)");
  for (std::size_t at = 0; at < Head + Block; ++at) {
    const std::string& field = fields[at];
    EXPECT_TRUE(std::regex_match(field, Number)) << at << ": " << field;
    EXPECT_NE(field, "-0");
    const auto mantissa = field.substr(0, field.find('E'));
    const auto first = mantissa.find_first_not_of("-0.");
    const auto digits = first == std::string::npos
                            ? 0
                            : std::count_if(mantissa.begin() + static_cast<std::ptrdiff_t>(first),
                                            mantissa.end(), [](char c) { return c != '.'; });
    EXPECT_LE(digits, 15) << at << ": " << field;
  }
}

TEST(DataRecord, NoNaNAndNoInfinityReachesAToken) {
  constexpr std::uint64_t Patterns[] = {0x7FF8000000000000, 0xFFF0000000000000, 0x7FF0000000000000,
                                        0x7FEFFFFFFFFFFFFF, 0x8000000000000000, 0x0000000000000001,
                                        0xC7EFFFFFF0000000, 0x47EFFFFFEFFFFFFF};
  PolledServer sim;
  for (const std::uint64_t pattern : Patterns) {
    for (std::uint32_t at = 0x2000; at < 0x3C00; at += 8) sim.bus.put(at, pattern);
    for (const std::uint32_t at : {0x0B18U, 0x08E8U, 0x0918U, 0x0980U, 0x09B0U})
      sim.bus.put(at, pattern);
    sim.bus.put(0x3000, std::uint8_t{0});
    sim.bus.put(0x301F, std::uint8_t{0});
    sim.bus.put(0x303E, std::uint8_t{0});
    sim.bus.put(0x0AEC, std::uint8_t{1});
    sim.poll();
    EXPECT_EQ(sim.fields().size(), Head + Block + Tail);
    expectOnlyCleanNumbers(sim.fields());
    for (const std::string bad : {"inf", "INF", "nan", "NAN", "NaN"})
      EXPECT_EQ(sim.store.DataRecord.find(bad), std::string::npos);
  }
}

}  // namespace
}  // namespace vorlent
