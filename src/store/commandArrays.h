#pragma once

/// The elements of the command arrays by their names: the poll fills them, the record tells them,
/// the commands step and flip them.
namespace vorlent {

/// Elements of RadioValues. The rose is told to the displays alone.
namespace Radio {
enum : int {
  Adf2 = 0,
  Com1,
  Nav1,
  Nav2,
  Adf1,
  Transponder,
  Obs1,
  Obs2,
  Com2,
  Dme,
  Rose = 12,
  Com1Standby,
  Com2Standby,
  Nav1Standby,
  Nav2Standby,
};
}

/// Elements of ApValues: the switches of the simulator's own autopilot, then its targets.
namespace Mcp {
enum : int {
  AirspeedHold = 1,
  AltitudeHold,
  GlideslopeHold,
  AttitudeHold,
  BackCourseHold,
  HeadingHold,
  LocalizerHold,
  MachHold,
  Master,
  Nav1Hold,
  WingLeveller,
  AutoThrottle,
  ToGa,
  Altitude,
  Heading,
  Mach,
  AirSpeed,
  VertSpeed,
  YawDamper,
};
}

/// Elements of StateValues. The panel switch and the two of the display are for the displays alone.
namespace ControlItem {
enum : int {
  Flaps = 1,
  Spoilers = 2,
  Magneto = 3,  ///< the poll has the starter of the last engine that burns here
  BurningEngines = 4,
  LandingLights = 5,
  Strobes = 6,
  Gear = 7,
  Tank = 8,
  ParkingBrake = 9,
  PitotHeat = 10,
  StartLever = 11,  ///< the poll has the anti-ice of the last engine that burns here
  TotalAirTemp = 12,
  ElevatorTrim = 13,
  Barometer = 14,
  AmbientQnh = 15,
  PanelSwitch = 16,
  NavLights = 17,
  OutsideAirTemp = 18,
  TotalAirTempSlow = 19,
  DisplayEvent = 20,
  DisplayValue = 21,
};
}

}  // namespace vorlent
