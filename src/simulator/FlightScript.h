#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/AircraftState.h"
#include "simulator/RoundEarth.h"

namespace vorlent {

/// A true heading, turned to by the shorter way, or the track along the runway's centreline.
struct FlightPath {
  double heading_deg;
  bool onCentreline;
};

enum class EngineUse { Running, Off, Starting };

/// A part of the scripted flight: what the aircraft makes for, and for how long.
struct FlightSegment {
  std::string name;
  double duration_s;
  double airspeed_kt;  ///< calibrated; 0 to stand, or to roll out behind a landing
  double acceleration_kt_s;
  double altitude_ft;
  double verticalSpeed_ft_min;  ///< at most, up or down
  FlightPath path;
  int flapsDetent;  ///< 0 is up, 8 is 40 degrees
  bool gearDown;
  double spoilers;  ///< 0 to 1
  std::array<EngineUse, EngineCount> engines{};
};

/// At least one segment; the aircraft begins on the runway.
using FlightScript = std::vector<FlightSegment>;

/// A segment a line, ten fields between commas, or eleven with the engines, in the order of
/// FlightSegment; empty lines and those that begin with # are passed over. Raises RuntimeError with
/// the number of the line, what is wrong with it and what it may be.
FlightScript flightScriptFrom(std::string_view text);
/// As flightScriptFrom(), with the file's name in the description; raises likewise when the file
/// cannot be read.
FlightScript readFlightScript(const std::string& path);

double durationOf_s(const FlightScript& script);

/// The runway from which the flight starts.
struct Runway {
  Place threshold;
  double course_deg;  ///< true
  double elevation_m;
  double magneticVariation_deg;  ///< east positive
};

constexpr Runway HomeRunway{{52.0, 5.0}, 240.0, 20.0, 2.5};

}  // namespace vorlent
