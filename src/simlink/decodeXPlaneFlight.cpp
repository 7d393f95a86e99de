#include "base/units.h"
#include "simlink/derived.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

/// The lower half is the fraction of the upper one.
double joined(const TypedInput& in) { return in[0] / 65536 / 65536 + in[1]; }

constexpr XPlaneRow Rows[] = {
    {"OnGround", {U16(0x0366)}, [](auto& in, auto& v) { set(v.OnGround, in[0]); }},
    {"MagVar", {S16(0x02A0)}, [](auto& in, auto& v) { set(v.MagVar, in[0] * 360 / Turn16); }},
    {"GroundSpeed",
     {S32(0x02B4)},
     [](auto& in, auto& v) {
       // docs/peculiarities.md: ground speed of X-Plane.
       set(v.GroundSpeed, in[0] / 65535 * 3600 / MetresPerNauticalMile);
     }},
    {"Tas", {U32(0x02B8)}, [](auto& in, auto& v) { set(v.Tas, in[0] / 128); }},
    // docs/peculiarities.md: speed in a pause.
    {"Ias", {U32(0x02BC)}, [](auto& in, auto& v) { set(v.Ias, v.Paused > 0 ? 0 : in[0] / 128); }},
    {"BarberPole", {U16(0x02C4)}, [](auto& in, auto& v) { set(v.BarberPole, in[0] / 128); }},
    {"Mach", {U16(0x11C6)}, [](auto& in, auto& v) { set(v.Mach, in[0] / 20480); }},
    {"VerticalSpeed", {S32(0x02C8)}, [](auto& in, auto& v) { set(v.VerticalSpeed, in[0]); }},
    {"AltimeterQnh", {U16(0x0330)}, [](auto& in, auto& v) { set(v.AltimeterQnh, in[0] / 16); }},
    {"TurnCoordinatorBall",
     {U8(0x036E)},
     [](auto& in, auto& v) {
       // docs/peculiarities.md: 65535 beside 65536.
       set(v.TurnCoordinatorBall, in[0] > 127 ? 255 - in[0] : -in[0]);
     }},
    {"TurnRate", {S16(0x037C)}, [](auto& in, auto& v) { set(v.TurnRate, in[0]); }},
    {"GForce", {U16(0x11BA)}, [](auto& in, auto& v) { set(v.GForce, in[0] / 625); }},
    {"AngleOfAttack",
     {U16(0x11BE)},
     [](auto& in, auto& v) { set(v.AngleOfAttack, 180 - in[0] * 360 / Turn16); }},
    {"Latitude",
     {U32(0x0560), S32(0x0564)},
     [](auto& in, auto& v) { set(v.Latitude, joined(in) / LatitudeUnitsPerDegree); }},
    {"Longitude",
     {U32(0x0568), S32(0x056C)},
     [](auto& in, auto& v) { set(v.Longitude, joined(in) / Turn32 * 360); }},
    {"AircraftAltitude",
     {U32(0x0570), S32(0x0574)},
     [](auto& in, auto& v) { set(v.AircraftAltitude, joined(in) * FeetPerMetreOfXPlane); }},
    {"RadioAltitude",
     {S16(0x0B4C)},
     [](auto& in, auto& v) { set(v.RadioAltitude, v.AircraftAltitude - in[0] * FeetPerMetre); }},
    {"Pitch", {S32(0x0578)}, [](auto& in, auto& v) { set(v.Pitch, -in[0] * 360 / Turn32); }},
    {"Bank", {U32(0x057C)}, [](auto& in, auto& v) { set(v.Bank, in[0] * 360 / Turn32); }},
    {"TrueHeading",
     {U32(0x0580)},
     [](auto& in, auto& v) { set(v.TrueHeading, in[0] * 360 / Turn32); }},
    {"MagHeading", {}, [](auto&, auto& v) { deriveMagHeading(v); }},
    {"Word0C3EDeg",
     {U16(0x0C3E)},
     [](auto& in, auto& v) { set(v.Word0C3EDeg, in[0] * 360 / Turn16); }},
    {"GrossWeight", {F64(0x30C0)}, [](auto& in, auto& v) { set(v.GrossWeight, in[0]); }},
};

}  // namespace

std::span<const XPlaneRow> xplaneFlightRows() { return Rows; }

}  // namespace vorlent
