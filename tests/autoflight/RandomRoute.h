#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "flightplan/FlightPlanRecord.h"

namespace vorlent {

/// Draws the same for the same seed, on every system.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}

  double uniform(double from, double to) {
    return from + (to - from) * (static_cast<double>(random_()) / 4294967296.0);
  }
  bool chance(double probability) { return uniform(0, 1) < probability; }
  int whole(int from, int to) { return from + static_cast<int>(uniform(0, to - from + 1.0)); }
  template <class Values>
  const auto& oneOf(const Values& values) {
    return values[static_cast<std::size_t>(whole(0, static_cast<int>(std::size(values)) - 1))];
  }

 private:
  std::mt19937 random_;
};

using Route = std::vector<FlightPlanRecord>;

/// A route of two to nine waypoints anywhere on the earth, near its poles and over the 180th
/// meridian too: legs in all directions, some due north or east, some of no length.
Route randomRoute(Dice& dice);

/// The profile of a route, usually with a T/C and a T/D between its rows.
Route randomProfile(const Route& route, Dice& dice);

/// The text of a file, as a display writes it.
std::string planFileOf(const Route& route, Dice& dice);
/// The same with something that is wrong with it, or that only looks so.
std::string oddPlanFileOf(const Route& route, Dice& dice);
/// What may stand in the place of a number: most of it is none.
std::string oddNumber(Dice& dice);

}  // namespace vorlent
