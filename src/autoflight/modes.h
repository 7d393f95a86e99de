#pragma once

#include "autoflight/Mode.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"

/// The modes by name, for what is done alike with any of them.
namespace vorlent::autoflight::modes {

using Ap = Mode<clsXAutoP>;
using At = Mode<clsXAutoT>;
using Fmc = Mode<clsAfds>;

inline constexpr Ap Master{&clsXAutoP::apMaster, &clsXAutoP::apMaster};
inline constexpr Ap CmdLeft{&clsXAutoP::apCmdLeft, &clsXAutoP::apCmdLeft};
inline constexpr Ap CmdCenter{&clsXAutoP::apCmdCenter, &clsXAutoP::apCmdCenter};
inline constexpr Ap CmdRight{&clsXAutoP::apCmdRight, &clsXAutoP::apCmdRight};
inline constexpr Ap CwsLeft{&clsXAutoP::apCwsLeft, &clsXAutoP::apCwsLeft};
inline constexpr Ap CwsRight{&clsXAutoP::apCwsRight, &clsXAutoP::apCwsRight};
inline constexpr Ap CwsPitchMode{&clsXAutoP::apCwsPitchMode, &clsXAutoP::apCwsPitchMode};
inline constexpr Ap ToGa{&clsXAutoP::apToGa, &clsXAutoP::apToGa};

inline constexpr Ap Nav1Hold{&clsXAutoP::apNav1Hold, &clsXAutoP::apNav1Hold};
inline constexpr Ap WaypointHold{&clsXAutoP::apWaypointHold, &clsXAutoP::apWaypointHold};
inline constexpr Ap HeadingHold{&clsXAutoP::apHeadingHold, &clsXAutoP::apHeadingHold};
inline constexpr Ap LocalizerHold{&clsXAutoP::apLocalizerHold, &clsXAutoP::apLocalizerHold};
inline constexpr Ap ApproachHold{&clsXAutoP::apApproachHold, &clsXAutoP::apApproachHold};
inline constexpr Ap BackCourseHold{&clsXAutoP::apBackCourseHold, &clsXAutoP::apBackCourseHold};

inline constexpr Ap AltitudeHold{&clsXAutoP::apAltitudeHold, &clsXAutoP::apAltitudeHold};
inline constexpr Ap AttitudeHold{&clsXAutoP::apAttitudeHold, &clsXAutoP::apAttitudeHold};
inline constexpr Ap AirspeedHoldByPitch{&clsXAutoP::apAirspeedHoldByPitch,
                                        &clsXAutoP::apAirspeedHoldByPitch};
inline constexpr Ap VSpeedHold{&clsXAutoP::apVSpeedHold, &clsXAutoP::apVSpeedHold};
inline constexpr Ap GlideslopeHold{&clsXAutoP::apGlideslopeHold, &clsXAutoP::apGlideslopeHold};
inline constexpr Ap LevelChange{&clsXAutoP::apLevelChange, &clsXAutoP::apLevelChange};
inline constexpr Ap AltAcquire{&clsXAutoP::apAltAcquire, &clsXAutoP::apAltAcquire};

inline constexpr At AutoThrottle{&clsXAutoT::apAutoThrottle, &clsXAutoT::apAutoThrottle};
inline constexpr At ThrottleHold{&clsXAutoT::apThrottleHold, &clsXAutoT::apThrottleHold};
inline constexpr At AirspeedHoldByRpm{&clsXAutoT::apAirspeedHoldByRpm,
                                      &clsXAutoT::apAirspeedHoldByRpm};
inline constexpr At MachNumberHoldByRpm{&clsXAutoT::apMachNumberHoldByRpm,
                                        &clsXAutoT::apMachNumberHoldByRpm};
inline constexpr At Changeover{&clsXAutoT::apChangeover, &clsXAutoT::apChangeover};
inline constexpr At Retard{&clsXAutoT::apRetard, &clsXAutoT::apRetard};
inline constexpr At RpmHold{&clsXAutoT::apRpmHold, &clsXAutoT::apRpmHold};

inline constexpr Fmc Lnav{&clsAfds::LNAV, &clsAfds::LNAV};
inline constexpr Fmc Vnav{&clsAfds::VNAV, &clsAfds::VNAV};
inline constexpr Fmc ExecFlightplan{&clsAfds::ExecFlightplan, &clsAfds::ExecFlightplan};

}  // namespace vorlent::autoflight::modes
