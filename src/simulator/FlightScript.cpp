#include "simulator/FlightScript.h"

#include <array>

namespace vorlent {
namespace {

constexpr double field_ft = homeRunway.elevation_m / 0.3048;
constexpr FlightPath takeOffPath{homeRunway.course_deg, false};
constexpr FlightPath finalPath{homeRunway.course_deg, true};

// clang-format off
constexpr std::array script{
    //            name                              s   kt  kt/s     ft  ft/min  path        flaps gear  spoilers
    FlightSegment{"on the runway",                 10,   0, 1.0, field_ft,   0,  takeOffPath,  3, true,  0.0},
    FlightSegment{"take-off roll and rotation",    45, 160, 4.8,   3000,  2200,  takeOffPath,  3, true,  0.0},
    FlightSegment{"initial climb",                 30, 165, 1.0,   3000,  2200,  takeOffPath,  3, false, 0.0},
    FlightSegment{"acceleration, flaps 1",         30, 190, 1.0,   5000,  1000,  takeOffPath,  1, false, 0.0},
    FlightSegment{"acceleration, flaps up",        30, 220, 1.0,   5000,  1000,  takeOffPath,  0, false, 0.0},
    FlightSegment{"climb at 250 knots",           150, 250, 0.8,  10000,  2000,  takeOffPath,  0, false, 0.0},
    FlightSegment{"climbing turn to the right",   110, 250, 0.8,  10000,  2000,  {330, false}, 0, false, 0.0},
    FlightSegment{"climb at 290 knots",           540, 290, 0.5,  24000,  1800,  {60, false},  0, false, 0.0},
    FlightSegment{"level at 24000 feet",          130, 290, 0.5,  24000,  1800,  {60, false},  0, false, 0.0},
    FlightSegment{"level turn to the right",       90, 290, 0.5,  24000,  1800,  {150, false}, 0, false, 0.0},
    FlightSegment{"descent with spoilers",        180, 290, 0.5,  10000,  2800,  finalPath,    0, false, 0.5},
    FlightSegment{"descent",                      200, 280, 0.5,  10000,  2000,  finalPath,    0, false, 0.0},
    FlightSegment{"descent at 250 knots",         330, 250, 0.5,   3000,  1500,  finalPath,    0, false, 0.0},
    FlightSegment{"level at 3000 feet, flaps 1",   60, 190, 0.5,   3000,  1000,  finalPath,    1, false, 0.0},
    FlightSegment{"slowing, flaps 5",              60, 175, 0.5,   3000,  1000,  finalPath,    3, false, 0.0},
    FlightSegment{"gear down, flaps 15",           60, 160, 0.5,   3000,  1000,  finalPath,    5, true,  0.0},
};
// clang-format on

}  // namespace

std::span<const FlightSegment> flightScript() { return script; }

double flightDuration_s() {
  double sum_s = 0;
  for (const FlightSegment& segment : script) sum_s += segment.duration_s;
  return sum_s;
}

}  // namespace vorlent
