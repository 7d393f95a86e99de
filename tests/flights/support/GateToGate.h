#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "Flight.h"
#include "plan/Pilot.h"
#include "plan/PlanSession.h"
#include "support/TempFolder.h"

namespace vorlent {

/// The shipped route, as the planner plans it: from the runway XAVR 24 to the runway XWES 26.
PlannedFlight shippedFlight();

/// A whole flight along the shipped route. Planner and pilot are those of vorlent-plan, in a
/// session of their own in the server's network; the share is a folder.
class GateToGate {
 public:
  GateToGate(const Condition& condition, const std::string& tuning);

  /// Until the aircraft is 50 feet above the runway, or long after it should be.
  void fly();

  Flight& flight() { return flight_; }
  const PlannedFlight& plan() const { return plan_; }
  bool arrived() const { return pilot_.arrived(); }
  /// What planner and pilot have told, a line each.
  const std::vector<std::string>& told() const { return told_; }
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
  int timesLnavWasLost() const { return lnavLost_; }

 private:
  void connect();
  void told(const std::string& line);
  void announce();
  void note();
  void notePhase();
  void noteLeg();
  void noteLnav();
  double offLeg(const Sample& sample) const;

  PlannedFlight plan_ = shippedFlight();
  TempFolder share_;
  Flight flight_;
  Pilot pilot_;
  PlanSession session_;
  std::filesystem::file_time_type writtenAt_ = std::filesystem::file_time_type::clock::now();
  std::vector<std::string> told_;
  std::vector<int> phases_;
  double descentBegun_nm_ = 1e5;
  Misses endOfDescent_;
  double offLeg_nm_ = 0;
  int lnavLost_ = 0;
  bool lnav_ = false;
  std::size_t leg_ = 0;
  double legBegun_s_ = 0;
};

}  // namespace vorlent
