#include "base/units.h"
#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/derived.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

/// Below 0 from 65536 down.
double position(std::uint16_t x) { return folded(x, FullTravel, TwosComplement16); }

constexpr DecodeRow Rows[] = {
    {"AutoCoordination", [](auto& s, auto& v) { set(v.AutoCoordination, s.u8(0x0278)); }},
    // docs/peculiarities.md: trims by other names.
    {"ElevatorTrimDeg",
     [](auto& s, auto& v) { set(v.ElevatorTrimDeg, s.f64(0x2EB0) * CoarseDegreesPerRadian); }},
    {"AileronTrimDeg",
     [](auto& s, auto& v) { set(v.AileronTrimDeg, s.f64(0x2EC0) * CoarseDegreesPerRadian); }},
    {"ElevatorInput", [](auto& s, auto& v) { set(v.ElevatorInput, position(s.u16(0x0BB2))); }},
    {"AileronInput", [](auto& s, auto& v) { set(v.AileronInput, position(s.u16(0x0BB6))); }},
    {"RudderInput", [](auto& s, auto& v) { set(v.RudderInput, position(s.u16(0x0BBA))); }},
    {"ElevatorTrimInput",
     [](auto& s, auto& v) { set(v.ElevatorTrimInput, position(s.u16(0x0BC0))); }},
    {"LeftBrake", [](auto& s, auto& v) { set(v.LeftBrake, s.u16(0x0BC4)); }},
    {"RightBrake", [](auto& s, auto& v) { set(v.RightBrake, s.u16(0x0BC6)); }},
    {"ParkingBrake", [](auto& s, auto& v) { set(v.ParkingBrake, s.u16(0x0BC8)); }},
    {"Word0BCA", [](auto& s, auto& v) { set(v.Word0BCA, s.u16(0x0BCA)); }},
    {"SpoilersArm", [](auto& s, auto& v) { set(v.SpoilersArm, s.u8(0x0BCC)); }},
    {"SpoilersControl", [](auto& s, auto& v) { set(v.SpoilersControl, s.u16(0x0BD0)); }},
    {"FlapsControl",
     [](auto& s, auto& v) {
       const double x = s.u16(0x0BDC);
       set(v.FlapsControl, isModern(v) ? x : folded(x, FullScale, TwosComplement16));
     }},
    {"FlapIncrement", [](auto& s, auto& v) { set(v.FlapIncrement, s.u16(0x3BFA)); }},
    {"Byte3BFB", [](auto& s, auto& v) { set(v.Byte3BFB, s.u8(0x3BFB)); }},
    {"FlapPositions", [](auto&, auto& v) { deriveFlapPositions(v); }},
    {"FlapsPosition", [](auto& s, auto& v) { set(v.FlapsPosition, s.u16(0x0BE0)); }},
    {"GearControl", [](auto& s, auto& v) { set(v.GearControl, s.u16(0x0BE8)); }},
    {"GearNose", [](auto& s, auto& v) { set(v.GearNose, s.u16(0x0BEC)); }},
    {"GearRight", [](auto& s, auto& v) { set(v.GearRight, s.u16(0x0BF0)); }},
    {"GearLeft", [](auto& s, auto& v) { set(v.GearLeft, s.u16(0x0BF4)); }},
    {"Word0B00Percent",
     [](auto& s, auto& v) { set(v.Word0B00Percent, s.u16(0x0B00) * 100.0 / FullScale); }},
};

}  // namespace

std::span<const DecodeRow> controlRows() { return Rows; }

}  // namespace vorlent
