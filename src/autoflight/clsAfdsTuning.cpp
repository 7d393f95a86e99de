#include <string>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/planFolder.h"
#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/clsIniRw.h"
#include "base/numbers.h"
#include "base/text.h"
#include "flightplan/PlanFile.h"
#include "platform/NetworkFiles.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr const char* TooLarge = ": larger than 1 MB, not read";

constexpr std::int16_t TunedAccelerationAltitude_ft = 1500;

}  // namespace

std::string clsAfds::ReadAircraftConfig(const std::string& planPath) {
  tuningFault_.clear();
  const auto planCfg = autoflight_.networkFiles.read(planPath);
  if (!planCfg) {
    tellUntuned(planPath + (planCfg.tooLarge ? TooLarge : " is not there"));
    return {};
  }
  std::string aircraft = plannedAircraft(*planCfg);
  if (aircraft.empty()) {
    tellUntuned(planPath + " names no aircraft");
    return {};
  }
  const std::string folder = planPath.substr(0, planPath.find_last_of('\\') + 1);
  try {
    ReadApConfig(folder + "Acft\\" + aircraft + "\\" + aircraft + ".acf");
  } catch (const RuntimeError& error) {
    tellUntuned("tuning of " + aircraft + ": " + error.description());
  }
  return aircraft;
}

void clsAfds::ReadApConfig(const std::string& fileName) {
  const auto text = autoflight_.networkFiles.read(fileName);
  if (text.tooLarge) throw RuntimeError(RuntimeError::PathAccess, fileName + TooLarge);
  if (!text) throw RuntimeError(RuntimeError::FileNotFound);
  const IniDocument document(*text);
  clsXAutoP& ap = *autoflight_.xAutoP;
  XAutoPTuning& tuning = ap.tuning;
  // By their texts, as a factor may be written ".035", which no key of the settings may.
  const auto value = [&document](const char* key) {
    return clsIniRw::keyIn(document, "ApConfig", key).asText();
  };
  const auto single = [&value](const char* key) { return toSingle(numberOf(value(key))); };
  const auto whole = [&value](const char* key) { return int16Of(value(key)); };
  tuning.apTurnRangeVor = single("TurningRangeVor");
  tuning.apTurnRangeWpt = single("TurningRangeWpt");
  ap.apRollControlFactor(single("RollControlFactor"));
  tuning.apPitchControlfactor = single("PitchControlfactor");
  tuning.apClimbPitchFactor = single("ClimbPitchFactor");
  tuning.apPitchSensitivityFix = single("PitchSensitivity");
  tuning.apVspeedSensitivityFix = single("VspeedSensitivity");
  autoflight_.xAutoT->apThrottleControlFactor(single("ThrottleControlFactor"));
  tuning.apMaxBankCourseDeviation = single("MaxBankCourseDeviation");
  tuning.apBankLimitLowAlt = whole("BankLimitLowAltitude");
  tuning.apBankLimitHighAlt = whole("BankLimitHighAltitude");
  tuning.apMaxTrackOffset = single("MaxTrackOffset");
  thrust_.n1ToThr[0] = single("N1ToThr0");
  thrust_.n1ToThr[1] = single("N1ToThr1");
  thrust_.n1ToThr[2] = single("N1ToThr2");
  AccelerationAltitude_ = TunedAccelerationAltitude_ft;
}

/// Without it the laws fly on the values before it, which may be none at all.
void clsAfds::tellUntuned(const std::string& why) {
  tuningFault_ = "No tuning for the autopilot, do not engage it: " + why;
  tell(tuningFault_);
}

void clsAfds::readAircraft() {
  const std::string& host = autoflight_.store.FmcName;
  if (isHostName(host))
    setAircraftDefaults(ReadAircraftConfig(autoflight::planFolder(host) + "plan.cfg"), performance);
  ReadPerformance();
}

}  // namespace vorlent
