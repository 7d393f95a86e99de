#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class Engagement : public AutoflightTest {};

TEST_F(Engagement, MasterIsStoredAndLit) {
  expectPress("on", {}, [&] { ap().apMaster(1); }, "apMaster", {"lamp 11=1"});
  expectPress(
      "off", [&] { ap().apMaster(1); }, [&] { ap().apMaster(0); }, "", {"lamp 11=0"});
}

TEST_F(Engagement, CommandSideShowsCmdAndItsLamp) {
  expectPress("left", {}, [&] { ap().apCmdLeft(1); }, "apCmdLeft [CMD]", {"lamp 4=1"});
  expectPress("right", {}, [&] { ap().apCmdRight(1); }, "apCmdRight [CMD]", {"lamp 5=1"});
}

TEST_F(Engagement, CommandSideOffShowsFdWhateverTheOtherSideDoes) {
  const Act both = [&] {
    ap().apCmdLeft(1);
    ap().apCmdRight(1);
  };
  expectPress("left", both, [&] { ap().apCmdLeft(0); }, "apCmdRight", {"lamp 4=0"});
  expectPress("right", both, [&] { ap().apCmdRight(0); }, "apCmdLeft", {"lamp 5=0"});
}

TEST_F(Engagement, CommandCentreIsStoredOnly) {
  expectPress("on", {}, [&] { ap().apCmdCenter(1); }, "apCmdCenter", {});
  expectPress(
      "off", [&] { ap().apCmdCenter(1); }, [&] { ap().apCmdCenter(0); }, "", {});
}

TEST_F(Engagement, CwsSideTakesBothChannelsAndShowsCws) {
  expectPress("left", {}, [&] { ap().apCwsLeft(1); },
              "apCwsLeft apCwsRollMode apCwsPitchMode [CWS]", {"lamp 6=1"});
  expectPress("right", {}, [&] { ap().apCwsRight(1); },
              "apCwsRight apCwsRollMode apCwsPitchMode [CWS]", {"lamp 7=1"});
}

TEST_F(Engagement, CwsSideClearsTheModesOfBothChannels) {
  expectPress(
      "left", [&] { engageWithHeadingAndAltitude(); }, [&] { ap().apCwsLeft(1); },
      "ApEngaged apCwsLeft apCwsRollMode apCwsPitchMode [CWS]",
      {"lamp 16=0", "2EB0=0", "lamp 17=0", "lamp 6=1"});
}

TEST_F(Engagement, CwsLeftOffShowsFdAndClearsSteeringButNoOtherMode) {
  const Act steeringWithHeading = [&] {
    ap().apCwsLeft(1);
    ap().apHeadingHold(1);
    ap().apCwsRollMode(1);
  };
  expectPress("left", steeringWithHeading, [&] { ap().apCwsLeft(0); },
              "apHeadingHold RollModeActive", {"lamp 6=0"});
  expectPress(
      "right", [&] { ap().apCwsRight(1); }, [&] { ap().apCwsRight(0); }, "", {"lamp 7=0"});
}

TEST_F(Engagement, CwsPitchAimsAFifthOfADegreeAboveTheNose) {
  for (const std::int16_t value : {std::int16_t{1}, std::int16_t{0}}) {
    ap().apPitch(9);
    ap().apCwsPitchMode(value);
    EXPECT_EQ(ap().apCwsPitchMode(), value);
    EXPECT_FLOAT_EQ(ap().apPitch(), 2.2F);
  }
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Engagement, EngagedWithoutAModeFallsToCws) {
  expectPress("on", {}, [&] { ap().ApEngaged(1); },
              "ApEngaged apCwsRollMode apCwsPitchMode CWS_R CWS_P", {});
  EXPECT_FLOAT_EQ(ap().apPitch(), 2.2F);
  expectPress(
      "off", [&] { ap().ApEngaged(1); }, [&] { ap().ApEngaged(0); }, "", {});
}

