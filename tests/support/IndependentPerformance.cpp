#include "support/IndependentAutoflight.h"

namespace vorlent {

/// At the start of a cycle that runs.
void IndependentAutoflight::readAircraft() {
  if (!in.CycleRunning) return;
  if (share.aircraft) {
    tuneAircraft();
    aircraftDefaults(share.aircraft->substr(0, 7));
  }
  ReadPerformance();
}

/// The first key that is not there ends the reading.
void IndependentAutoflight::tuneAircraft() {
  const auto value = [this](const char* key) {
    const auto found = share.tuning.find(key);
    if (found == share.tuning.end()) throw Fault{};
    return found->second;
  };
  try {
    value("TurningRangeVor");
    tune.apTurnRangeWpt = value("TurningRangeWpt");
    tune.apRollControlFactor = tune.workingRollFactor = value("RollControlFactor");
    tune.apPitchControlfactor = value("PitchControlfactor");
    tune.apClimbPitchFactor = value("ClimbPitchFactor");
    tune.apPitchSensitivityFix = value("PitchSensitivity");
    tune.apVspeedSensitivityFix = value("VspeedSensitivity");
    tune.apThrottleControlFactor = value("ThrottleControlFactor");
    tune.apMaxBankCourseDeviation = value("MaxBankCourseDeviation");
    tune.apBankLimitLowAlt = value("BankLimitLowAltitude");
    tune.apBankLimitHighAlt = value("BankLimitHighAltitude");
    tune.apMaxTrackOffset = value("MaxTrackOffset");
    for (const char* unused : {"N1ToThr0", "N1ToThr1", "N1ToThr2"}) value(unused);
    memory.AccelerationAltitude = 1500;
  } catch (const Fault&) {
  }
}

void IndependentAutoflight::aircraftDefaults(const std::string& aircraft) {
  struct Default {
    const char* aircraft;
    double takeoffN1, climbN1;
  };
  static constexpr Default Defaults[] = {
      {"737-300", 88, 75}, {"737-400", 93, 85}, {"737-700", 88, 85}};
  for (const Default& each : Defaults) {
    if (aircraft != each.aircraft) continue;
    memory.TakeoffN1 = each.takeoffN1;
    memory.ClimbN1 = each.climbN1;
    memory.FmcSpeed = 251;
    flightLevel(30000);
  }
}

/// A field that cannot be read is passed over.
void IndependentAutoflight::ReadPerformance() {
  if (!databaseOpen || !share.performance) return;
  const auto read = [this](const char* name, auto&& store) {
    const auto field = share.performance->find(name);
    if (field == share.performance->end()) return;
    try {
      store(independent::decimal(field->second));
    } catch (const Fault&) {
    }
  };
  read("ClimbN1", [this](double v) { memory.ClimbN1 = v; });
  read("MaxCruiseAlt", [this](double v) { flightLevel(v); });
  read("CruiseAlt", [this](double v) { flightLevel(v); });
  read("FuelReserve", [this](double v) { memory.FuelReserve = v; });
  read("TripFuel", [this](double v) { memory.TripFuel = v; });
  read("ZeroFuelWeight", [this](double v) { memory.ZeroFuelWeight = v; });
  read("LandingWeight", [this](double v) { memory.LandingWeight = v; });
  read("TakeoffWeight", [this](double v) { memory.TakeoffWeight = v; });
  read("TakeoffN1", [this](double v) { memory.TakeoffN1 = Single(v); });
  read("FMCspeed", [this](double v) { memory.FmcSpeed = v; });
  read("ClimbMach", [this](double v) { memory.ClimbMach = v; });
  read("DescentMach", [this](double v) { memory.DescentMach = v; });
}

void IndependentAutoflight::executePlan() {
  memory.ExecFlightplan = 0;
  leg.ToRow = memory.ActiveFpIndex + 1;
  leg.FromRow = memory.ActiveFpIndex;
  plan.read(share);
  if (in.CycleRunning) {
    ReadPerformance();
    if (on.apRpmHold == 1) SetEngineN1TargetClimb();
  }
  memory.ActiveWpt = toRow().texts[independent::Name];
  activeFiles.push_back(memory.ActiveWpt);
}

void IndependentAutoflight::announce(const Row& row) {
  activeFiles.push_back(row.texts[independent::Name]);
  memory.ActiveWpt = row.texts[independent::Name];
}

}  // namespace vorlent
