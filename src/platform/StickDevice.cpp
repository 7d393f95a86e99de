#include "platform/StickDevice.h"

#include <algorithm>

#include "base/bytes.h"

namespace vorlent {
namespace {

constexpr std::size_t LongestName = 32;
constexpr std::int32_t FullCircle = 36000;  // hundredths of a degree

bool isNameLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

}  // namespace

bool isStickName(std::string_view name) {
  return !name.empty() && name.size() <= LongestName &&
         std::all_of(name.begin(), name.end(), isNameLetter);
}

std::optional<ControllerState> stateFromPacket(std::string_view packet) {
  if (packet.size() != sizeof(ControllerState)) return std::nullopt;
  auto state = load<ControllerState>(packet.data());
  for (std::int32_t* axis : {&state.x, &state.y, &state.z, &state.rx, &state.ry, &state.rz,
                             &state.slider[0], &state.slider[1]})
    *axis = std::clamp(*axis, 0, ControllerState::AxisMax);
  for (std::int32_t& pov : state.POV)
    if (pov < 0 || pov >= FullCircle) pov = ControllerState::Centred;
  for (std::uint8_t& button : state.buttons)
    button = button >= ControllerState::Pressed ? ControllerState::Pressed : 0;
  return state;
}

}  // namespace vorlent
