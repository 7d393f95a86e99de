#include "simlink/RandomMemory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vorlent {
namespace {

/// Every offset that a poll reads as a double.
std::vector<std::uint32_t> doubleOffsets() {
  std::vector<std::uint32_t> offsets = {0x0B18, 0x30C0, 0x2EB0, 0x2EC0, 0x2EE8,
                                        0x2EF0, 0x2824, 0x282C, 0x2834};
  for (std::uint32_t n = 0; n < 4; ++n) {
    for (std::uint32_t k = 0; k < 8; ++k) offsets.push_back(0x2000 + 0x100 * n + 8 * k);
    for (const std::uint32_t at : {0x2060 + 0x100 * n, 0x2408 + 0x100 * n, 0x3B70 - 0xC0 * n,
                                   0x08E8 + 0x98 * n, 0x0918 + 0x98 * n})
      offsets.push_back(at);
  }
  for (std::uint32_t at = 0x2840; at <= 0x28B8; at += 8) offsets.push_back(at);
  return offsets;
}

using NumberOf = double (*)(const modPublic& v);
struct OffRecord {
  const char* name;
  NumberOf number;
};

/// What a poll decodes and no record carries.
constexpr OffRecord OffRecordVariables[] = {
    {"EngineCount2", [](auto& v) -> double { return v.EngineCount2; }},
    {"EngineTypeRaw", [](auto& v) -> double { return v.EngineTypeRaw; }},
    {"Paused", [](auto& v) -> double { return v.Paused; }},
    {"FrameRateByte", [](auto& v) -> double { return v.FrameRateByte; }},
    {"LightsByte3", [](auto& v) -> double { return v.LightsByte3; }},
    {"TrueHeading", [](auto& v) -> double { return v.TrueHeading; }},
    {"EngineCombustionBits", [](auto& v) -> double { return v.EngineCombustionBits; }},
    {"Engines(1).Combustion", [](auto& v) -> double { return v.Engines(1).Combustion; }},
    {"Engines(4).Combustion", [](auto& v) -> double { return v.Engines(4).Combustion; }},
    {"Word0B00Percent", [](auto& v) -> double { return v.Word0B00Percent; }},
    {"Centre.Capacity", [](auto& v) -> double { return v.FuelTanks(1).Capacity; }},
    {"LeftMain.Capacity", [](auto& v) -> double { return v.FuelTanks(2).Capacity; }},
    {"LeftAux.Capacity", [](auto& v) -> double { return v.FuelTanks(3).Capacity; }},
    {"LeftTip.Level", [](auto& v) -> double { return v.FuelTanks(4).Level; }},
    {"LeftTip.Capacity", [](auto& v) -> double { return v.FuelTanks(4).Capacity; }},
    {"RightMain.Capacity", [](auto& v) -> double { return v.FuelTanks(5).Capacity; }},
    {"RightAux.Capacity", [](auto& v) -> double { return v.FuelTanks(6).Capacity; }},
    {"RightTip.Level", [](auto& v) -> double { return v.FuelTanks(7).Level; }},
    {"RightTip.Capacity", [](auto& v) -> double { return v.FuelTanks(7).Capacity; }},
    {"LeftBrake", [](auto& v) -> double { return v.LeftBrake; }},
    {"RightBrake", [](auto& v) -> double { return v.RightBrake; }},
    {"ParkingBrake", [](auto& v) -> double { return v.ParkingBrake; }},
    {"Word0BCA", [](auto& v) -> double { return v.Word0BCA; }},
    {"SpoilersArm", [](auto& v) -> double { return v.SpoilersArm; }},
    {"FlapPositions", [](auto& v) -> double { return v.FlapPositions; }},
    {"NavRadios(1).BackCourse", [](auto& v) -> double { return v.NavRadios(1).BackCourse; }},
    {"NavRadios(1).IlsHeading", [](auto& v) -> double { return v.NavRadios(1).IlsHeading; }},
    {"NavRadios(1).IlsSlope", [](auto& v) -> double { return v.NavRadios(1).IlsSlope; }},
    {"GForce", [](auto& v) -> double { return v.GForce; }},
    {"AngleOfAttack", [](auto& v) -> double { return v.AngleOfAttack; }},
    {"RadioValues(0)", [](auto& v) -> double { return v.RadioValues(0); }},
    {"ApVsHoldSim", [](auto& v) -> double { return v.ApVsHoldSim; }},
    {"ApRpmHoldSim", [](auto& v) -> double { return v.ApRpmHoldSim; }},
    {"ApRpmSim", [](auto& v) -> double { return v.ApRpmSim; }},
};

}  // namespace

