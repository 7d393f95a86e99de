#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

class ClsRadio : public AccessorTest {
 protected:
  clsRadio& radio() { return *t.server.accessors.radio; }

  void expectComm1(float frequency_MHz, std::uint8_t high, std::uint8_t low) {
    expectWrites(std::to_string(frequency_MHz), [&] { radio().Comm1Freq(frequency_MHz); },
                 {{0x034F, {high}}, {0x034E, {low}}});
  }
  void expectCode(float code, std::uint8_t high, std::uint8_t low) {
    expectWrites(std::to_string(code), [&] { radio().XpndrCode(code); },
                 {{0x0355, {high}}, {0x0354, {low}}});
  }
  /// Main high, main low, tenths, thousands.
  void expectAdf(float frequency_kHz, std::uint8_t high, std::uint8_t low, std::uint8_t tenths,
                 std::uint8_t thousands) {
    expectWrites(std::to_string(frequency_kHz), [&] { radio().AdfFreq(frequency_kHz); },
                 {{0x034D, {high}}, {0x034C, {low}}, {0x0356, {tenths}}, {0x0357, {thousands}}});
    expectWrites(std::to_string(frequency_kHz), [&] { radio().Adf2Freq(frequency_kHz); },
                 {{0x02D5, {high}}, {0x02D4, {low}}, {0x02D6, {tenths}}, {0x02D7, {thousands}}});
  }
};

TEST_F(ClsRadio, FrequencyIsFourDigitsHighByteFirst) {
  struct Row {
    const char* name;
    void (clsRadio::*set)(float);
    std::uint32_t low;
    std::uint32_t high;
  };
  constexpr Row rows[] = {
      {"Comm1Freq", &clsRadio::Comm1Freq, 0x034E, 0x034F},
      {"Comm1SBFreq", &clsRadio::Comm1SBFreq, 0x311A, 0x311B},
      {"Comm2Freq", &clsRadio::Comm2Freq, 0x3118, 0x3119},
      {"Comm2SBFreq", &clsRadio::Comm2SBFreq, 0x311C, 0x311D},
      {"Nav1Freq", &clsRadio::Nav1Freq, 0x0350, 0x0351},
      {"Nav1SBFreq", &clsRadio::Nav1SBFreq, 0x311E, 0x311F},
      {"Nav2Freq", &clsRadio::Nav2Freq, 0x0352, 0x0353},
      {"Nav2SBFreq", &clsRadio::Nav2SBFreq, 0x3120, 0x3121},
  };
  for (const Row& row : rows) {
    expectWrites(row.name, [&] { (radio().*row.set)(118.25F); },
                 {{row.high, {0x18}}, {row.low, {0x25}}});
    expectWrites(row.name, [&] { (radio().*row.set)(109.9F); },
                 {{row.high, {0x09}}, {row.low, {0x90}}});
  }
}

TEST_F(ClsRadio, FrequencyIsRoundedToHundredths) {
  expectComm1(100, 0x00, 0x00);
  expectComm1(136.97F, 0x36, 0x97);
  expectComm1(199.99F, 0x99, 0x99);
  expectComm1(121.975F, 0x21, 0x97);  // the single nearest to it lies below
  expectComm1(118.125F, 0x18, 0x12);  // 12.5: half to even
  expectComm1(118.375F, 0x18, 0x38);  // 37.5: half to even
}

TEST_F(ClsRadio, FractionThatRoundsToAHundredTakesAFirstDigitOfTen) {
  expectComm1(118.998F, 0x18, 0xA0);
}

TEST_F(ClsRadio, FrequencyThatFourDigitsCannotTellIsAnOverflow) {
  const auto comm1 = [this](float x) { return [this, x] { radio().Comm1Freq(x); }; };
  expectOverflow("0", comm1(0));
  expectOverflow("99.5", comm1(99.5F), {{0x034F, {0x00}}});
  expectOverflow("260", comm1(260));
  expectOverflow("1e10", comm1(1e10F));
  expectOverflow("NaN", comm1(NaN));
}

TEST_F(ClsRadio, FractionAloneLeavesTheWholeMegahertz) {
  const auto expectFraction = [this](float fraction_MHz, std::uint8_t low) {
    expectWrites(std::to_string(fraction_MHz), [&] { radio().Comm1Frac(fraction_MHz); },
                 {{0x034E, {low}}});
  };
  expectFraction(0.25F, 0x25);
  expectFraction(0.97F, 0x97);
  expectFraction(0.05F, 0x05);
  expectFraction(0, 0x00);
  expectOverflow("118.25", [this] { radio().Comm1Frac(118.25F); });
}

TEST_F(ClsRadio, TransponderIsFourDigitsHighByteFirst) {
  expectCode(7700, 0x77, 0x00);
  expectCode(1234, 0x12, 0x34);
  expectCode(7, 0x00, 0x07);
  expectCode(0, 0x00, 0x00);
  expectOverflow("-1", [this] { radio().XpndrCode(-1); }, {{0x0355, {0x00}}});
  expectOverflow("99999", [this] { radio().XpndrCode(99999); });
}

TEST_F(ClsRadio, AdfIsHundredsRestTenthsThousands) {
  expectAdf(1234.5F, 0x02, 0x34, 5, 1);
  expectAdf(200, 0x02, 0x00, 0, 0);
  expectAdf(999.9F, 0x09, 0x99, 9, 0);
  expectAdf(1000, 0x00, 0x00, 0, 1);
  expectAdf(87, 0x00, 0x87, 0, 0);
}

TEST_F(ClsRadio, AdfTenthsAreRoundedHalfToEven) {
  expectAdf(350.25F, 0x03, 0x50, 2, 0);
  expectAdf(350.75F, 0x03, 0x50, 8, 0);
  expectAdf(350.96875F, 0x03, 0x50, 10, 0);
}

TEST_F(ClsRadio, AdfThatTheDigitsCannotTellIsAnOverflow) {
  expectOverflow("-350", [this] { radio().AdfFreq(-350); });
  expectOverflow("1e10", [this] { radio().AdfFreq(1e10F); });
  expectOverflow("NaN", [this] { radio().Adf2Freq(NaN); });
}

TEST_F(ClsRadio, SwapIsOneByte) {
  expectWrites("8", [this] { radio().SwapFSRadio(8); }, {{0x3123, {8}}});
  expectWrites("1.9", [this] { radio().SwapFSRadio(1.9F); }, {{0x3123, {1}}});
}

TEST_F(ClsRadio, DmeCountsFromOne) {
  expectWrites("0", [this] { radio().Vor_Dme(0); }, {{0x0378, {1}}});
  expectWrites("1", [this] { radio().Vor_Dme(1); }, {{0x0378, {2}}});
}

TEST_F(ClsRadio, CourseIsTwoBytes) {
  expectWrites("359", [this] { radio().Vor_1_obs(359); }, {{0x0C4E, {0x67, 0x01}}});
  expectWrites("-1", [this] { radio().Vor_1_obs(-1); }, {{0x0C4E, {0xFF, 0xFF}}});
  expectWrites("360", [this] { radio().Vor_2_obs(360); }, {{0x0C5E, {0x68, 0x01}}});
}

}  // namespace
}  // namespace vorlent
