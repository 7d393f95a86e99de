#include "simlink/decode.h"

#include <cmath>

#include "base/text.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

constexpr double FullCircle32 = 4294967296.0;
constexpr double DegreesPerRadian = 57.295777918682;
// Both feet factors and both fold values are meant, each where it stands.
constexpr double FeetPerMetre = 3.28084;
constexpr double FeetPerMetreAltitude = 3.28115;
constexpr double Fold65535 = 65535;
constexpr double Fold65536 = 65536;

double degrees16(std::uint16_t x) { return x * 360.0 / 65536; }
double degrees32(std::uint32_t x) { return x * 360.0 / FullCircle32; }
double folded(double x, double above, double fold) { return x > above ? x - fold : x; }
double signedByte(std::uint8_t b) { return folded(b, 127, 256); }
double celsius256(std::uint16_t x) { return folded(x, 32767, Fold65535) / 256; }

/// COM and NAV: the digits behind the leading 1 of the megahertz.
double bcdMegahertz(std::uint16_t word) {
  return BcdToDec(static_cast<std::uint8_t>(word)) / 100.0 +
         BcdToDec(static_cast<std::uint8_t>(word >> 8)) + 100;
}

double bcdKilohertz(const Snapshot& s, std::uint32_t high, std::uint32_t low,
                    std::uint32_t thousands, std::uint32_t tenths) {
  return BcdToDec(s.u8(high)) * 100.0 + BcdToDec(s.u8(low)) + s.u8(thousands) * 1000.0 +
         s.u8(tenths) / 10.0;
}

bool isModern(const modPublic& v) { return v.FsVersionCode >= modPublic::MinFsVersion; }

double altitude(const Snapshot& s, const modPublic& v) {
  const double metres = isModern(v) ? s.u32(0x0574) : s.u16(0x0574);
  const double fraction = isModern(v) ? s.u32(0x0570) / 65536.0 / 65536.0 : 0;
  return (folded(metres, 32767, FullCircle32) + fraction) * FeetPerMetreAltitude;
}

double radioAltitude(const Snapshot& s, const modPublic& v) {
  const double ground_m = s.u16(0x0B4C);
  if (ground_m > 32767) return v.AircraftAltitude - (ground_m - Fold65536) * FeetPerMetre;
  return v.AircraftAltitude - ground_m * FeetPerMetreAltitude;
}

double standbyFrequency(const Snapshot& s, const modPublic& v, std::uint32_t offset) {
  return isModern(v) ? bcdMegahertz(s.u16(offset)) : 0;
}

double magneticHeading(const modPublic& v) {
  const double heading = double{v.TrueHeading} - double{v.MagVar};
  if (heading < 0) return heading + 360;
  return heading > 360 ? heading - 360 : heading;
}

void decodeTank(const Snapshot& s, FuelTank& tank, std::uint32_t offset) {
  set(tank.Level, s.u32(offset) * 1.19209289550781e-05);
  set(tank.Capacity, s.u32(offset + 4));
}

double totalFuel(const modPublic& v) {
  double percentGallons = 0;
  for (int tank = Tank::Centre; tank <= Tank::RightTip; ++tank)
    percentGallons += double{v.FuelTanks(tank).Level} * v.FuelTanks(tank).Capacity;
  return v.FuelLbPerGallon / 100.0 * percentGallons;
}

/// The text that marks a missing station counts as 0. With another decimal mark than the point the
/// number is made twice, and the second try fails on that text, so that the 0 stays.
void decodeDme(float& variable, const std::string& text, std::string_view missing,
               const std::string& mark) {
  const auto convert = [&](const std::string& number) {
    set(variable, number == missing ? 0 : regionalNumberOf(number, mark));
  };
  attempt([&] { convert(text); });
  if (mark != ".") attempt([&] { convert(replaced(text, ".", mark)); });
}

/// Hours, minutes and seconds, each two characters without their blanks.
std::string localTime(const Snapshot& s) {
  const auto pair = [&s](std::uint32_t offset) {
    return replaced(s.characters(offset, 2), " ", "");
  };
  return pair(0x0C20) + " " + pair(0x0C23) + " " + pair(0x0C26);
}

