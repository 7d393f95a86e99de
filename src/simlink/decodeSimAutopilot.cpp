#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

constexpr DecodeRow Rows[] = {
    {"ApMasterSim", [](auto& s, auto& v) { set(v.ApMasterSim, s.u16(0x07BC)); }},
    {"ApWingLevelerSim", [](auto& s, auto& v) { set(v.ApWingLevelerSim, s.u16(0x07C0)); }},
    {"ApNavHoldSim", [](auto& s, auto& v) { set(v.ApNavHoldSim, s.u16(0x07C4)); }},
    {"ApHeadingHoldSim", [](auto& s, auto& v) { set(v.ApHeadingHoldSim, s.u16(0x07C8)); }},
    {"ApAltHoldSim", [](auto& s, auto& v) { set(v.ApAltHoldSim, s.u16(0x07D0)); }},
    {"ApAttitudeHoldSim", [](auto& s, auto& v) { set(v.ApAttitudeHoldSim, s.u16(0x07D8)); }},
    // docs/peculiarities.md: units per foot.
    {"ApAltitudeSim", [](auto& s, auto& v) { set(v.ApAltitudeSim, s.u32(0x07D4) / 19975.372); }},
    // docs/peculiarities.md: speed hold word.
    {"ApSpeedHoldSim",
     [](auto& s, auto& v) { set(v.ApSpeedHoldSim, s.u8(0x07E0) * 256 + s.u8(0x07DC)); }},
    {"ApIasSim", [](auto& s, auto& v) { set(v.ApIasSim, s.u16(0x07E2)); }},
    {"ApMachHoldSim", [](auto& s, auto& v) { set(v.ApMachHoldSim, s.u16(0x07E4)); }},
    {"ApMachSim", [](auto& s, auto& v) { set(v.ApMachSim, s.u16(0x07E8) / UnitsPerMach); }},
    {"ApVsHoldSim", [](auto& s, auto& v) { set(v.ApVsHoldSim, s.u16(0x07EC)); }},
    {"ApVsSim", [](auto& s, auto& v) { set(v.ApVsSim, foldedOnes(s.u16(0x07F2))); }},
    {"ApRpmHoldSim", [](auto& s, auto& v) { set(v.ApRpmHoldSim, s.u16(0x07F4)); }},
    {"ApRpmSim", [](auto& s, auto& v) { set(v.ApRpmSim, s.u16(0x07F8)); }},
    {"ApGsHoldSim", [](auto& s, auto& v) { set(v.ApGsHoldSim, s.u16(0x07FC)); }},
    {"ApApproachHoldSim", [](auto& s, auto& v) { set(v.ApApproachHoldSim, s.u16(0x0800)); }},
    {"ApBcHoldSim", [](auto& s, auto& v) { set(v.ApBcHoldSim, s.u16(0x0804)); }},
    {"YawDamperSim", [](auto& s, auto& v) { set(v.YawDamperSim, s.u16(0x0808)); }},
    {"ToGaSim", [](auto& s, auto& v) { set(v.ToGaSim, s.u16(0x080C)); }},
    {"AutoThrottleArmSim", [](auto& s, auto& v) { set(v.AutoThrottleArmSim, s.u16(0x0810)); }},
};

}  // namespace

std::span<const DecodeRow> simAutopilotRows() { return Rows; }

}  // namespace vorlent
