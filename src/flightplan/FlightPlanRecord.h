#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "base/RuntimeError.h"

namespace vorlent {

/// One row of a flight plan or of a vertical profile: a waypoint and the legs at it. The fields
/// stand in the order of the file. Those with a number in their name are the planning display's
/// own; they are kept and not used.
struct FlightPlanRecord {
  static constexpr std::size_t NameLength = 5;

  std::string Name = std::string(NameLength, ' ');  ///< always of five characters, blank-padded
  std::string Text2;
  std::string Text3;
  float Value4 = 0;
  float Value5 = 0;
  float Course = 0;  ///< of the leg that ends here, degrees true, 0..360
  float Value7 = 0;
  float Value8 = 0;
  float Value9 = 0;
  float Distance = 0;  ///< nautical miles before the waypoint at which a descent starts
  float Value11 = 0;
  float Value12 = 0;
  float Value13 = 0;
  float Value14 = 0;
  float Value15 = 0;
  float Value16 = 0;
  float Value17 = 0;
  std::int32_t Altitude = 0;  ///< feet
  float Value19 = 0;
  std::int16_t Value20 = 0;
  std::string Kind;  ///< "PRF" marks a profile point
  std::int32_t Value22 = 0;
  float Latitude = 0;   ///< degrees, north positive
  float Longitude = 0;  ///< degrees, east positive
  /// Where the great circle of the leg that begins here is farthest north, degrees.
  float VertexLat = 0;
  float VertexLon = 0;

  bool operator==(const FlightPlanRecord&) const = default;
};

/// From row 0, the waypoint behind the aircraft, on; row 1 is the one it flies to.
using PlanRows = std::span<const FlightPlanRecord>;

/// Raises SubscriptOutOfRange.
inline const FlightPlanRecord& planRow(PlanRows rows, int row) {
  if (row < 0 || static_cast<std::size_t>(row) >= rows.size())
    throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  return rows[static_cast<std::size_t>(row)];
}

}  // namespace vorlent
