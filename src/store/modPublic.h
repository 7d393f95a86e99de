#pragma once

#include <cstdint>
#include <string>

#include "base/IndexedArray.h"

namespace vorlent {

/// One engine, 1 to 4. Percent, psi, degrees C and pounds per hour unless a comment says otherwise.
struct Engine {
  float ThrustLever = 0;  ///< percent, negative in reverse
  float PropValue = 0;
  std::int16_t Mixture = 0;
  std::int16_t Starter = 0;  ///< switch position
  static constexpr std::int16_t NoStart = -1;
  std::int16_t RecordedStart = NoStart;  ///< magneto position of a start by button; the buttons'
  std::int16_t Combustion = 0;           ///< flag
  float N2 = 0;
  float N1 = 0;
  float Epr = 0;
  std::int16_t AntiIce = 0;
  float OilTemp = 0;
  float OilPressure = 0;
  float Egt = 0;
  float Word08C0 = 0;
  std::int16_t OilQuantity = 0;
  float Vibration = 0;  ///< 0 to 5
  float HydPressure = 0;
  std::int16_t HydQuantity = 0;
  double Cht = 0;
  std::int16_t Itt = 0;
  float Torque = 0;  ///< fraction
  float Word08F8 = 0;
  float Word0908 = 0;
  double FuelFlow = 0;
  float GeneratorA = 0;
  float GeneratorB = 0;
  float FuelUsedLb = 0;    ///< pounds since the engine last started on the ground
  float N1Target = 0;      ///< the N1 bug; the autoflight's and the buttons', not the simulator's
  float ClientValueB = 0;  ///< set by commands
  float N1Prev = 0;        ///< N1 of the last AFDS cycle
};

/// NAV1 and NAV2. NAV2 fills only what its receiver has.
struct NavRadio {
  std::int16_t LocNeedle = 0;   ///< -127..127
  std::int16_t GsNeedle = 0;    ///< -127..127
  std::int16_t BackCourse = 0;  ///< flag bits
  std::int16_t ToFrom = 0;
  std::int16_t GsFlag = 0;
  std::int16_t Obs = 0;     ///< degrees
  std::int16_t Radial = 0;  ///< degrees
  float IlsHeading = 0;     ///< degrees true
  float IlsSlope = 0;       ///< degrees
  std::int16_t OuterMarker = 0;
  std::int16_t MiddleMarker = 0;
  std::int16_t InnerMarker = 0;
  float DmeDistance = 0;  ///< nautical miles, 0 when no station
  float DmeSpeed = 0;     ///< knots, 0 when no station
};

struct FuelTank {
  float Level = 0;            ///< percent
  std::int32_t Capacity = 0;  ///< US gallons
};

/// One detent of the flap lever. Record 0 of the table holds the number of detents in `Degrees`.
struct FlapDetent {
  std::int16_t Limit = 0;     ///< axis position at which the detent begins, 0..16383
  std::int16_t Degrees = 0;   ///< where known
  std::int16_t Position = 0;  ///< axis and simulator position, 0..16383
};

/// Indices of FuelTanks.
namespace Tank {
enum : int { Centre = 1, LeftMain, LeftAux, LeftTip, RightMain, RightAux, RightTip };
}

/// The global store of all shared variables. Knots, feet, feet per minute, degrees, percent,
/// pounds, US gallons and nautical miles unless a comment says otherwise. Written by the poll
/// unless a comment names another writer.
struct modPublic {
  // Program.
  bool IsMaster = false;
  bool CycleRunning = false;
  std::int16_t Ticks = 0;
  float EffectivePoll = 0;  ///< stick poll interval as it really runs, ms
  std::intptr_t FsWindow = 0;
  std::int16_t FsVersionCode = 0;
  std::int16_t ClientCount = 0;
  std::int16_t BasePort = 0;
  bool SockOk = false;
  bool BindError = false;
  std::string sDecimal;
  std::string Sep;
  std::string DataRecord;
  std::string ReceivedText;
  std::string CockpitName;
  std::string CockpitPath;
  std::int16_t JoysticksOnValue = 0;
  std::int16_t ShowTipValue = 0;
  std::int16_t SoundDeviceId = 0;
  std::int16_t OperatorStart = 0;  ///< 1 once the operator has started the cycle by hand
  std::string
      FmcName;  ///< machine of the client whose plan is flown, as it came: check it for a path

