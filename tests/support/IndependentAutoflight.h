#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/FakeSimulatorBus.h"
#include "support/IndependentNumbers.h"
#include "support/IndependentPlan.h"
#include "support/IndependentSphere.h"

namespace vorlent {

/// A second autoflight, written from the description of its modes and laws alone and in another way
/// than the product's, so that the two can be held against each other: one object, flags that
/// setters act on, writes that go into a list.
class IndependentAutoflight {
 public:
  using Fault = independent::Fault;
  using Single = independent::Single;
  using Word = independent::Word;
  using Long = independent::Long;

  struct EngineInputs {
    float ThrustLever = 0;
    float N1 = 0;
  };

  /// What a cycle is given, as the poll left it.
  struct Inputs {
    bool IsMaster = true;
    bool CycleRunning = true;
    int Paused = 0;
    int OnGround = 0;
    int EngineCount = 2;
    int Tas = 0;
    int GroundSpeed = 0;
    float Latitude = 0;
    float Longitude = 0;
    float Ias = 0;
    float Mach = 0;
    double AircraftAltitude = 0;
    int RadioAltitude = 0;
    float VerticalSpeed = 0;
    float Pitch = 0;
    float Bank = 0;
    float TrueHeading = 0;
    float MagHeading = 0;
    float MagVar = 0;
    float WindSpeedKt = 0;
    float WindDirection = 0;
    int FlapsControl = 0;
    int ElevatorInput = 0;
    int AileronInput = 0;
    int ElevatorTrimInput = 0;
    int LocNeedle = 0;
    int Obs = 0;
    float IlsHeading = 0;
    float DmeDistance = 0;
    float ApHeadingSim = 0;
    int ApAltitudeSim = 0;
    int ApIasSim = 0;
    float ApMachSim = 0;
    int ApVsSim = 0;
    int ApSpeedHoldSim = 0;
    int ApBcHoldSim = 0;
    bool soundOfAircraft = false;  ///< Settings(1) of the main window
    std::array<EngineInputs, 2> engines;
  };

  struct Flags {
    Word apMaster, ApEngaged, apCmdLeft, apCmdCenter, apCmdRight, apCwsLeft, apCwsRight;
    Word apCwsRollMode, apCwsPitchMode, apToGa, PitchModeActive, RollModeActive;
    Word apNav1Hold, apWaypointHold, apHeadingHold, apLocalizerHold, apLocalizerCapture;
    Word apApproachHold, apBackCourseHold, apYawDamper;
    Word apAltitudeHold, apAttitudeHold, apAirspeedHoldByPitch, apVSpeedHold, apGlideslopeHold;
    Word apGsCapture, apLevelChange, apAltAcquire;
    Word apAutoThrottle, apMachNumberHoldByRpm, apThrottleHold, apAirspeedHoldByRpm;
    Word apChangeover, apRetard, apRpmHold;
    Word LNAV, VNAV;
  };

  struct Annunciators {
    std::string AT = "_", Roll = "_", Pitch = "_", RollArmed = "_", PitchArmed = "_";
    std::string Autopilot = "FD", CwsRoll = "_", CwsPitch = "_";
  };

  struct Targets {
    Single apHeading, apCourse, biasedAltitude = 25, biasedMcpAltitude, apAirSpeed, apMcpAirSpeed;
    Single ApMachNumber, apVertSpeed, apVertSpeedMax, apPitch;
    Single apRpm, throttleAirSpeed, throttleMach, RpmRamp;
    Single CourseTarget, VsTarget;
  };

  struct Tuning {
    Single apRollControlFactor, workingRollFactor, apBank, apTurnRate;
    Word apBankLimit, apBankLimitLowAlt, apBankLimitHighAlt;
    Single apTurnRangeWpt;
    Single apMaxBankCourseDeviation, apMaxTrackOffset, apIntCourseDeflectionWpt;
    Single apInterceptCourse, apInterceptCourseDeflection50;
    Single apVspeedSensitivityFix, apVspeedSensitivity;
    Single apPitchSensitivityFix, apPitchSensitivityDyn;
    Single apPitchControlfactor, apClimbPitchFactor, apThrottleControlFactor;
  };

  struct TrimState {
    Word LastNeedle, Counter;
    Single LastTarget, TargetDelta, TrimBase, TrimWork, PrevPitch, PitchRate, PrevError;
  };