TEST_F(Engagement, EngagedAtAnotherNumberThanOneLeavesCwsAsItIs) {
  expectPress("off before", {}, [&] { ap().ApEngaged(2); }, "ApEngaged:2", {});
  expectPress(
      "on before", [&] { ap().ApEngaged(1); }, [&] { ap().ApEngaged(2); },
      "ApEngaged:2 apCwsRollMode apCwsPitchMode CWS_R CWS_P", {});
}

TEST_F(Engagement, SideAtAnotherNumberThanOneShowsFd) {
  expectPress("command", {}, [&] { ap().apCmdLeft(2); }, "apCmdLeft:2", {"lamp 4=2"});
  expectPress("CWS", {}, [&] { ap().apCwsLeft(2); }, "apCwsLeft:2 apCwsRollMode:2 apCwsPitchMode:2",
              {"lamp 6=2"});
}

TEST_F(Engagement, EngagedChannelsWithAModeLeaveCws) {
  const Act armed = [&] {
    ap().apHeadingHold(1);
    ap().apVSpeedHold(1);
    ap().apCwsRollMode(1);
    ap().apCwsPitchMode(1);
  };
  expectPress("on", armed, [&] { ap().ApEngaged(1); },
              "ApEngaged apHeadingHold apVSpeedHold PitchModeActive RollModeActive roll=HDG_SEL "
              "pitch=V/S",
              {"2EB0=0", "lamp 17=0", "lamp 17=1"});
}

TEST_F(Engagement, EngagingAimsAFifthOfADegreeAboveTheNoseAlsoWithAMode) {
  ap().apVSpeedHold(1);
  ap().apPitch(9);
  ap().ApEngaged(1);
  EXPECT_FLOAT_EQ(ap().apPitch(), 2.2F);
}

