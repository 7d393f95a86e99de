#pragma once

#include <cstdint>

namespace vorlent::autoflight {

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
  ExecLamp = 13,
  AirspeedHoldByRpmLamp,
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
