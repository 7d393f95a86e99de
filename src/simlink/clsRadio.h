#pragma once

#include <cstdint>

namespace vorlent {

class clsFSUIPC;

/// The radios, in binary coded decimal: two digits a byte. Write-only; each byte is a round trip of
/// its own, so the simulator sees a frequency in parts. A byte that does not fit raises Overflow
/// where it is due; what went out before it stays.
class clsRadio {
 public:
  explicit clsRadio(clsFSUIPC& link) : link_(link) {}

  /// Frequencies in MHz, to hundredths; 100.00 to 199.99 are told by four digits.
  void Comm1Freq(float frequency_MHz);
  void Comm1SBFreq(float frequency_MHz);
  void Comm2Freq(float frequency_MHz);
  void Comm2SBFreq(float frequency_MHz);
  void Nav1Freq(float frequency_MHz);
  void Nav1SBFreq(float frequency_MHz);
  void Nav2Freq(float frequency_MHz);
  void Nav2SBFreq(float frequency_MHz);
  /// The fraction alone, as 0.25; the whole megahertz stay.
  void Comm1Frac(float fraction_MHz);
  /// Four digits, as 1234.
  void XpndrCode(float code);
  /// In kHz, to tenths, 0 to 9999.9.
  void AdfFreq(float frequency_kHz);
  void Adf2Freq(float frequency_kHz);

  /// Any of the bits that the simulator knows, one byte: exchanges active and stand-by.
  void SwapFSRadio(float radios);
  /// 0 shows DME 1, 1 shows DME 2.
  void Vor_Dme(float receiver);
  void Vor_1_obs(std::int16_t degrees);
  void Vor_2_obs(std::int16_t degrees);

 private:
  struct AdfOffsets {
    std::uint32_t mainLow, mainHigh, tenths, thousands;
  };

  void writeFrequency(std::uint32_t low, std::uint32_t high, float frequency_MHz);
  void writeAdf(const AdfOffsets& offsets, float frequency_kHz);

  clsFSUIPC& link_;
};

}  // namespace vorlent
