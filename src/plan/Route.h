#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "flightplan/greatCircle.h"

namespace vorlent {

struct RoutePoint {
  std::string name;  ///< as the file has it
  GeoPoint place;
  std::optional<double> altitude_ft = std::nullopt;  ///< of an airport its elevation
};

/// A route from departure to destination, as a file of a flight simulator tells it.
struct Route {
  static constexpr std::size_t LargestFile_bytes = std::size_t{4} * 1024 * 1024;
  static constexpr std::size_t MostPoints = 1000;

  std::vector<RoutePoint> points;
  std::optional<double> cruise_ft = std::nullopt;
};

/// The route of a file's text. Each raises InvalidCall with a sentence that names the place in the
/// text and what is wrong there; a route has 2 points or more, and no more than MostPoints.
Route readXPlaneRoute(std::string_view text);
Route readGarminRoute(std::string_view text);
Route readLittleNavmapRoute(std::string_view text);

/// The route of a file, by the end of its name: .fms, .fpl or .lnmpln. Raises what the readers
/// raise, with the file's name before it, and what readFile() raises.
Route loadRoute(const std::string& path);

}  // namespace vorlent