void decodeElectrical(const Snapshot& s, modPublic& v) {
  int element = 0;
  for (const std::uint32_t offset : {0x2824U, 0x282CU, 0x2834U, 0x2840U, 0x2848U, 0x2850U, 0x2858U,
                                     0x2860U, 0x2868U, 0x2870U, 0x2878U}) {
    ++element;
    attempt([&] { set(v.Electrical(element), s.f64(offset)); });
  }
}

void decodeFailures(const Snapshot& s, modPublic& v) {
  const auto flag = [&](int element, std::uint32_t offset) {
    v.FailureFlags(element).clear();
    appendInteger(v.FailureFlags(element), s.u8(offset));
    v.FailureText += v.FailureFlags(element);
    v.FailureText += v.Sep;
  };
  v.FailureText.clear();
  int element = 1;
  for (std::uint32_t offset = 0x3BD6; offset <= 0x3BE7; ++offset) flag(element++, offset);
  flag(element++, 0x0B71);
  flag(element, 0x32F8);
}

void decodeWeather(const Snapshot& s, modPublic& v) {
  for (std::uint32_t k = 0; k < 8; ++k) {
    const double factor = k == 1 ? FeetPerMetre : 1;
    attempt([&] {
      const auto sum = addBytes(s.u8(0x0E5A + 2 * k), s.u8(0x0E5B + 2 * k));
      set(v.WeatherSums(static_cast<int>(k) + 1), sum * factor);
    });
  }
}

