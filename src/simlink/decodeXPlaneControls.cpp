#include "base/units.h"
#include "simlink/decodeRows.h"
#include "simlink/derived.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

/// Where the simulator tells no weight of its fuel.
constexpr double LbPerGallonOfNone = 6.6;

void decodeTank(const TypedInput& in, FuelTank& tank) {
  set(tank.Level, in[0] * 1.19209289550781e-05);
  set(tank.Capacity, in[1]);
}

constexpr XPlaneRow FuelRows[] = {
    {"FuelLbPerGallon",
     {S16(0x0AF4)},
     [](auto& in, auto& v) {
       set(v.FuelLbPerGallon, in[0] > 0 ? in[0] / 256 : LbPerGallonOfNone);
     }},
    {"FuelSelector", {U8(0x0AF8)}, [](auto& in, auto& v) { set(v.FuelSelector, in[0]); }},
    {"FuelTanks centre",
     {U32(0x0B74), U32(0x0B78)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::Centre)); }},
    {"FuelTanks left main",
     {U32(0x0B7C), U32(0x0B80)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::LeftMain)); }},
    {"FuelTanks left aux",
     {U32(0x0B84), U32(0x0B88)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::LeftAux)); }},
    {"FuelTanks left tip",
     {U32(0x0B8C), U32(0x0B90)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::LeftTip)); }},
    {"FuelTanks right main",
     {U32(0x0B94), U32(0x0B98)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::RightMain)); }},
    {"FuelTanks right aux",
     {U32(0x0B9C), U32(0x0BA0)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::RightAux)); }},
    {"FuelTanks right tip",
     {U32(0x0BA4), U32(0x0BA8)},
     [](auto& in, auto& v) { decodeTank(in, v.FuelTanks(Tank::RightTip)); }},
    {"FuelTanks without aux", {}, [](auto&, auto& v) { emptyMissingAuxTanks(v); }},
    {"FuelTotalLb", {}, [](auto&, auto& v) { deriveFuelTotal(v); }},
};

constexpr XPlaneRow ControlRows[] = {
    {"AutoCoordination", {U8(0x0278)}, [](auto& in, auto& v) { set(v.AutoCoordination, in[0]); }},
    // docs/peculiarities.md: trims by other names.
    {"ElevatorTrimDeg",
     {F64(0x2EB0)},
     [](auto& in, auto& v) { set(v.ElevatorTrimDeg, in[0] * CoarseDegreesPerRadian); }},
    {"AileronTrimDeg",
     {F64(0x2EC0)},
     [](auto& in, auto& v) { set(v.AileronTrimDeg, in[0] * CoarseDegreesPerRadian); }},
    {"ElevatorInput", {S16(0x0BB2)}, [](auto& in, auto& v) { set(v.ElevatorInput, in[0]); }},
    {"AileronInput", {S16(0x0BB6)}, [](auto& in, auto& v) { set(v.AileronInput, in[0]); }},
    {"RudderInput", {S16(0x0BBA)}, [](auto& in, auto& v) { set(v.RudderInput, in[0]); }},
    {"ElevatorTrimInput",
     {S16(0x0BC0)},
     [](auto& in, auto& v) { set(v.ElevatorTrimInput, in[0]); }},
    {"LeftBrake", {U16(0x0BC4)}, [](auto& in, auto& v) { set(v.LeftBrake, in[0]); }},
    {"RightBrake", {U16(0x0BC6)}, [](auto& in, auto& v) { set(v.RightBrake, in[0]); }},
    {"ParkingBrake", {U16(0x0BC8)}, [](auto& in, auto& v) { set(v.ParkingBrake, in[0]); }},
    {"Word0BCA", {U16(0x0BCA)}, [](auto& in, auto& v) { set(v.Word0BCA, in[0]); }},
    {"SpoilersArm", {U8(0x0BCC)}, [](auto& in, auto& v) { set(v.SpoilersArm, in[0]); }},
    {"SpoilersControl", {U16(0x0BD0)}, [](auto& in, auto& v) { set(v.SpoilersControl, in[0]); }},
    {"FlapsControl",
     {U16(0x0BDC)},
     [](auto& in, auto& v) {
       set(v.FlapsControl, isModern(v) ? in[0] : folded(in[0], FullScale, TwosComplement16));
     }},
    {"FlapIncrement", {U16(0x3BFA)}, [](auto& in, auto& v) { set(v.FlapIncrement, in[0]); }},
    {"Byte3BFB", {U8(0x3BFB)}, [](auto& in, auto& v) { set(v.Byte3BFB, in[0]); }},
    {"FlapPositions", {}, [](auto&, auto& v) { deriveFlapPositions(v); }},
    {"FlapsPosition", {U16(0x0BE0)}, [](auto& in, auto& v) { set(v.FlapsPosition, in[0]); }},
    {"FlapsPositionRight",
     {S32(0x0BE4)},
     [](auto& in, auto& v) { set(v.FlapsPositionRight, in[0]); }},
    {"GearControl", {U16(0x0BE8)}, [](auto& in, auto& v) { set(v.GearControl, in[0]); }},
    {"GearNose", {U16(0x0BEC)}, [](auto& in, auto& v) { set(v.GearNose, in[0]); }},
    {"GearRight", {U16(0x0BF0)}, [](auto& in, auto& v) { set(v.GearRight, in[0]); }},
    {"GearLeft", {U16(0x0BF4)}, [](auto& in, auto& v) { set(v.GearLeft, in[0]); }},
    {"Word0B00Percent",
     {U16(0x0B00)},
     [](auto& in, auto& v) { set(v.Word0B00Percent, in[0] * 100 / FullScale); }},
};

}  // namespace

std::span<const XPlaneRow> xplaneFuelRows() { return FuelRows; }
std::span<const XPlaneRow> xplaneControlRows() { return ControlRows; }

}  // namespace vorlent
