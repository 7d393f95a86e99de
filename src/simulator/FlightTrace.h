#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "simulator/Aircraft.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Flies an aircraft and writes its flight down as comma-separated values: a line with the columns'
/// names, each with its unit, then a row at the start and after every Interval_s of flight. Time
/// that the pause flag at 0x0264 holds is no flight; time in slew is written down. The rows do not
/// depend on how time is cut.
class FlightTrace : public Aircraft {
 public:
  using Write = std::function<void(std::string_view line)>;

  /// The aircraft lives in `memory`; both must outlive the trace. `write` gets a line with its line
  /// feed.
  FlightTrace(Aircraft& aircraft, const OffsetMemory& memory, Write write);

  void step(double dt_s) override;
  AircraftState state() const override { return aircraft_.state(); }

  static constexpr double Interval_s = 0.1;

 private:
  void writeRow();

  Aircraft& aircraft_;
  const OffsetMemory& memory_;
  Write write_;
  std::int64_t rows_ = 0;
  double sinceRow_s_ = 0;
  std::string row_;
};

}  // namespace vorlent