TEST_F(Engagement, EngagingWritesTheAnnunciatorsAnew) {
  expectPress(
      "heading", [&] { ap().apHeadingHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsPitchMode apHeadingHold RollModeActive roll=HDG_SEL CWS_P",
      {"2EB0=0", "lamp 17=0", "lamp 17=1"});
  expectPress(
      "localizer", [&] { ap().apLocalizerHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsPitchMode apLocalizerHold RollModeActive roll=VOR/LOC CWS_P", {});
  expectPress(
      "back course", [&] { ap().apBackCourseHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsPitchMode apBackCourseHold RollModeActive CWS_P", {});
  expectPress(
      "speed by pitch", [&] { ap().apAirspeedHoldByPitch(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsRollMode apAirspeedHoldByPitch PitchModeActive pitch=MCP_SPD CWS_R", {});
  expectPress(
      "altitude", [&] { ap().apAltitudeHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsRollMode apAltitudeHold PitchModeActive pitch=ALT_HOLD CWS_R",
      {"lamp 16=0", "lamp 16=1"});
  expectPress(
      "attitude", [&] { ap().apAttitudeHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apAttitudeHold PitchModeActive RollModeActive", {});
  expectPress(
      "glideslope", [&] { ap().apGlideslopeHold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsRollMode apGlideslopeHold PitchModeActive CWS_R", {"lamp 20=0", "lamp 20=1"});
}

TEST_F(Engagement, EngagingLeavesTheFmaOfOtherModesAlone) {
  expectPress(
      "NAV", [&] { ap().apNav1Hold(1); }, [&] { ap().ApEngaged(1); },
      "ApEngaged apCwsPitchMode apNav1Hold RollModeActive CWS_P", {});
}

TEST_F(Engagement, DisengagingKeepsTheModesAndShowsThemAsArmed) {
  expectPress(
      "off", [&] { engageWithHeadingAndAltitude(); }, [&] { ap().ApEngaged(0); },
      "apHeadingHold apAltitudeHold PitchModeActive RollModeActive pitch=ARM",
      {"lamp 17=0", "lamp 17=1", "lamp 16=0", "lamp 16=1"});
}

TEST_F(Engagement, GoAroundTakesTheHeadingWhereNoRollModeIs) {
  expectPress("on", {}, [&] { ap().apToGa(1); },
              "apToGa apHeadingHold RollModeActive AT=N1 roll=HDG_SEL", {"lamp 17=1", "lamp 10=1"});
  expectPress(
      "on with a roll mode", [&] { ap().apNav1Hold(1); }, [&] { ap().apToGa(1); },
      "apToGa apNav1Hold RollModeActive AT=N1", {"lamp 10=1"});
  const Act lnav = [&] {
    afds().fmc.MaxWaypointId = 1;
    afds().LNAV(1);
  };
  expectPress("on with LNAV", lnav, [&] { ap().apToGa(1); },
              "apToGa LNAV apWaypointHold AT=N1 roll=LNAV", {"lamp 10=1"});
}

TEST_F(Engagement, GoAroundOffShowsWhetherTheAutothrottleIsArmed) {
  expectPress(
      "not armed", [&] { ap().apToGa(1); }, [&] { ap().apToGa(0); },
      "apHeadingHold RollModeActive roll=HDG_SEL", {"lamp 10=0"});
  const Act armed = [&] {
    at().apAutoThrottle(1);
    ap().apToGa(1);
  };
  expectPress("armed", armed, [&] { ap().apToGa(0); },
              "apHeadingHold apAutoThrottle RollModeActive AT=ARM roll=HDG_SEL", {"lamp 10=0"});
}

TEST_F(Engagement, KillPitchModesClearsEachModeThatIsOn) {
  const auto expectCleared = [&](const std::string& what, const Act& before,
                                 const std::string& stateAfter, const Texts& writes) {
    expectPress(
        what, before, [&] { ap().KillPitchModes(); }, stateAfter, writes);
  };
  expectCleared("nothing", {}, "", {});
  expectCleared("glideslope", [&] { ap().apGlideslopeHold(1); }, "", {"lamp 20=0"});
  expectCleared("altitude", [&] { ap().apAltitudeHold(1); }, "", {"lamp 16=0"});
  expectCleared("speed", [&] { ap().apAirspeedHoldByPitch(1); }, "", {});
  expectCleared("vertical speed", [&] { ap().apVSpeedHold(1); }, "", {"lamp 21=0"});
  expectCleared("attitude", [&] { ap().apAttitudeHold(1); }, "", {});
  expectCleared("CWS", [&] { ap().ApEngaged(1); }, "ApEngaged apCwsRollMode CWS_R", {});
  expectCleared("go-around", [&] { ap().apToGa(1); }, "apHeadingHold RollModeActive roll=HDG_SEL",
                {"lamp 10=0"});
  expectCleared("level change stays", [&] { ap().apLevelChange(1); },
                "apLevelChange PitchModeActive pitch=MCP_SPD", {});
  expectCleared("altitude acquire stays", [&] { ap().apAltAcquire(1); },
                "apAltAcquire PitchModeActive pitch=ALT_ACQ", {});
}

TEST_F(Engagement, KillPitchModesLeavesThePitchTargetOfAModeThatIsOff) {
  ap().apPitch(7);
  ap().KillPitchModes();
  EXPECT_EQ(ap().apPitch(), 7);
}

TEST_F(Engagement, KillRollModesClearsEachModeThatIsOnButTheRadios) {
  const auto expectCleared = [&](const std::string& what, const Act& before,
                                 const std::string& stateAfter, const Texts& writes) {
    expectPress(
        what, before, [&] { ap().KillRollModes(); }, stateAfter, writes);
  };
  expectCleared("nothing", {}, "", {});
  expectCleared("waypoint", [&] { ap().apWaypointHold(1); }, "", {});
  expectCleared("heading", [&] { ap().apHeadingHold(1); }, "", {"lamp 17=0"});
  expectCleared("back course", [&] { ap().apBackCourseHold(1); }, "", {});
  expectCleared("yaw damper", [&] { ap().apYawDamper(1); }, "", {});
  expectCleared("CWS", [&] { ap().ApEngaged(1); }, "ApEngaged apCwsPitchMode CWS_P", {});
  expectCleared("NAV stays", [&] { ap().apNav1Hold(1); }, "apNav1Hold RollModeActive", {});
  expectCleared("localizer stays", [&] { ap().apLocalizerHold(1); },
                "apLocalizerHold RollModeActive", {});
}

}  // namespace
}  // namespace vorlent
