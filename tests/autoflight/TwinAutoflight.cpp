#include "autoflight/TwinAutoflight.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <sstream>
#include <utility>

#include "base/RuntimeError.h"
#include "support/lamps.h"

namespace vorlent {
namespace {

using Twin = IndependentAutoflight;

struct NumberOfBoth {
  const char* name;
  double (*product)(const Server&);
  double (*independent)(const Twin&);
};

// A number by its name: what the product gives, and what the independent one has under it.
// clang-format off
#define BOTH(text, product, independent)                        \
  {text, [](const Server& s) -> double { return product; },     \
         [](const Twin& t) -> double { return independent; }}
#define IN_AP(name, where) BOTH(#name, s.autoflight.xAutoP->name(), t.where.name)
#define IN_AT(name, where) BOTH(#name, s.autoflight.xAutoT->name(), t.where.name)
#define IN_AFDS(name, where) BOTH(#name, s.autoflight.afds->name(), t.where.name)
#define IN_STORE(name) BOTH(#name, s.store.name, t.memory.name)
#define IN_TRIM(name) BOTH("PitchTrimState." #name, s.autoflight.xAutoP->pitchTrim().name, t.trim.name)
#define IN_LEG(name) BOTH(#name, s.autoflight.afds->leg.name, t.leg.name)
#define IN_PLAN(name) BOTH(#name, s.autoflight.afds->plan.name, t.plan.name)
#define IN_PERFORMANCE(name) BOTH(#name, s.autoflight.afds->performance.name, t.memory.name)
#define MEMBER(place, name) BOTH(#name, s.autoflight.xAutoP->place.name, t.tune.name)
// clang-format on

const NumberOfBoth Numbers[] = {
    IN_AP(apMaster, on),
    IN_AP(ApEngaged, on),
    IN_AP(apCmdLeft, on),
    IN_AP(apCmdCenter, on),
    IN_AP(apCmdRight, on),
    IN_AP(apCwsLeft, on),
    IN_AP(apCwsRight, on),
    IN_AP(apCwsRollMode, on),
    IN_AP(apCwsPitchMode, on),
    IN_AP(apToGa, on),
    IN_AP(PitchModeActive, on),
    IN_AP(RollModeActive, on),
    IN_AP(apNav1Hold, on),
    IN_AP(apWaypointHold, on),
    IN_AP(apHeadingHold, on),
    IN_AP(apLocalizerHold, on),
    IN_AP(apLocalizerCapture, on),
    IN_AP(apApproachHold, on),
    IN_AP(apBackCourseHold, on),
    IN_AP(apYawDamper, on),
    IN_AP(apAltitudeHold, on),
    IN_AP(apAttitudeHold, on),
    IN_AP(apAirspeedHoldByPitch, on),
    IN_AP(apVSpeedHold, on),
    IN_AP(apGlideslopeHold, on),
    IN_AP(apGsCapture, on),
    IN_AP(apLevelChange, on),
    IN_AP(apAltAcquire, on),
    IN_AT(apAutoThrottle, on),
    IN_AT(apMachNumberHoldByRpm, on),
    IN_AT(apThrottleHold, on),
    IN_AT(apAirspeedHoldByRpm, on),
    IN_AT(apChangeover, on),
    IN_AT(apRetard, on),
    IN_AT(apRpmHold, on),
    IN_AFDS(LNAV, on),
    IN_AFDS(VNAV, on),
    IN_AP(apHeading, target),
    IN_AP(apCourse, target),
    {"apAltitude", [](const Server& s) -> double { return s.autoflight.xAutoP->apAltitude(); },
     [](const Twin& t) { return t.apAltitude(); }},
    {"apMcpAltitude",
     [](const Server& s) -> double { return s.autoflight.xAutoP->apMcpAltitude(); },
     [](const Twin& t) { return t.apMcpAltitude(); }},
    IN_AP(apAirSpeed, target),
    IN_AP(apMcpAirSpeed, target),
    IN_AP(ApMachNumber, target),
    IN_AP(apVertSpeed, target),
    IN_AP(apVertSpeedMax, target),
    IN_AP(apPitch, target),
    IN_AP(CourseTarget, target),
    IN_AP(VsTarget, target),
    IN_AT(apRpm, target),
    IN_AT(RpmRamp, target),
    {"clsXAutoT.apAirSpeed",
     [](const Server& s) -> double { return s.autoflight.xAutoT->apAirSpeed(); },
     [](const Twin& t) -> double { return t.target.throttleAirSpeed; }},
    {"clsXAutoT.ApMachNumber",
     [](const Server& s) -> double { return s.autoflight.xAutoT->ApMachNumber(); },
     [](const Twin& t) -> double { return t.target.throttleMach; }},
    IN_AP(apRollControlFactor, tune),
    IN_AP(apBank, tune),
    IN_AP(apTurnRate, tune),
    IN_AP(apBankLimit, tune),
    MEMBER(tuning, apMaxBankCourseDeviation),
    MEMBER(tuning, apMaxTrackOffset),
    MEMBER(tuning, apIntCourseDeflectionWpt),
    MEMBER(intercept, apInterceptCourse),
    MEMBER(intercept, apInterceptCourseDeflection50),
    MEMBER(tuning, apVspeedSensitivityFix),
    MEMBER(gains, apVspeedSensitivity),
    MEMBER(tuning, apPitchSensitivityFix),
    MEMBER(gains, apPitchSensitivityDyn),
    MEMBER(tuning, apPitchControlfactor),
    MEMBER(tuning, apClimbPitchFactor),
    IN_AT(apThrottleControlFactor, tune),
    IN_TRIM(LastNeedle),
    IN_TRIM(LastTarget),
    IN_TRIM(TargetDelta),
    IN_TRIM(TrimBase),
    IN_TRIM(TrimWork),
    IN_TRIM(PrevPitch),
    IN_TRIM(PitchRate),
    IN_TRIM(Counter),
    IN_TRIM(PrevError),
    IN_AP(apNormbank, memory),
    IN_AP(BankDeflection, memory),
    IN_AFDS(Relay, memory),
    IN_AFDS(ClimbFlag, memory),
    IN_AFDS(DescentFlag, memory),
    IN_AFDS(SignedBank, memory),
    IN_AFDS(N1SwitchStatus, memory),
    IN_AFDS(TakeoffN1, memory),
    IN_AFDS(ClimbN1, memory),
    {"PhaseOfFlightEnum",
     [](const Server& s) -> double { return s.autoflight.afds->fmc.PhaseOfFlightEnum; },
     [](const Twin& t) -> double { return t.memory.PhaseOfFlightEnum; }},
    IN_STORE(AvgIas),
    IN_STORE(PrevAvgIas),
    IN_STORE(CalcVerticalSpeed),
    IN_STORE(AvgVerticalSpeed),
    IN_STORE(PrevAltitude),
    IN_STORE(FdPitch),
    IN_STORE(FdBank),
    BOTH("LegFromRow", s.autoflight.afds->leg.LegFromRow, t.leg.FromRow),
    BOTH("LegToRow", s.autoflight.afds->leg.LegToRow, t.leg.ToRow),
    IN_LEG(TurnAnticipation),
    IN_LEG(PrevLatitude),
    IN_LEG(PrevLongitude),
    IN_LEG(PrevGcLat),
    IN_LEG(PrevCrossTrack),
    IN_LEG(CrossTrack),
    IN_LEG(CourseDirect),
    IN_LEG(CourseGcProjection),
    IN_LEG(CourseToCrossing),
    BOTH("CrossingLat", s.store.CrossingLat, t.leg.CrossingLat),
    BOTH("CrossingLon", s.store.CrossingLon, t.leg.CrossingLon),
    IN_LEG(DxToCrossing),
    IN_LEG(DxToNextWpt),
    IN_LEG(PrevDxToNextWpt),
    IN_LEG(DxToTurnPoint),
    IN_LEG(PrevDxToTurnPoint),
    IN_LEG(DxFromPrevWpt),
    IN_LEG(InterceptSide),
    BOTH("LnavCriteria", s.autoflight.afds->fmc.LnavCriteria, t.leg.Criteria),
    BOTH("DxToNextWaypoint", s.autoflight.afds->fmc.DxToNextWaypoint, t.leg.DxToNextWpt),
    BOTH("CrsToNextWaypoint", s.autoflight.afds->fmc.CrsToNextWaypoint, t.leg.CourseDirect),
    BOTH("MessageId", s.autoflight.afds->fmc.MessageId, t.memory.MessageId),
    BOTH("fmc.MaxWaypointId", s.autoflight.afds->fmc.MaxWaypointId, t.plan.MaxWaypointId),
    IN_PLAN(MaxWaypointId),
    IN_PLAN(ProfileMaxId),
    IN_PLAN(TocRow),
    IN_PLAN(TodRow),
    BOTH("ActiveFpIndex", s.autoflight.afds->ActiveFpIndex(), t.memory.ActiveFpIndex + 1),
    IN_AFDS(ExecFlightplan, memory),
    IN_AFDS(AccelerationAltitude, memory),
    IN_PERFORMANCE(FmcSpeed),
    IN_PERFORMANCE(ClimbMach),
    IN_PERFORMANCE(DescentMach),
    IN_PERFORMANCE(FuelReserve),
    IN_PERFORMANCE(TripFuel),
    IN_PERFORMANCE(ZeroFuelWeight),
    IN_PERFORMANCE(LandingWeight),
    IN_PERFORMANCE(TakeoffWeight),
    BOTH("CruiseAlt", s.autoflight.afds->performance.CruiseAlt(), t.memory.CruiseAlt),
    BOTH("MaxCruiseAlt", s.autoflight.afds->performance.MaxCruiseAlt(), t.memory.CruiseAlt),
    MEMBER(tuning, apTurnRangeWpt),
    MEMBER(tuning, apBankLimitLowAlt),
    MEMBER(tuning, apBankLimitHighAlt),
    BOTH("LogVerbose", s.store.LogVerbose, t.memory.LogVerbose),
    BOTH("FdActive", s.store.FdActive, t.memory.FdActive),
    {"Engines(1).N1Prev", [](const Server& s) -> double { return s.store.Engines(1).N1Prev; },
     [](const Twin& t) -> double { return t.memory.N1Prev; }},
    {"Engines(1).N1Target", [](const Server& s) -> double { return s.store.Engines(1).N1Target; },
     [](const Twin& t) -> double { return t.memory.N1Target[0]; }},
    {"Engines(2).N1Target", [](const Server& s) -> double { return s.store.Engines(2).N1Target; },
     [](const Twin& t) -> double { return t.memory.N1Target[1]; }},
};

struct TextOfBoth {
  std::string Annunciators::*product;
  std::string Twin::Annunciators::*independent;
  const char* name;
};
const TextOfBoth Texts[] = {
    {&Annunciators::ATEngagedMode, &Twin::Annunciators::AT, "ATEngagedMode"},
    {&Annunciators::RollEngagedMode, &Twin::Annunciators::Roll, "RollEngagedMode"},
    {&Annunciators::PitchEngagedMode, &Twin::Annunciators::Pitch, "PitchEngagedMode"},
    {&Annunciators::RollArmedMode, &Twin::Annunciators::RollArmed, "RollArmedMode"},
    {&Annunciators::PitchArmedMode, &Twin::Annunciators::PitchArmed, "PitchArmedMode"},
    {&Annunciators::AutopilotMode, &Twin::Annunciators::Autopilot, "AutopilotMode"},
    {&Annunciators::CwsRollEngagedMode, &Twin::Annunciators::CwsRoll, "CwsRollEngagedMode"},
    {&Annunciators::CwsPitchEngagedMode, &Twin::Annunciators::CwsPitch, "CwsPitchEngagedMode"},
};

std::string toText(const std::vector<FakeSimulatorBus::Write>& writes) {
  std::ostringstream text;
  for (const auto& write : writes) {
    text << " 0x" << std::hex << std::setw(4) << std::setfill('0') << write.offset << ':';
    for (const int byte : write.bytes) text << std::setw(2) << byte;
  }
  return text.str();
}

constexpr const char* TwinFolder = "\\\\fmc1\\Tarnwick\\FMS\\";

std::string tuningText(const std::map<std::string, double>& tuning) {
  std::ostringstream text;
  text << std::setprecision(17) << "[ApConfig]\r\n";
  for (const auto& [key, value] : tuning) text << key << '=' << value << "\r\n";
  return text.str();
}

}  // namespace

TwinAutoflight::TwinAutoflight() : log_(server.folder / "log.txt") {
  server.store.FmcName = "fmc1";
  mirrorLamps(*server.server.accessors.autoP, Twin::lampOffset(0));
  applyInputs();
  server.bus.writes.clear();
}

std::string TwinAutoflight::run(const std::function<void(Server&)>& product,
                                const std::function<void(IndependentAutoflight&)>& independent) {
  std::string productFault = "no fault";
  std::string independentFault = "no fault";
  try {
    product(server.server);
  } catch (const RuntimeError&) {
    productFault = "a fault";
  }
  try {
    independent(twin);
  } catch (const Twin::Fault&) {
    independentFault = "a fault";
  }
  if (productFault != independentFault)
    return "expected " + independentFault + ", the server had " + productFault;
  if (productFault == "a fault") ++faults;
  return difference();
}

std::string TwinAutoflight::Init() {
  return run([](Server& s) { s.autoflight.afds->Init(); },
             [this](Twin& t) { t.Init([this] { applyInputs(); }); });
}

std::string TwinAutoflight::AFDS() {
  ++cycles;
  const bool reads = twin.memory.ExecFlightplan > 0;
  std::string found = run([](Server& s) { s.autoflight.afds->AFDS(); },
                          [this](Twin& t) {
                            cut = !t.AFDS();
                            faults += cut ? 1 : 0;
                          });
  if (reads) found += differenceOfPlans(server.server.autoflight.afds->plan, twin.plan);
  return found;
}

void TwinAutoflight::putShare() {
  const independent::Share& share = twin.share;
  auto& files = server.networkFiles.files;
  files.clear();
  const std::string folder = TwinFolder;
  if (share.exec) files[folder + "EXEC"] = *share.exec;
  if (share.prof) files[folder + "PROF"] = *share.prof;
  if (share.aircraft) {
    const std::string& aircraft = *share.aircraft;
    files[folder + "plan.cfg"] = "[Flight]\r\nAircraft=" + aircraft + "\r\n";
    files[folder + "Acft\\" + aircraft + "\\" + aircraft + ".acf"] = tuningText(share.tuning);
  }
  server.performanceDb.present = share.performance.has_value();
  server.performanceDb.reading = {};
  if (share.performance)
    server.performanceDb.reading.row.emplace(share.performance->begin(), share.performance->end());
}

void TwinAutoflight::applyInputs() {
  const auto word = [](int value) { return static_cast<std::int16_t>(value); };
  modPublic& to = server.store;
  const Twin::Inputs& in = twin.in;
  to.IsMaster = in.IsMaster;
  to.CycleRunning = in.CycleRunning;
  to.Paused = word(in.Paused);
  to.OnGround = word(in.OnGround);
  to.EngineCount = word(in.EngineCount);
  to.Tas = word(in.Tas);
  to.GroundSpeed = word(in.GroundSpeed);
  to.Latitude = in.Latitude;
  to.Longitude = in.Longitude;
  to.Ias = in.Ias;
  to.Mach = in.Mach;
  to.AircraftAltitude = in.AircraftAltitude;
  to.RadioAltitude = in.RadioAltitude;
  to.VerticalSpeed = in.VerticalSpeed;
  to.Pitch = in.Pitch;
  to.Bank = in.Bank;
  to.TrueHeading = in.TrueHeading;
  to.MagHeading = in.MagHeading;
  to.MagVar = in.MagVar;
  to.WindSpeedKt = in.WindSpeedKt;
  to.WindDirection = in.WindDirection;
  to.FlapsControl = word(in.FlapsControl);
  to.ElevatorInput = in.ElevatorInput;
  to.AileronInput = in.AileronInput;
  to.ElevatorTrimInput = in.ElevatorTrimInput;
  to.NavRadios(1).LocNeedle = word(in.LocNeedle);
  to.NavRadios(1).Obs = word(in.Obs);
  to.NavRadios(1).IlsHeading = in.IlsHeading;
  to.NavRadios(1).DmeDistance = in.DmeDistance;
  to.ApHeadingSim = in.ApHeadingSim;
  to.ApAltitudeSim = in.ApAltitudeSim;
  to.ApIasSim = word(in.ApIasSim);
  to.ApMachSim = in.ApMachSim;
  to.ApVsSim = in.ApVsSim;
  to.ApSpeedHoldSim = word(in.ApSpeedHoldSim);
  to.ApBcHoldSim = word(in.ApBcHoldSim);
  server.form.Settings(Setting::AircraftSound).Checked(in.soundOfAircraft);
  for (int engine = 1; engine <= 2; ++engine) {
    const auto& from = in.engines[static_cast<std::size_t>(engine) - 1];
    to.Engines(engine).ThrustLever = from.ThrustLever;
    to.Engines(engine).N1 = from.N1;
  }
}

std::string TwinAutoflight::differenceOfWrites() const {
  if (server.bus.writes == twin.writes) return "";
  return "writes: expected" + toText(twin.writes) + ", the server wrote" +
         toText(server.bus.writes);
}

/// Each time the old file goes first.
std::string TwinAutoflight::differenceOfActive() {
  const std::string path = std::string(TwinFolder) + "ACTIVE";
  std::vector<std::string> expected;
  for (const std::string& name : twin.activeFiles) {
    expected.push_back("remove " + path);
    expected.push_back(("write " + path + ": ").append(name).append("\r\n"));
  }
  lastActive = std::exchange(twin.activeFiles, {});
  const auto actual = std::exchange(server.networkFiles.changes, {});
  if (actual == expected) return "";
  std::string found = "\n  changes on the share: expected";
  for (const std::string& change : expected) found += " [" + change + "]";
  found += ", the server's";
  for (const std::string& change : actual) found += " [" + change + "]";
  return found;
}

std::string TwinAutoflight::differenceOfLog() {
  const auto expected = std::exchange(twin.log, {});
  for (const Twin::LogLine& line : expected) ++logged[line.start];
  return differenceOfLogs(log_.take(), expected);
}

std::string TwinAutoflight::difference() {
  std::string found = differenceOfWrites() + differenceOfActive() + differenceOfLog();
  written += twin.writes.size();
  lastWrites.swap(server.bus.writes);
  server.bus.writes.clear();
  twin.writes.clear();
  const auto add = [&found](const auto& name, const auto& expected, const auto& actual) {
    std::ostringstream text;
    text << std::setprecision(17) << "\n  " << name << ": expected " << expected
         << ", in the server " << actual;
    found += text.str();
  };
  for (const TextOfBoth& text : Texts) {
    const std::string& actual = server.server.autoflight.annunciators.*text.product;
    const std::string& expected = twin.fma.*text.independent;
    if (actual != expected) add(text.name, expected, actual);
  }
  const std::string& waypoint = server.server.autoflight.afds->fmc.ActiveWpt;
  if (waypoint != twin.memory.ActiveWpt) add("ActiveWpt", twin.memory.ActiveWpt, waypoint);
  for (const NumberOfBoth& number : Numbers) {
    const double actual = number.product(server.server);
    const double expected = number.independent(twin);
    if (actual != expected) add(number.name, expected, actual);
  }
  return found;
}

}  // namespace vorlent
