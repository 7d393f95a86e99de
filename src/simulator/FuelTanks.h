#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "simulator/AircraftState.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// 6.7, as the interface can say it in parts of 256.
constexpr double fuelDensity_lb_gal = 1715.0 / 256;

/// The seven tanks in the offsets. With the selector at all tanks the centre tank feeds both
/// engines until it is empty, then each engine has the main tank of its side, and the other one
/// when that is empty. Other positions feed both engines from one tank, or from none. What a client
/// writes into a tank is in it from then on, up to its capacity; tanks that the aircraft does not
/// have keep what is written and weigh nothing.
class FuelTanks {
 public:
  explicit FuelTanks(OffsetMemory& memory);

  /// Fills the tanks as they are before a flight.
  void fill();
  /// Takes up what was written from outside since the last show().
  void takeUpWrites();
  void burn(const std::array<double, engineCount>& used_lb);
  /// Whether there is fuel for an engine in what the selector connects.
  bool feeds(std::size_t engine) const;
  void show();

  double total_lb() const;
  double centre_lb() const { return content_lb_[0]; }
  double leftMain_lb() const { return content_lb_[1]; }
  double rightMain_lb() const { return content_lb_[4]; }

 private:
  static constexpr std::size_t tankCount = 7;

  std::span<const std::size_t> connectedTo(std::size_t engine) const;

  OffsetMemory& memory_;
  std::array<double, tankCount> content_lb_{};
  std::array<std::uint32_t, tankCount> shown_{};
};

}  // namespace vorlent
