#pragma once

#include <optional>

#include "flightplan/greatCircle.h"

/// Great circles as a planner needs them: exact at any place, in full turns. A minute of arc is a
/// nautical mile, as for the autoflight that flies them. Longitudes come out from -180 to 180.
namespace vorlent::sphere {

double distance_nm(GeoPoint from, GeoPoint to);

/// True courses of the leg, 0 to below 360: where it leaves `from`, and where it arrives.
double courseAtStart_deg(GeoPoint from, GeoPoint to);
double courseAtEnd_deg(GeoPoint from, GeoPoint to);

GeoPoint pointAlong(GeoPoint from, double course_deg, double distance_nm);

/// Where the great circle through both points is farthest north. A circle over the poles is turned
/// by less than a minute of arc, because its own longitude would say nothing there: the latitude
/// stays below 90 as a single too.
GeoPoint northernmostPoint(GeoPoint from, GeoPoint to);

/// Where the leg crosses the 180th meridian, on the side of `from`; nothing when it does not.
std::optional<GeoPoint> dateLineCrossing(GeoPoint from, GeoPoint to);

}  // namespace vorlent::sphere
