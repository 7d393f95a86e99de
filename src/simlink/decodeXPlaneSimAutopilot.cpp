#include "simlink/statements.h"
#include "simlink/xplaneRows.h"

namespace vorlent {
namespace {

constexpr XPlaneRow Rows[] = {
    {"ApMasterSim", {U16(0x07BC)}, [](auto& in, auto& v) { set(v.ApMasterSim, in[0]); }},
    {"ApWingLevelerSim", {U16(0x07C0)}, [](auto& in, auto& v) { set(v.ApWingLevelerSim, in[0]); }},
    {"ApNavHoldSim", {U16(0x07C4)}, [](auto& in, auto& v) { set(v.ApNavHoldSim, in[0]); }},
    {"ApHeadingHoldSim", {U16(0x07C8)}, [](auto& in, auto& v) { set(v.ApHeadingHoldSim, in[0]); }},
    {"ApAltHoldSim", {U16(0x07D0)}, [](auto& in, auto& v) { set(v.ApAltHoldSim, in[0]); }},
    {"ApAttitudeHoldSim",
     {U16(0x07D8)},
     [](auto& in, auto& v) { set(v.ApAttitudeHoldSim, in[0]); }},
    // docs/peculiarities.md: units per foot.
    {"ApAltitudeSim",
     {U32(0x07D4)},
     [](auto& in, auto& v) { set(v.ApAltitudeSim, in[0] / 19975.372); }},
    // docs/peculiarities.md: speed hold word.
    {"ApSpeedHoldSim",
     {U8(0x07E0), U8(0x07DC)},
     [](auto& in, auto& v) { set(v.ApSpeedHoldSim, in[0] * 256 + in[1]); }},
    {"ApIasSim", {U16(0x07E2)}, [](auto& in, auto& v) { set(v.ApIasSim, in[0]); }},
    {"ApMachHoldSim", {U16(0x07E4)}, [](auto& in, auto& v) { set(v.ApMachHoldSim, in[0]); }},
    {"ApMachSim", {U16(0x07E8)}, [](auto& in, auto& v) { set(v.ApMachSim, in[0] / UnitsPerMach); }},
    {"ApVsHoldSim", {U16(0x07EC)}, [](auto& in, auto& v) { set(v.ApVsHoldSim, in[0]); }},
    {"ApVsSim", {S16(0x07F2)}, [](auto& in, auto& v) { set(v.ApVsSim, in[0]); }},
    {"ApRpmHoldSim", {U16(0x07F4)}, [](auto& in, auto& v) { set(v.ApRpmHoldSim, in[0]); }},
    {"ApRpmSim", {U16(0x07F8)}, [](auto& in, auto& v) { set(v.ApRpmSim, in[0]); }},
    {"ApGsHoldSim", {U16(0x07FC)}, [](auto& in, auto& v) { set(v.ApGsHoldSim, in[0]); }},
    {"ApApproachHoldSim",
     {U16(0x0800)},
     [](auto& in, auto& v) { set(v.ApApproachHoldSim, in[0]); }},
    {"ApBcHoldSim", {U16(0x0804)}, [](auto& in, auto& v) { set(v.ApBcHoldSim, in[0]); }},
    {"YawDamperSim", {U16(0x0808)}, [](auto& in, auto& v) { set(v.YawDamperSim, in[0]); }},
    {"ToGaSim", {U16(0x080C)}, [](auto& in, auto& v) { set(v.ToGaSim, in[0]); }},
    {"AutoThrottleArmSim",
     {U16(0x0810)},
     [](auto& in, auto& v) { set(v.AutoThrottleArmSim, in[0]); }},
};

}  // namespace

std::span<const XPlaneRow> xplaneSimAutopilotRows() { return Rows; }

}  // namespace vorlent
