#include <string>

#include "base/text.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

template <int First, std::uint32_t Count>
void decodeElectrical(const TypedInput& in, modPublic& v) {
  for (std::uint32_t element = 0; element < Count; ++element)
    attempt([&] { set(v.Electrical(First + static_cast<int>(element)), in.number(0, element)); });
}

constexpr std::uint16_t FailureRun = 18;

void decodeFailures(const TypedInput& in, modPublic& v) {
  int element = 0;
  const auto flag = [&](std::uint8_t byte) {
    std::string& text = v.FailureFlags(++element);
    text.clear();
    appendInteger(text, byte);
    v.FailureText += text;
    v.FailureText += v.Sep;
  };
  v.FailureText.clear();
  for (std::uint32_t at = 0; at < FailureRun; ++at) flag(in.byte(0, at));
  flag(in.byte(1));
  flag(in.byte(2));
}

constexpr XPlaneRow Rows[] = {
    {"ZuluTime",
     {U8(0x023B), U8(0x023C)},
     [](auto& in, auto& v) { set(v.ZuluTime, in[1] / 100 + in[0]); }},
    {"Paused", {U8(0x0264)}, [](auto& in, auto& v) { set(v.Paused, in[0]); }},
    {"FrameRateByte", {U8(0x0274)}, [](auto& in, auto& v) { set(v.FrameRateByte, in[0]); }},
    {"LightsByte1", {U8(0x0280)}, [](auto& in, auto& v) { set(v.LightsByte1, in[0]); }},
    {"LightsByte2", {U8(0x0281)}, [](auto& in, auto& v) { set(v.LightsByte2, in[0]); }},
    {"LightsByte3", {U8(0x0282)}, [](auto& in, auto& v) { set(v.LightsByte3, in[0]); }},
    {"LandingLights", {U8(0x028C)}, [](auto& in, auto& v) { set(v.LandingLights, in[0]); }},
    {"PitotHeat", {U8(0x029C)}, [](auto& in, auto& v) { set(v.PitotHeat, in[0]); }},
    {"MasterBattery", {S32(0x281C)}, [](auto& in, auto& v) { set(v.MasterBattery, in[0]); }},
    {"AvionicsMaster", {S32(0x2E80)}, [](auto& in, auto& v) { set(v.AvionicsMaster, in[0]); }},
    {"Long2E88", {S32(0x2E88)}, [](auto& in, auto& v) { set(v.Long2E88, in[0]); }},
    {"Long2EC8", {S32(0x2EC8)}, [](auto& in, auto& v) { set(v.Long2EC8, in[0]); }},
    {"Double0B18", {F64(0x0B18)}, [](auto& in, auto& v) { set(v.Double0B18, in[0]); }},
    {"Electrical 1 to 3", {F64(0x2824, 3)}, decodeElectrical<1, 3>},
    {"Electrical 4 to 11", {F64(0x2840, 8)}, decodeElectrical<4, 8>},
    {"FailureFlags", {U8(0x3BD6, FailureRun), U8(0x0B71), U8(0x32F8)}, decodeFailures},
};

}  // namespace

std::span<const XPlaneRow> xplaneSystemRows() { return Rows; }

}  // namespace vorlent
