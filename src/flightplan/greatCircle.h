#pragma once

#include <optional>

/// Great circles on a round earth where a minute of arc is a nautical mile. Angles are in degrees
/// but where a name says otherwise; north and east are positive.
namespace vorlent {

struct GeoPoint {
  double latitude_deg;
  double longitude_deg;
};

/// Inverse cosine, radians, by the arctangent; beyond -1..1, where only rounding leads, as at the
/// end.
double ArcCos(double x);

double GetDXRadians(GeoPoint a, GeoPoint b);
/// Nautical miles.
double GetDX(GeoPoint a, GeoPoint b);

/// True course at `from`, 0 to 360. It is 0 where the latitudes or the longitudes are equal,
/// whichever way the other point lies. docs/peculiarities.md: course 0. Raises DivisionByZero for
/// points so near that their distance rounds to 0.
double GetCourse(GeoPoint to, GeoPoint from);

/// Latitude of a great circle, told by its northernmost point, at a longitude.
double GcLatAtLon(double longitude_deg, GeoPoint vertex);

/// Longitude at which a track that changed its distance from a great circle from `before` to `now`
/// (any one unit) will reach it, going on in a straight line; nothing when the distance stays.
std::optional<double> crossingLongitude(double before, double beforeLongitude_deg, double now,
                                        double nowLongitude_deg);

/// A heading leads to a leg of this course when it is less than 90 degrees off, to the side
/// where the leg lies: `interceptSide` of 1, to the right of the course, otherwise to its left. The
/// difference counts as it stands, without a turn through north.
bool IsTowardLeg(double legCourse_deg, double heading_deg, int interceptSide);

/// Strictly, in either order of `a` and `b`.
bool IsBetween(double x, double a, double b);

}  // namespace vorlent
