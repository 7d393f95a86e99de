#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/IndependentRecord.h"

namespace vorlent {

/// The second reading of what the simulator behind XPUIPC tells, from the description of its
/// offsets alone.
class IndependentXPlane : public IndependentRecord {
 public:
  /// The computer's clock.
  int hour = 0;
  int minute = 0;
  int second = 0;

  void poll(const std::vector<std::uint8_t>& offsets) override;

 private:
  double s16(std::uint32_t at) const;
  double s8(std::uint32_t at) const;
  double hexDigits(std::uint32_t at, int first) const;
  double hexFrequency(std::uint32_t at) const;
  std::string sixCharacters(std::uint32_t at) const;

  void bytes();
  void words();
  void position();
  void speedsAndAir();
  void radios();
  void receivers();
  void decodeEngine(int n);
  void fuel();
  void trimsAndElectrics();
  void failures();
  void simulatorAutopilot();
  void names();
};

}  // namespace vorlent
