#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "flightplan/sphere.h"
#include "simlink/LinkTest.h"
#include "support/lamps.h"

namespace vorlent {

/// An autopilot in an open link to a twin, pitched up by 2 degrees, with lamp n mirrored to
/// LampBase + n.
class AutoflightTest : public LinkTest {
 protected:
  using Act = std::function<void()>;
  using Texts = std::vector<std::string>;

  static constexpr std::uint32_t LampBase = 0x6600;

  void SetUp() override {
    initLink();
    renew();
  }

  /// Everything as it is when nothing has been pressed.
  void renew() {
    t.server.accessors.autoP = std::make_unique<clsAutoP>(*t.server.fsuipc, true);
    t.server.autoflight.make();
    mirrorLamps(*t.server.accessors.autoP, LampBase);
    t.store = modPublic{};
    t.store.IsMaster = true;
    t.store.EngineCount = 2;
    t.store.Pitch = 2;
    ap().apBankLimit(30);
    ap().apRollControlFactor(0.5F);
    bus.writes.clear();
  }

  /// A plan of two legs, north-east and then south-east from 50 N 10 E, with a profile alike.
  void givePlan() {
    using sphere::waypoint;
    auto& rows = afds().plan.FlightPlan;
    rows = {waypoint("FROM ", 50, 10), waypoint("TO   ", 50.5, 10.5), waypoint("NEXT ", 50, 11)};
    sphere::connect(rows[0], rows[1]);
    sphere::connect(rows[1], rows[2]);
    afds().plan.ProfilePlan = rows;
    setLastRows(2, 2);
  }
  void setLastRows(int exec, int prof) {
    afds().plan.MaxWaypointId = afds().fmc.MaxWaypointId = static_cast<std::int16_t>(exec);
    afds().plan.ProfileMaxId = static_cast<std::int16_t>(prof);
  }

  clsXAutoP& ap() { return *t.server.autoflight.xAutoP; }
  clsXAutoT& at() { return *t.server.autoflight.xAutoT; }
  clsAfds& afds() { return *t.server.autoflight.afds; }
  Annunciators& shown() { return t.server.autoflight.annunciators; }
  modPublic& store() { return t.store; }
  Engine& engine(int n) { return t.store.Engines(n); }
  NavRadio& nav1() { return t.store.NavRadios(1); }

  /// Writes since the last call, a text each: "lamp 17=1", "2EB0=-0.00349", integers unsigned.
  Texts written() {
    Texts texts;
    for (const FakeSimulatorBus::Write& write : std::exchange(bus.writes, {}))
      texts.push_back(placeOf(write.offset) + "=" + valueOf(write.bytes));
    return texts;
  }

  /// All modes that are on and all annunciators that are not as they are before the first press.
  std::string state() {
    std::string text;
    const auto add = [&text](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
    for (const auto& [name, value] : modes())
      if (value != 0) add(value == 1 ? name : name + ":" + std::to_string(value));
    if (ap().PitchModeActive() != 0) add("PitchModeActive");
    if (ap().RollModeActive() != 0) add("RollModeActive");
    for (const auto& [name, value] : annunciators())
      if (value != "_") add(name + value);
    if (shown().AutopilotMode != "FD") add("[" + shown().AutopilotMode + "]");
    return text;
  }

  /// A press on a fresh panel: what stands at the end and what went to the simulator on the way.
  void expectPress(const std::string& what, const Act& before, const Act& press,
                   const std::string& stateAfter, const Texts& writes) {
    SCOPED_TRACE(what);
    renew();
    if (before) before();
    bus.writes.clear();
    press();
    EXPECT_EQ(state(), stateAfter);
    EXPECT_EQ(written(), writes);
  }

  /// Engaged, with a mode of its own in each channel and nothing left of how it came there.
  void engageWithHeadingAndAltitude() {
    ap().ApEngaged(1);
    ap().apHeadingHold(1);
    ap().apAltitudeHold(1);
  }

  /// Sets the pacing counter, runs a cycle, and gives what the counter stands at afterwards.
  int relayAfterCycleAt(int relay) {
    afds().ResetRelay(relay);
    afds().AFDS();
    return afds().Relay();
  }

 private:
  static std::string placeOf(std::uint32_t offset) {
    if (offset > LampBase && offset <= LampBase + LampOffsets.size())
      return "lamp " + std::to_string(offset - LampBase);
    return hexText(offset);
  }

  static std::string valueOf(const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() == 8) return doubleText(load<double>(bytes.data()));
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) value = value * 256 + bytes[i];
    return std::to_string(value);
  }

  std::vector<std::pair<std::string, int>> modes() {
    const clsXAutoP& p = ap();
    const clsXAutoT& a = at();
    return {
        {"apMaster", p.apMaster()},
        {"ApEngaged", p.ApEngaged()},
        {"apCmdLeft", p.apCmdLeft()},
        {"apCmdCenter", p.apCmdCenter()},
        {"apCmdRight", p.apCmdRight()},
        {"apCwsLeft", p.apCwsLeft()},
        {"apCwsRight", p.apCwsRight()},
        {"apCwsRollMode", p.apCwsRollMode()},
        {"apCwsPitchMode", p.apCwsPitchMode()},
        {"apToGa", p.apToGa()},
        {"LNAV", afds().LNAV()},
        {"apNav1Hold", p.apNav1Hold()},
        {"apWaypointHold", p.apWaypointHold()},
        {"apHeadingHold", p.apHeadingHold()},
        {"apLocalizerHold", p.apLocalizerHold()},
        {"apLocalizerCapture", p.apLocalizerCapture()},
        {"apApproachHold", p.apApproachHold()},
        {"apBackCourseHold", p.apBackCourseHold()},
        {"apYawDamper", p.apYawDamper()},
        {"VNAV", afds().VNAV()},
        {"apAltitudeHold", p.apAltitudeHold()},
        {"apAttitudeHold", p.apAttitudeHold()},
        {"apAirspeedHoldByPitch", p.apAirspeedHoldByPitch()},
        {"apVSpeedHold", p.apVSpeedHold()},
        {"apGlideslopeHold", p.apGlideslopeHold()},
        {"apGsCapture", p.apGsCapture()},
        {"apLevelChange", p.apLevelChange()},
        {"apAltAcquire", p.apAltAcquire()},
        {"apAutoThrottle", a.apAutoThrottle()},
        {"apMachNumberHoldByRpm", a.apMachNumberHoldByRpm()},
        {"apThrottleHold", a.apThrottleHold()},
        {"apAirspeedHoldByRpm", a.apAirspeedHoldByRpm()},
        {"apChangeover", a.apChangeover()},
        {"apRetard", a.apRetard()},
        {"apRpmHold", a.apRpmHold()},
    };
  }

  std::vector<std::pair<std::string, std::string>> annunciators() {
    const Annunciators& a = shown();
    return {
        {"AT=", a.ATEngagedMode},           {"roll=", a.RollEngagedMode},
        {"armed roll=", a.RollArmedMode},   {"pitch=", a.PitchEngagedMode},
        {"armed pitch=", a.PitchArmedMode}, {"", a.CwsRollEngagedMode},
        {"", a.CwsPitchEngagedMode},
    };
  }
};

}  // namespace vorlent