  struct Memory {
    Word Relay, ClimbFlag, DescentFlag, PhaseOfFlightEnum, N1SwitchStatus, TakeoffN1;
    Single ClimbN1, ClimbMach, DescentMach, SignedBank, CwsBank;
    double LastAileronInput = 0;
    double LastElevatorInput = 0;
    Single AvgVerticalSpeed, AvgVerticalSpeedCopy, CalcVerticalSpeed, AvgIas, PrevAvgIas;
    double PrevAltitude = 0;
    Single apNormbank, BankDeflection, PitchMemorySlow, PitchMemoryFast;
    Single FdPitch, FdBank;
    Word FdActive;
    Single N1Prev;
    std::array<Single, 2> N1Target;
    Word ExecFlightplan, ActiveFpIndex, LogVerbose, MessageId, FmcSpeed, AccelerationAltitude;
    std::string ActiveWpt;
    Long CruiseAlt;  ///< feet
    Single FuelReserve, TripFuel, ZeroFuelWeight, LandingWeight, TakeoffWeight;
  };

  /// Where the aircraft stands on the active leg; the units are those of the plan, two of radians
  /// apart.
  struct Leg {
    Word FromRow, ToRow = 1, InterceptSide, Criteria;
    Single TurnAnticipation, PrevLatitude, PrevLongitude, PrevGcLat;
    Single PrevCrossTrack, CrossTrack;  ///< radians
    Single CourseDirect, CourseGcProjection, CourseToCrossing;
    Single CrossingLat, CrossingLon, DxToCrossing;
    Single DxToNextWpt, PrevDxToNextWpt, DxToTurnPoint, PrevDxToTurnPoint, DxFromPrevWpt;
  };

  /// What a line of the log begins with, and the texts and numbers that have to be in it.
  struct LogLine {
    std::string start;
    std::string text;
    std::vector<double> numbers;
  };

  /// The offset of a lamp of the mode control panel, 1..22.
  static constexpr std::uint32_t lampOffset(int lamp) {
    return 0x66C0 + static_cast<std::uint32_t>(lamp);
  }

  // What the next calls work on, and what they leave.
  Inputs in;
  Flags on;
  Annunciators fma;
  Targets target;
  Tuning tune;
  TrimState trim;
  Memory memory;
  Leg leg;
  independent::Plan plan;
  independent::Share share;
  /// The share's database was there at the start of the cycle.
  bool databaseOpen = false;
  bool lampsLit = true;  ///< Do_Write_Offsets
  std::vector<FakeSimulatorBus::Write> writes;
  std::vector<std::string> activeFiles;  ///< what was written into the file ACTIVE
  std::vector<LogLine> log;
  /// Signed values written that 16 bits do not hold, so that the simulator sees another one.
  int turnedOver = 0;

  /// The start of a cycle; `poll` is where the simulator is read.
  void Init(const std::function<void()>& poll);
  /// Gives false when a fault has cut the cycle.
  bool AFDS();

  // Setters of the modes; they throw a Fault.
  void apMaster(int value);
  void ApEngaged(int value);
  void apCmdLeft(int value);
  void apCmdCenter(int value);
  void apCmdRight(int value);
  void apCwsLeft(int value);
  void apCwsRight(int value);
  void apCwsRollMode(int value);
  void apCwsPitchMode(int value);
  void apNav1Hold(int value);
  void apWaypointHold(int value);
  void apHeadingHold(int value);
  void apAltitudeHold(int value);
  void apAttitudeHold(int value);
  void apAirspeedHoldByPitch(int value);
  void apVSpeedHold(int value);
  void apGlideslopeHold(int value);
  void apLocalizerHold(int value);
  void apApproachHold(int value);
  void apBackCourseHold(int value);
  void apYawDamper(int value);
  void apToGa(int value);
  void apLevelChange(int value);
  void apGsCapture(int value);
  void apLocalizerCapture(int value);
  void apAltAcquire(int value);
  void apAutoThrottle(int value);
  void apMachNumberHoldByRpm(int value);
  void apThrottleHold(int value);
  void apAirspeedHoldByRpm(int value);
  void apChangeover(int value);
  void apRetard(int value);
  void apRpmHold(int value);
  void LNAV(int value);
  void VNAV(int value);
  void KillPitchModes();
  void KillRollModes();
  void KillThrottleModes();