constexpr DecodeRow RowsBeforeEngines[] = {
    {"EngineCount", [](auto& s, auto& v) { set(v.EngineCount, s.u8(0x0AEC)); }},
    {"EngineCount2", [](auto& s, auto& v) { set(v.EngineCount2, s.u8(0x0AEC)); }},
    {"EngineTypeRaw", [](auto& s, auto& v) { set(v.EngineTypeRaw, s.u8(0x0609)); }},
    {"EngineType", [](auto&, auto& v) { v.EngineType = v.EngineTypeRaw; }},
    {"ZuluTime", [](auto& s, auto& v) { set(v.ZuluTime, s.u8(0x023B) + s.u8(0x023C) / 100.0); }},
    {"Paused", [](auto& s, auto& v) { set(v.Paused, s.u8(0x0264)); }},
    {"AutoCoordination", [](auto& s, auto& v) { set(v.AutoCoordination, s.u8(0x0278)); }},
    {"FrameRateByte", [](auto& s, auto& v) { set(v.FrameRateByte, s.u8(0x0274)); }},
    {"LightsByte1", [](auto& s, auto& v) { set(v.LightsByte1, s.u8(0x0280)); }},
    {"LightsByte2", [](auto& s, auto& v) { set(v.LightsByte2, s.u8(0x0281)); }},
    {"LightsByte3", [](auto& s, auto& v) { set(v.LightsByte3, s.u8(0x0282)); }},
    {"LandingLights", [](auto& s, auto& v) { set(v.LandingLights, s.u8(0x028C)); }},
    {"PitotHeat", [](auto& s, auto& v) { set(v.PitotHeat, s.u8(0x029C)); }},
    {"MagVar", [](auto& s, auto& v) { set(v.MagVar, folded(degrees16(s.u16(0x02A0)), 180, 360)); }},
    {"GroundSpeed",
     [](auto& s, auto& v) { set(v.GroundSpeed, s.u32(0x02B4) / 65536.0 * 3600 / 1852); }},
    {"Tas", [](auto& s, auto& v) { set(v.Tas, s.u32(0x02B8) / 128.0); }},
    {"Ias", [](auto& s, auto& v) { set(v.Ias, v.Paused > 0 ? 0 : s.u32(0x02BC) / 128.0); }},
    {"BarberPole", [](auto& s, auto& v) { set(v.BarberPole, s.u16(0x02C4) / 128.0); }},
    {"VerticalSpeed",
     [](auto& s, auto& v) {
       set(v.VerticalSpeed, folded(s.u16(0x02C8), 32767, Fold65535) / 256 * 60 * FeetPerMetre);
     }},
    {"AltimeterQnh", [](auto& s, auto& v) { set(v.AltimeterQnh, s.u16(0x0330) / 16.0); }},
    {"Adf1Freq",
     [](auto& s, auto& v) { set(v.Adf1Freq, bcdKilohertz(s, 0x034D, 0x034C, 0x0357, 0x0356)); }},
    {"Adf2Freq",
     [](auto& s, auto& v) { set(v.Adf2Freq, bcdKilohertz(s, 0x02D5, 0x02D4, 0x02D7, 0x02D6)); }},
    {"Adf2Bearing", [](auto& s, auto& v) { set(v.Adf2Bearing, degrees16(s.u16(0x02D8))); }},
    {"Adf2Id", [](auto& s, auto& v) { v.Adf2Id = s.text(0x02DC, Snapshot::RawBlockEnd); }},
    {"Adf2Name", [](auto& s, auto& v) { v.Adf2Name = s.text(0x02E2, Snapshot::RawBlockEnd); }},
    {"Com1Freq", [](auto& s, auto& v) { set(v.Com1Freq, bcdMegahertz(s.u16(0x034E))); }},
    {"Nav1Freq", [](auto& s, auto& v) { set(v.Nav1Freq, bcdMegahertz(s.u16(0x0350))); }},
    {"Nav2Freq", [](auto& s, auto& v) { set(v.Nav2Freq, bcdMegahertz(s.u16(0x0352))); }},
    {"TransponderCode",
     [](auto& s, auto& v) {
       set(v.TransponderCode, BcdToDec(s.u8(0x0355)) * 100 + BcdToDec(s.u8(0x0354)));
     }},
    {"Com2Freq", [](auto& s, auto& v) { set(v.Com2Freq, standbyFrequency(s, v, 0x3118)); }},
    {"Com1Standby", [](auto& s, auto& v) { set(v.Com1Standby, standbyFrequency(s, v, 0x311A)); }},
    {"Com2Standby", [](auto& s, auto& v) { set(v.Com2Standby, standbyFrequency(s, v, 0x311C)); }},
    // The NAV standbys keep what they hold when the simulator is too old to have them.
    {"Nav1Standby",
     [](auto& s, auto& v) {
       if (isModern(v)) set(v.Nav1Standby, bcdMegahertz(s.u16(0x311E)));
     }},
    {"Nav2Standby",
     [](auto& s, auto& v) {
       if (isModern(v)) set(v.Nav2Standby, bcdMegahertz(s.u16(0x3120)));
     }},
    {"OnGround", [](auto& s, auto& v) { set(v.OnGround, s.u16(0x0366)); }},
    {"TurnCoordinatorBall",
     [](auto& s, auto& v) {
       const double b = s.u8(0x036E);
       set(v.TurnCoordinatorBall, b > 127 ? 255 - b : -b);
     }},
    {"Word378", [](auto& s, auto& v) { set(v.Word378, s.u16(0x0378)); }},
    {"TurnRate",
     [](auto& s, auto& v) { set(v.TurnRate, folded(s.u16(0x037C), 32767, Fold65535)); }},
    {"Latitude",
     [](auto& s, auto& v) {
       set(v.Latitude, folded(s.u32(0x0564) / 111130.53125, 90, 38543.3452675));
     }},
    {"Longitude",
     [](auto& s, auto& v) {
       set(v.Longitude, folded(s.u32(0x056C) / 11930464.7111111, 180, 360));
     }},
    {"AircraftAltitude", [](auto& s, auto& v) { set(v.AircraftAltitude, altitude(s, v)); }},
    {"Pitch",
     [](auto& s, auto& v) {
       const double x = degrees32(s.u32(0x0578));
       set(v.Pitch, x > 90 ? 360 - x : -x);
     }},
    {"Bank", [](auto& s, auto& v) { set(v.Bank, degrees32(s.u32(0x057C))); }},
    {"TrueHeading", [](auto& s, auto& v) { set(v.TrueHeading, degrees32(s.u32(0x0580))); }},
    {"MagHeading", [](auto&, auto& v) { set(v.MagHeading, magneticHeading(v)); }},
    {"Double0B18", [](auto& s, auto& v) { set(v.Double0B18, s.f64(0x0B18)); }},
    {"GrossWeight", [](auto& s, auto& v) { set(v.GrossWeight, s.f64(0x30C0)); }},
    {"RadioAltitude", [](auto& s, auto& v) { set(v.RadioAltitude, radioAltitude(s, v)); }},
    {"EngineCombustionBits",
     [](auto& s, auto& v) { set(v.EngineCombustionBits, addBytes(s.u8(0x0888), s.u8(0x0889))); }},
};

