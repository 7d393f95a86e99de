#include "support/PolledServer.h"

#include <algorithm>

namespace vorlent {
namespace {

void takeOverAutopilot(IndependentRecord& to, const Server& server) {
  const clsXAutoP& ap = *server.autoflight.xAutoP;
  const clsXAutoT& at = *server.autoflight.xAutoT;
  const clsAfds& afds = *server.autoflight.afds;
  auto& n = to.numbers;
  n["apAirspeedHoldByPitch"] = ap.apAirspeedHoldByPitch();
  n["apAltitudeHold"] = ap.apAltitudeHold();
  n["apGlideslopeHold"] = ap.apGlideslopeHold();
  n["apAttitudeHold"] = ap.apAttitudeHold();
  n["apBackCourseHold"] = ap.apBackCourseHold();
  n["apHeadingHold"] = ap.apHeadingHold();
  n["apLocalizerHold"] = ap.apLocalizerHold();
  n["apAirspeedHoldByRpm"] = at.apAirspeedHoldByRpm();
  n["apMaster"] = ap.apMaster();
  n["apCmdLeft"] = ap.apCmdLeft();
  n["apCwsLeft"] = ap.apCwsLeft();
  n["apCmdRight"] = ap.apCmdRight();
  n["apNav1Hold"] = ap.apNav1Hold();
  n["apVSpeedHold"] = ap.apVSpeedHold();
  n["apRpmHold"] = at.apRpmHold();
  n["apCwsRight"] = ap.apCwsRight();
  n["apAutoThrottle"] = at.apAutoThrottle();
  n["apToGa"] = ap.apToGa();
  n["apChangeover"] = at.apChangeover();
  n["LNAV"] = afds.LNAV();
  n["VNAV"] = afds.VNAV();
  n["apLevelChange"] = ap.apLevelChange();
  n["apApproachHold"] = ap.apApproachHold();
  n["apMcpAltitude"] = ap.apMcpAltitude();
  n["apCourse"] = ap.apCourse();
  n["ApMachNumber"] = ap.ApMachNumber();
  n["apMcpAirSpeed"] = ap.apMcpAirSpeed();
  n["apVertSpeed"] = ap.apVertSpeed();
  n["apRpm"] = at.apRpm();
}

void takeOverAnnunciators(IndependentRecord& to, const Annunciators& shown) {
  auto& t = to.texts;
  t["ATEngagedMode"] = shown.ATEngagedMode;
  t["RollEngagedMode"] = shown.RollEngagedMode;
  t["PitchEngagedMode"] = shown.PitchEngagedMode;
  t["RollArmedMode"] = shown.RollArmedMode;
  t["PitchArmedMode"] = shown.PitchArmedMode;
  t["CwsRollEngagedMode"] = shown.CwsRollEngagedMode;
  t["CwsPitchEngagedMode"] = shown.CwsPitchEngagedMode;
  t["AutopilotMode"] = shown.AutopilotMode;
}

void takeOverAfds(IndependentRecord& to, const clsAfds& afds) {
  auto& n = to.numbers;
  n["LnavCriteria"] = afds.fmc.LnavCriteria;
  n["AfdsValueA"] = afds.fmc.AfdsValueA;
  n["AfdsValueB"] = afds.fmc.AfdsValueB;
  n["MessageId"] = afds.fmc.MessageId;
  n["PhaseOfFlightEnum"] = afds.fmc.PhaseOfFlightEnum;
  n["DxToNextWaypoint"] = afds.fmc.DxToNextWaypoint;
  n["CrsToNextWaypoint"] = afds.fmc.CrsToNextWaypoint;
  n["Minimums"] = afds.fmc.Minimums;
  std::string waypoint = afds.fmc.ActiveWpt;
  while (waypoint.ends_with(' ')) waypoint.pop_back();
  while (waypoint.starts_with(' ')) waypoint.erase(0, 1);
  to.texts["ActiveWpt"] = waypoint;
}

template <class Array>
void takeOverElements(IndependentRecord& to, const std::string& name, const Array& array,
                      int from = Array::First, int upTo = Array::Last) {
  for (int index = from; index <= upTo; ++index)
    to.numbers[name + "(" + std::to_string(index) + ")"] = array(index);
}

}  // namespace

PolledServer::PolledServer(const std::string& decimalMark,
                           const std::function<void(FakeSimulatorBus&)>& prepare,
                           SoundDevice* player)
    : TestServer(player) {
  regional.mark = decimalMark;
  prepare(bus);
  start();
}

void PolledServer::takeOver(IndependentRecord& independent) const {
  independent.FsVersionCode = store.FsVersionCode;
  independent.sDecimal = store.sDecimal;
  takeOverAutopilot(independent, server);
  takeOverAfds(independent, *server.autoflight.afds);
  takeOverAnnunciators(independent, server.autoflight.annunciators);
  auto& n = independent.numbers;
  n["FdActive"] = store.FdActive;
  n["FdPitch"] = store.FdPitch;
  n["FdBank"] = store.FdBank;
  n["ClientValueC"] = store.ClientValueC;
  takeOverElements(independent, "RadioValues", store.RadioValues, 10, 12);
  takeOverElements(independent, "StateValues", store.StateValues, 16, 16);
  takeOverElements(independent, "StateValues", store.StateValues, 20, 21);
  takeOverElements(independent, "StandbyValues", store.StandbyValues);
  takeOverElements(independent, "SwitchPair", store.SwitchPair);
  takeOverElements(independent, "PanelWord", store.PanelWord);
  takeOverElements(independent, "FuelBurnt", store.FuelBurnt);
  for (int engine = 1; engine <= 4; ++engine) {
    const std::string name = "Engines(" + std::to_string(engine) + ").";
    n[name + "N1Target"] = store.Engines(engine).N1Target;
    n[name + "ClientValueB"] = store.Engines(engine).ClientValueB;
  }
}

std::string PolledServer::firstDifference(IndependentRecord& independent) {
  poll();
  independent.poll(bus.offsets);
  const auto expected = independent.tokens();
  const auto actual = fields();
  for (std::size_t at = 0; at < std::min(expected.size(), actual.size()); ++at)
    if (expected[at].text != actual[at])
      return expected[at].name + ": expected \"" + expected[at].text + "\", in the record \"" +
             actual[at] + "\"";
  if (expected.size() != actual.size())
    return "number of tokens: expected " + std::to_string(expected.size()) + ", in the record " +
           std::to_string(actual.size());
  return "";
}

}  // namespace vorlent
