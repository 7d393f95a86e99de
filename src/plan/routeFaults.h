#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "plan/Route.h"

/// What the readers of routes have in common.
namespace vorlent {

/// Raises InvalidCall: "line 7: there is no latitude".
[[noreturn]] void refuseRoute(const std::string& where, const std::string& what);

/// Degrees, checked. Raises as refuseRoute().
GeoPoint placeOf(std::string_view latitude, std::string_view longitude, const std::string& where);

/// Feet, -2000 to 60000. Raises as refuseRoute().
double altitudeOf(std::string_view text, const std::string& where);

/// Raises as refuseRoute() when it cannot take another one.
void addPoint(Route& route, RoutePoint point, const std::string& where);

/// Raises as refuseRoute() when there are too few points for a route.
Route checkedRoute(Route route);

}  // namespace vorlent
