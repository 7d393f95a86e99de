#include "bridge/PlaceCheck.h"

#include <cmath>

#include "base/units.h"

namespace vorlent {
namespace {

/// A fast jet makes 700 m in the two seconds after which a stream counts as gone.
constexpr double Farthest_deg = 0.05;
constexpr double Highest_m = 2000;

/// Written so that what is no number is not there.
bool exists(const PlaceCheck::Place& place) {
  return std::fabs(place.latitude_deg) <= 90 && std::fabs(place.longitude_deg) <= 180 &&
         place.altitude_m >= -1000 && place.altitude_m <= 100000;
}

bool near(const PlaceCheck::Place& a, const PlaceCheck::Place& b) {
  const double eastward_deg = std::remainder(a.longitude_deg - b.longitude_deg, 360) *
                              std::cos(a.latitude_deg * RadiansPerDegree);
  return std::hypot(a.latitude_deg - b.latitude_deg, eastward_deg) <= Farthest_deg &&
         std::fabs(a.altitude_m - b.altitude_m) <= Highest_m;
}

}  // namespace

bool PlaceCheck::accepts(const Place& place) {
  if (!exists(place)) return false;
  const bool good = !last_ || near(place, *last_) || (suspect_ && near(place, *suspect_));
  if (good) last_ = place;
  suspect_ = good ? std::nullopt : std::optional(place);
  return good;
}

}  // namespace vorlent
