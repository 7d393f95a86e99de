#include "support/IndependentRecord.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace vorlent {
namespace {

constexpr double Fault = std::numeric_limits<double>::quiet_NaN();

double halfToEven(double x) {
  const double below = std::floor(x);
  const double rest = x - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

double celsius(double fahrenheit) { return std::trunc((fahrenheit - 32) / 1.8); }

double foldedAbove(double limit, double x, double fold) { return x > limit ? x - fold : x; }

/// The number that four characters of a DME window stand for: blanks around it, a minus, digits
/// with at most one mark, an exponent.
double dmeNumber(std::string text, char mark) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  int digits = 0;
  int marks = 0;
  for (; at < text.size(); ++at) {
    if (text[at] >= '0' && text[at] <= '9')
      ++digits;
    else if (text[at] == mark && marks == 0)
      ++marks;
    else
      break;
  }
  if (digits == 0) return Fault;
  if (at < text.size()) {
    if (text[at] != 'e' && text[at] != 'E') return Fault;
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
    if (exponent == text.size()) return Fault;
    if (text.find_first_not_of("0123456789", exponent) != std::string::npos) return Fault;
  }
  std::replace(text.begin(), text.end(), mark, '.');
  return std::strtod(text.c_str(), nullptr);
}

std::string element(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

}  // namespace

double IndependentRecord::s32(std::uint32_t at) const {
  return foldedAbove(2147483647.0, u32(at), 4294967296.0);
}

double IndependentRecord::f64(std::uint32_t at) const {
  double value = 0;
  std::memcpy(&value, offsets_->data() + at, sizeof value);
  return std::isfinite(value) ? value : Fault;
}

double IndependentRecord::bcd(std::uint32_t at) const {
  return 10 * std::floor(u8(at) / 16) + std::fmod(u8(at), 16);
}

double IndependentRecord::frequency(std::uint32_t at) const {
  return bcd(at) / 100 + bcd(at + 1) + 100;
}

double IndependentRecord::adfFrequency(std::uint32_t low, std::uint32_t extended) const {
  return bcd(low + 1) * 100 + bcd(low) + u8(extended + 1) * 1000 + u8(extended) / 10;
}

double IndependentRecord::byteSum(std::uint32_t at) const {
  const double sum = u8(at) + u8(at + 1);
  return sum > 255 ? Fault : sum;
}

double IndependentRecord::number(std::string_view name) const {
  const auto found = numbers.find(name);
  return found == numbers.end() ? 0 : found->second;
}

void IndependentRecord::storeIfInRange(const std::string& name, double value, double lowest,
                                       double highest) {
  const double whole = halfToEven(value);
  if (whole >= lowest && whole <= highest) numbers[name] = whole;
}

void IndependentRecord::int16(const std::string& name, double value) {
  storeIfInRange(name, value, -32768, 32767);
}

void IndependentRecord::int32(const std::string& name, double value) {
  storeIfInRange(name, value, -2147483648.0, 2147483647.0);
}

void IndependentRecord::single(const std::string& name, double value) {
  const auto nearest = static_cast<long double>(value);
  constexpr long double halfStepAboveLargest = 3.4028235677973366e+38L;
  if (nearest < halfStepAboveLargest && nearest > -halfStepAboveLargest)
    numbers[name] = static_cast<float>(value);
}

void IndependentRecord::real(const std::string& name, double value) {
  if (std::isfinite(value)) numbers[name] = value;
}

void IndependentRecord::field(const std::string& name, std::uint32_t from,
                              std::uint32_t endOfMirror) {
  std::string text(offsets_->begin() + from, offsets_->begin() + endOfMirror);
  text.resize(std::min(text.find('\0'), text.size()));
  std::erase(text, ' ');
  texts[name] = text;
}

void IndependentRecord::poll(const std::vector<std::uint8_t>& offsets) {
  offsets_ = &offsets;
  engineTokens_.clear();
  scalars();
  radiosAndPosition();
  for (int n = 1; n <= 4; ++n) {
    engine(n);
    keepEngineTokens(n);
    if (n == number("EngineCount")) break;
  }
  fuel();
  controls();
  receivers();
  markers();
  air();
  electrical();
  simulatorAutopilot();
  commandArrays();
  stateValues();
}

void IndependentRecord::scalars() {
  int16("EngineCount", u8(0x0AEC));
  int16("EngineCount2", u8(0x0AEC));
  int16("EngineTypeRaw", u8(0x0609));
  int16("EngineType", u8(0x0609));
  single("ZuluTime", u8(0x023B) + u8(0x023C) / 100);
  int16("Paused", u8(0x0264));
  int16("AutoCoordination", u8(0x0278));
  int16("FrameRateByte", u8(0x0274));
  int16("LightsByte1", u8(0x0280));
  int16("LightsByte2", u8(0x0281));
  int16("LightsByte3", u8(0x0282));
  int16("LandingLights", u8(0x028C));
  int16("PitotHeat", u8(0x029C));
  single("MagVar", foldedAbove(180, u16(0x02A0) * 360 / 65536, 360));
  int16("GroundSpeed", u32(0x02B4) / 65536 * 3600 / 1852);
  int16("Tas", u32(0x02B8) / 128);
  single("Ias", number("Paused") > 0 ? 0 : u32(0x02BC) / 128);
  single("BarberPole", u16(0x02C4) / 128);
  single("VerticalSpeed", foldedAbove(32767, u16(0x02C8), 65535) / 256 * 60 * 3.28084);
  single("AltimeterQnh", u16(0x0330) / 16);
}

void IndependentRecord::radiosAndPosition() {
  const bool old = FsVersionCode < 2;
  single("Adf1Freq", adfFrequency(0x034C, 0x0356));
  single("Adf2Freq", adfFrequency(0x02D4, 0x02D6));
  single("Adf2Bearing", u16(0x02D8) * 360 / 65536);
  field("Adf2Id", 0x02DC, 0x0264 + 4352);
  field("Adf2Name", 0x02E2, 0x0264 + 4352);
  single("Com1Freq", frequency(0x034E));
  single("Nav1Freq", frequency(0x0350));
  single("Nav2Freq", frequency(0x0352));
  single("TransponderCode", bcd(0x0355) * 100 + bcd(0x0354));
  single("Com2Freq", old ? 0 : frequency(0x3118));
  single("Com1Standby", old ? 0 : frequency(0x311A));
  single("Com2Standby", old ? 0 : frequency(0x311C));
  if (!old) single("Nav1Standby", frequency(0x311E));
  if (!old) single("Nav2Standby", frequency(0x3120));
  int16("OnGround", u16(0x0366));
  single("TurnCoordinatorBall", u8(0x036E) > 127 ? 255 - u8(0x036E) : -u8(0x036E));
  int16("Word378", u16(0x0378));
  single("TurnRate", foldedAbove(32767, u16(0x037C), 65535));
  single("Latitude", foldedAbove(90, u32(0x0564) / 111130.53125, 38543.3452675));
  single("Longitude", foldedAbove(180, u32(0x056C) / 11930464.7111111, 360));
  const double whole = foldedAbove(32767, old ? u16(0x0574) : u32(0x0574), 4294967296.0);
  const double part = old ? 0 : u32(0x0570) / 65536 / 65536;
  real("AircraftAltitude", (whole + part) * 3.28115);
  const double pitch = u32(0x0578) * 360 / 4294967296.0;
  single("Pitch", pitch > 90 ? 360 - pitch : -pitch);
  single("Bank", u32(0x057C) * 360 / 4294967296.0);
  single("TrueHeading", u32(0x0580) * 360 / 4294967296.0);
  const double heading = number("TrueHeading") - number("MagVar");
  single("MagHeading", heading < 0 ? heading + 360 : heading > 360 ? heading - 360 : heading);
  single("Double0B18", f64(0x0B18));
  int32("GrossWeight", f64(0x30C0));
  const double radar = u16(0x0B4C);
  int32("RadioAltitude",
        number("AircraftAltitude") - (radar > 32767 ? (radar - 65536) * 3.28084 : radar * 3.28115));
  int16("EngineCombustionBits", byteSum(0x0888));
}

void IndependentRecord::engine(int n) {
  const auto index = static_cast<std::uint32_t>(n - 1);
  const std::uint32_t b = 0x088C + 0x98 * index;
  const std::uint32_t e = 0x100 * index;
  const bool old = FsVersionCode < 2;
  const bool turboprop = !old && number("EngineType") == 5;
  const std::string name = element("Engines", n) + ".";
  single(name + "ThrustLever", foldedAbove(100, u16(b) / 163.84, 399));
  single(name + "PropValue", u16(b + 2) / 163.84);
  single(name + "PropValue", f64(0x2408 + e));
  int16(name + "Mixture", u16(b + 4) / 163.84);
  int16(name + "Starter", u8(b + 6));
  int16(name + "Combustion", u8(b + 8));
  single(name + "N2", u16(b + 0x0A) / 163.84);
  single(name + "N1", turboprop ? f64(0x2010 + e) : u16(b + 0x0C) * 100 / 16384);
  single(name + "Epr", FsVersionCode < 6 ? u16(b + 0x1C) * 16 / 16384 : f64(0x2030 + e));
  int16(name + "AntiIce", u8(b + 0x26));
  const double oil = u8(b + 0x2D) > 128 ? u8(b + 0x2D) - 256 : u8(b + 0x2D);
  single(name + "OilTemp", (oil + u8(b + 0x2C) / 256) * 1.4 / 0.64);
  single(name + "OilPressure", u16(b + 0x2E) / 256 * 0.55 / 0.64);
  single(name + "Egt", FsVersionCode < 6 ? celsius(u16(b + 0x32) / 256 * 8.6 / 0.64)
                                         : celsius(f64(0x3B70 - 0xC0 * index) - 459.67));
  single(name + "Word08C0", u16(b + 0x34) / 256 * 0.1652 / 0.64);
  int16(name + "OilQuantity", u16(b + 0x44) / 163.84);
  single(name + "Vibration", u16(b + 0x48) * 5 / 16384);
  single(name + "HydPressure", u16(b + 0x4C) / 4);
  int16(name + "HydQuantity", u16(b + 0x50) * 100 / 16384);
  real(name + "Cht", f64(0x08E8 + 0x98 * index));
  int16(name + "Itt", old ? celsius(u16(b + 0x64) / 163.84) : celsius(f64(0x2038 + e) - 459.67));
  single(name + "Torque", old ? u16(b + 0x68) / 16384 : f64(0x2028 + e));
  single(name + "Word08F8", u16(b + 0x6C) / 163.84);
  single(name + "Word0908", u16(b + 0x7C) / 16384 * 100);
  real(name + "FuelFlow", turboprop ? f64(0x2060 + e) : f64(0x0918 + 0x98 * index));
  single(name + "GeneratorA", f64(0x2880 + 0x10 * index));
  single(name + "GeneratorB", f64(0x2888 + 0x10 * index));
}

void IndependentRecord::fuel() {
  single("FuelLbPerGallon", u16(0x0AF4) / 256);
  int16("FuelSelector", u8(0x0AF8));
  int16("Word0B00Percent", u16(0x0B00) * 100 / 16384);
  double gallonsPercent = 0;
  std::uint32_t at = 0x0B74;
  for (const std::string tank :
       {"Centre", "LeftMain", "LeftAux", "LeftTip", "RightMain", "RightAux", "RightTip"}) {
    single(tank + ".Level", u32(at) * 1.19209289550781e-05);
    int32(tank + ".Capacity", u32(at + 4));
    if (tank.ends_with("Aux") && number(tank + ".Capacity") == 0) numbers[tank + ".Level"] = 0;
    gallonsPercent += number(tank + ".Level") * number(tank + ".Capacity");
    at += 8;
  }
  single("FuelTotalLb", number("FuelLbPerGallon") / 100 * gallonsPercent);
}

void IndependentRecord::controls() {
  real("ElevatorTrimDeg", f64(0x2EB0) * 57.295777918682);
  real("AileronTrimDeg", f64(0x2EC0) * 57.295777918682);
  int32("ElevatorInput", foldedAbove(16383, u16(0x0BB2), 65536));
  int32("AileronInput", foldedAbove(16383, u16(0x0BB6), 65536));
  int32("RudderInput", foldedAbove(16383, u16(0x0BBA), 65536));
  int32("ElevatorTrimInput", foldedAbove(16383, u16(0x0BC0), 65536));
  int32("LeftBrake", u16(0x0BC4));
  int32("RightBrake", u16(0x0BC6));
  int32("ParkingBrake", u16(0x0BC8));
  int32("Word0BCA", u16(0x0BCA));
  int16("SpoilersArm", u8(0x0BCC));
  int16("SpoilersControl", u16(0x0BD0));
  int16("FlapsControl", FsVersionCode < 2 ? foldedAbove(16384, u16(0x0BDC), 65536) : u16(0x0BDC));
  int16("FlapIncrement", u16(0x3BFA));
  int16("FlapPositions", 16384 / number("FlapIncrement") + 1);
  int16("FlapsPosition", u16(0x0BE0));
  int16("GearControl", u16(0x0BE8));
  int16("GearNose", u16(0x0BEC));
  int16("GearRight", u16(0x0BF0));
  int16("GearLeft", u16(0x0BF4));
}

void IndependentRecord::receivers() {
  std::string time(8, ' ');
  for (const std::uint32_t at : {0U, 1U, 3U, 4U, 6U, 7U})
    time[at] = static_cast<char>((*offsets_)[0x0C20 + at]);
  texts["LocalTimeText"] = time;
  single("Word0C3EDeg", u16(0x0C3E) * 360 / 65536);
  single("Adf1Bearing", u16(0x0C6A) * 360 / 65536);
  field("Vor1Id", 0x3000, 0x3060);
  field("Vor2Id", 0x301F, 0x3060);
  field("Adf1Id", 0x303E, 0x3060);
  int16("Byte3BFB", u8(0x3BFB));
  for (const auto& [name, base] : {std::pair{"NavRadios(1).", 0x0C48U}, {"NavRadios(2).", 0U}}) {
    const std::string radio = name;
    const bool first = base != 0;
    int16(radio + "LocNeedle", foldedAbove(127, u8(first ? 0x0C48 : 0x0C59), 256));
    int16(radio + "BackCourse", u8(first ? 0x0C4A : 0x0C5A));
    int16(radio + "ToFrom", u8(first ? 0x0C4B : 0x0C5B));
    int16(radio + "Obs", u16(first ? 0x0C4E : 0x0C5E));
    int16(radio + "Radial", u16(first ? 0x0C50 : 0x0C60) * 360 / 65536);
    dme(radio + "DmeDistance", first ? 0x0C29 : 0x0C33, ";;.;");
    dme(radio + "DmeSpeed", first ? 0x0C2E : 0x0C38, ";;;.");
  }
}

void IndependentRecord::markers() {
  int16("NavRadios(1).GsNeedle", foldedAbove(127, u8(0x0C49), 256));
  int16("NavRadios(1).GsFlag", u8(0x0C4C));
  single("NavRadios(1).IlsHeading", u16(0x0870) * 360 / 65535);
  single("NavRadios(1).IlsSlope", 360 - u16(0x0872) * 360 / 65535);
  int16("NavRadios(1).OuterMarker", u8(0x0BB0));
  int16("NavRadios(1).MiddleMarker", u8(0x0BAE));
  int16("NavRadios(1).InnerMarker", u8(0x0BAC));
}

void IndependentRecord::dme(const std::string& name, std::uint32_t at, std::string_view missing) {
  std::string text(offsets_->begin() + at, offsets_->begin() + at + 4);
  single(name, text == missing ? 0 : dmeNumber(text, '.'));
  if (sDecimal == ".") return;
  std::replace(text.begin(), text.end(), '.', sDecimal[0]);
  single(name, text == missing ? 0 : dmeNumber(text, sDecimal[0]));
}

void IndependentRecord::air() {
  single("OutsideAirTemp", foldedAbove(32767, u16(0x0E8C), 65535) / 256);
  single("WindSpeedKt", u16(0x0E90));
  single("WindDirection", u16(0x0E92) * 360 / 65536);
  single("AmbientQnh", u16(0x0EC6) / 16);
  int32("Word0EEE", u16(0x0EEE) * 3.28084);
  single("GForce", u16(0x11BA) / 625);
  single("AngleOfAttack", 180 - u16(0x11BE) * 360 / 65536);
  single("Mach", u16(0x11C6) / 20480);
  single("TotalAirTemp", foldedAbove(32767, u16(0x11D0), 65535) / 256);
  const double slow = number("TotalAirTempSlow");
  single("TotalAirTempSlow", slow + 0.00002 * (number("TotalAirTemp") - slow));
  int16("NavGpsSwitch", u8(0x132C));
}

void IndependentRecord::electrical() {
  int16("MasterBattery", s32(0x281C));
  int16("AvionicsMaster", s32(0x2E80));
  int16("Long2E88", s32(0x2E88));
  int16("Long2EC8", s32(0x2EC8));
  int index = 1;
  for (const std::uint32_t at : {0x2824U, 0x282CU, 0x2834U, 0x2840U, 0x2848U, 0x2850U, 0x2858U,
                                 0x2860U, 0x2868U, 0x2870U, 0x2878U})
    single(element("Electrical", index++), f64(at));
  for (std::uint32_t k = 0; k < 18; ++k)
    texts[element("FailureFlags", static_cast<int>(k) + 1)] =
        std::to_string((*offsets_)[0x3BD6 + k]);
  texts["FailureFlags(19)"] = std::to_string((*offsets_)[0x0B71]);
  texts["FailureFlags(20)"] = std::to_string((*offsets_)[0x32F8]);
  for (std::uint32_t k = 0; k < 8; ++k)
    int16(element("WeatherSums", static_cast<int>(k) + 1),
          byteSum(0x0E5A + 2 * k) * (k == 1 ? 3.28084 : 1));
}

void IndependentRecord::simulatorAutopilot() {
  using Row = std::pair<const char*, std::uint32_t>;
  for (const auto& [name, at] :
       {Row{"ApMasterSim", 0x07BC}, Row{"ApWingLevelerSim", 0x07C0}, Row{"ApNavHoldSim", 0x07C4},
        Row{"ApHeadingHoldSim", 0x07C8}, Row{"ApAltHoldSim", 0x07D0},
        Row{"ApAttitudeHoldSim", 0x07D8}, Row{"ApIasSim", 0x07E2}, Row{"ApMachHoldSim", 0x07E4},
        Row{"ApVsHoldSim", 0x07EC}, Row{"ApRpmHoldSim", 0x07F4}, Row{"ApGsHoldSim", 0x07FC},
        Row{"ApApproachHoldSim", 0x0800}, Row{"ApBcHoldSim", 0x0804}, Row{"YawDamperSim", 0x0808},
        Row{"ToGaSim", 0x080C}, Row{"AutoThrottleArmSim", 0x0810}})
    int16(name, u16(at));
  single("ApHeadingSim", u16(Offset_APHeading) / static_cast<double>(Factor_APHeading));
  int32("ApAltitudeSim", u32(0x07D4) / 19975.372);
  int16("ApSpeedHoldSim", u8(0x07E0) * 256 + u8(0x07DC));
  single("ApMachSim", u16(0x07E8) / 65500);
  int32("ApVsSim", foldedAbove(32767, u16(0x07F2), 65535));
  int32("ApRpmSim", u16(0x07F8));
}

void IndependentRecord::commandArrays() {
  int index = 0;
  for (const char* name :
       {"Adf2Freq", "Com1Freq", "Nav1Freq", "Nav2Freq", "Adf1Freq", "TransponderCode",
        "NavRadios(1).Obs", "NavRadios(2).Obs", "Com2Freq", "Word378"})
    single(element("RadioValues", index++), number(name));
  index = 13;
  for (const char* name : {"Com1Standby", "Com2Standby", "Nav1Standby", "Nav2Standby"})
    single(element("RadioValues", index++), number(name));
  index = 1;
  for (const char* name :
       {"ApSpeedHoldSim", "ApAltHoldSim", "ApGsHoldSim", "ApAttitudeHoldSim", "ApBcHoldSim",
        "ApHeadingHoldSim", "ApApproachHoldSim", "ApMachHoldSim", "ApMasterSim", "ApNavHoldSim",
        "ApWingLevelerSim", "AutoThrottleArmSim", "ToGaSim", "ApAltitudeSim", "ApHeadingSim",
        "ApMachSim", "ApIasSim", "ApVsSim", "YawDamperSim"})
    single(element("ApValues", index++), number(name));
}

void IndependentRecord::stateValues() {
  const auto bits = static_cast<unsigned>(number("EngineCombustionBits"));
  int k = 0;
  for (unsigned bit = 1; bit <= 8; bit *= 2) k += (bits & bit) != 0 ? 1 : 0;
  if (k > 0) {
    single("StateValues(3)", number(element("Engines", k) + ".Starter"));
    single("StateValues(11)", number(element("Engines", k) + ".AntiIce"));
  }
  single("StateValues(4)", k);
  single("StateValues(9)", number("ParkingBrake") != 0 ? 1 : 0);
  using Row = std::pair<int, const char*>;
  for (const auto& [index, name] :
       {Row{1, "FlapsControl"}, Row{2, "SpoilersControl"}, Row{5, "LandingLights"},
        Row{6, "LightsByte2"}, Row{7, "GearControl"}, Row{8, "FuelSelector"}, Row{10, "PitotHeat"},
        Row{12, "TotalAirTemp"}, Row{13, "ElevatorTrimInput"}, Row{14, "AltimeterQnh"},
        Row{15, "AmbientQnh"}, Row{17, "LightsByte1"}, Row{18, "OutsideAirTemp"},
        Row{19, "TotalAirTempSlow"}})
    single(element("StateValues", index), number(name));
}

}  // namespace vorlent
