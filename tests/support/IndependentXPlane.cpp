#include "support/IndependentXPlane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace vorlent {
namespace {

using At = std::pair<const char*, std::uint32_t>;

std::string indexed(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

double celsiusOf(double fahrenheit) { return std::trunc((fahrenheit - 32) / 1.8); }

}  // namespace

double IndependentXPlane::s16(std::uint32_t at) const {
  return u16(at) >= 32768 ? u16(at) - 65536 : u16(at);
}

double IndependentXPlane::s8(std::uint32_t at) const {
  return u8(at) >= 128 ? u8(at) - 256 : u8(at);
}

/// Two of the four digits of a word's hexadecimal text, the first or the third on.
double IndependentXPlane::hexDigits(std::uint32_t at, int first) const {
  std::array<char, 5> text{};
  std::snprintf(text.data(), text.size(), "%04X", static_cast<unsigned>(u16(at)));
  const std::string digits = "0123456789ABCDEF";
  const auto digit = [&](int place) {
    return static_cast<double>(digits.find(text.at(static_cast<std::size_t>(place))));
  };
  return digit(first) * 10 + digit(first + 1);
}

double IndependentXPlane::hexFrequency(std::uint32_t at) const {
  return hexDigits(at, 2) / 100 + hexDigits(at, 0) + 100;
}

/// 0 bytes and blanks are passed over.
std::string IndependentXPlane::sixCharacters(std::uint32_t at) const {
  std::string text;
  for (std::uint32_t k = 0; k < 6; ++k)
    if (const char c = static_cast<char>((*offsets_)[at + k]); c != ' ' && c != '\0') text += c;
  return text;
}

void IndependentXPlane::poll(const std::vector<std::uint8_t>& offsets) {
  offsets_ = &offsets;
  engineTokens_.clear();
  bytes();
  words();
  position();
  speedsAndAir();
  radios();
  receivers();
  for (int n = 1; n <= 4; ++n) decodeEngine(n);
  fuel();
  trimsAndElectrics();
  failures();
  simulatorAutopilot();
  names();
  commandArrays();
  stateValues();
  for (int n = 1; n <= 4 && n <= number("EngineCount"); ++n) keepEngineTokens(n);
}

void IndependentXPlane::bytes() {
  for (const auto& [name, at] : {At{"EngineCount", 0x0AEC},
                                 At{"EngineCount2", 0x0AEC},
                                 At{"EngineTypeRaw", 0x0609},
                                 At{"EngineType", 0x0609},
                                 At{"Paused", 0x0264},
                                 At{"AutoCoordination", 0x0278},
                                 At{"FrameRateByte", 0x0274},
                                 At{"LightsByte1", 0x0280},
                                 At{"LightsByte2", 0x0281},
                                 At{"LightsByte3", 0x0282},
                                 At{"LandingLights", 0x028C},
                                 At{"PitotHeat", 0x029C},
                                 At{"EngineCombustionBits", 0x0889},
                                 At{"FuelSelector", 0x0AF8},
                                 At{"SpoilersArm", 0x0BCC},
                                 At{"Byte3BFB", 0x3BFB},
                                 At{"NavGpsSwitch", 0x132C},
                                 At{"NavRadios(1).BackCourse", 0x0C4A},
                                 At{"NavRadios(2).BackCourse", 0x0C5A},
                                 At{"NavRadios(1).ToFrom", 0x0C4B},
                                 At{"NavRadios(2).ToFrom", 0x0C5B},
                                 At{"NavRadios(1).GsFlag", 0x0C4C},
                                 At{"NavRadios(1).OuterMarker", 0x0BB0},
                                 At{"NavRadios(1).MiddleMarker", 0x0BAE},
                                 At{"NavRadios(1).InnerMarker", 0x0BAC}})
    int16(name, u8(at));
  for (const auto& [name, at] :
       {At{"NavRadios(1).LocNeedle", 0x0C48}, At{"NavRadios(2).LocNeedle", 0x0C59},
        At{"NavRadios(1).GsNeedle", 0x0C49}})
    int16(name, s8(at));
  single("ZuluTime", u8(0x023C) / 100 + u8(0x023B));
  single("TurnCoordinatorBall", u8(0x036E) > 127 ? 255 - u8(0x036E) : -u8(0x036E));
  for (int k = 0; k < 8; ++k)
    int16(indexed("WeatherSums", k + 1),
          byteSum(static_cast<std::uint32_t>(0x0E5A + 2 * k)) * (k == 1 ? 3.28084 : 1));
}

void IndependentXPlane::words() {
  for (const auto& [name, at] :
       {At{"OnGround", 0x0366}, At{"Word378", 0x0378}, At{"SpoilersControl", 0x0BD0},
        At{"FlapIncrement", 0x3BFA}, At{"FlapsPosition", 0x0BE0}, At{"GearControl", 0x0BE8},
        At{"GearNose", 0x0BEC}, At{"GearRight", 0x0BF0}, At{"GearLeft", 0x0BF4},
        At{"NavRadios(1).Obs", 0x0C4E}, At{"NavRadios(2).Obs", 0x0C5E}})
    int16(name, u16(at));
  for (const auto& [name, at] : {At{"LeftBrake", 0x0BC4}, At{"RightBrake", 0x0BC6},
                                 At{"ParkingBrake", 0x0BC8}, At{"Word0BCA", 0x0BCA}})
    int32(name, u16(at));
  for (const auto& [name, at] : {At{"ElevatorInput", 0x0BB2}, At{"AileronInput", 0x0BB6},
                                 At{"RudderInput", 0x0BBA}, At{"ElevatorTrimInput", 0x0BC0}})
    int32(name, s16(at));
  if (FsVersionCode >= 2) {
    int16("FlapsControl", u16(0x0BDC));
  } else {
    const double lever = s16(0x0BDC);
    int16("FlapsControl", lever > 16384 ? lever - 65536 : lever);
  }
  if (number("FlapIncrement") != 0) int16("FlapPositions", 16384 / number("FlapIncrement") + 1);
  int16("FlapsPositionRight", s32(0x0BE4));
  int16("Word0B00Percent", u16(0x0B00) * 100 / 16384);
}

void IndependentXPlane::position() {
  const auto halves = [this](std::uint32_t low) { return u32(low) / 65536 / 65536 + s32(low + 4); };
  single("Latitude", halves(0x0560) / 111130.53125);
  single("Longitude", halves(0x0568) / (65536.0 * 65536.0) * 360);
  real("AircraftAltitude", halves(0x0570) * 3.28275);
  int32("RadioAltitude", number("AircraftAltitude") - s16(0x0B4C) * 3.28084);
  single("Pitch", -s32(0x0578) * 360 / 4294967296.0);
  single("Bank", u32(0x057C) * 360 / 4294967296.0);
  single("TrueHeading", u32(0x0580) * 360 / 4294967296.0);
  single("MagVar", s16(0x02A0) * 360 / 65536);
  const double magnetic = number("TrueHeading") - number("MagVar");
  single("MagHeading", magnetic < 0 ? magnetic + 360 : magnetic > 360 ? magnetic - 360 : magnetic);
  single("Word0C3EDeg", u16(0x0C3E) * 360 / 65536);
  int32("GrossWeight", f64(0x30C0));
}

void IndependentXPlane::speedsAndAir() {
  int16("GroundSpeed", s32(0x02B4) / 65535 * 3600 / 1852);
  int16("Tas", u32(0x02B8) / 128);
  single("Ias", number("Paused") > 0 ? 0 : u32(0x02BC) / 128);
  single("BarberPole", u16(0x02C4) / 128);
  single("VerticalSpeed", s32(0x02C8));
  single("TurnRate", s16(0x037C));
  single("AltimeterQnh", u16(0x0330) / 16);
  single("OutsideAirTemp", s16(0x0E8C) / 256);
  single("TotalAirTemp", s16(0x11D0) / 256);
  const double slow = number("TotalAirTempSlow");
  single("TotalAirTempSlow", slow + 0.00002 * (number("TotalAirTemp") - slow));
  single("WindSpeedKt", u16(0x0E90));
  single("WindDirection", u16(0x0E92) * 360 / 65536);
  single("AmbientQnh", u16(0x0EC6) / 16);
  int32("Word0EEE", s16(0x0EEE) * 3.28275);
  single("GForce", u16(0x11BA) / 625);
  single("AngleOfAttack", 180 - u16(0x11BE) * 360 / 65536);
  single("Mach", u16(0x11C6) / 20480);
}

void IndependentXPlane::radios() {
  const auto adf = [this](std::uint32_t main, std::uint32_t extension) {
    return hexDigits(main, 0) * 100 + hexDigits(main, 2) + u8(extension + 1) * 1000 +
           u8(extension) / 10;
  };
  single("Adf1Freq", adf(0x034C, 0x0356));
  single("Adf2Freq", adf(0x02D4, 0x02D6));
  single("Com1Freq", hexFrequency(0x034E));
  single("Nav1Freq", hexFrequency(0x0350));
  single("Nav2Freq", hexFrequency(0x0352));
  single("TransponderCode", hexDigits(0x0354, 0) * 100 + hexDigits(0x0354, 2));
  const bool modern = FsVersionCode >= 2;
  single("Com2Freq", modern ? frequency(0x3118) : 0);
  single("Com1Standby", modern ? frequency(0x311A) : 0);
  single("Com2Standby", modern ? frequency(0x311C) : 0);
  if (modern) single("Nav1Standby", frequency(0x311E));
  if (modern) single("Nav2Standby", frequency(0x3120));
}

void IndependentXPlane::receivers() {
  single("Adf1Bearing", u16(0x0C6A) * 360 / 65536);
  single("Adf2Bearing", u16(0x02D8) * 360 / 65536);
  int16("NavRadios(1).Radial", u16(0x0C50) * 360 / 65536);
  int16("NavRadios(2).Radial", u16(0x0C60) * 360 / 65536);
  single("NavRadios(1).IlsHeading", u16(0x0870) * 360 / 65535);
  single("NavRadios(1).IlsSlope", 360 - u16(0x0872) * 360 / 65535);
  dme("NavRadios(1).DmeDistance", 0x0C29, ";;.;");
  dme("NavRadios(1).DmeSpeed", 0x0C2E, ";;;.");
  dme("NavRadios(2).DmeDistance", 0x0C33, ";;.;");
  dme("NavRadios(2).DmeSpeed", 0x0C38, ";;;.");
}

void IndependentXPlane::decodeEngine(int n) {
  const auto before = static_cast<std::uint32_t>(n - 1);
  const std::uint32_t b = 0x088C + 0x98 * before;
  const std::uint32_t e = 0x100 * before;
  const bool turboprop = number("EngineType") == 5;
  const std::string name = indexed("Engines", n) + ".";
  const auto percent = [this](std::uint32_t at) { return s16(at) * 100 / 16384; };
  const double lever = percent(b);
  single(name + "ThrustLever", lever > 100 ? lever - 399 : lever);
  single(name + "PropValue", percent(b + 2));
  single(name + "PropValue", f64(0x2408 + e));
  int16(name + "Mixture", percent(b + 4));
  int16(name + "Starter", u8(b + 6));
  int16(name + "Combustion", u8(b + 8));
  single(name + "N2", percent(b + 0x0A));
  single(name + "N1", turboprop ? f64(0x2010 + e) : percent(b + 0x0C));
  single(name + "Epr", s16(b + 0x1C) * 16 / 16384);
  int16(name + "AntiIce", u8(b + 0x26));
  const double oil = u8(b + 0x2D) > 128 ? u8(b + 0x2D) - 256 : u8(b + 0x2D);
  single(name + "OilTemp", (oil + u8(b + 0x2C) / 256) * 1.4 / 0.64);
  single(name + "OilPressure", s16(b + 0x2E) * 55 / 16384);
  single(name + "Egt", celsiusOf(s16(b + 0x32) * 860 / 16384));
  single(name + "Word08C0", u16(b + 0x34) / 256 * 0.1652 / 0.64);
  int16(name + "OilQuantity", percent(b + 0x44));
  single(name + "Vibration", u16(b + 0x48) * 5 / 16384);
  single(name + "HydPressure", u16(b + 0x4C) / 4);
  int16(name + "HydQuantity", u16(b + 0x50) * 100 / 16384);
  real(name + "Cht", f64(0x08E8 + 0x98 * before));
  int16(name + "Itt",
        FsVersionCode < 2 ? celsiusOf(percent(b + 0x64)) : celsiusOf(f64(0x2038 + e) - 459.67));
  single(name + "Torque", s16(b + 0x68) / 16384);
  single(name + "Word08F8", percent(b + 0x6C));
  single(name + "Word0908", u16(b + 0x7C) / 16384 * 100);
  real(name + "FuelFlow",
       turboprop && FsVersionCode >= 2 ? f64(0x2060 + e) : f64(0x0918 + 0x98 * before));
  single(name + "GeneratorA", f64(0x2880 + 0x10 * before));
  single(name + "GeneratorB", f64(0x2888 + 0x10 * before));
}

void IndependentXPlane::fuel() {
  single("FuelLbPerGallon", s16(0x0AF4) > 0 ? s16(0x0AF4) / 256 : 6.6);
  double sum = 0;
  for (const auto& [tank, at] :
       {At{"Centre", 0x0B74}, At{"LeftMain", 0x0B7C}, At{"LeftAux", 0x0B84}, At{"LeftTip", 0x0B8C},
        At{"RightMain", 0x0B94}, At{"RightAux", 0x0B9C}, At{"RightTip", 0x0BA4}}) {
    const std::string name = tank;
    single(name + ".Level", u32(at) * 1.19209289550781e-05);
    int32(name + ".Capacity", u32(at + 4));
    if (name.find("Aux") != std::string::npos && number(name + ".Capacity") == 0)
      single(name + ".Level", 0);
    sum += number(name + ".Level") * number(name + ".Capacity");
  }
  single("FuelTotalLb", number("FuelLbPerGallon") / 100 * sum);
}

void IndependentXPlane::trimsAndElectrics() {
  real("ElevatorTrimDeg", f64(0x2EB0) * 57.295777918682);
  real("AileronTrimDeg", f64(0x2EC0) * 57.295777918682);
  single("Double0B18", f64(0x0B18));
  for (const auto& [name, at] : {At{"MasterBattery", 0x281C}, At{"AvionicsMaster", 0x2E80},
                                 At{"Long2E88", 0x2E88}, At{"Long2EC8", 0x2EC8}})
    int16(name, s32(at));
  for (std::uint32_t k = 0; k < 3; ++k)
    single(indexed("Electrical", static_cast<int>(k) + 1), f64(0x2824 + 8 * k));
  for (std::uint32_t k = 0; k < 8; ++k)
    single(indexed("Electrical", static_cast<int>(k) + 4), f64(0x2840 + 8 * k));
}

void IndependentXPlane::failures() {
  for (std::uint32_t k = 0; k < 20; ++k) {
    const std::uint32_t at = k < 18 ? 0x3BD6 + k : k == 18 ? 0x0B71U : 0x32F8U;
    texts[indexed("FailureFlags", static_cast<int>(k) + 1)] = std::to_string((*offsets_)[at]);
  }
}

void IndependentXPlane::simulatorAutopilot() {
  for (const auto& [name, at] :
       {At{"ApMasterSim", 0x07BC}, At{"ApWingLevelerSim", 0x07C0}, At{"ApNavHoldSim", 0x07C4},
        At{"ApHeadingHoldSim", 0x07C8}, At{"ApAltHoldSim", 0x07D0}, At{"ApAttitudeHoldSim", 0x07D8},
        At{"ApIasSim", 0x07E2}, At{"ApMachHoldSim", 0x07E4}, At{"ApVsHoldSim", 0x07EC},
        At{"ApRpmHoldSim", 0x07F4}, At{"ApGsHoldSim", 0x07FC}, At{"ApApproachHoldSim", 0x0800},
        At{"ApBcHoldSim", 0x0804}, At{"YawDamperSim", 0x0808}, At{"ToGaSim", 0x080C},
        At{"AutoThrottleArmSim", 0x0810}})
    int16(name, u16(at));
  single("ApHeadingSim", u16(Offset_APHeading) / static_cast<double>(Factor_APHeading));
  int32("ApAltitudeSim", u32(0x07D4) / 19975.372);
  int16("ApSpeedHoldSim", u8(0x07E0) * 256 + u8(0x07DC));
  single("ApMachSim", u16(0x07E8) / 65500);
  int32("ApVsSim", s16(0x07F2));
  int32("ApRpmSim", u16(0x07F8));
}

void IndependentXPlane::names() {
  field("Adf2Id", 0x02DC, 0x0264 + 4352);
  field("Adf2Name", 0x02E2, 0x0264 + 4352);
  texts["Vor1Id"] = sixCharacters(0x3000);
  texts["Vor2Id"] = sixCharacters(0x3000 + 31);
  texts["Adf1Id"] = sixCharacters(0x3000 + 62);
  // As the record's layout cuts it: two places each, of which the blanks do not count.
  std::array<char, 9> time{};
  std::snprintf(time.data(), time.size(), "%-2d %-2d %-2d", hour % 24, minute % 60, second % 60);
  texts["LocalTimeText"] = time.data();
}

}  // namespace vorlent