constexpr EngineRow EngineRows[] = {
    {"ThrustLever",
     [](auto& in, auto& engine) {
       // 399 is meant: full reverse reads a little more than the lever's travel.
       set(engine.ThrustLever, folded(in.s.u16(in.b) / 163.84, 100, 399));
     }},
    {"PropValue",
     [](auto& in, auto& engine) {
       set(engine.PropValue, in.s.u16(in.b + 2) / 163.84);
       set(engine.PropValue, in.s.f64(0x2408 + in.e));
     }},
    {"Mixture", [](auto& in, auto& engine) { set(engine.Mixture, in.s.u16(in.b + 4) / 163.84); }},
    {"Starter", [](auto& in, auto& engine) { set(engine.Starter, in.s.u8(in.b + 6)); }},
    {"Combustion", [](auto& in, auto& engine) { set(engine.Combustion, in.s.u8(in.b + 8)); }},
    {"N2", [](auto& in, auto& engine) { set(engine.N2, in.s.u16(in.b + 0x0A) / 163.84); }},
    {"N1",
     [](auto& in, auto& engine) {
       const bool turboprop = in.v.EngineType == 5 && isModern(in.v);
       set(engine.N1, turboprop ? in.s.f64(0x2010 + in.e) : in.s.u16(in.b + 0x0C) * 100.0 / 16384);
     }},
    {"Epr",
     [](auto& in, auto& engine) {
       const bool word = in.v.FsVersionCode < 6;
       set(engine.Epr, word ? in.s.u16(in.b + 0x1C) * 16.0 / 16384 : in.s.f64(0x2030 + in.e));
     }},
    {"AntiIce", [](auto& in, auto& engine) { set(engine.AntiIce, in.s.u8(in.b + 0x26)); }},
    {"OilTemp",
     [](auto& in, auto& engine) {
       const double whole = folded(in.s.u8(in.b + 0x2D), 128, 256);
       set(engine.OilTemp, (whole + in.s.u8(in.b + 0x2C) / 256.0) * 1.4 / 0.64);
     }},
    {"OilPressure",
     [](auto& in, auto& engine) {
       set(engine.OilPressure, in.s.u16(in.b + 0x2E) / 256.0 * 0.55 / 0.64);
     }},
    {"Egt",
     [](auto& in, auto& engine) {
       const double fahrenheit =
           in.v.FsVersionCode < 6
               ? in.s.u16(in.b + 0x32) / 256.0 * 8.6 / 0.64
               : in.s.f64(0x3B70 - 0xC0 * static_cast<std::uint32_t>(in.n - 1)) - 459.67;
       set(engine.Egt, FahrenheitToCelsius(fahrenheit));
     }},
    {"Word08C0",
     [](auto& in, auto& engine) {
       set(engine.Word08C0, in.s.u16(in.b + 0x34) / 256.0 * 0.1652 / 0.64);
     }},
    {"OilQuantity",
     [](auto& in, auto& engine) { set(engine.OilQuantity, in.s.u16(in.b + 0x44) / 163.84); }},
    {"Vibration",
     [](auto& in, auto& engine) { set(engine.Vibration, in.s.u16(in.b + 0x48) * 5.0 / 16384); }},
    {"HydPressure",
     [](auto& in, auto& engine) { set(engine.HydPressure, in.s.u16(in.b + 0x4C) / 4.0); }},
    {"HydQuantity",
     [](auto& in, auto& engine) {
       set(engine.HydQuantity, in.s.u16(in.b + 0x50) * 100.0 / 16384);
     }},
    {"Cht",
     [](auto& in, auto& engine) {
       set(engine.Cht, in.s.f64(0x08E8 + 0x98 * static_cast<std::uint32_t>(in.n - 1)));
     }},
    {"Itt",
     [](auto& in, auto& engine) {
       const double fahrenheit =
           isModern(in.v) ? in.s.f64(0x2038 + in.e) - 459.67 : in.s.u16(in.b + 0x64) / 163.84;
       set(engine.Itt, FahrenheitToCelsius(fahrenheit));
     }},
    {"Torque",
     [](auto& in, auto& engine) {
       set(engine.Torque,
           isModern(in.v) ? in.s.f64(0x2028 + in.e) : in.s.u16(in.b + 0x68) / 16384.0);
     }},
    {"Word08F8",
     [](auto& in, auto& engine) { set(engine.Word08F8, in.s.u16(in.b + 0x6C) / 163.84); }},
    {"Word0908",
     [](auto& in, auto& engine) { set(engine.Word0908, in.s.u16(in.b + 0x7C) / 16384.0 * 100); }},
    {"FuelFlow",
     [](auto& in, auto& engine) {
       const bool turboprop = in.v.EngineType == 5 && isModern(in.v);
       const auto jetOffset = 0x0918 + 0x98 * static_cast<std::uint32_t>(in.n - 1);
       set(engine.FuelFlow, in.s.f64(turboprop ? 0x2060 + in.e : jetOffset));
     }},
    {"GeneratorA",
     [](auto& in, auto& engine) {
       set(engine.GeneratorA, in.s.f64(0x2880 + 0x10 * static_cast<std::uint32_t>(in.n - 1)));
     }},
    {"GeneratorB",
     [](auto& in, auto& engine) {
       set(engine.GeneratorB, in.s.f64(0x2888 + 0x10 * static_cast<std::uint32_t>(in.n - 1)));
     }},
    {"FuelUsedLb",
     [](auto& in, auto& engine) {
       set(engine.FuelUsedLb, double{in.v.FuelLbPerGallon} * in.v.FuelBurnt(in.n));
     }},
};