  // Aircraft.
  std::int16_t EngineCount = 0;
  std::int16_t EngineCount2 = 0;
  std::int16_t EngineTypeRaw = 0;
  std::int16_t EngineType = 0;
  float ZuluTime = 0;  ///< hours + minutes / 100
  std::int16_t Paused = 0;
  std::int16_t AutoCoordination = 0;
  std::int16_t FrameRateByte = 0;
  std::int16_t LightsByte1 = 0;
  std::int16_t LightsByte2 = 0;
  std::int16_t LightsByte3 = 0;
  std::int16_t LandingLights = 0;
  std::int16_t PitotHeat = 0;
  float MagVar = 0;  ///< east positive
  std::int16_t GroundSpeed = 0;
  std::int16_t Tas = 0;
  float Ias = 0;
  float BarberPole = 0;
  float VerticalSpeed = 0;
  float AltimeterQnh = 0;  ///< hectopascals
  float Adf1Freq = 0;      ///< kilohertz
  float Adf2Freq = 0;      ///< kilohertz
  float Adf2Bearing = 0;
  std::string Adf2Id;
  std::string Adf2Name;
  float Com1Freq = 0;  ///< megahertz, as the other COM and NAV frequencies
  float Nav1Freq = 0;
  float Nav2Freq = 0;
  float TransponderCode = 0;
  float Com2Freq = 0;
  float Com1Standby = 0;
  float Com2Standby = 0;
  float Nav1Standby = 0;
  float Nav2Standby = 0;
  std::int16_t OnGround = 0;
  float TurnCoordinatorBall = 0;
  std::int16_t Word378 = 0;
  float TurnRate = 0;
  bool SouthernLatitudes = false;  ///< the latitude folds as is right south of the equator
  float Latitude = 0;              ///< north positive
  float Longitude = 0;             ///< east positive
  double AircraftAltitude = 0;
  float Pitch = 0;  ///< nose up positive
  float Bank = 0;   ///< 0 to 360; 0 to 180 is left
  float TrueHeading = 0;
  float MagHeading = 0;
  float Double0B18 = 0;
  std::int32_t GrossWeight = 0;
  std::int32_t RadioAltitude = 0;
  std::int16_t EngineCombustionBits = 0;
  float FuelLbPerGallon = 0;
  std::int16_t FuelSelector = 0;
  std::int16_t Word0B00Percent = 0;
  IndexedArray<FuelTank, 1, 7> FuelTanks;
  float FuelTotalLb = 0;
  double ElevatorTrimDeg = 0;
  double AileronTrimDeg = 0;
  std::int32_t ElevatorInput = 0;
  std::int32_t AileronInput = 0;
  std::int32_t RudderInput = 0;
  std::int32_t ElevatorTrimInput = 0;
  std::int32_t LeftBrake = 0;
  std::int32_t RightBrake = 0;
  std::int32_t ParkingBrake = 0;
  std::int32_t Word0BCA = 0;
  std::int16_t SpoilersArm = 0;
  std::int16_t SpoilersControl = 0;
  std::int16_t FlapsControl = 0;
  std::int16_t FlapIncrement = 0;
  std::int16_t FlapPositions = 0;
  IndexedArray<FlapDetent, 0, 16> FlapTable;  ///< made by InitFlaps
  std::int16_t FlapsPosition = 0;
  std::int16_t FlapsPositionRight = 0;
  std::int16_t GearControl = 0;
  std::int16_t GearNose = 0;
  std::int16_t GearRight = 0;
  std::int16_t GearLeft = 0;
  std::string LocalTimeText;
  float Word0C3EDeg = 0;
  float Adf1Bearing = 0;
  std::string Vor1Id;
  std::string Vor2Id;
  std::string Adf1Id;
  std::int16_t Byte3BFB = 0;
  float OutsideAirTemp = 0;  ///< degrees C
  float WindSpeedKt = 0;
  float WindDirection = 0;
  float AmbientQnh = 0;  ///< hectopascals
  std::int32_t Word0EEE = 0;
  float GForce = 0;
  float AngleOfAttack = 0;
  float Mach = 0;
  float TotalAirTemp = 0;      ///< degrees C
  float TotalAirTempSlow = 0;  ///< degrees C, kept across cycles
  std::int16_t NavGpsSwitch = 0;
  std::int16_t MasterBattery = 0;
  std::int16_t AvionicsMaster = 0;
  std::int16_t Long2E88 = 0;
  std::int16_t Long2EC8 = 0;
  IndexedArray<float, 1, 11> Electrical;
  IndexedArray<std::string, 1, 20> FailureFlags;
  std::string FailureText;  ///< FailureFlags as one ready string, each followed by Sep
  IndexedArray<std::int16_t, 1, 8> WeatherSums;
  IndexedArray<Engine, 1, 4> Engines;
  IndexedArray<NavRadio, 1, 2> NavRadios;

