#include "plan/planTable.h"

#include <fmt/format.h>

#include <cmath>

#include "plan/sphere.h"

namespace vorlent {
namespace {

std::string headText(const PlannedFlight& flight) {
  return fmt::format(
      "{}  cruise {:.0f} ft  distance {:.0f} NM\n"
      "trip fuel {:.0f} lb  reserve {:.0f}  without fuel {:.0f}  take-off {:.0f}  landing {:.0f}\n"
      "N1 {:.1f} for take-off, {:.1f} in climb  Mach {:.2f} in climb, {:.2f} in descent\n\n",
      flight.aircraft.name, flight.cruise_ft, flight.points.back().way_nm, flight.tripFuel_lb,
      flight.reserve_lb, flight.withoutFuel_lb, flight.takeoff_lb, flight.landing_lb,
      flight.aircraft.takeoffN1_pct, flight.aircraft.climbN1_pct, flight.aircraft.climbMach,
      flight.aircraft.descentMach);
}

constexpr const char* Columns =
    "point   latitude  longitude  course    leg    way  passed at  flown to  descent  speed\n"
    "             deg        deg     deg     NM     NM         ft        ft       NM     kt\n";

std::string rowText(const PlannedFlight& flight, std::size_t row) {
  const PlanPoint& point = flight.points[row];
  const PlanPoint& before = flight.points[row == 0 ? 0 : row - 1];
  const double course_deg = row == 0 ? 0 : sphere::courseAtStart_deg(before.place, point.place);
  return fmt::format(
      "{:<5}  {:>9.4f}  {:>9.4f}  {:>6.1f} {:>6.1f} {:>6.1f}     {:>6.0f}    {:>6.0f}   {:>6.1f}"
      "    {:>3.0f}\n",
      point.name, point.place.latitude_deg, point.place.longitude_deg, course_deg,
      point.way_nm - before.way_nm, point.way_nm, point.altitude_ft, point.target_ft,
      point.descent_nm, point.speed_kt);
}

}  // namespace

std::string planTable(const PlannedFlight& flight) {
  std::string table = headText(flight) + Columns;
  for (std::size_t row = 0; row < flight.points.size(); ++row) table += rowText(flight, row);
  return table;
}

}  // namespace vorlent