constexpr DecodeRow RowsAfterEngines[] = {
    {"FuelLbPerGallon", [](auto& s, auto& v) { set(v.FuelLbPerGallon, s.u16(0x0AF4) / 256.0); }},
    {"FuelSelector", [](auto& s, auto& v) { set(v.FuelSelector, s.u8(0x0AF8)); }},
    {"Word0B00Percent",
     [](auto& s, auto& v) { set(v.Word0B00Percent, s.u16(0x0B00) * 100.0 / 16384); }},
    {"FuelTanks centre", [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::Centre), 0x0B74); }},
    {"FuelTanks left main",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftMain), 0x0B7C); }},
    {"FuelTanks left aux",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftAux), 0x0B84); }},
    {"FuelTanks left tip",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftTip), 0x0B8C); }},
    {"FuelTanks right main",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightMain), 0x0B94); }},
    {"FuelTanks right aux",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightAux), 0x0B9C); }},
    {"FuelTanks right tip",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightTip), 0x0BA4); }},
    {"FuelTanks without aux",
     [](auto&, auto& v) {
       for (const int aux : {Tank::LeftAux, Tank::RightAux})
         if (v.FuelTanks(aux).Capacity == 0) v.FuelTanks(aux).Level = 0;
     }},
    {"FuelTotalLb", [](auto&, auto& v) { set(v.FuelTotalLb, totalFuel(v)); }},
    {"ElevatorTrimDeg",
     [](auto& s, auto& v) { set(v.ElevatorTrimDeg, s.f64(0x2EB0) * DegreesPerRadian); }},
    {"AileronTrimDeg",
     [](auto& s, auto& v) { set(v.AileronTrimDeg, s.f64(0x2EC0) * DegreesPerRadian); }},
    {"ElevatorInput",
     [](auto& s, auto& v) { set(v.ElevatorInput, folded(s.u16(0x0BB2), 16383, Fold65536)); }},
    {"AileronInput",
     [](auto& s, auto& v) { set(v.AileronInput, folded(s.u16(0x0BB6), 16383, Fold65536)); }},
    {"RudderInput",
     [](auto& s, auto& v) { set(v.RudderInput, folded(s.u16(0x0BBA), 16383, Fold65536)); }},
    {"ElevatorTrimInput",
     [](auto& s, auto& v) { set(v.ElevatorTrimInput, folded(s.u16(0x0BC0), 16383, Fold65536)); }},
    {"LeftBrake", [](auto& s, auto& v) { set(v.LeftBrake, s.u16(0x0BC4)); }},
    {"RightBrake", [](auto& s, auto& v) { set(v.RightBrake, s.u16(0x0BC6)); }},
    {"ParkingBrake", [](auto& s, auto& v) { set(v.ParkingBrake, s.u16(0x0BC8)); }},
    {"Word0BCA", [](auto& s, auto& v) { set(v.Word0BCA, s.u16(0x0BCA)); }},
    {"SpoilersArm", [](auto& s, auto& v) { set(v.SpoilersArm, s.u8(0x0BCC)); }},
    {"SpoilersControl", [](auto& s, auto& v) { set(v.SpoilersControl, s.u16(0x0BD0)); }},
    {"FlapsControl",
     [](auto& s, auto& v) {
       const double x = s.u16(0x0BDC);
       set(v.FlapsControl, isModern(v) ? x : folded(x, 16384, Fold65536));
     }},
    {"FlapIncrement", [](auto& s, auto& v) { set(v.FlapIncrement, s.u16(0x3BFA)); }},
    {"FlapPositions",
     [](auto&, auto& v) { set(v.FlapPositions, quotient(16384, v.FlapIncrement) + 1); }},
    {"FlapsPosition", [](auto& s, auto& v) { set(v.FlapsPosition, s.u16(0x0BE0)); }},
    {"GearControl", [](auto& s, auto& v) { set(v.GearControl, s.u16(0x0BE8)); }},
    {"GearNose", [](auto& s, auto& v) { set(v.GearNose, s.u16(0x0BEC)); }},
    {"GearRight", [](auto& s, auto& v) { set(v.GearRight, s.u16(0x0BF0)); }},
    {"GearLeft", [](auto& s, auto& v) { set(v.GearLeft, s.u16(0x0BF4)); }},
    {"LocalTimeText", [](auto& s, auto& v) { v.LocalTimeText = localTime(s); }},
    {"Word0C3EDeg", [](auto& s, auto& v) { set(v.Word0C3EDeg, degrees16(s.u16(0x0C3E))); }},
    {"Adf1Bearing", [](auto& s, auto& v) { set(v.Adf1Bearing, degrees16(s.u16(0x0C6A))); }},
    {"NavRadios(1).LocNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(1).LocNeedle, signedByte(s.u8(0x0C48))); }},
    {"NavRadios(2).LocNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(2).LocNeedle, signedByte(s.u8(0x0C59))); }},
    {"NavRadios(1).GsNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(1).GsNeedle, signedByte(s.u8(0x0C49))); }},
    {"NavRadios(1).BackCourse",
     [](auto& s, auto& v) { set(v.NavRadios(1).BackCourse, s.u8(0x0C4A)); }},
    {"NavRadios(2).BackCourse",
     [](auto& s, auto& v) { set(v.NavRadios(2).BackCourse, s.u8(0x0C5A)); }},
    {"NavRadios(1).ToFrom", [](auto& s, auto& v) { set(v.NavRadios(1).ToFrom, s.u8(0x0C4B)); }},
    {"NavRadios(2).ToFrom", [](auto& s, auto& v) { set(v.NavRadios(2).ToFrom, s.u8(0x0C5B)); }},
    {"NavRadios(1).GsFlag", [](auto& s, auto& v) { set(v.NavRadios(1).GsFlag, s.u8(0x0C4C)); }},
    {"NavRadios(1).Obs", [](auto& s, auto& v) { set(v.NavRadios(1).Obs, s.u16(0x0C4E)); }},
    {"NavRadios(2).Obs", [](auto& s, auto& v) { set(v.NavRadios(2).Obs, s.u16(0x0C5E)); }},
    {"NavRadios(1).Radial",
     [](auto& s, auto& v) { set(v.NavRadios(1).Radial, degrees16(s.u16(0x0C50))); }},
    {"NavRadios(2).Radial",
     [](auto& s, auto& v) { set(v.NavRadios(2).Radial, degrees16(s.u16(0x0C60))); }},
    {"NavRadios(1).IlsHeading",
     [](auto& s, auto& v) { set(v.NavRadios(1).IlsHeading, s.u16(0x0870) * 360.0 / Fold65535); }},
    {"NavRadios(1).IlsSlope",
     [](auto& s, auto& v) { set(v.NavRadios(1).IlsSlope, 360 - s.u16(0x0872) * 360.0 / Fold65535); }},
    {"NavRadios(1).OuterMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).OuterMarker, s.u8(0x0BB0)); }},
    {"NavRadios(1).MiddleMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).MiddleMarker, s.u8(0x0BAE)); }},
    {"NavRadios(1).InnerMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).InnerMarker, s.u8(0x0BAC)); }},
    {"NavRadios(1).DmeDistance",
     [](auto& s, auto& v) {
       decodeDme(v.NavRadios(1).DmeDistance, s.characters(0x0C29, 4), ";;.;", v.sDecimal);
     }},
    {"NavRadios(1).DmeSpeed",
     [](auto& s, auto& v) {
       decodeDme(v.NavRadios(1).DmeSpeed, s.characters(0x0C2E, 4), ";;;.", v.sDecimal);
     }},
    {"NavRadios(2).DmeDistance",
     [](auto& s, auto& v) {
       decodeDme(v.NavRadios(2).DmeDistance, s.characters(0x0C33, 4), ";;.;", v.sDecimal);
     }},
    {"NavRadios(2).DmeSpeed",
     [](auto& s, auto& v) {
       decodeDme(v.NavRadios(2).DmeSpeed, s.characters(0x0C38, 4), ";;;.", v.sDecimal);
     }},
    {"Vor1Id", [](auto& s, auto& v) { v.Vor1Id = s.text(0x3000, Snapshot::RawText3000End); }},
    {"Vor2Id", [](auto& s, auto& v) { v.Vor2Id = s.text(0x301F, Snapshot::RawText3000End); }},
    {"Adf1Id", [](auto& s, auto& v) { v.Adf1Id = s.text(0x303E, Snapshot::RawText3000End); }},
    {"Byte3BFB", [](auto& s, auto& v) { set(v.Byte3BFB, s.u8(0x3BFB)); }},
    {"OutsideAirTemp", [](auto& s, auto& v) { set(v.OutsideAirTemp, celsius256(s.u16(0x0E8C))); }},
    {"WindSpeedKt", [](auto& s, auto& v) { set(v.WindSpeedKt, s.u16(0x0E90)); }},
    {"WindDirection", [](auto& s, auto& v) { set(v.WindDirection, degrees16(s.u16(0x0E92))); }},
    {"AmbientQnh", [](auto& s, auto& v) { set(v.AmbientQnh, s.u16(0x0EC6) / 16.0); }},
    {"Word0EEE", [](auto& s, auto& v) { set(v.Word0EEE, s.u16(0x0EEE) * FeetPerMetre); }},
    {"GForce", [](auto& s, auto& v) { set(v.GForce, s.u16(0x11BA) / 625.0); }},
    {"AngleOfAttack", [](auto& s, auto& v) { set(v.AngleOfAttack, 180 - degrees16(s.u16(0x11BE))); }},
    {"Mach", [](auto& s, auto& v) { set(v.Mach, s.u16(0x11C6) / 20480.0); }},
    {"TotalAirTemp", [](auto& s, auto& v) { set(v.TotalAirTemp, celsius256(s.u16(0x11D0))); }},
    {"TotalAirTempSlow",
     [](auto&, auto& v) {
       const double slow = v.TotalAirTempSlow;
       set(v.TotalAirTempSlow, slow + 0.00002 * (v.TotalAirTemp - slow));
     }},
    {"NavGpsSwitch", [](auto& s, auto& v) { set(v.NavGpsSwitch, s.u8(0x132C)); }},
    {"MasterBattery", [](auto& s, auto& v) { set(v.MasterBattery, s.i32(0x281C)); }},
    {"AvionicsMaster", [](auto& s, auto& v) { set(v.AvionicsMaster, s.i32(0x2E80)); }},
    {"Long2E88", [](auto& s, auto& v) { set(v.Long2E88, s.i32(0x2E88)); }},
    {"Long2EC8", [](auto& s, auto& v) { set(v.Long2EC8, s.i32(0x2EC8)); }},
    {"Electrical", decodeElectrical},
    {"FailureFlags", decodeFailures},
    {"WeatherSums", decodeWeather},
};

constexpr DecodeRow SimAutopilotRows[] = {
    {"ApMasterSim", [](auto& s, auto& v) { set(v.ApMasterSim, s.u16(0x07BC)); }},
    {"ApWingLevelerSim", [](auto& s, auto& v) { set(v.ApWingLevelerSim, s.u16(0x07C0)); }},
    {"ApNavHoldSim", [](auto& s, auto& v) { set(v.ApNavHoldSim, s.u16(0x07C4)); }},
    {"ApHeadingHoldSim", [](auto& s, auto& v) { set(v.ApHeadingHoldSim, s.u16(0x07C8)); }},
    {"ApAltHoldSim", [](auto& s, auto& v) { set(v.ApAltHoldSim, s.u16(0x07D0)); }},
    {"ApAttitudeHoldSim", [](auto& s, auto& v) { set(v.ApAttitudeHoldSim, s.u16(0x07D8)); }},
    {"ApAltitudeSim", [](auto& s, auto& v) { set(v.ApAltitudeSim, s.u32(0x07D4) / 19975.372); }},
    // The two bytes of two different offsets, on purpose.
    {"ApSpeedHoldSim",
     [](auto& s, auto& v) { set(v.ApSpeedHoldSim, s.u8(0x07E0) * 256 + s.u8(0x07DC)); }},
    {"ApIasSim", [](auto& s, auto& v) { set(v.ApIasSim, s.u16(0x07E2)); }},
    {"ApMachHoldSim", [](auto& s, auto& v) { set(v.ApMachHoldSim, s.u16(0x07E4)); }},
    {"ApMachSim", [](auto& s, auto& v) { set(v.ApMachSim, s.u16(0x07E8) / 65500.0); }},
    {"ApVsHoldSim", [](auto& s, auto& v) { set(v.ApVsHoldSim, s.u16(0x07EC)); }},
    {"ApVsSim", [](auto& s, auto& v) { set(v.ApVsSim, folded(s.u16(0x07F2), 32767, Fold65535)); }},
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

std::span<const DecodeRow> rowsBeforeEngines() { return RowsBeforeEngines; }
std::span<const EngineRow> engineRows() { return EngineRows; }
std::span<const DecodeRow> rowsAfterEngines() { return RowsAfterEngines; }
std::span<const DecodeRow> simAutopilotRows() { return SimAutopilotRows; }

void decode(std::span<const DecodeRow> rows, const Snapshot& snapshot, modPublic& variables) {
  for (const DecodeRow& row : rows) attempt([&] { row.decode(snapshot, variables); });
}

void decodeEngine(int n, const Snapshot& snapshot, modPublic& variables) {
  const auto k = static_cast<std::uint32_t>(n - 1);
  const EngineInput input{snapshot, variables, n, 0x088C + 0x98 * k, 0x100 * k};
  for (const EngineRow& row : EngineRows) attempt([&] { row.decode(input, variables.Engines(n)); });
}

int BcdToDec(std::uint8_t bcd) { return 10 * (bcd >> 4) + (bcd & 0xF); }

float FahrenheitToCelsius(double fahrenheit) {
  return toSingle(std::trunc(finite((fahrenheit - 32) / 1.8)));
}

}  // namespace vorlent
