#include "plan/routeFaults.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/printable.h"
#include "base/text.h"

namespace vorlent {
namespace {

double numberBetween(double lowest, double highest, std::string_view text, const char* meaning,
                     const std::string& where) {
  const std::string name = meaning;
  if (trimmed(text).empty()) refuseRoute(where, "there is no " + name);
  const auto value = numeric(text);
  const std::string shown = printable(text.substr(0, 40));
  if (!value) refuseRoute(where, "the " + name + " \"" + shown + "\" is no number");
  if (*value < lowest || *value > highest)
    refuseRoute(where, "the " + name + " " + shown + " is not from " + doubleText(lowest) + " to " +
                           doubleText(highest));
  return *value;
}

}  // namespace

void refuseRoute(const std::string& where, const std::string& what) {
  throw RuntimeError(RuntimeError::InvalidCall, where + ": " + what);
}

GeoPoint placeOf(std::string_view latitude, std::string_view longitude, const std::string& where) {
  return {numberBetween(-90, 90, latitude, "latitude", where),
          numberBetween(-180, 180, longitude, "longitude", where)};
}

double altitudeOf(std::string_view text, const std::string& where) {
  return numberBetween(-2000, 60000, text, "altitude", where);
}

void addPoint(Route& route, RoutePoint point, const std::string& where) {
  if (route.points.size() == Route::MostPoints)
    refuseRoute(where, "a route has at most " + std::to_string(Route::MostPoints) + " waypoints");
  route.points.push_back(std::move(point));
}

Route checkedRoute(Route route) {
  if (route.points.size() >= 2) return route;
  throw RuntimeError(RuntimeError::InvalidCall, "a route has 2 waypoints or more, this one has " +
                                                    std::to_string(route.points.size()));
}

}  // namespace vorlent
