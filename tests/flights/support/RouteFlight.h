#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "Flight.h"
#include "FlownRoute.h"

namespace vorlent {

/// A flight along a route, with the display that plans it: it puts EXEC and PROF into its share and
/// answers each waypoint that the server announces with the plan from there on.
class RouteFlight {
 public:
  RouteFlight(const Condition& condition, FlownRoute route, const std::string& tuning,
              const PerfDataRow& performance = {});

  void fly(double duration_s);
  bool flyUntil(const std::function<bool()>& condition, double limit_s);

  Flight& flight() { return flight_; }
  const Sample& now() const { return flight_.now(); }
  const FlownRoute& route() const { return route_; }
  /// The row of the route that the aircraft flies to.
  std::size_t active() const { return active_; }
  const FlownPoint& from() const { return route_[active_ - 1]; }
  const FlownPoint& to() const { return route_[active_]; }
  /// Off the active leg, nautical miles, right positive.
  double crossTrack_nm(const Sample& sample) const;

 private:
  void hand();
  void answer();

  Flight flight_;
  FlownRoute route_;
  std::size_t active_ = 1;
};

}  // namespace vorlent