  // Setters of targets and limits.
  void apHeading(double degrees);
  double apAltitude() const { return Single(target.biasedAltitude - 25); }
  void apAltitude(double feet);
  double apMcpAltitude() const { return Single(target.biasedMcpAltitude - 25); }
  void apMcpAltitude(double feet);
  void apAirSpeed(double knots);
  void apMcpAirSpeed(double knots);
  void ApMachNumber(double mach);
  void apVertSpeed(double feetPerMinute);
  void apBank(double degrees);
  void apTurnRate(double rate);
  void apBankLimit(double degrees);
  void N1SwitchStatus(int value);
  void ResetRelay(int value) { memory.Relay = value; }

  void SetEngineN1TargetClimb() { setEngineN1Target(memory.ClimbN1); }
  void SetEngineN1TargetTakeoff() { setEngineN1Target(memory.TakeoffN1); }
  void SetEngineN1TargetIdle() { setEngineN1Target(0); }

 private:
  /// As it is written in the file's row.
  using Row = independent::Row;
  using Place = independent::Place;
  struct Trends {
    double AltError = 0, Ias = 0, N1 = 0, Bank = 0;
  };

  // Writes to the simulator.
  void put(std::uint32_t offset, std::size_t size, std::uint64_t bits);
  void byte(std::uint32_t offset, double value);
  void lowHalf(std::uint32_t offset, double value);
  void signedHalf(std::uint32_t offset, double value, double bias);
  void lamp(int number, int value);
  void AileronTrim(double radians);
  void TrimPosition(double value);
  void SetThrottles(double percent);

  void command(Word& flag, int value, int lampNumber);
  void wheelSteering(Word& flag, int value, int lampNumber);
  void rollFallsToCws();
  std::string ifArmed(const std::string& text) const { return on.apAutoThrottle == 1 ? text : "_"; }
  void setEngineN1Target(double computed);

  // Flight plan and performance data.
  void readAircraft();
  void aircraftDefaults(const std::string& aircraft);
  void tuneAircraft();
  void ReadPerformance();
  void flightLevel(double level) { memory.CruiseAlt = Long(level) * 100.0; }
  void executePlan();
  void announce(const Row& row);
  const Row& toRow() const { return plan.row(leg.ToRow); }
  const Row& fromRow() const { return plan.row(leg.FromRow); }
  const Row& activeRow() const { return plan.row(memory.ActiveFpIndex + 1); }

  // Lateral navigation.
  Place here() const { return {in.Latitude, in.Longitude}; }
  double GcLatAtLon(double lon) const;
  void legGeometry();
  void anticipateTurn();
  double trackTheCircle();
  void crossTheCircle();
  void passTheTurnPoint();
  int legCheck();
  int nearTheTrack();
  int offTheTrack();
  int loseTheLeg(const std::string& why);
  void logTheLeg(const std::string& why);
  void SequenceLeg();
  void HoldWpt();
  void flyLnav();

  // Vertical navigation and the phases.
  void FlyToGa();
  void flyOut();
  void rollOnTheGround();
  void UpdateFlightPhase();
  void enterPhase(int phase, const std::string& name);
  void tellPhase(const std::string& name);
  void leaveTheGround();
  void leaveCruise();
  void startDescent();
  void leaveDescent();
  void land();
  bool descentCommanded() const;
  bool FindTodPassed() const;
  void FlyVnavProfile();
  void holdSpeedAndAltitude(double feet);
  void changeLevel();

  // The cycle.
  void steps();
  void rollChannel();
  void speedTarget();
  void capture(bool approachToo);
  void sensitivities();
  void changeover();
  Trends filters();
  void pitchChannel(const Trends& trend);
  void verticalSpeed(const Trends& trend);
  void levelChange(const Trends& trend);
  void captureTest(double AltError);
  void altitudeAcquire(double AltError);
  void altitudeHold(const Trends& trend);

  // The laws.
  void SetBank(double wanted);
  void TurnToHeading();
  double WindCorrection(double course) const;
  bool LocalizerInRange() const;
  void HoldRadioCourse();
  void HoldNav1();
  void HoldLocalizer();
  void cwsRoll();
  void KeepPitch4();
  void HoldAltitude(double altError, double iasTrend, double bankRate);
  void HoldVspeed(double bankRate, double average);
  void HoldAirspeedByPitch(double iasTrend);
  void HoldRpm(double trend);
  void HoldAirspeedByRpm(double trend);
  double absoluteBank() const { return in.Bank > 180 ? 360 - double{in.Bank} : double{in.Bank}; }
};

}  // namespace vorlent
