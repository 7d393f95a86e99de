#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simulator/RoundEarth.h"

namespace vorlent {

struct FlownPoint {
  std::string name;  ///< five characters at most
  Place place;
  int altitude_ft = 0;
  double descentAt_nm = 0;  ///< before the point a descent starts for it
  bool ofProfile = false;   ///< a point of the vertical profile, no waypoint
};

/// At least two points; the first one lies behind the aircraft.
using FlownRoute = std::vector<FlownPoint>;

/// What a planning display writes for a route, EXEC and PROF alike: the rows from a point on.
std::string planFileText(const FlownRoute& route, std::size_t from);

/// Where the great circle of two points is farthest north. The points must not be the same.
Place northernmost(Place a, Place b);

/// Of a place from the great circle of two points, nautical miles, right of the way positive.
double crossTrack_nm(Place from, Place to, Place place);
/// From `from` to the point of the great circle abeam of a place, nautical miles.
double alongTrack_nm(Place from, Place to, Place place);

}  // namespace vorlent
