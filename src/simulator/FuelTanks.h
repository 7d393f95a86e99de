#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "simulator/AircraftState.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// 6.7, as the interface can say it in parts of 256.
constexpr double FuelDensity_lb_gal = 1715.0 / 256;

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
  /// Takes up what was written from outside since the last show(), before a step of `dt_s`.
  void takeUpWrites(double dt_s);
  void burn(const std::array<double, EngineCount>& used_lb);
  /// Whether there is fuel for an engine in what the selector connects.
  bool feeds(std::size_t engine) const;
  /// A level that a client is writing stays as written for a moment: it comes byte by byte, and
  /// what burns in between must not get among its bytes.
  void show();

  double total_lb() const;
  double centre_lb() const { return content_lb_[0]; }
  double leftMain_lb() const { return content_lb_[1]; }
  double rightMain_lb() const { return content_lb_[4]; }

 private:
  static constexpr std::size_t TankCount = 7;

  std::span<const std::size_t> connectedTo(std::size_t engine) const;
  void showLevel(std::size_t tank);

  OffsetMemory& memory_;
  std::array<double, TankCount> content_lb_{};
  std::array<std::uint32_t, TankCount> shown_{};
  std::array<double, TankCount> sinceWrite_s_{};
};

}  // namespace vorlent