  // The simulator's own autopilot.
  std::int16_t ApMasterSim = 0;
  std::int16_t ApWingLevelerSim = 0;
  std::int16_t ApNavHoldSim = 0;
  std::int16_t ApHeadingHoldSim = 0;
  std::int16_t ApAltHoldSim = 0;
  std::int16_t ApAttitudeHoldSim = 0;
  float ApHeadingSim = 0;
  std::int32_t ApAltitudeSim = 0;
  std::int16_t ApSpeedHoldSim = 0;
  std::int16_t ApIasSim = 0;
  std::int16_t ApMachHoldSim = 0;
  float ApMachSim = 0;
  std::int16_t ApVsHoldSim = 0;
  std::int32_t ApVsSim = 0;
  std::int16_t ApRpmHoldSim = 0;
  std::int32_t ApRpmSim = 0;
  std::int16_t ApGsHoldSim = 0;
  std::int16_t ApApproachHoldSim = 0;
  std::int16_t ApBcHoldSim = 0;
  std::int16_t YawDamperSim = 0;
  std::int16_t ToGaSim = 0;
  std::int16_t AutoThrottleArmSim = 0;

  // The external autopilot.
  std::int16_t ApEngaged = 0;  ///< above 0 the trims go out; the autopilot alone writes it

  // The flight director; the autoflight's, not the simulator's.
  std::int16_t FdActive = 0;
  float FdPitch = 0;
  float FdBank = 0;

  /// Flight phases and lost legs go into the log; set by chkLog and by the first announced
  /// waypoint.
  bool LogVerbose = false;

  // Where the present track crosses the leg that is flown; the autoflight's. Degrees.
  float CrossingLat = 0;
  float CrossingLon = 0;

  // What the autoflight cycle works out of the above.
  float AvgIas = 0;
  float PrevAvgIas = 0;
  float CalcVerticalSpeed = 0;
  float AvgVerticalSpeed = 0;
  double PrevAltitude = 0;

  // Command arrays: the poll rebuilds them, the commands of the hardware and the clients set them.
  IndexedArray<float, 0, 16> RadioValues;  ///< 10 to 12 are left to the commands
  IndexedArray<float, 1, 21> StateValues;  ///< 16, 20 and 21 are left to the commands
  IndexedArray<float, 1, 19> ApValues;
  /// What the cockpit's levers last stood at, percent; set by the levers, engine by engine.
  IndexedArray<std::int16_t, 1, 4> MixtureLevers;
  IndexedArray<std::int16_t, 1, 4> ThrottleLevers;
  IndexedArray<float, 1, 5> StandbyValues;      ///< COM1, COM2, NAV1, NAV2, ADF
  IndexedArray<std::int16_t, 1, 2> SwitchPair;  ///< the fuel selectors' tank codes
  IndexedArray<std::int16_t, 1, 14> PanelWord;
  float ClientValueC = 0;
  IndexedArray<float, 0, 8> ButtonStates;  ///< current item of each frequency memory list

  std::string StickMessage;  ///< the line that a stick's tick builds; empty between ticks

  IndexedArray<float, 1, 4> FuelBurnt;  ///< gallons since the engine last started on the ground
  IndexedArray<std::int16_t, 1, 4> EnginePan;  ///< 0 left to 100 right

  static constexpr std::int16_t MinFsVersion = 2;
};

}  // namespace vorlent
