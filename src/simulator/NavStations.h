#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "simulator/FlightScript.h"

namespace vorlent {

/// A VOR with DME, or an ILS with DME; the ILS has its front course.
struct NavStation {
  std::string_view id;
  std::string_view name;
  std::uint16_t frequency;  ///< four packed digits behind the 1 of the hundreds: 0x1030 is 110.30
  Place place;
  bool isIls;
};

struct Beacon {
  std::string_view id;
  std::string_view name;
  std::uint32_t frequency;  ///< tenths of a kilohertz
  Place place;
};

/// The invented radio stations around a runway.
std::vector<NavStation> navStationsAround(const Runway& runway);
std::vector<Beacon> beaconsAround(const Runway& runway);

/// On the extended centreline, in front of the threshold; negative is beyond it.
Place onApproach(const Runway& runway, double beforeThreshold_m);

constexpr double outerMarker_m = 7400;
constexpr double middleMarker_m = 1050;
constexpr double innerMarker_m = 250;

}  // namespace vorlent
