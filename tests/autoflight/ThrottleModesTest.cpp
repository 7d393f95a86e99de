#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class ThrottleModes : public AutoflightTest {
 protected:
  void arm() { at().apAutoThrottle(1); }
};

TEST_F(ThrottleModes, AutothrottleShowsArm) {
  expectPress("on", {}, [&] { arm(); }, "apAutoThrottle AT=ARM", {"lamp 9=1"});
  expectPress(
      "off", [&] { arm(); }, [&] { at().apAutoThrottle(0); }, "", {"lamp 9=0"});
}

TEST_F(ThrottleModes, AutothrottleAppliesTheSpeedModeAnew) {
  expectPress(
      "speed", [&] { at().apAirspeedHoldByRpm(1); }, [&] { arm(); },
      "apAutoThrottle apAirspeedHoldByRpm AT=MCP_SPD", {"lamp 14=0", "lamp 14=1", "lamp 9=1"});
  expectPress(
      "Mach", [&] { at().apMachNumberHoldByRpm(1); }, [&] { arm(); },
      "apAutoThrottle apMachNumberHoldByRpm AT=ARM", {"lamp 15=1", "lamp 9=1"});
}

TEST_F(ThrottleModes, AutothrottleThatAppliesTheSpeedModeDropsMach) {
  const Act both = [&] {
    at().apAirspeedHoldByRpm(1);
    at().apMachNumberHoldByRpm(1);
  };
  expectPress("both", both, [&] { arm(); }, "apAutoThrottle apAirspeedHoldByRpm AT=MCP_SPD",
              {"lamp 14=0", "lamp 15=0", "lamp 14=1", "lamp 9=1"});
}

TEST_F(ThrottleModes, AutothrottleOffKeepsTheModes) {
  const Act n1 = [&] {
    arm();
    at().apRpmHold(1);
  };
  expectPress("N1", n1, [&] { at().apAutoThrottle(0); }, "apRpmHold", {"lamp 9=0"});
}

TEST_F(ThrottleModes, AutothrottleAtAnotherNumberThanOneIsStoredAndNotArmed) {
  const Act speed = [&] { at().apAirspeedHoldByRpm(1); };
  expectPress("2", speed, [&] { at().apAutoThrottle(2); }, "apAutoThrottle:2 apAirspeedHoldByRpm",
              {"lamp 14=0", "lamp 14=1", "lamp 9=2"});
  expectPress(
      "N1 at 2", [&] { at().apAutoThrottle(2); }, [&] { at().apRpmHold(1); },
      "apAutoThrottle:2 apRpmHold", {"lamp 22=1"});
}

TEST_F(ThrottleModes, MachIsStoredAndLit) {
  expectPress("on", {}, [&] { at().apMachNumberHoldByRpm(1); }, "apMachNumberHoldByRpm",
              {"lamp 15=1"});
  expectPress(
      "off", [&] { at().apMachNumberHoldByRpm(1); }, [&] { at().apMachNumberHoldByRpm(0); }, "",
      {"lamp 15=0"});
}

TEST_F(ThrottleModes, ModeIsAnnunciatedOnlyWhileArmed) {
  struct Row {
    const char* name;
    void (clsXAutoT::*set)(std::int16_t);
    std::string on;
    Texts onWrites;
    Texts offWrites;
  };
  const Row rows[] = {
      {"hold", &clsXAutoT::apThrottleHold, "apThrottleHold AT=THR_HLD", {}, {}},
      {"speed",
       &clsXAutoT::apAirspeedHoldByRpm,
       "apAirspeedHoldByRpm AT=MCP_SPD",
       {"lamp 14=1"},
       {"lamp 14=0"}},
      {"N1", &clsXAutoT::apRpmHold, "apRpmHold AT=N1", {"lamp 22=1"}, {"lamp 22=0"}},
  };
  for (const Row& row : rows) {
    const Act on = [&] { (at().*row.set)(1); };
    const Act off = [&] { (at().*row.set)(0); };
    const Act armedAndOn = [&] {
      arm();
      on();
    };
    const std::string unarmed = row.on.substr(0, row.on.find(' '));
    expectPress(std::string(row.name) + " unarmed", {}, on, unarmed, row.onWrites);
    expectPress(
        row.name, [&] { arm(); }, on, "apAutoThrottle " + row.on, row.onWrites);
    expectPress(std::string(row.name) + " off", armedAndOn, off, "apAutoThrottle AT=ARM",
                row.offWrites);
    expectPress(std::string(row.name) + " off unarmed", on, off, "", row.offWrites);
  }
}

