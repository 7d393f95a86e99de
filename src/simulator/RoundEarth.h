#pragma once

namespace vorlent {

/// Mean radius of the earth, as the International Union of Geodesy and Geophysics gives it.
constexpr double EarthRadius_m = 6371008.8;

/// North and east positive.
struct Place {
  double latitude_deg;
  double longitude_deg;
};

/// The place reached from `from` along the great circle that leaves it at this true bearing.
Place placeFrom(Place from, double bearing_deg, double distance_m);
double distanceBetween_m(Place a, Place b);
/// True bearing at `from`, 0 to 360.
double bearing_deg(Place from, Place to);

}  // namespace vorlent
