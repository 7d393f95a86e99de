#include "clientlink/DataRecord.h"

#include <initializer_list>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/text.h"
#include "clientlink/RecordText.h"
#include "store/commandArrays.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

void appendHeader(RecordText& r, const modPublic& v) { r.I(v.EngineCount).I(v.EngineType); }

void appendPosition(RecordText& r, const modPublic& v) {
  r.F(v.Latitude).F(v.Longitude).D(v.AircraftAltitude).I(v.RadioAltitude).F(v.MagVar).I(v.OnGround);
}

void appendAttitude(RecordText& r, const modPublic& v) {
  r.F(v.Pitch).F(v.Bank).F(v.MagHeading).F(v.TurnCoordinatorBall);
}

void appendSpeeds(RecordText& r, const modPublic& v) {
  r.I(v.GroundSpeed).I(v.Tas).F(v.Ias).F(v.BarberPole).F(v.VerticalSpeed).F(v.TurnRate);
}

void appendNavigation(RecordText& r, const modPublic& v) {
  const NavRadio& nav1 = v.NavRadios(1);
  const NavRadio& nav2 = v.NavRadios(2);
  r.I(nav1.GsFlag).I(nav1.ToFrom).I(nav1.LocNeedle).I(nav1.Radial).I(nav1.GsNeedle);
  r.F(nav1.IlsHeading - v.MagVar);
  r.I(nav2.BackCourse).I(nav2.ToFrom).I(nav2.LocNeedle).I(nav2.Radial);
  r.I(nav1.OuterMarker).I(nav1.MiddleMarker).I(nav1.InnerMarker);
  r.F(nav1.DmeDistance).F(nav1.DmeSpeed).F(nav2.DmeDistance).F(nav2.DmeSpeed);
  r.F(v.Adf1Bearing);
}

void appendFuel(RecordText& r, const modPublic& v) {
  for (const int tank :
       {Tank::LeftAux, Tank::RightAux, Tank::LeftMain, Tank::RightMain, Tank::Centre})
    r.F(v.FuelTanks(tank).Level);
  r.F(v.FuelTotalLb).F(v.FuelLbPerGallon);
}

void appendRadios(RecordText& r, const modPublic& v) {
  for (int element = Radio::Com1; element <= Radio::Rose; ++element) r.F(v.RadioValues(element));
  if (v.FsVersionCode < modPublic::MinFsVersion) {
    for (int element = 1; element <= 5; ++element) r.F(v.StandbyValues(element));
  } else {
    for (int element = Radio::Com1Standby; element <= Radio::Nav2Standby; ++element)
      r.F(v.RadioValues(element));
    r.F(v.StandbyValues(5));
  }
  r.T(v.Vor1Id).T(v.Vor2Id).T(v.Adf1Id);
}

void appendControls(RecordText& r, const modPublic& v) {
  r.I(v.ElevatorInput).I(v.AileronInput).D(v.ElevatorTrimDeg).I(v.RudderInput).D(v.AileronTrimDeg);
  for (int element = ControlItem::Flaps; element <= ControlItem::TotalAirTempSlow; ++element)
    r.F(v.StateValues(element));
}

void appendWind(RecordText& r, const modPublic& v) {
  r.F(v.WindDirection).F(v.WindSpeedKt).I(v.Word0EEE);
}

/// Bit 1 first.
int bitSet(std::initializer_list<std::int16_t> flags) {
  int sum = 0;
  int bitValue = 1;
  for (const std::int16_t flag : flags) {
    sum += flag * bitValue;
    bitValue *= 2;
  }
  return sum;
}

void appendAutopilot(RecordText& r, const modPublic& v, const Autoflight& autoflight) {
  const clsXAutoP& ap = *autoflight.xAutoP;
  const clsXAutoT& at = *autoflight.xAutoT;
  r.I(bitSet({ap.apAirspeedHoldByPitch(), ap.apAltitudeHold(), ap.apGlideslopeHold(),
              ap.apAttitudeHold(), ap.apBackCourseHold(), ap.apHeadingHold(), ap.apLocalizerHold(),
              at.apAirspeedHoldByRpm()}));
  r.I(bitSet({ap.apMaster(), ap.apCmdLeft(), ap.apCwsLeft(), ap.apCmdRight(), ap.apNav1Hold(),
              ap.apVSpeedHold(), at.apRpmHold(), ap.apCwsRight()}));
  r.I(bitSet({at.apAutoThrottle(), ap.apToGa(), v.AutoCoordination, at.apChangeover(),
              autoflight.afds->LNAV(), autoflight.afds->VNAV(), ap.apLevelChange(),
              ap.apApproachHold()}));
  r.F(ap.apMcpAltitude()).F(v.ApHeadingSim).F(ap.apCourse()).F(ap.ApMachNumber());
  r.F(ap.apMcpAirSpeed()).F(ap.apVertSpeed()).F(at.apRpm()).F(v.Mach);
}

