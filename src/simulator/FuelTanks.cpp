#include "simulator/FuelTanks.h"

#include <algorithm>
#include <numeric>

#include "base/numbers.h"
#include "base/simulatorUnits.h"

namespace vorlent {
namespace {

struct Tank {
  std::size_t offset;
  std::uint32_t capacity_gal;
  double filled;  ///< share of the capacity before a flight
};

enum TankIndex : std::size_t { Centre, LeftMain, LeftAux, LeftTip, RightMain, RightAux, RightTip };

/// Capacities of the wing and centre tanks of a 737-700, as its maker publishes them.
constexpr std::array<Tank, 7> Tanks{{{0x0B74, 4299, 0.10},
                                     {0x0B7C, 1288, 0.90},
                                     {0x0B84, 0, 0},
                                     {0x0B8C, 0, 0},
                                     {0x0B94, 1288, 0.90},
                                     {0x0B9C, 0, 0},
                                     {0x0BA4, 0, 0}}};

constexpr std::size_t SelectorOffset = 0x0AF8;
/// Longer than a client needs between two bytes of a level.
constexpr double Settled_s = 0.2;

double capacity_lb(std::size_t i) { return Tanks[i].capacity_gal * FuelDensity_lb_gal; }

}  // namespace

FuelTanks::FuelTanks(OffsetMemory& memory) : memory_(memory) {
  for (const Tank& tank : Tanks) memory_.write<std::uint32_t>(tank.offset + 4, tank.capacity_gal);
  fill();
}

void FuelTanks::fill() {
  for (std::size_t i = 0; i < TankCount; ++i) content_lb_[i] = Tanks[i].filled * capacity_lb(i);
  sinceWrite_s_.fill(Settled_s);
  show();
}

void FuelTanks::takeUpWrites(double dt_s) {
  for (std::size_t i = 0; i < TankCount; ++i) {
    if (capacity_lb(i) <= 0) continue;
    const auto level = memory_.read<std::uint32_t>(Tanks[i].offset);
    if (level != shown_[i]) {
      content_lb_[i] = std::min(1.0, level / FullTank) * capacity_lb(i);
      showLevel(i);
      sinceWrite_s_[i] = 0;
    }
    sinceWrite_s_[i] += dt_s;
  }
}

void FuelTanks::burn(const std::array<double, EngineCount>& used_lb) {
  for (std::size_t engine = 0; engine < EngineCount; ++engine) {
    double wanted_lb = used_lb[engine];
    for (const std::size_t tank : connectedTo(engine)) {
      const double drawn_lb = std::min(wanted_lb, content_lb_[tank]);
      content_lb_[tank] -= drawn_lb;
      wanted_lb -= drawn_lb;
    }
  }
}

bool FuelTanks::feeds(std::size_t engine) const {
  const auto tanksOfEngine = connectedTo(engine);
  return std::any_of(tanksOfEngine.begin(), tanksOfEngine.end(),
                     [this](std::size_t tank) { return content_lb_[tank] > 0; });
}

/// Positions 4, 5 and 7 to 12 are tanks that the aircraft does not have. 14 and 15 open the
/// crossfeed to one side. 0, which a crossfeed switch writes when it closes, leaves each engine its
/// own side.
std::span<const std::size_t> FuelTanks::connectedTo(std::size_t engine) const {
  static constexpr std::array<std::array<std::size_t, 3>, EngineCount> AllTanks{
      {{Centre, LeftMain, RightMain}, {Centre, RightMain, LeftMain}}};
  static constexpr std::array<std::size_t, 1> LeftTank{LeftMain};
  static constexpr std::array<std::size_t, 1> RightTank{RightMain};
  static constexpr std::array<std::size_t, 1> CentreTank{Centre};
  const auto position = memory_.read<std::uint8_t>(SelectorOffset);
  if (position == 2 || position == 14) return LeftTank;
  if (position == 3 || position == 15) return RightTank;
  if (position == 6) return CentreTank;
  if (position >= 4 && position <= 12) return {};
  const std::span<const std::size_t> reached = AllTanks[engine];
  return position == 0 ? reached.first(2) : reached;
}

void FuelTanks::show() {
  for (std::size_t i = 0; i < TankCount; ++i)
    if (capacity_lb(i) > 0 && sinceWrite_s_[i] >= Settled_s) showLevel(i);
}

void FuelTanks::showLevel(std::size_t tank) {
  shown_[tank] = rounded<std::uint32_t>(content_lb_[tank] / capacity_lb(tank) * FullTank);
  memory_.write(Tanks[tank].offset, shown_[tank]);
}

double FuelTanks::total_lb() const {
  return std::accumulate(content_lb_.begin(), content_lb_.end(), 0.0);
}

}  // namespace vorlent
