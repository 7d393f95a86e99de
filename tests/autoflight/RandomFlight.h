#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

#include "autoflight/TwinAutoflight.h"

namespace vorlent {

struct RandomCommand;

/// Commands and inputs at random, the same for the same seed: an aircraft that mostly drifts and
/// sometimes jumps, that often stands at a threshold of a law, under a pilot who presses anything.
class RandomFlight {
 public:
  /// InEnvelope: an aircraft at 100 to 400 knots with at most 40 degrees of bank, which drifts
  /// only.
  enum class Kind { Wild, InEnvelope };
  /// The localizer's capture is the cycle's to set, not a pilot's.
  enum class Setters { All, WithoutCapture };

  RandomFlight(TwinAutoflight& both, std::uint32_t seed, Kind kind = Kind::Wild)
      : both_(both), random_(seed), wild_(kind == Kind::Wild) {}

  /// One command to both; gives what differs afterwards.
  std::string command(Setters setters = Setters::All);
  /// Tuning, sometimes far out, to both.
  std::string retune();
  /// All tuning to the middle of its range.
  std::string tuneAll();
  /// Inputs of the next cycle into the independent one and the server's store.
  void move();
  /// What the last command was.
  const std::string& last() const { return last_; }

 private:
  bool chance(double probability) { return uniform(0, 1) < probability; }
  /// A chance of what no aircraft does.
  bool jump(double probability) { return chance(probability) && wild_; }
  double uniform(double from, double to) {
    return from + (to - from) * (static_cast<double>(random_()) / 4294967296.0);
  }
  int whole(int from, int to) { return static_cast<int>(std::floor(uniform(from, to + 1.0))); }
  template <class Values>
  const auto& oneOf(const Values& values) {
    return values[static_cast<std::size_t>(whole(0, static_cast<int>(std::size(values)) - 1))];
  }
  float drift(float value, double step, double lowest, double highest);
  float turned(float degrees, double step);

  std::string give(const RandomCommand& command, double value);
  void moveAir();
  void moveAttitude();
  void moveAltitude();
  void moveRadios();
  void moveEngines();
  void moveSimulatorAutopilot();

  TwinAutoflight& both_;
  std::mt19937 random_;
  bool wild_;
  std::string last_;
};

}  // namespace vorlent