void appendTimeAndDirector(RecordText& r, const modPublic& v) {
  r.T(v.LocalTimeText).F(v.ZuluTime);
  r.I(v.FdActive).F(v.FdPitch).F(v.FdBank);
  r.I(v.GrossWeight).F(v.Word0C3EDeg).F(v.Double0B18).F(v.StateValues(ControlItem::DisplayValue));
  r.T("0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
}

void appendAnnunciators(RecordText& r, const Annunciators& shown) {
  r.T(shown.ATEngagedMode).T(shown.RollEngagedMode).T(shown.PitchEngagedMode);
  r.T(shown.RollArmedMode).T(shown.PitchArmedMode);
  r.T(shown.CwsRollEngagedMode).T(shown.CwsPitchEngagedMode).T(shown.AutopilotMode);
}

void appendFmc(RecordText& r, const Autoflight& autoflight) {
  const FmcData& fmc = autoflight.afds->fmc;
  r.I(fmc.LnavCriteria).F(fmc.AfdsValueA).F(fmc.AfdsValueB).I(fmc.MessageId);
  r.I(fmc.PhaseOfFlightEnum).F(fmc.DxToNextWaypoint).F(fmc.CrsToNextWaypoint);
  appendAnnunciators(r, autoflight.annunciators);
  r.I(fmc.Minimums).T(trimmed(fmc.ActiveWpt));
}

void appendElectrical(RecordText& r, const modPublic& v) {
  r.F(v.Electrical(3)).F(v.Electrical(1)).F(v.Electrical(2));
  for (int element = 4; element <= 11; ++element) r.F(v.Electrical(element));
}

void appendAdf2AndMasters(RecordText& r, const modPublic& v) {
  r.F(v.Adf2Freq).F(v.Adf2Bearing).T(v.Adf2Id).I(v.NavGpsSwitch).I(v.Byte3BFB);
  r.I(v.MasterBattery).I(v.AvionicsMaster).I(v.Long2E88).I(v.Long2EC8).F(v.ClientValueC);
}

void appendEngine(RecordText& r, const Engine& engine) {
  r.F(engine.Epr).F(engine.N1).F(engine.N2).F(engine.Word08C0);
  r.F(engine.OilPressure).F(engine.OilTemp).F(engine.Egt).D(engine.FuelFlow).D(engine.Cht);
  r.I(engine.Itt).F(engine.PropValue).F(engine.Torque).I(engine.OilQuantity).F(engine.Vibration);
  r.F(engine.HydPressure).I(engine.HydQuantity).F(engine.Word08F8).I(engine.AntiIce);
  r.I(engine.Starter).F(engine.ThrustLever).F(engine.FuelUsedLb);
  r.F(engine.Word0908).I(engine.Mixture).F(engine.GeneratorA).F(engine.GeneratorB);
  r.ready("0 0 0 0 0 0 0 ");
  r.F(engine.N1Target).F(engine.ClientValueB);
}

}  // namespace

int engineBlocks(int engineCount) { return engineCount >= 1 && engineCount <= 4 ? engineCount : 4; }

void buildDataRecord(modPublic& v, const Autoflight& autoflight, int blocks) {
  v.DataRecord = "Data ";
  RecordText r(v.DataRecord, v.Sep, v.sDecimal);
  appendHeader(r, v);
  appendPosition(r, v);
  appendAttitude(r, v);
  appendSpeeds(r, v);
  appendNavigation(r, v);
  appendFuel(r, v);
  for (int n = 1; n <= blocks; ++n) appendEngine(r, v.Engines(n));
  appendRadios(r, v);
  appendControls(r, v);
  r.I(v.SwitchPair(1)).I(v.SwitchPair(2));
  appendWind(r, v);
  appendAutopilot(r, v, autoflight);
  r.I(v.FlapsPosition).I(v.FlapsPositionRight);
  r.I(v.GearNose).I(v.GearLeft).I(v.GearRight);
  r.F(v.StateValues(ControlItem::DisplayEvent));
  appendTimeAndDirector(r, v);
  appendFmc(r, autoflight);
  for (int word = 1; word <= 14; ++word) r.I(v.PanelWord(word));
  appendAdf2AndMasters(r, v);
  appendElectrical(r, v);
  r.ready(v.FailureText);
  r.I(v.FlapIncrement).T("end");
}

}  // namespace vorlent
