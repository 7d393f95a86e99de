#include "commands/buttonEngagement.h"

#include <array>
#include <cstddef>

#include "autoflight/clsXAutoP.h"
#include "autoflight/modeFlags.h"

namespace vorlent {
namespace {

struct Mode {
  std::int16_t (clsXAutoP::*read)() const;
  void (clsXAutoP::*write)(std::int16_t);
};
using Sides = std::array<Mode, 2>;

constexpr Sides CommandSides{{{&clsXAutoP::apCmdLeft, &clsXAutoP::apCmdLeft},
                              {&clsXAutoP::apCmdRight, &clsXAutoP::apCmdRight}}};
constexpr Sides CwsSides{{{&clsXAutoP::apCwsLeft, &clsXAutoP::apCwsLeft},
                          {&clsXAutoP::apCwsRight, &clsXAutoP::apCwsRight}}};

std::int16_t valueOf(const clsXAutoP& ap, const Mode& mode) { return (ap.*mode.read)(); }

void disengage(clsXAutoP& ap, const Mode& pressed, const Mode& other) {
  (ap.*pressed.write)(0);
  if (valueOf(ap, other) == 1) (ap.*other.write)(0);
  ap.ApEngaged(0);
  if (ap.apToGa() >= 1) ap.apToGa(0);
}

void press(clsXAutoP& ap, int side, const Sides& sides, const Sides& excluded) {
  const Mode& pressed = sides.at(static_cast<std::size_t>(side - 1));
  const Mode& other = sides.at(static_cast<std::size_t>(2 - side));
  if (valueOf(ap, pressed) == 1) {
    disengage(ap, pressed, other);
  } else if (valueOf(ap, pressed) == 0 && ap.apMaster() == 1 && valueOf(ap, other) == 0) {
    for (const Mode& mode : excluded) autoflight::clear(ap, mode.read, mode.write);
    (ap.*pressed.write)(1);
    ap.ApEngaged(1);
  }
}

}  // namespace

void ApCommand(clsXAutoP& ap, int side) { press(ap, side, CommandSides, CwsSides); }
void ApCws(clsXAutoP& ap, int side) { press(ap, side, CwsSides, CommandSides); }

}  // namespace vorlent
