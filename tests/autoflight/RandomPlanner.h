#pragma once

#include <cstdint>
#include <string>

#include "autoflight/RandomRoute.h"
#include "support/IndependentPlan.h"

namespace vorlent {

/// A display that plans flights at random on its share, some of them with mistakes, and that
/// answers an announced waypoint with the next leg at once, late, twice, never, or with another
/// plan.
class RandomPlanner {
 public:
  RandomPlanner(independent::Share& share, std::uint32_t seed) : share_(share), dice_(seed) {}

  /// A new flight of a new aircraft.
  void plan();
  /// One without mistakes.
  void planWell();
  /// What has been written into the file ACTIVE.
  void hear(const std::string& waypoint);
  /// A cycle has gone by; true when the plan is to be executed.
  bool wantsExecution();

  int answers = 0;  ///< next legs that were put on the share

 private:
  void putFiles();
  void putAircraft();
  void putPerformance();
  void spoil();
  void answer();

  independent::Share& share_;
  Dice dice_;
  Route route_;
  int deafFor_ = 0;
  int answerIn_ = 0;
  bool again_ = false;
  bool withAnother_ = false;
};

}  // namespace vorlent
