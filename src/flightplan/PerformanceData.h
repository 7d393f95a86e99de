#pragma once

#include <cstdint>
#include <string_view>

#include "platform/PerformanceDb.h"

namespace vorlent {

/// What the autoflight knows of its aircraft's flight: from the aircraft's type, then from the
/// planning display's table. Weights and fuel in pounds, N1 in percent.
struct PerformanceData {
  std::int16_t TakeoffN1 = 0;
  float ClimbN1 = 0;
  std::int16_t FmcSpeed = 0;  ///< knots
  float ClimbMach = 0;        ///< 0: none is known
  float DescentMach = 0;      ///< 0: none is known
  float FuelReserve = 0;
  float TripFuel = 0;
  float ZeroFuelWeight = 0;
  float LandingWeight = 0;
  float TakeoffWeight = 0;

  /// Feet. Both setters take a flight level and share one member: the later one wins. They raise
  /// Overflow. docs/peculiarities.md: one cruise altitude.
  std::int32_t CruiseAlt() const { return cruiseAlt_ft_; }
  void CruiseAlt(std::int32_t flightLevel);
  std::int32_t MaxCruiseAlt() const { return cruiseAlt_ft_; }
  void MaxCruiseAlt(std::int32_t flightLevel) { CruiseAlt(flightLevel); }

  bool operator==(const PerformanceData&) const = default;

 private:
  std::int32_t cruiseAlt_ft_ = 0;
};

/// By the first seven characters of the aircraft's name; an unknown one changes nothing.
void setAircraftDefaults(std::string_view aircraft, PerformanceData& data);

/// A field that is missing, no number, or out of range leaves what was there before.
void ReadPerformance(const PerfDataRow& row, PerformanceData& data);

}  // namespace vorlent
