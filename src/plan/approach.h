#pragma once

#include <string>

#include "flightplan/greatCircle.h"

namespace vorlent {

/// So far before E/D the autoflight goes over to the approach phase.
constexpr double ApproachBegins_nm = 8;

/// Where the flight ends: the threshold, and the true course of its centre line.
struct ArrivalRunway {
  GeoPoint threshold;
  double course_deg;
  double elevation_ft;
  int number() const;  ///< 1 to 36
};

/// Level flight of six miles on the centre line, until the glide path comes from above.
struct Approach {
  double altitude_ft;
  double end_nm;          ///< of the descent, from the threshold
  GeoPoint endOfDescent;  ///< E/D
  GeoPoint glidePath;     ///< where it is met
  std::string rowName;    ///< of the place where it is met: "RX-" and the runway's number
};

Approach approachTo(const ArrivalRunway& runway);
/// 2000 feet above the ground, up to the next hundred.
double approachAltitude_ft(double elevation_ft);

}  // namespace vorlent
