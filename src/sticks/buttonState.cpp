#include "sticks/buttonState.h"

#include <algorithm>
#include <array>

#include "store/modPublic.h"

namespace vorlent {
namespace {

struct HeldState {
  std::int16_t code;
  int index;  ///< of ButtonStates
};

constexpr std::array HeldStates = {HeldState{12, 5}, HeldState{46, 1}, HeldState{95, 3},
                                   HeldState{100, 4}, HeldState{120, 8}};

}  // namespace

float ButtonState(const modPublic& store, std::int16_t code, std::int16_t state) {
  if (store.FsVersionCode >= modPublic::MinFsVersion) return state;
  const auto held = std::find_if(HeldStates.begin(), HeldStates.end(),
                                 [code](const HeldState& row) { return row.code == code; });
  if (held == HeldStates.end()) return state;
  return store.ButtonStates(held->index);
}

}  // namespace vorlent
