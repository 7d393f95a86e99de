#include "commands/buttonEngagement.h"

#include <array>
#include <cstddef>

#include "autoflight/clsXAutoP.h"
#include "autoflight/modes.h"

namespace vorlent {
namespace {

using namespace autoflight;

using Sides = std::array<Mode<clsXAutoP>, 2>;

constexpr Sides CommandSides{modes::CmdLeft, modes::CmdRight};
constexpr Sides CwsSides{modes::CwsLeft, modes::CwsRight};

void disengage(clsXAutoP& ap, const Mode<clsXAutoP>& pressed, const Mode<clsXAutoP>& other) {
  set(ap, pressed, 0);
  clear(ap, other);
  ap.ApEngaged(0);
  if (ap.apToGa() >= 1) ap.apToGa(0);
}

void press(clsXAutoP& ap, int side, const Sides& sides, const Sides& excluded) {
  const auto& pressed = sides.at(static_cast<std::size_t>(side - 1));
  const auto& other = sides.at(static_cast<std::size_t>(2 - side));
  if (isOn(ap, pressed)) {
    disengage(ap, pressed, other);
  } else if (valueOf(ap, pressed) == 0 && isOn(ap.apMaster()) && valueOf(ap, other) == 0) {
    for (const auto& mode : excluded) clear(ap, mode);
    set(ap, pressed, 1);
    ap.ApEngaged(1);
  }
}

}  // namespace

void ApCommand(clsXAutoP& ap, int side) { press(ap, side, CommandSides, CwsSides); }
void ApCws(clsXAutoP& ap, int side) { press(ap, side, CwsSides, CommandSides); }

}  // namespace vorlent
