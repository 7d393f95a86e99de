#pragma once

#include <cmath>
#include <optional>
#include <string_view>

#include "base/RuntimeError.h"
#include "flightplan/PlanFile.h"
#include "plan/Route.h"
#include "plan/planRows.h"
#include "require.h"

namespace vorlent::plan_route {

inline std::optional<Route> readOrRefused(Route (*read)(std::string_view), std::string_view text) {
  try {
    return read(text);
  } catch (const RuntimeError& error) {
    VORLENT_REQUIRE(error.number() == RuntimeError::InvalidCall);
    VORLENT_REQUIRE(!error.description().empty());
    return std::nullopt;
  }
}

inline std::optional<PlannedFlight> plannedOrRefused(const Route& route) {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.cruise_ft = 15000;
  try {
    return planFlight(route, task);
  } catch (const RuntimeError& error) {
    VORLENT_REQUIRE(error.number() == RuntimeError::InvalidCall);
    return std::nullopt;
  }
}

inline void requireRows(const std::vector<FlightPlanRecord>& rows) {
  const PlanFile file = readPlanFile(planFileText(rows));
  VORLENT_REQUIRE(!file.fault);
  VORLENT_REQUIRE(file.rows == rows);
  for (const FlightPlanRecord& row : rows) {
    VORLENT_REQUIRE(row.Course >= 0 && row.Course <= 360);
    VORLENT_REQUIRE(row.VertexLat >= 0 && row.VertexLat < 90);
    VORLENT_REQUIRE(std::fabs(row.VertexLon) <= 180);
    VORLENT_REQUIRE(row.Distance >= 0);
  }
}

/// A route is refused with a sentence, or it has 2 to MostPoints points on the globe; a plan of it
/// is refused, or its files are read back as they were written.
inline void tryRoute(Route (*read)(std::string_view), std::string_view text) {
  const auto route = readOrRefused(read, text);
  if (!route) return;
  VORLENT_REQUIRE(route->points.size() >= 2 && route->points.size() <= Route::MostPoints);
  for (const RoutePoint& point : route->points)
    VORLENT_REQUIRE(std::fabs(point.place.latitude_deg) <= 90 &&
                    std::fabs(point.place.longitude_deg) <= 180);
  if (route->points.size() > 50) return;
  const auto flight = plannedOrRefused(*route);
  if (!flight) return;
  requireRows(profRows(*flight, 1));
  requireRows(execRows(*flight, legCount(*flight)));
}

}  // namespace vorlent::plan_route
