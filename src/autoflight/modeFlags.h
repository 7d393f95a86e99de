#pragma once

#include <cstdint>

namespace vorlent::autoflight {

/// 1 alone is on. Where any number above 0 will do, the place says so itself.
inline bool isOn(std::int16_t flag) { return flag == 1; }

/// Sets a mode of `owner` to 0 as a press would, when it is on.
template <class Owner>
void clear(Owner& owner, std::int16_t (Owner::*read)() const, void (Owner::*write)(std::int16_t)) {
  if (isOn((owner.*read)())) (owner.*write)(0);
}

/// The lamps of the mode control panel, by the numbers of clsAutoP::apMcpModes.
enum Lamp : std::int16_t {
  LevelChangeLamp = 1,
  LnavLamp,
  VnavLamp,
  CmdLeftLamp,
  CmdRightLamp,
  CwsLeftLamp,
  CwsRightLamp,
  ChangeoverLamp,
  AutoThrottleLamp,
  ToGaLamp,
  MasterLamp,
  AirspeedHoldByRpmLamp = 14,
  MachHoldByRpmLamp,
  AltitudeHoldLamp,
  HeadingHoldLamp,
  Nav1HoldLamp,
  ApproachHoldLamp,
  GlideslopeHoldLamp,
  VSpeedHoldLamp,
  RpmHoldLamp,
};

}  // namespace vorlent::autoflight