void RandomMemory::fill(FakeSimulatorBus& bus) {
  for (std::uint32_t at = 0; at < 0x10000; at += 8) bus.put(at, std::uint64_t{random_()});
  for (const std::uint32_t at : doubleOffsets())
    if (!oneIn(5)) bus.put(at, sensibleDouble());
  drawSmallNumbers(bus);
  drawTexts(bus);
}

double RandomMemory::sensibleDouble() {
  constexpr double Edges[] = {0,
                              -0.0,
                              1,
                              -1,
                              0.5,
                              2.5,
                              32767.5,
                              32768,
                              -32768.5,
                              59.8166,
                              2147483647.5,
                              3.4e38,
                              3.5e38,
                              -3.5e38,
                              1e-46,
                              -1e-46,
                              1e-310,
                              HUGE_VAL,
                              -HUGE_VAL,
                              std::numeric_limits<double>::quiet_NaN(),
                              1.7e308,
                              491.67,
                              459.67};
  if (oneIn(8)) return Edges[below(std::size(Edges))];
  const double spread = std::uniform_real_distribution<double>(-1, 1)(random_);
  return std::ldexp(spread, static_cast<int>(below(24)) - 4);
}

void RandomMemory::drawSmallNumbers(FakeSimulatorBus& bus) {
  bus.put(0x0AEC,
          oneIn(8) ? static_cast<std::uint8_t>(random_()) : static_cast<std::uint8_t>(below(6)));
  bus.put(0x0609, static_cast<std::uint8_t>(below(7)));
  bus.put(0x0264, static_cast<std::uint8_t>(below(4) == 0 ? below(256) : 0));
  bus.put(0x3BFA, static_cast<std::uint16_t>(oneIn(6) ? 0 : oneIn(4) ? random_() : 2047));
  if (!oneIn(3)) bus.put(0x0888, static_cast<std::uint16_t>(below(16)));
  for (const std::uint32_t at : {0x281CU, 0x2E80U, 0x2E88U, 0x2EC8U})
    if (!oneIn(4)) bus.put(at, static_cast<std::uint32_t>(below(3)) - 1);
  for (const std::uint32_t at : {0x0B88U, 0x0BA0U, 0x0B78U, 0x0BA8U})
    if (!oneIn(4)) bus.put(at, static_cast<std::uint32_t>(below(2) * below(9000)));
  for (const std::uint32_t at : {0x02B4U, 0x02B8U, 0x02BCU, 0x0574U})
    if (!oneIn(4)) bus.put(at, static_cast<std::uint32_t>(below(0x7FFFFF)));
  for (const std::uint32_t at : {0x0C4EU, 0x0C5EU, 0x0366U, 0x0378U})
    if (!oneIn(4)) bus.put(at, static_cast<std::uint16_t>(below(360)));
}

void RandomMemory::drawTexts(FakeSimulatorBus& bus) {
  for (const std::uint32_t at : {0x02DCU, 0x02E2U, 0x3000U, 0x301FU, 0x303EU})
    if (!oneIn(8)) bus.put(at + below(6), std::uint8_t{0});
  for (const std::uint32_t at : {0x02DCU, 0x3000U, 0x301FU, 0x303EU, 0x0C20U, 0x0C23U, 0x0C26U})
    if (oneIn(3)) bus.put(at + below(2), std::uint8_t{' '});
  for (const std::uint32_t at : {0x0C29U, 0x0C2EU, 0x0C33U, 0x0C38U})
    if (!oneIn(8)) bus.putText(at, dmeText());
}

