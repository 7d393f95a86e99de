#include <string>

#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/planFolder.h"
#include "base/RuntimeError.h"
#include "base/text.h"
#include "flightplan/PlanFile.h"
#include "platform/NetworkFiles.h"
#include "platform/PerformanceDb.h"
#include "platform/StatusLine.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsAfds::executePlan() {
  ExecFlightplan_ = 0;
  setActiveLeg();
  ReadPlanFiles();
  if (autoflight_.store.CycleRunning) {
    ReadPerformance();
    if (isOn(autoflight_.xAutoT->apRpmHold())) SetEngineN1TargetClimb();
  }
  fmc.ActiveWpt = planRow(plan.FlightPlan, leg.LegToRow).Name;
  WriteFmcFile("ACTIVE", fmc.ActiveWpt);
}

/// A fault is told and ends the cycle.
void clsAfds::ReadPlanFiles() {
  try {
    takePlanFile("EXEC", takeExec);
    takePlanFile("PROF", takeProf);
  } catch (const RuntimeError& error) {
    tell("Flight plan: " + error.description());
    throw;
  }
}

void clsAfds::takePlanFile(const std::string& fileName, TakePlanFile take) {
  const std::string& host = autoflight_.store.FmcName;
  if (!isHostName(host))
    throw RuntimeError(RuntimeError::FileNotFound, "no display has told its machine's name");
  const std::string path = planFolder(host) + fileName;
  const auto content = autoflight_.networkFiles.read(path, NetworkFiles::MostOfAPlan_bytes);
  if (content.tooLarge)
    throw RuntimeError(RuntimeError::PathAccess, path + ": larger than 16 MB, not read");
  if (!content) throw RuntimeError(RuntimeError::FileNotFound, path + " is not there");
  const auto fault = take(*content, plan);
  fmc.MaxWaypointId = plan.MaxWaypointId;
  if (fault) throw RuntimeError(fault->number(), path + ": " + fault->description());
}

void clsAfds::openPerformanceDb() {
  const std::string& host = autoflight_.store.FmcName;
  performanceDbOpen_ =
      isHostName(host) && autoflight_.performanceDb.open(planFolder(host) + "db\\temp.mdb");
}

/// Never ends the cycle: what is wrong is told and passed over.
void clsAfds::ReadPerformance() {
  if (!performanceDbOpen_) return;
  const PerformanceReading reading = autoflight_.performanceDb.read();
  if (!reading.fault.empty()) tell("temp.mdb: " + reading.fault);
  if (reading.row) vorlent::ReadPerformance(*reading.row, performance);
}

void clsAfds::WriteFmcFile(const std::string& fileName, const std::string& text) {
  const std::string& host = autoflight_.store.FmcName;
  if (!isHostName(host)) return;
  const std::string path = planFolder(host) + fileName;
  autoflight_.networkFiles.remove(path);
  autoflight_.networkFiles.write(path, activeFileText(text));
}

void clsAfds::tell(const std::string& text) const {
  autoflight_.status.SetStatusText(1, text);
  autoflight_.status.SetStatusText(2, text);
}

}  // namespace vorlent
