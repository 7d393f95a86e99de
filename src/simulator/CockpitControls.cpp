#include "simulator/CockpitControls.h"

#include <algorithm>
#include <cmath>

#include "base/simulatorUnits.h"
#include "simulator/ConstantOffsets.h"
#include "simulator/Encoding.h"

namespace vorlent {
namespace {

struct InitialWord {
  std::size_t offset;
  std::uint16_t value;
};

struct InitialDouble {
  std::size_t offset;
  double value;
};

constexpr InitialWord InitialWords[] = {
    {0x0280, 1},       // navigation lights
    {0x0281, 1},       // strobe lights
    {0x029C, 1},       // pitot heat
    {0x0330, 16212},   // altimeter setting, 1013.25 hPa x 16
    {0x0378, 1},       // DME 1 is selected
    {0x07CC, 43691},   // autopilot heading, 240 degrees
    {0x07E2, 250},     // autopilot airspeed, knots
    {0x07E8, 51090},   // autopilot Mach, 0.78 x 65500
    {0x0AF8, 1},       // fuel selector: all tanks
    {0x0C4E, 238},     // NAV1 course, magnetic degrees
    {0x0C5E, 238},     // NAV2 course, magnetic degrees
    {0x281C, 1},       // battery
    {0x2E80, 1},       // avionics
    {0x034E, 0x1810},  // COM1 118.10
    {0x3118, 0x2190},  // COM2 121.90
    {0x311A, 0x2475},  // COM1 standby 124.75
    {0x311C, 0x2150},  // COM2 standby 121.50
    {0x0350, 0x1030},  // NAV1 110.30
    {0x311E, 0x1360},  // NAV1 standby 113.60
    {0x0352, 0x1360},  // NAV2 113.60
    {0x3120, 0x1520},  // NAV2 standby 115.20
    {0x034C, 0x0381},  // ADF1 381.0
    {0x0356, 0x0000},  //
    {0x02D4, 0x0345},  // ADF2 345.5
    {0x02D6, 0x0005},  //
    {0x0354, 0x2000},  // transponder
};

// Volts, amperes and their sums: 45 + 20 + 2 + 8 amperes are the 75 that the generators give.
constexpr InitialDouble InitialDoubles[] = {
    {0x0B18, 5.0},                   // gyro suction, inches of mercury
    {0x2824, 75},   {0x282C, 0},     // total load, battery load
    {0x2834, 25.4},                  // battery
    {0x2840, 28},   {0x2848, 45},    // main bus
    {0x2850, 28},   {0x2858, 20},    // avionics bus
    {0x2860, 25.4}, {0x2868, 2},     // hot battery bus
    {0x2870, 28},   {0x2878, 8},     // battery bus
    {0x2880, 28.5}, {0x2888, 37.5},  // generator 1
    {0x2890, 28.5}, {0x2898, 37.5},  // generator 2
};

}  // namespace

CockpitControls::CockpitControls(OffsetMemory& memory) : memory_(memory) {
  writeConstantOffsets(memory_);
  for (const InitialWord& word : InitialWords) memory_.write(word.offset, word.value);
  for (const InitialDouble& number : InitialDoubles) memory_.write(number.offset, number.value);
  memory_.write<std::uint32_t>(0x07D4, 479408947);  // autopilot altitude, 24000 ft in m x 65536
  for (std::size_t i = 0; i < EngineCount; ++i)
    memory_.write(0x0890 + 0x98 * i, percent16(100));  // start levers: idle
}

void CockpitControls::move(const PilotControls& controls) {
  for (std::size_t i = 0; i < EngineCount; ++i)
    moveTo(0x088C + 0x98 * i, percent16(controls.thrustLever_pct[i]));
  for (std::size_t i = 0; i < EngineCount; ++i)
    moveTo<std::uint8_t>(0x0892 + 0x98 * i, controls.starter[i] ? 1 : 0);
  moveTo<std::uint32_t>(0x0BDC,
                        static_cast<std::uint32_t>(controls.flapsDetent) * NineDetentsIncrement);
  moveTo<std::uint32_t>(0x0BE8, controls.gearDown ? FullTravel : 0);
  moveTo<std::uint16_t>(0x0BC8, controls.parkingBrake ? FullBrake : 0);
  moveTo<std::uint32_t>(0x0BD0, rounded<std::uint32_t>(controls.spoilers * FullTravel));
  moveTo(0x0BB6, rounded<std::int16_t>(std::clamp(controls.aileron, -1.0, 1.0) * FullTravel));
  moveTo(0x0BB2, rounded<std::int16_t>(std::clamp(controls.elevator, -1.0, 1.0) * FullTravel));
  moveTo<std::uint8_t>(0x028C, controls.landingLights ? 1 : 0);
}

template <class T>
void CockpitControls::moveTo(std::size_t offset, T position) {
  const auto [last, first] = moved_.try_emplace(offset, position);
  if (!first && last->second == position) return;
  last->second = position;
  memory_.write(offset, position);
}

}  // namespace vorlent