TEST_F(ThrottleModes, SpeedShowsFmcWithVnav) {
  const auto vnav = [&](bool armed) {
    return [this, armed] {
      if (armed) arm();
      afds().fmc.MaxWaypointId = 1;
      afds().VNAV(1);
    };
  };
  const Act speed = [&] { at().apAirspeedHoldByRpm(1); };
  expectPress("armed", vnav(true), speed,
              "VNAV apAutoThrottle apAirspeedHoldByRpm AT=FMC_SPD pitch=VNAV_SPD", {"lamp 14=1"});
  expectPress("unarmed", vnav(false), speed, "VNAV apAirspeedHoldByRpm pitch=VNAV_SPD",
              {"lamp 14=1"});
  expectPress("off", vnav(true), [&] { at().apAirspeedHoldByRpm(0); },
              "VNAV apAutoThrottle AT=ARM pitch=VNAV_SPD", {"lamp 14=0"});
}

TEST_F(ThrottleModes, RetardIsAnnunciatedArmedOrNot) {
  expectPress("on", {}, [&] { at().apRetard(1); }, "apRetard AT=RETARD", {});
  expectPress(
      "off", [&] { at().apRetard(1); }, [&] { at().apRetard(0); }, "AT=ARM", {});
}

TEST_F(ThrottleModes, EachThrottleModeDropsTheOthers) {
  struct Row {
    const char* name;
    void (clsXAutoT::*set)(std::int16_t);
    std::string on;
    Texts writes;
  };
  const Row rows[] = {
      {"hold", &clsXAutoT::apThrottleHold, "apThrottleHold AT=THR_HLD", {}},
      {"speed", &clsXAutoT::apAirspeedHoldByRpm, "apAirspeedHoldByRpm AT=MCP_SPD", {"lamp 14=1"}},
      {"retard", &clsXAutoT::apRetard, "apRetard AT=RETARD", {}},
      {"N1", &clsXAutoT::apRpmHold, "apRpmHold AT=N1", {"lamp 22=1"}},
  };
  const std::pair<void (clsXAutoT::*)(std::int16_t), Texts> befores[] = {
      {&clsXAutoT::apThrottleHold, {}},
      {&clsXAutoT::apAirspeedHoldByRpm, {"lamp 14=0"}},
      {&clsXAutoT::apMachNumberHoldByRpm, {"lamp 15=0"}},
      {&clsXAutoT::apRetard, {}},
      {&clsXAutoT::apRpmHold, {"lamp 22=0"}},
  };
  for (const Row& row : rows)
    for (const auto& [before, dropped] : befores) {
      Texts writes = dropped;
      writes.insert(writes.end(), row.writes.begin(), row.writes.end());
      const Act armedWith = [this, before = before] {
        arm();
        (at().*before)(1);
      };
      expectPress(
          row.name, armedWith, [&] { (at().*row.set)(1); }, "apAutoThrottle " + row.on, writes);
    }
}

TEST_F(ThrottleModes, KillingThemSwitchesTheSimulatorsOwnSpeedAndBackCourseOff) {
  const auto sim = [&](std::int16_t speed, std::int16_t backCourse) {
    return [=, this] {
      store().ApSpeedHoldSim = speed;
      store().ApBcHoldSim = backCourse;
    };
  };
  const Act kill = [&] { at().KillThrottleModes(); };
  expectPress("neither", sim(0, 0), kill, "", {});
  expectPress("speed", sim(1, 0), kill, "", {"7DC=0"});
  expectPress("back course", sim(0, 1), kill, "", {"804=0"});
  expectPress("both", sim(1, 1), kill, "", {"7DC=0", "804=0"});
}

TEST_F(ThrottleModes, N1StartsItsRampWhereTheLeverSettles) {
  engine(1).ThrustLever = 50;
  at().apRpmHold(1);
  // -0.00198213 x 2500 + 0.9820824 x 50 + 23.03027
  EXPECT_FLOAT_EQ(at().RpmRamp(), 67.179065F);
}

TEST_F(ThrottleModes, ChangeoverTakesThePresentMachAsTheTarget) {
  store().Mach = 0.74F;
  expectPress(
      "on", [&] { store().Mach = 0.74F; }, [&] { at().apChangeover(1); }, "apChangeover",
      {"lamp 8=1"});
  EXPECT_EQ(ap().ApMachNumber(), 0.74F);
  EXPECT_EQ(at().ApMachNumber(), 0.74F);
  store().Mach = 0.5F;
  at().apChangeover(0);
  EXPECT_EQ(ap().ApMachNumber(), 0.5F);
  EXPECT_EQ(written(), Texts{"lamp 8=0"});
}

TEST_F(ThrottleModes, TargetsAreStoredOnly) {
  at().apRpm(88);
  at().apAirSpeed(250);
  at().ApMachNumber(0.78F);
  at().apThrottleControlFactor(0.05F);
  EXPECT_EQ(at().apRpm(), 88);
  EXPECT_EQ(at().apAirSpeed(), 250);
  EXPECT_EQ(at().ApMachNumber(), 0.78F);
  EXPECT_EQ(at().apThrottleControlFactor(), 0.05F);
  EXPECT_EQ(state(), "");
  EXPECT_EQ(written(), Texts{});
}

}  // namespace
}  // namespace vorlent
