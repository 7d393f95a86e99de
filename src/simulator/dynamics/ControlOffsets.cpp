#include "simulator/dynamics/ControlOffsets.h"

#include <algorithm>
#include <cmath>

#include "base/simulatorUnits.h"
#include "base/units.h"
#include "simulator/Encoding.h"

namespace vorlent {
namespace {

/// A quarter of the forward travel, and the unit more that writers who add 65535 send.
constexpr std::int16_t FullReverse = -4097;

/// A start lever lower than this is in cut-off.
constexpr double CutOffBelow = 0.5;
/// A starter's switch is a jet's (0 off, 1 start, 2 generator) or one with magnetos (0 to 3), whose
/// start is 4. Either start will do.
constexpr std::uint8_t JetStart = 1;
constexpr std::uint8_t MagnetoStart = 4;

double lever(const OffsetMemory& memory, std::size_t offset, double full) {
  return memory.read<std::int16_t>(offset) / full;
}

bool isOn(const OffsetMemory& memory, std::size_t offset) {
  return memory.read<std::uint8_t>(offset) != 0;
}

void writeLever(OffsetMemory& memory, std::size_t offset, double share, double full) {
  writeRounded<std::int16_t>(memory, offset, share * full);
}

/// Radians of surface. Other programs may write anything there; a NaN or an infinity counts as 0.
double trim_deg(const OffsetMemory& memory, std::size_t offset, double travel_deg) {
  const double trim = memory.read<double>(offset) / RadiansPerDegree;
  return std::isfinite(trim) ? std::clamp(trim, -travel_deg, travel_deg) : 0;
}

}  // namespace

ControlInputs controlsFrom(const OffsetMemory& memory, const ControlData& data) {
  ControlInputs in;
  for (std::size_t i = 0; i < EngineCount; ++i) {
    const std::size_t at = EngineRecord_bytes * i;
    in.thrustLever[i] = std::clamp(lever(memory, 0x088C + at, FullTravel), -0.25, 1.0);
    in.fuelOn[i] = memory.read<std::uint16_t>(0x0890 + at) / double{FullTravel} >= CutOffBelow;
    const auto position = memory.read<std::uint8_t>(0x0892 + at);
    in.starter[i] = position == JetStart || position == MagnetoStart;
  }
  in.elevator = lever(memory, 0x0BB2, FullTravel);
  in.aileron = lever(memory, 0x0BB6, FullTravel);
  in.rudder = lever(memory, 0x0BBA, FullTravel);
  in.elevatorTrim = lever(memory, 0x0BC0, FullTravel);
  in.aileronTrim_deg = trim_deg(memory, 0x2EB0, data.aileronTravel_deg);
  in.rudderTrim_deg = trim_deg(memory, 0x2EC0, data.rudderTravel_deg);
  in.leftBrake = std::max(0.0, lever(memory, 0x0BC4, FullBrake));
  in.rightBrake = std::max(0.0, lever(memory, 0x0BC6, FullBrake));
  in.parkingBrake = memory.read<std::uint16_t>(0x0BC8) != 0;
  in.flapDetent = memory.read<std::uint16_t>(0x0BDC) / double{NineDetentsIncrement};
  in.gearDown = memory.read<std::uint16_t>(0x0BE8) > 8191;
  in.spoilers = std::clamp(lever(memory, 0x0BD0, FullTravel), 0.0, 1.0);
  in.yawDamper = isOn(memory, 0x0808);
  return in;
}

void stopAtEnds(OffsetMemory& memory) {
  struct Travel {
    std::size_t offset;
    std::int16_t lowest;
    std::int16_t highest;
  };
  constexpr Travel Travels[] = {
      {0x088C, FullReverse, FullTravel}, {0x088C + EngineRecord_bytes, FullReverse, FullTravel},
      {0x0BB2, -FullTravel, FullTravel}, {0x0BB6, -FullTravel, FullTravel},
      {0x0BBA, -FullTravel, FullTravel}, {0x0BC0, -FullTravel, FullTravel},
  };
  for (const Travel& travel : Travels) {
    const auto written = memory.read<std::int16_t>(travel.offset);
    const auto reached = std::clamp(written, travel.lowest, travel.highest);
    if (reached != written) memory.write(travel.offset, reached);
  }
}

void writeControls(OffsetMemory& memory, const ControlInputs& controls) {
  for (std::size_t i = 0; i < EngineCount; ++i) {
    const std::size_t at = EngineRecord_bytes * i;
    writeLever(memory, 0x088C + at, controls.thrustLever[i], FullTravel);
    memory.write(0x0890 + at, percent16(controls.fuelOn[i] ? 100 : 0));
    memory.write<std::uint8_t>(0x0892 + at, controls.starter[i] ? JetStart : 0);
  }
  writeLever(memory, 0x0BB2, controls.elevator, FullTravel);
  writeLever(memory, 0x0BB6, controls.aileron, FullTravel);
  writeLever(memory, 0x0BBA, controls.rudder, FullTravel);
  writeLever(memory, 0x0BC0, controls.elevatorTrim, FullTravel);
  memory.write(0x2EB0, controls.aileronTrim_deg * RadiansPerDegree);
  memory.write(0x2EC0, controls.rudderTrim_deg * RadiansPerDegree);
  writeLever(memory, 0x0BC4, controls.leftBrake, FullBrake);
  writeLever(memory, 0x0BC6, controls.rightBrake, FullBrake);
  memory.write<std::uint16_t>(0x0BC8, controls.parkingBrake ? FullBrake : 0);
  memory.write<std::uint8_t>(0x0BCC, 0);
  writeRounded<std::uint32_t>(memory, 0x0BD0, controls.spoilers * FullTravel);
  writeRounded<std::uint32_t>(memory, 0x0BDC, controls.flapDetent * double{NineDetentsIncrement});
  memory.write<std::uint32_t>(0x0BE8, controls.gearDown ? FullTravel : 0);
  memory.write<std::uint8_t>(0x0808, controls.yawDamper ? 1 : 0);
}

}  // namespace vorlent
