#include "simlink/clsRadio.h"

#include <cmath>

#include "base/numbers.h"
#include "simlink/controlWriters.h"

namespace vorlent {
namespace {

std::int32_t wholePart(double x) { return toInt32(std::trunc(x)); }

/// Two decimal digits as they stand in a byte. More digits give a number beyond a byte, or one with
/// a first digit above 9.
double bcdByte(std::int32_t digits) {
  const std::int32_t tens = digits / 10;
  return tens * 16.0 + digits % 10;
}

}  // namespace

void clsRadio::Comm1Freq(float frequency_MHz) { writeFrequency(0x034E, 0x034F, frequency_MHz); }
void clsRadio::Comm1SBFreq(float frequency_MHz) { writeFrequency(0x311A, 0x311B, frequency_MHz); }
void clsRadio::Comm2Freq(float frequency_MHz) { writeFrequency(0x3118, 0x3119, frequency_MHz); }
void clsRadio::Comm2SBFreq(float frequency_MHz) { writeFrequency(0x311C, 0x311D, frequency_MHz); }
void clsRadio::Nav1Freq(float frequency_MHz) { writeFrequency(0x0350, 0x0351, frequency_MHz); }
void clsRadio::Nav1SBFreq(float frequency_MHz) { writeFrequency(0x311E, 0x311F, frequency_MHz); }
void clsRadio::Nav2Freq(float frequency_MHz) { writeFrequency(0x0352, 0x0353, frequency_MHz); }
void clsRadio::Nav2SBFreq(float frequency_MHz) { writeFrequency(0x3120, 0x3121, frequency_MHz); }

void clsRadio::Comm1Frac(float fraction_MHz) {
  writeByte(link_, 0x034E, bcdByte(toInt32(fraction_MHz * 100.0)));
}

void clsRadio::XpndrCode(float code) {
  const std::int32_t high = wholePart(code / 100.0);
  writeByte(link_, 0x0355, bcdByte(high));
  writeByte(link_, 0x0354, bcdByte(toInt32(code - high * 100.0)));
}

void clsRadio::AdfFreq(float frequency_kHz) {
  writeAdf({0x034C, 0x034D, 0x0356, 0x0357}, frequency_kHz);
}
void clsRadio::Adf2Freq(float frequency_kHz) {
  writeAdf({0x02D4, 0x02D5, 0x02D6, 0x02D7}, frequency_kHz);
}

void clsRadio::SwapFSRadio(float radios) { writeByte(link_, 0x3123, radios); }
void clsRadio::Vor_Dme(float receiver) { writeByte(link_, 0x0378, receiver + 1.0); }
void clsRadio::Vor_1_obs(std::int16_t degrees) { writeInt(link_, 0x0C4E, degrees); }
void clsRadio::Vor_2_obs(std::int16_t degrees) { writeInt(link_, 0x0C5E, degrees); }

/// High byte first.
void clsRadio::writeFrequency(std::uint32_t low, std::uint32_t high, float frequency_MHz) {
  const double above100_MHz = frequency_MHz - 100.0;
  const std::int32_t whole_MHz = wholePart(above100_MHz);
  writeByte(link_, high, bcdByte(whole_MHz));
  writeByte(link_, low, bcdByte(toInt32((above100_MHz - whole_MHz) * 100)));
}

void clsRadio::writeAdf(const AdfOffsets& offsets, float frequency_kHz) {
  const std::int32_t whole_kHz = wholePart(frequency_kHz);
  const std::int32_t tenths = toInt32((double{frequency_kHz} - whole_kHz) * 10);
  const std::int32_t thousands = whole_kHz / 1000;
  const std::int32_t rest_kHz = whole_kHz - thousands * 1000;
  const std::int32_t hundreds = rest_kHz / 100;
  writeByte(link_, offsets.mainHigh, bcdByte(hundreds));
  writeByte(link_, offsets.mainLow, bcdByte(rest_kHz - hundreds * 100));
  writeByte(link_, offsets.tenths, tenths);
  writeByte(link_, offsets.thousands, thousands);
}

}  // namespace vorlent
