#include "simulator/FuelTanks.h"

#include <algorithm>
#include <numeric>

#include "base/numbers.h"

namespace vorlent {
namespace {

struct Tank {
  std::size_t offset;
  std::uint32_t capacity_gal;
  double filled;  ///< share of the capacity before a flight
};

enum TankIndex : std::size_t { Centre, LeftMain, LeftAux, LeftTip, RightMain, RightAux, RightTip };

/// Capacities of the wing and centre tanks of a 737-700, as its maker publishes them.
constexpr std::array<Tank, 7> tanks{{{0x0B74, 4299, 0.10},
                                     {0x0B7C, 1288, 0.90},
                                     {0x0B84, 0, 0},
                                     {0x0B8C, 0, 0},
                                     {0x0B94, 1288, 0.90},
                                     {0x0B9C, 0, 0},
                                     {0x0BA4, 0, 0}}};

constexpr double fullLevel = 128 * 65536.0;

double capacity_lb(std::size_t i) { return tanks[i].capacity_gal * fuelDensity_lb_gal; }

}  // namespace

FuelTanks::FuelTanks(OffsetMemory& memory) : memory_(memory) {
  memory_.write(0x0AF4, rounded<std::uint16_t>(fuelDensity_lb_gal * 256));
  for (const Tank& tank : tanks) memory_.write<std::uint32_t>(tank.offset + 4, tank.capacity_gal);
  fill();
}

void FuelTanks::fill() {
  for (std::size_t i = 0; i < tankCount; ++i) content_lb_[i] = tanks[i].filled * capacity_lb(i);
  show();
}

void FuelTanks::takeUpWrites() {
  for (std::size_t i = 0; i < tankCount; ++i) {
    const auto level = memory_.read<std::uint32_t>(tanks[i].offset);
    if (level != shown_[i]) content_lb_[i] = std::min(1.0, level / fullLevel) * capacity_lb(i);
  }
}

void FuelTanks::burn(const std::array<double, engineCount>& used_lb) {
  const double wanted_lb = used_lb[0] + used_lb[1];
  const double fromCentre_lb = std::min(wanted_lb, content_lb_[Centre]);
  content_lb_[Centre] -= fromCentre_lb;
  if (wanted_lb <= fromCentre_lb) return;
  const double left = 1 - fromCentre_lb / wanted_lb;
  draw(used_lb[0] * left, LeftMain, RightMain);
  draw(used_lb[1] * left, RightMain, LeftMain);
}

void FuelTanks::draw(double wanted_lb, std::size_t first, std::size_t second) {
  for (const std::size_t i : {first, second}) {
    const double drawn_lb = std::min(wanted_lb, content_lb_[i]);
    content_lb_[i] -= drawn_lb;
    wanted_lb -= drawn_lb;
  }
}

void FuelTanks::show() {
  for (std::size_t i = 0; i < tankCount; ++i) {
    const double full_lb = capacity_lb(i);
    shown_[i] = full_lb > 0 ? rounded<std::uint32_t>(content_lb_[i] / full_lb * fullLevel) : 0;
    memory_.write(tanks[i].offset, shown_[i]);
  }
}

double FuelTanks::total_lb() const {
  return std::accumulate(content_lb_.begin(), content_lb_.end(), 0.0);
}

}  // namespace vorlent
