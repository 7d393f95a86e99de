#include "plan/VerticalPlan.h"

#include <algorithm>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "plan/airspeed.h"

namespace vorlent {
namespace {

constexpr double SpeedLimitBelow_ft = 10000;  // 14 CFR 91.117
constexpr double SpeedLimit_kt = 250;
constexpr double Step_ft = 250;
constexpr double LevelStep_ft = 1000;
constexpr double LeastCruise_nm = 5;
constexpr double MinutesPerHour = 60;

}  // namespace

VerticalPlan::VerticalPlan(const AircraftPerformance& aircraft, const Task& task)
    : aircraft_(aircraft),
      up_{aircraft.climbSpeed_kt, aircraft.climbMach, aircraft.lowClimb_fpm, aircraft.climb_fpm,
          aircraft.machClimb_fpm},
      down_{aircraft.descentSpeed_kt, aircraft.descentMach, aircraft.lowDescent_fpm,
            aircraft.descent_fpm, aircraft.machDescent_fpm},
      way_nm_(task.way_nm) {
  const double lowest_ft = std::max(task.departure_ft, task.end_ft) + LevelStep_ft;
  if (task.cruise_ft < lowest_ft)
    throw RuntimeError(RuntimeError::InvalidCall, "a cruise at " + doubleText(task.cruise_ft) +
                                                      " feet is too low, the least is " +
                                                      doubleText(lowest_ft));
  for (cruise_ft_ = task.cruise_ft; cruise_ft_ >= lowest_ft; cruise_ft_ -= LevelStep_ft) {
    climb_ = slopePoints(up_, task.departure_ft, cruise_ft_);
    descent_ = slopePoints(down_, task.end_ft, cruise_ft_);
    if (topOfDescent_nm() - topOfClimb_nm() >= LeastCruise_nm) return;
  }
  throw RuntimeError(RuntimeError::InvalidCall,
                     "the route is too short: climb and descent find no room in it");
}

VerticalPlan::Points VerticalPlan::slopePoints(const Slope& slope, double from_ft, double to_ft) {
  Points points = {{0, from_ft, 0}};
  while (points.back().altitude_ft < to_ft) {
    const Point last = points.back();
    const double next_ft = std::min(last.altitude_ft + Step_ft, to_ft);
    const double middle_ft = (last.altitude_ft + next_ft) / 2;
    const double indicated_kt = speedOn(slope, middle_ft);
    const bool byMach = airspeed::calibratedFromMach_kt(slope.mach, middle_ft) <= indicated_kt;
    const double rate_fpm = middle_ft < SpeedLimitBelow_ft ? slope.low_fpm
                            : byMach                       ? slope.mach_fpm
                                                           : slope.high_fpm;
    const double hours = (next_ft - last.altitude_ft) / rate_fpm / MinutesPerHour;
    points.push_back(
        {last.distance_nm + hours * airspeed::trueFromCalibrated_kt(indicated_kt, middle_ft),
         next_ft, last.hours + hours});
  }
  return points;
}

double VerticalPlan::speedOn(const Slope& slope, double altitude_ft) {
  const double speed_kt =
      std::min(slope.speed_kt, airspeed::calibratedFromMach_kt(slope.mach, altitude_ft));
  return altitude_ft < SpeedLimitBelow_ft ? std::min(speed_kt, SpeedLimit_kt) : speed_kt;
}

double VerticalPlan::altitudeOn(const Points& points, double distance_nm) {
  const auto behind = std::find_if(points.begin(), points.end(), [distance_nm](const Point& p) {
    return p.distance_nm >= distance_nm;
  });
  if (behind == points.begin()) return points.front().altitude_ft;
  const auto before = std::prev(behind);
  return std::lerp(
      before->altitude_ft, behind->altitude_ft,
      (distance_nm - before->distance_nm) / (behind->distance_nm - before->distance_nm));
}

double VerticalPlan::altitudeAt_ft(double distance_nm) const {
  if (distance_nm < topOfClimb_nm()) return altitudeOn(climb_, std::max(distance_nm, 0.0));
  if (distance_nm <= topOfDescent_nm()) return cruise_ft_;
  return altitudeOn(descent_, std::max(way_nm_ - distance_nm, 0.0));
}

double VerticalPlan::speedAt_kt(double distance_nm) const {
  const double altitude_ft = altitudeAt_ft(distance_nm);
  if (distance_nm > way_nm_) return aircraft_.approachSpeed_kt;
  if (distance_nm < topOfClimb_nm()) return speedOn(up_, altitude_ft);
  if (distance_nm > topOfDescent_nm()) return speedOn(down_, altitude_ft);
  return speedOn({aircraft_.climbSpeed_kt, aircraft_.cruiseMach, 0, 0, 0}, cruise_ft_);
}

double VerticalPlan::tripFuel_lb() const {
  const double cruise_kt = airspeed::trueFromCalibrated_kt(speedAt_kt(topOfClimb_nm()), cruise_ft_);
  const double cruiseHours = (topOfDescent_nm() - topOfClimb_nm()) / cruise_kt;
  return climb_.back().hours * aircraft_.climbFuel_lbph + cruiseHours * aircraft_.cruiseFuel_lbph +
         descent_.back().hours * aircraft_.descentFuel_lbph;
}

}  // namespace vorlent
