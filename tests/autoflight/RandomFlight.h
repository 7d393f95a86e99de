#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "autoflight/TwinAutoflight.h"

namespace vorlent {

/// Commands and inputs at random, the same for the same seed: an aircraft that mostly drifts and
/// sometimes jumps, that often stands at a threshold of a law, under a pilot who presses anything.
class RandomFlight {
 public:
  RandomFlight(TwinAutoflight& both, std::uint32_t seed) : both_(both), random_(seed) {}

  /// One command to both; gives what differs afterwards.
  std::string command();
  /// Tuning, sometimes far out, to both.
  std::string retune();
  /// Inputs of the next cycle into the independent one and the server's store.
  void move();
  /// What the last command was.
  const std::string& last() const { return last_; }

 private:
  bool chance(double probability) { return uniform(0, 1) < probability; }
  double uniform(double from, double to) {
    return from + (to - from) * std::generate_canonical<double, 53>(random_);
  }
  int whole(int from, int to) { return static_cast<int>(std::floor(uniform(from, to + 1.0))); }
  template <class Value, std::size_t N>
  const Value& oneOf(const Value (&values)[N]) {
    return values[static_cast<std::size_t>(whole(0, static_cast<int>(N) - 1))];
  }
  float drift(float value, double step, double lowest, double highest);
  float turned(float degrees, double step);

  void moveAir();
  void moveAttitude();
  void moveAltitude();
  void moveRadios();
  void moveEngines();
  void moveSimulatorAutopilot();

  TwinAutoflight& both_;
  std::mt19937 random_;
  std::string last_;
};

}  // namespace vorlent
