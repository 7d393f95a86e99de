#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "RouteFlight.h"

namespace vorlent {

/// From the runway XAVR 24 by eleven waypoints, up to 20000 feet, to the runway XWES 26.
Route routeToWesterleigh();

/// A whole flight with the pilot who goes with it: he rotates, works flaps, gear and panel, and
/// lets the autoflight do the rest.
class GateToGate {
 public:
  GateToGate(const Condition& condition, const std::string& tuning);

  /// Until the aircraft is 50 feet above the runway, or long after it should be.
  void fly();

  RouteFlight& route() { return route_; }
  bool landed() const { return landed_; }
  /// The flight phases in their order, each as often as it was entered.
  const std::vector<int>& phases() const { return phases_; }
  /// How far from T/D the descent began, nautical miles.
  double descentBegun_nm() const { return descentBegun_nm_; }
  /// What was missing from the planned altitude and speed over E/D, without signs.
  struct Misses {
    double altitude_ft = 1e5;
    double speed_kt = 1e3;
  };
  const Misses& endOfDescent() const { return endOfDescent_; }
  /// The farthest off a leg to a waypoint, from a minute after the change to it on.
  double offLeg_nm() const { return offLeg_nm_; }

 private:
  void prepare();
  void pilot();
  void rotate();
  void cleanUp();
  void descend();
  void approach();
  /// A detent more, once, when the aircraft has slowed down to it.
  void flapsBelow(double speed_kt);
  void note();
  void notePhase();
  void noteLeg();
  /// The first time that it is called with this name.
  bool once(const std::string& step);
  double height_ft() const;
  double distanceTo_nm(Place place) const;

  RouteFlight route_;
  std::set<std::string> done_;
  std::vector<int> phases_;
  double pitch_deg_ = 0;  ///< when the pilot looked last
  double elevator_ = 0;   ///< what the pilot holds, 1 is full nose up
  bool landed_ = false;
  double descentBegun_nm_ = 1e5;
  Misses endOfDescent_;
  double offLeg_nm_ = 0;
  std::size_t leg_ = 0;
  double legBegun_s_ = 0;
};

}  // namespace vorlent
