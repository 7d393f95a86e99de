#pragma once

#include <vector>

#include "plan/AircraftPerformance.h"

namespace vorlent {

/// Climb, cruise and descent over a way of a given length, in still air of the standard atmosphere.
///
///   departure --climb--> T/C --cruise--> T/D --descent--> E/D
class VerticalPlan {
 public:
  struct Task {
    double departure_ft;
    double cruise_ft;
    double end_ft;  ///< at E/D
    double way_nm;  ///< from the departure to E/D
  };

  /// A cruise altitude for which the way is too short is lowered by thousands of feet until 5 miles
  /// are left for the cruise. Raises InvalidCall when there is none.
  VerticalPlan(const AircraftPerformance& aircraft, const Task& task);

  double cruise_ft() const { return cruise_ft_; }
  double topOfClimb_nm() const { return climb_.back().distance_nm; }
  double topOfDescent_nm() const { return way_nm_ - descent_.back().distance_nm; }
  /// Feet at a distance from the departure; behind E/D as at E/D.
  double altitudeAt_ft(double distance_nm) const;
  /// The indicated speed that is flown there.
  double speedAt_kt(double distance_nm) const;
  double tripFuel_lb() const;

 private:
  /// A point of the climb, from its beginning, or of the descent, from its end.
  struct Point {
    double distance_nm;
    double altitude_ft;
    double hours;
  };
  /// How the aircraft goes up or down.
  struct Slope {
    double speed_kt;
    double mach;
    double low_fpm;
    double high_fpm;
    double mach_fpm;
    double end_fpm = 0;  ///< up to end_nm from its low end
    double end_nm = 0;
  };
  using Points = std::vector<Point>;

  static Points slopePoints(const Slope& slope, double from_ft, double to_ft);
  static Point step(const Slope& slope, const Point& last, double to_ft);
  static double altitudeOn(const Points& points, double distance_nm);
  static double speedOn(const Slope& slope, double altitude_ft);

  AircraftPerformance aircraft_;
  Slope up_;
  Slope down_;
  double way_nm_;
  double cruise_ft_;
  void slowDown();

  Points climb_;
  Points descent_;
};

}  // namespace vorlent
