#include "simulator/dynamics/Slew.h"

#include <algorithm>

#include "base/simulatorUnits.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

double angle_deg(std::int32_t raw) { return raw * 360.0 / Turn32; }

/// Whole units in the upper 32 bits, the fraction in the lower ones.
double units(std::int64_t raw) { return static_cast<double>(raw) / FixedPoint; }

}  // namespace

bool Slew::on() const { return memory_.read<std::uint8_t>(0x05DC) != 0; }

Slew::Shown Slew::read() const {
  return {memory_.read<std::int64_t>(0x0560), memory_.read<std::int64_t>(0x0568),
          memory_.read<std::int64_t>(0x0570), memory_.read<std::int32_t>(0x0578),
          memory_.read<std::int32_t>(0x057C), memory_.read<std::int32_t>(0x0580)};
}

void Slew::takeUpWrites(FlightModel& model) const {
  const Shown written = read();
  if (written == shown_) return;
  // The directions that the axes are made of end at the poles and straight up; the air ends at
  // 20 km: from higher up the aircraft would fall faster than its offsets can show.
  constexpr double MostLatitude_deg = 89.9;
  constexpr double MostPitch_deg = 89.9;
  constexpr double MostAltitude_m = 20000;
  const Place place{std::clamp(units(written.latitude) / scales_.latitude_deg, -MostLatitude_deg,
                               MostLatitude_deg),
                    signedAngle(units(written.longitude) * 360 / Turn32)};
  model.moveTo(place,
               std::clamp(units(written.altitude) / scales_.altitude_m, -1000.0, MostAltitude_m),
               {std::clamp(-angle_deg(written.pitch), -MostPitch_deg, MostPitch_deg),
                -angle_deg(written.bank), compass(angle_deg(written.heading))});
}

}  // namespace vorlent