std::string RandomMemory::dmeText() {
  static const std::vector<std::string> Texts = {
      ";;.;", ";;;.", "12.3", " 1.5", "99.9", "0.0 ", "123.", "  45", "1234", "-0.0", "-1.2",
      ".123", "1,23", "12,3", "    ", "1.2.", "1e38", "1e39", "2E-3", "1e-9", "nan ", "inf ",
      "0x1A", "+1.2", "1..2", "-.5 ", "--.-", ".   ", "1e+2", "1 23", "e123", "1.2e"};
  if (oneIn(3)) return Texts[below(static_cast<unsigned>(Texts.size()))];
  std::string text(4, ' ');
  for (char& c : text) c = "0123456789..-, ;"[below(16)];
  return text;
}

void changeWhatIsNotPolled(Server& server, RandomMemory& random) {
  modPublic& v = server.store;
  const auto flag = [&random] { return static_cast<std::int16_t>(random.below(2)); };
  const auto real = [&random] { return static_cast<float>(random.below(400000)) / 100 - 1000; };
  for (int element = 10; element <= 12; ++element) v.RadioValues(element) = real();
  for (const int element : {16, 20, 21}) v.StateValues(element) = real();
  for (int element = 1; element <= 5; ++element) v.StandbyValues(element) = real();
  for (int element = 1; element <= 14; ++element)
    v.PanelWord(element) = static_cast<std::int16_t>(random.below(65536) - 32768);
  for (int n = 1; n <= 4; ++n) {
    v.Engines(n).N1Target = real();
    v.Engines(n).ClientValueB = real();
    v.FuelBurnt(n) = random.oneIn(9) ? 3e38F : real();
  }
  v.SwitchPair(1) = static_cast<std::int16_t>(random.below(9));
  v.SwitchPair(2) = static_cast<std::int16_t>(random.below(9));
  v.ClientValueC = real();
  v.FdActive = flag();
  v.FdPitch = real();
  v.FdBank = -real();
  clsXAutoP& ap = *server.autoflight.xAutoP;
  for (const auto setter :
       {static_cast<void (clsXAutoP::*)(std::int16_t)>(&clsXAutoP::apMaster), &clsXAutoP::apCmdLeft,
        &clsXAutoP::apCmdRight, &clsXAutoP::apCwsLeft, &clsXAutoP::apCwsRight,
        &clsXAutoP::apNav1Hold, &clsXAutoP::apHeadingHold, &clsXAutoP::apAltitudeHold,
        &clsXAutoP::apAttitudeHold, &clsXAutoP::apAirspeedHoldByPitch, &clsXAutoP::apVSpeedHold,
        &clsXAutoP::apGlideslopeHold, &clsXAutoP::apLocalizerHold, &clsXAutoP::apApproachHold,
        &clsXAutoP::apBackCourseHold, &clsXAutoP::apToGa, &clsXAutoP::apLevelChange})
    (ap.*setter)(flag());
  server.autoflight.afds->fmc.ActiveWpt = random.oneIn(2) ? "  KORD " : "";
}

void compareOffRecord(const modPublic& v, const IndependentRecord& independent) {
  const auto& numbers = independent.numbers;
  const auto expected = [&numbers](const std::string& name) {
    const auto found = numbers.find(name);
    return found == numbers.end() ? 0 : found->second;
  };
  for (const OffRecord& row : OffRecordVariables)
    ASSERT_EQ(row.number(v), expected(row.name)) << row.name;
  for (int k = 1; k <= 8; ++k) {
    const std::string name = "WeatherSums(" + std::to_string(k) + ")";
    ASSERT_EQ(v.WeatherSums(k), expected(name)) << name;
  }
  for (int k = 1; k <= 19; ++k) {
    const std::string name = "ApValues(" + std::to_string(k) + ")";
    ASSERT_EQ(v.ApValues(k), expected(name)) << name;
  }
  ASSERT_EQ(v.Adf2Name, independent.texts.at("Adf2Name"));
}

}  // namespace vorlent
