#include "plan/VerticalPlan.h"

#include <algorithm>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "base/units.h"
#include "plan/airspeed.h"
#include "plan/approach.h"

namespace vorlent {
namespace {

constexpr double SpeedLimitBelow_ft = 10000;  // 14 CFR 91.117
constexpr double SpeedLimit_kt = 250;
constexpr double Step_ft = 250;
constexpr double LevelStep_ft = 1000;
constexpr double LeastCruise_nm = 5;
constexpr double MinutesPerHour = 60;
constexpr double Gravity_m_s2 = 9.80665;

/// How high the speed would carry.
double heightOfSpeed_ft(double speed_kt) {
  const double speed_m_s = speed_kt * MetresPerSecondPerKnot;
  return speed_m_s * speed_m_s / (2 * Gravity_m_s2) / MetresPerFoot;
}

}  // namespace

VerticalPlan::VerticalPlan(const AircraftPerformance& aircraft, const Task& task)
    : aircraft_(aircraft),
      up_{aircraft.climbSpeed_kt, aircraft.climbMach, aircraft.lowClimb_fpm, aircraft.climb_fpm,
          aircraft.machClimb_fpm},
      down_{aircraft.descentSpeed_kt, aircraft.descentMach,     aircraft.lowDescent_fpm,
            aircraft.descent_fpm,     aircraft.machDescent_fpm, aircraft.approachDescent_fpm,
            ApproachBegins_nm},
      way_nm_(task.way_nm) {
  const double lowest_ft = std::max(task.departure_ft, task.end_ft) + LevelStep_ft;
  if (task.cruise_ft < lowest_ft)
    throw RuntimeError(RuntimeError::InvalidCall, "a cruise at " + doubleText(task.cruise_ft) +
                                                      " feet is too low, the least is " +
                                                      doubleText(lowest_ft));
  for (cruise_ft_ = task.cruise_ft; cruise_ft_ >= lowest_ft; cruise_ft_ -= LevelStep_ft) {
    climb_ = slopePoints(up_, task.departure_ft, cruise_ft_);
    descent_ = slopePoints(down_, task.end_ft, cruise_ft_);
    slowDown();
    if (topOfDescent_nm() - topOfClimb_nm() >= LeastCruise_nm) return;
  }
  throw RuntimeError(RuntimeError::InvalidCall,
                     "the route is too short: climb and descent find no room in it");
}

VerticalPlan::Points VerticalPlan::slopePoints(const Slope& slope, double from_ft, double to_ft) {
  Points points = {{0, from_ft, 0}};
  while (points.back().altitude_ft < to_ft)
    points.push_back(
        step(slope, points.back(), std::min(points.back().altitude_ft + Step_ft, to_ft)));
  return points;
}

VerticalPlan::Point VerticalPlan::step(const Slope& slope, const Point& last, double to_ft) {
  const double middle_ft = (last.altitude_ft + to_ft) / 2;
  const double indicated_kt = speedOn(slope, middle_ft);
  const bool byMach = airspeed::calibratedFromMach_kt(slope.mach, middle_ft) <= indicated_kt;
  const double rate_fpm = last.distance_nm < slope.end_nm  ? slope.end_fpm
                          : middle_ft < SpeedLimitBelow_ft ? slope.low_fpm
                          : byMach                         ? slope.mach_fpm
                                                           : slope.high_fpm;
  const double hours = (to_ft - last.altitude_ft) / rate_fpm / MinutesPerHour;
  return {last.distance_nm + hours * airspeed::trueFromCalibrated_kt(indicated_kt, middle_ft),
          to_ft, last.hours + hours};
}

/// With the engines at idle too much speed is lost as height is, at the same power: in level flight
/// above the altitude from which on the lower speed holds.
void VerticalPlan::slowDown() {
  if (cruise_ft_ <= SpeedLimitBelow_ft || descent_.front().altitude_ft >= SpeedLimitBelow_ft)
    return;
  const auto trueAt_kt = [](double indicated_kt) {
    return airspeed::trueFromCalibrated_kt(indicated_kt, SpeedLimitBelow_ft);
  };
  const double fast_kt = trueAt_kt(speedOn(down_, SpeedLimitBelow_ft));
  const double slow_kt = trueAt_kt(std::min(SpeedLimit_kt, down_.speed_kt));
  const double hours =
      (heightOfSpeed_ft(fast_kt) - heightOfSpeed_ft(slow_kt)) / down_.low_fpm / MinutesPerHour;
  const auto above = std::find_if(descent_.begin(), descent_.end(), [](const Point& p) {
    return p.altitude_ft >= SpeedLimitBelow_ft;
  });
  const double level_nm = hours * (fast_kt + slow_kt) / 2;
  for (auto point = above; point != descent_.end(); ++point) {
    point->distance_nm += level_nm;
    point->hours += hours;
  }
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
