#include "simlink/Poll.h"

#include <bit>

#include "clientlink/DataRecord.h"
#include "core/Server.h"
#include "extras/SoundEvents.h"
#include "simlink/clsFSUIPC.h"
#include "simlink/decode.h"
#include "simlink/statements.h"

namespace vorlent {

void Poll::PollFS() {
  fetch();
  decodeAndRecord(snapshot_);
  server_.soundEvents->PollStep();
}

void Poll::decodeAndRecord(const Snapshot& snapshot) {
  modPublic& v = server_.store;
  engineText_.clear();
  decode(familiesBeforeEngines(), snapshot, v);
  decodeEngines(snapshot);
  decode(familiesAfterEngines(), snapshot, v);
  attempt([&] {
    set(v.ApHeadingSim,
        quotient(snapshot.apHeadingWord(), double{server_.fsuipc->Factor_APHeading()}));
  });
  buildRadioValues();
  buildStateValues();
  buildApValues();
  buildDataRecord(server_, engineText_);
}

void Poll::fetch() {
  int result = clsFSUIPC::Okay;
  const bool failed = !server_.fsuipc->PeekAll(snapshot_, result);
  if (failed && lastFetchFailed_) server_.fsuipc->endByProcessError(result);
  lastFetchFailed_ = failed;
}

/// Stops behind the block whose number is the engine count; a count that is no number of an engine
/// gives all four.
void Poll::decodeEngines(const Snapshot& snapshot) {
  for (int n = 1; n <= 4; ++n) {
    decodeEngine(n, snapshot, server_.store);
    appendEngineBlock(server_.store, n, engineText_);
    if (n == server_.store.EngineCount) return;
  }
}

void Poll::buildRadioValues() {
  modPublic& v = server_.store;
  auto& radio = v.RadioValues;
  radio(0) = v.Adf2Freq;
  radio(1) = v.Com1Freq;
  radio(2) = v.Nav1Freq;
  radio(3) = v.Nav2Freq;
  radio(4) = v.Adf1Freq;
  radio(5) = v.TransponderCode;
  radio(6) = v.NavRadios(1).Obs;
  radio(7) = v.NavRadios(2).Obs;
  radio(8) = v.Com2Freq;
  radio(9) = v.Word378;
  radio(13) = v.Com1Standby;
  radio(14) = v.Com2Standby;
  radio(15) = v.Nav1Standby;
  radio(16) = v.Nav2Standby;
}

/// With no engine burning there is no engine to take the starter and the anti-ice from: those two
/// keep what they hold.
void Poll::buildStateValues() {
  modPublic& v = server_.store;
  auto& state = v.StateValues;
  const int burning = std::popcount(static_cast<unsigned>(v.EngineCombustionBits) & 0xFU);
  state(1) = v.FlapsControl;
  state(2) = v.SpoilersControl;
  attempt([&] { state(3) = v.Engines(burning).Starter; });
  state(4) = static_cast<float>(burning);
  state(5) = v.LandingLights;
  state(6) = v.LightsByte2;
  state(7) = v.GearControl;
  state(8) = v.FuelSelector;
  state(9) = v.ParkingBrake != 0 ? 1 : 0;
  state(10) = v.PitotHeat;
  attempt([&] { state(11) = v.Engines(burning).AntiIce; });
  state(12) = v.TotalAirTemp;
  set(state(13), v.ElevatorTrimInput);
  state(14) = v.AltimeterQnh;
  state(15) = v.AmbientQnh;
  state(17) = v.LightsByte1;
  state(18) = v.OutsideAirTemp;
  state(19) = v.TotalAirTempSlow;
}

void Poll::buildApValues() {
  modPublic& v = server_.store;
  auto& ap = v.ApValues;
  ap(1) = v.ApSpeedHoldSim;
  ap(2) = v.ApAltHoldSim;
  ap(3) = v.ApGsHoldSim;
  ap(4) = v.ApAttitudeHoldSim;
  ap(5) = v.ApBcHoldSim;
  ap(6) = v.ApHeadingHoldSim;
  ap(7) = v.ApApproachHoldSim;
  ap(8) = v.ApMachHoldSim;
  ap(9) = v.ApMasterSim;
  ap(10) = v.ApNavHoldSim;
  ap(11) = v.ApWingLevelerSim;
  ap(12) = v.AutoThrottleArmSim;
  ap(13) = v.ToGaSim;
  set(ap(14), v.ApAltitudeSim);
  ap(15) = v.ApHeadingSim;
  ap(16) = v.ApMachSim;
  ap(17) = v.ApIasSim;
  set(ap(18), v.ApVsSim);
  ap(19) = v.YawDamperSim;
}

}  // namespace vorlent
