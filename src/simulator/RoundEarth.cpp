#include "simulator/RoundEarth.h"

#include <cmath>

#include "base/units.h"
#include "simulator/angles.h"

// The formulas are those of the spherical triangle with its third corner at the pole; the distance
// is written with half angles (haversines), which stays exact for near places.
namespace vorlent {

Place placeFrom(Place from, double bearing_deg, double distance_m) {
  const double latitude = from.latitude_deg * RadiansPerDegree;
  const double bearing = bearing_deg * RadiansPerDegree;
  const double arc = distance_m / EarthRadius_m;
  const double sine =
      std::sin(latitude) * std::cos(arc) + std::cos(latitude) * std::sin(arc) * std::cos(bearing);
  const double eastward = std::atan2(std::sin(bearing) * std::sin(arc) * std::cos(latitude),
                                     std::cos(arc) - std::sin(latitude) * sine);
  return {std::asin(sine) / RadiansPerDegree,
          signedAngle(from.longitude_deg + eastward / RadiansPerDegree)};
}

double distanceBetween_m(Place a, Place b) {
  const double latitudeA = a.latitude_deg * RadiansPerDegree;
  const double latitudeB = b.latitude_deg * RadiansPerDegree;
  const double north = std::sin((latitudeB - latitudeA) / 2);
  const double east = std::sin((b.longitude_deg - a.longitude_deg) * RadiansPerDegree / 2);
  const double halfSquared =
      north * north + std::cos(latitudeA) * std::cos(latitudeB) * east * east;
  return 2 * EarthRadius_m * std::asin(std::fmin(1.0, std::sqrt(halfSquared)));
}

double bearing_deg(Place from, Place to) {
  const double latitudeA = from.latitude_deg * RadiansPerDegree;
  const double latitudeB = to.latitude_deg * RadiansPerDegree;
  const double eastward = (to.longitude_deg - from.longitude_deg) * RadiansPerDegree;
  const double east = std::sin(eastward) * std::cos(latitudeB);
  const double north = std::cos(latitudeA) * std::sin(latitudeB) -
                       std::sin(latitudeA) * std::cos(latitudeB) * std::cos(eastward);
  return compass(std::atan2(east, north) / RadiansPerDegree);
}

}  // namespace vorlent
