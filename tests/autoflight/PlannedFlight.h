#pragma once

#include <cstdint>
#include <string>

#include "autoflight/RandomFlight.h"
#include "autoflight/RandomPlanner.h"

namespace vorlent {

/// A random flight along the random plans of a display.
class PlannedFlight {
 public:
  using Kind = RandomFlight::Kind;
  using Setters = RandomFlight::Setters;

  PlannedFlight(TwinAutoflight& both, std::uint32_t seed, Kind kind = Kind::Wild)
      : planner(both.twin.share, seed + 1),
        both_(both),
        flight_(both, seed, kind),
        dice_(seed + 2),
        wild_(kind == Kind::Wild) {}

  /// As of RandomFlight; the pilot plays with what the plan needs, too.
  std::string command(Setters setters = Setters::All);
  std::string retune() { return flight_.retune(); }
  std::string tuneAll() { return flight_.tuneAll(); }
  void move();
  const std::string& last() const { return last_; }

  /// What the display does after a cycle.
  std::string answer();
  /// The plan that is on the share.
  std::string execute();
  /// Beside the middle of the leg, off the ground.
  void standOnLeg();

  RandomPlanner planner;

 private:
  void moveAlong();
  void aim();
  void jump();
  void moveToThresholds();
  void stand(double latitude, double longitude);

  TwinAutoflight& both_;
  RandomFlight flight_;
  Dice dice_;
  bool wild_;
  std::string last_;
  double north_deg_ = 0;  ///< a cycle's way
  double east_deg_ = 0;
};

}  // namespace vorlent
