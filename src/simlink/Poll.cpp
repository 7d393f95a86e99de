#include "simlink/Poll.h"

#include <algorithm>
#include <bit>
#include <string>

#include "platform/EventLoop.h"
#include "simlink/clsFSUIPC.h"
#include "simlink/decode.h"
#include "simlink/decodeXPlane.h"
#include "simlink/statements.h"
#include "store/commandArrays.h"
#include "store/modPublic.h"

namespace vorlent {

void Poll::PollFS() {
  fetch();
  decodeAll(snapshot_);
}

void Poll::decodeAll(const Snapshot& snapshot) {
  modPublic& v = store_;
  decode(familiesBeforeEngines(), snapshot, v);
  decodeEngines(snapshot);
  decode(familiesAfterEngines(), snapshot, v);
  decodeApHeading(snapshot);
  buildArrays();
}

void Poll::PollXPlane() {
  fetchXPlane();
  decodeAllXPlane(snapshot_);
}

void Poll::decodeAllXPlane(const Snapshot& snapshot) {
  decodeXPlane(snapshot, store_);
  decodeApHeading(snapshot);
  const LocalTime now = clock_.localTime();
  store_.LocalTimeText = std::to_string(now.hour) + " " + std::to_string(now.minute) + " " +
                         std::to_string(now.second);
  weighFuelUsed();
  buildArrays();
}

void Poll::fetch() {
  int result = clsFSUIPC::Okay;
  const bool fetched = link_.PeekAll(snapshot_, result);
  endAtSecondFailure(!fetched, result);
}

void Poll::fetchXPlane() {
  int result = clsFSUIPC::Okay;
  if (!link_.QueueSnapshot(xplaneReads(), snapshot_, result)) return;
  const bool fetched = link_.ProcessSnapshot(snapshot_, result);
  endAtSecondFailure(!fetched, result);
}

void Poll::endAtSecondFailure(bool failed, int result) {
  if (failed && lastFetchFailed_) link_.endByProcessError(result);
  lastFetchFailed_ = failed;
}

void Poll::decodeApHeading(const Snapshot& snapshot) {
  attempt([&] {
    set(store_.ApHeadingSim, quotient(snapshot.apHeadingWord(), double{link_.Factor_APHeading()}));
  });
}

void Poll::buildArrays() {
  buildRadioValues();
  buildStateValues();
  buildApValues();
}

/// With the weight that this poll has read: the record's blocks are made last.
void Poll::weighFuelUsed() {
  for (int n = 1; n <= enginesOfXPlane(); ++n)
    attempt([&] {
      set(store_.Engines(n).FuelUsedLb, double{store_.FuelLbPerGallon} * store_.FuelBurnt(n));
    });
}

int Poll::enginesOfXPlane() const { return std::min<int>(store_.EngineCount, 4); }

/// Stops behind the block whose number is the engine count; a count that is no number of an engine
/// gives all four.
void Poll::decodeEngines(const Snapshot& snapshot) {
  for (int n = 1; n <= 4; ++n) {
    decodeEngine(n, snapshot, store_);
    if (n == store_.EngineCount) return;
  }
}

void Poll::buildRadioValues() {
  modPublic& v = store_;
  auto& radio = v.RadioValues;
  radio(Radio::Adf2) = v.Adf2Freq;
  radio(Radio::Com1) = v.Com1Freq;
  radio(Radio::Nav1) = v.Nav1Freq;
  radio(Radio::Nav2) = v.Nav2Freq;
  radio(Radio::Adf1) = v.Adf1Freq;
  radio(Radio::Transponder) = v.TransponderCode;
  radio(Radio::Obs1) = v.NavRadios(1).Obs;
  radio(Radio::Obs2) = v.NavRadios(2).Obs;
  radio(Radio::Com2) = v.Com2Freq;
  radio(Radio::Dme) = v.Word378;
  radio(Radio::Com1Standby) = v.Com1Standby;
  radio(Radio::Com2Standby) = v.Com2Standby;
  radio(Radio::Nav1Standby) = v.Nav1Standby;
  radio(Radio::Nav2Standby) = v.Nav2Standby;
}

/// With no engine burning there is no engine to take the starter and the anti-ice from: those two
/// keep what they hold.
void Poll::buildStateValues() {
  modPublic& v = store_;
  auto& state = v.StateValues;
  const int burning = std::popcount(static_cast<unsigned>(v.EngineCombustionBits) & 0xFU);
  state(ControlItem::Flaps) = v.FlapsControl;
  state(ControlItem::Spoilers) = v.SpoilersControl;
  attempt([&] { state(ControlItem::Magneto) = v.Engines(burning).Starter; });
  state(ControlItem::BurningEngines) = static_cast<float>(burning);
  state(ControlItem::LandingLights) = v.LandingLights;
  state(ControlItem::Strobes) = v.LightsByte2;
  state(ControlItem::Gear) = v.GearControl;
  state(ControlItem::Tank) = v.FuelSelector;
  state(ControlItem::ParkingBrake) = v.ParkingBrake != 0 ? 1 : 0;
  state(ControlItem::PitotHeat) = v.PitotHeat;
  attempt([&] { state(ControlItem::StartLever) = v.Engines(burning).AntiIce; });
  state(ControlItem::TotalAirTemp) = v.TotalAirTemp;
  set(state(ControlItem::ElevatorTrim), v.ElevatorTrimInput);
  state(ControlItem::Barometer) = v.AltimeterQnh;
  state(ControlItem::AmbientQnh) = v.AmbientQnh;
  state(ControlItem::NavLights) = v.LightsByte1;
  state(ControlItem::OutsideAirTemp) = v.OutsideAirTemp;
  state(ControlItem::TotalAirTempSlow) = v.TotalAirTempSlow;
}

void Poll::buildApValues() {
  modPublic& v = store_;
  auto& ap = v.ApValues;
  ap(Mcp::AirspeedHold) = v.ApSpeedHoldSim;
  ap(Mcp::AltitudeHold) = v.ApAltHoldSim;
  ap(Mcp::GlideslopeHold) = v.ApGsHoldSim;
  ap(Mcp::AttitudeHold) = v.ApAttitudeHoldSim;
  ap(Mcp::BackCourseHold) = v.ApBcHoldSim;
  ap(Mcp::HeadingHold) = v.ApHeadingHoldSim;
  ap(Mcp::LocalizerHold) = v.ApApproachHoldSim;
  ap(Mcp::MachHold) = v.ApMachHoldSim;
  ap(Mcp::Master) = v.ApMasterSim;
  ap(Mcp::Nav1Hold) = v.ApNavHoldSim;
  ap(Mcp::WingLeveller) = v.ApWingLevelerSim;
  ap(Mcp::AutoThrottle) = v.AutoThrottleArmSim;
  ap(Mcp::ToGa) = v.ToGaSim;
  set(ap(Mcp::Altitude), v.ApAltitudeSim);
  ap(Mcp::Heading) = v.ApHeadingSim;
  ap(Mcp::Mach) = v.ApMachSim;
  ap(Mcp::AirSpeed) = v.ApIasSim;
  set(ap(Mcp::VertSpeed), v.ApVsSim);
  ap(Mcp::YawDamper) = v.YawDamperSim;
}

}  // namespace vorlent
