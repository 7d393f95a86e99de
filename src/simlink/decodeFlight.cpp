#include "base/units.h"
#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/derived.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

double altitude(const Snapshot& s, const modPublic& v) {
  const double metres = isModern(v) ? s.u32(0x0574) : s.u16(0x0574);
  const double fraction = isModern(v) ? s.u32(0x0570) / 65536.0 / 65536.0 : 0;
  return (folded(metres, HighestSigned16, TwosComplement32) + fraction) * FeetPerMetreOfAltitude;
}

double radioAltitude(const Snapshot& s, const modPublic& v) {
  const double ground_m = s.u16(0x0B4C);
  if (ground_m > HighestSigned16)
    return v.AircraftAltitude - (ground_m - TwosComplement16) * FeetPerMetre;
  return v.AircraftAltitude - ground_m * FeetPerMetreOfAltitude;
}

constexpr DecodeRow Rows[] = {
    {"OnGround", [](auto& s, auto& v) { set(v.OnGround, s.u16(0x0366)); }},
    {"MagVar", [](auto& s, auto& v) { set(v.MagVar, folded(degrees16(s.u16(0x02A0)), 180, 360)); }},
    {"GroundSpeed",
     [](auto& s, auto& v) {
       set(v.GroundSpeed, s.u32(0x02B4) / 65536.0 * 3600 / MetresPerNauticalMile);
     }},
    {"Tas", [](auto& s, auto& v) { set(v.Tas, s.u32(0x02B8) / 128.0); }},
    // docs/peculiarities.md: speed in a pause.
    {"Ias", [](auto& s, auto& v) { set(v.Ias, v.Paused > 0 ? 0 : s.u32(0x02BC) / 128.0); }},
    {"BarberPole", [](auto& s, auto& v) { set(v.BarberPole, s.u16(0x02C4) / 128.0); }},
    {"Mach", [](auto& s, auto& v) { set(v.Mach, s.u16(0x11C6) / 20480.0); }},
    {"VerticalSpeed",
     [](auto& s, auto& v) {
       set(v.VerticalSpeed, foldedOnes(s.u16(0x02C8)) / 256 * 60 * FeetPerMetre);
     }},
    {"AltimeterQnh", [](auto& s, auto& v) { set(v.AltimeterQnh, s.u16(0x0330) / 16.0); }},
    {"TurnCoordinatorBall",
     [](auto& s, auto& v) {
       // docs/peculiarities.md: 65535 beside 65536.
       const double b = s.u8(0x036E);
       set(v.TurnCoordinatorBall, b > 127 ? 255 - b : -b);
     }},
    {"TurnRate", [](auto& s, auto& v) { set(v.TurnRate, foldedOnes(s.u16(0x037C))); }},
    {"GForce", [](auto& s, auto& v) { set(v.GForce, s.u16(0x11BA) / 625.0); }},
    {"AngleOfAttack",
     [](auto& s, auto& v) { set(v.AngleOfAttack, 180 - degrees16(s.u16(0x11BE))); }},
    {"Latitude",
     [](auto& s, auto& v) {
       // docs/peculiarities.md: latitude fold.
       const double fold =
           v.SouthernLatitudes ? TwosComplement32 / LatitudeUnitsPerDegree : 38543.3452675;
       set(v.Latitude, folded(s.u32(0x0564) / LatitudeUnitsPerDegree, 90, fold));
     }},
    {"Longitude",
     [](auto& s, auto& v) {
       set(v.Longitude, folded(s.u32(0x056C) / 11930464.7111111, 180, 360));
     }},
    {"AircraftAltitude", [](auto& s, auto& v) { set(v.AircraftAltitude, altitude(s, v)); }},
    {"RadioAltitude", [](auto& s, auto& v) { set(v.RadioAltitude, radioAltitude(s, v)); }},
    {"Pitch",
     [](auto& s, auto& v) {
       const double x = degrees32(s.u32(0x0578));
       set(v.Pitch, x > 90 ? 360 - x : -x);
     }},
    {"Bank", [](auto& s, auto& v) { set(v.Bank, degrees32(s.u32(0x057C))); }},
    {"TrueHeading", [](auto& s, auto& v) { set(v.TrueHeading, degrees32(s.u32(0x0580))); }},
    {"MagHeading", [](auto&, auto& v) { deriveMagHeading(v); }},
    {"Word0C3EDeg", [](auto& s, auto& v) { set(v.Word0C3EDeg, degrees16(s.u16(0x0C3E))); }},
    {"GrossWeight", [](auto& s, auto& v) { set(v.GrossWeight, s.f64(0x30C0)); }},
};

}  // namespace

std::span<const DecodeRow> flightRows() { return Rows; }

}  // namespace vorlent
