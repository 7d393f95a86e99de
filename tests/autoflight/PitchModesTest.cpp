#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class PitchModes : public AutoflightTest {
 protected:
  void engage() { ap().ApEngaged(1); }
  void flyVnav() {
    afds().fmc.MaxWaypointId = 1;
    afds().VNAV(1);
  }
};

TEST_F(PitchModes, AltitudeShowsArmUntilEngaged) {
  expectPress("not engaged", {}, [&] { ap().apAltitudeHold(1); },
              "apAltitudeHold PitchModeActive pitch=ARM", {"lamp 16=1"});
  expectPress(
      "engaged", [&] { engage(); }, [&] { ap().apAltitudeHold(1); },
      "ApEngaged apCwsRollMode apAltitudeHold PitchModeActive pitch=ALT_HOLD CWS_R", {"lamp 16=1"});
}

TEST_F(PitchModes, AltitudeClearsLevelChangeAndAcquire) {
  const Act levelChange = [&] {
    ap().apLevelChange(1);
    ap().apAirspeedHoldByPitch(1);
  };
  expectPress("level change", levelChange, [&] { ap().apAltitudeHold(1); },
              "apAltitudeHold PitchModeActive pitch=ARM", {"lamp 1=0", "lamp 16=1"});
  expectPress(
      "acquire", [&] { ap().apAltAcquire(1); }, [&] { ap().apAltitudeHold(1); },
      "apAltitudeHold PitchModeActive pitch=ARM", {"lamp 16=1"});
}

TEST_F(PitchModes, AltitudeOffShowsCwsButDoesNotSteer) {
  const Act before = [&] {
    engage();
    ap().apAltitudeHold(1);
  };
  expectPress("off", before, [&] { ap().apAltitudeHold(0); }, "ApEngaged apCwsRollMode CWS_R CWS_P",
              {"lamp 16=0"});
}

TEST_F(PitchModes, AttitudeTakesBothChannelsSilently) {
  expectPress(
      "on", [&] { ap().apVSpeedHold(1); }, [&] { ap().apAttitudeHold(1); },
      "apAttitudeHold PitchModeActive RollModeActive", {"lamp 21=0"});
  expectPress(
      "off", [&] { ap().apAttitudeHold(1); }, [&] { ap().apAttitudeHold(0); }, "", {});
}

TEST_F(PitchModes, SpeedByPitchKeepsTheOtherPitchModes) {
  expectPress(
      "on", [&] { ap().apLevelChange(1); }, [&] { ap().apAirspeedHoldByPitch(1); },
      "apAirspeedHoldByPitch apLevelChange PitchModeActive pitch=MCP_SPD", {});
  expectPress(
      "off", [&] { ap().apAirspeedHoldByPitch(1); }, [&] { ap().apAirspeedHoldByPitch(0); }, "",
      {});
}

TEST_F(PitchModes, VerticalSpeedClearsTheOtherPitchModes) {
  expectPress(
      "on", [&] { ap().apAltitudeHold(1); }, [&] { ap().apVSpeedHold(1); },
      "apVSpeedHold PitchModeActive pitch=V/S", {"lamp 16=0", "lamp 21=1"});
  expectPress(
      "off", [&] { ap().apVSpeedHold(1); }, [&] { ap().apVSpeedHold(0); }, "CWS_P", {"lamp 21=0"});
}

TEST_F(PitchModes, GlideslopeTakesTheChannelSilently) {
  expectPress(
      "on", [&] { ap().apAltitudeHold(1); }, [&] { ap().apGlideslopeHold(1); },
      "apGlideslopeHold PitchModeActive", {"lamp 16=0", "lamp 20=1"});
  expectPress(
      "off", [&] { ap().apGlideslopeHold(1); }, [&] { ap().apGlideslopeHold(0); },
      "apCwsPitchMode CWS_P", {"lamp 20=0"});
}

TEST_F(PitchModes, LevelChangeAimsAtTheSelectedAltitude) {
  const Act altitudes = [&] {
    ap().apMcpAltitude(12000);
    ap().apAltitude(5000);
  };
  expectPress("on", altitudes, [&] { ap().apLevelChange(1); },
              "apLevelChange PitchModeActive pitch=MCP_SPD", {"lamp 1=1"});
  EXPECT_EQ(ap().apAltitude(), 12000);
  expectPress(
      "with VNAV", [&] { flyVnav(); }, [&] { ap().apLevelChange(1); },
      "VNAV apLevelChange PitchModeActive AT=FMC_SPD pitch=VNAV_SPD", {"lamp 1=1"});
}

TEST_F(PitchModes, LevelChangeClearsTheOtherPitchModes) {
  expectPress(
      "from altitude", [&] { ap().apAltitudeHold(1); }, [&] { ap().apLevelChange(1); },
      "apLevelChange PitchModeActive pitch=MCP_SPD", {"lamp 16=0", "lamp 1=1"});
  expectPress(
      "from acquire", [&] { ap().apAltAcquire(1); }, [&] { ap().apLevelChange(1); },
      "apLevelChange apAltAcquire PitchModeActive pitch=MCP_SPD", {"lamp 1=1"});
}

TEST_F(PitchModes, VerticalSpeedKeepsALevelChangeWithoutItsSpeedByPitch) {
  const Act climbing = [&] {
    ap().apLevelChange(1);
    ap().apAirspeedHoldByPitch(1);
  };
  expectPress("on", climbing, [&] { ap().apVSpeedHold(1); },
              "apVSpeedHold apLevelChange PitchModeActive pitch=V/S", {"lamp 21=1"});
}

TEST_F(PitchModes, AltitudeFromControlWheelSteeringAimsLowerThanByItself) {
  ap().ApEngaged(1);
  ap().apPitch(9);
  ap().apAltitudeHold(1);  // 2.4 degrees, and then what ends the steering takes: 2.2
  EXPECT_FLOAT_EQ(ap().apPitch(), 2.2F);
}

TEST_F(PitchModes, ModeThatIsEngagedAgainGoesOffAndOn) {
  expectPress(
      "altitude", [&] { ap().apAltitudeHold(1); }, [&] { ap().apAltitudeHold(1); },
      "apAltitudeHold PitchModeActive pitch=ARM", {"lamp 16=0", "lamp 16=1"});
  expectPress(
      "vertical speed", [&] { ap().apVSpeedHold(1); }, [&] { ap().apVSpeedHold(1); },
      "apVSpeedHold PitchModeActive pitch=V/S", {"lamp 21=0", "lamp 21=1"});
}

TEST_F(PitchModes, LevelChangeOffEndsItsSpeedHold) {
  const Act climbing = [&] {
    ap().apLevelChange(1);
    ap().apAirspeedHoldByPitch(1);
  };
  expectPress("flying", climbing, [&] { ap().apLevelChange(0); }, "", {"lamp 1=0"});
  expectPress(
      "not yet flying", [&] { ap().apLevelChange(1); }, [&] { ap().apLevelChange(0); }, "",
      {"lamp 1=0"});
}

TEST_F(PitchModes, AcquireShowsAltHoldWhenItEnds) {
  expectPress(
      "on", [&] { ap().apVSpeedHold(1); }, [&] { ap().apAltAcquire(1); },
      "apAltAcquire PitchModeActive pitch=ALT_ACQ", {"lamp 21=0"});
  expectPress(
      "off", [&] { ap().apAltAcquire(1); }, [&] { ap().apAltAcquire(0); }, "pitch=ALT_HOLD", {});
}

TEST_F(PitchModes, AltitudeVerticalSpeedAndAcquireRunTheirLawInTheNextPass) {
  struct Row {
    const char* name;
    void (clsXAutoP::*set)(std::int16_t);
    int relay;
  };
  constexpr Row Rows[] = {
      {"altitude", &clsXAutoP::apAltitudeHold, 1},
      {"vertical speed", &clsXAutoP::apVSpeedHold, 1},
      {"acquire", &clsXAutoP::apAltAcquire, 1},
      {"attitude", &clsXAutoP::apAttitudeHold, 7},
      {"speed by pitch", &clsXAutoP::apAirspeedHoldByPitch, 7},
      {"glideslope", &clsXAutoP::apGlideslopeHold, 7},
      {"level change", &clsXAutoP::apLevelChange, 7},
  };
  for (const auto& [name, set, relay] : Rows) {
    renew();
    afds().ResetRelay(7);
    (ap().*set)(1);
    EXPECT_EQ(afds().Relay(), relay) << name;
    afds().ResetRelay(7);
    (ap().*set)(0);
    EXPECT_EQ(afds().Relay(), 7) << name << " off";
  }
}

TEST_F(PitchModes, PitchTargetThatAModeTakes) {
  struct Row {
    const char* name;
    void (clsXAutoP::*set)(std::int16_t);
    float on_deg;
    float off_deg;
  };
  constexpr float Kept = 9;
  constexpr Row Rows[] = {
      {"altitude", &clsXAutoP::apAltitudeHold, 2.4F, 2.4F},
      {"attitude", &clsXAutoP::apAttitudeHold, 2, 2},
      {"speed by pitch", &clsXAutoP::apAirspeedHoldByPitch, Kept, Kept},
      {"vertical speed", &clsXAutoP::apVSpeedHold, Kept, Kept},
      {"glideslope", &clsXAutoP::apGlideslopeHold, Kept, 2.2F},
      {"level change", &clsXAutoP::apLevelChange, Kept, Kept},
      {"acquire", &clsXAutoP::apAltAcquire, Kept, Kept},
  };
  for (const auto& [name, set, on_deg, off_deg] : Rows) {
    renew();
    ap().apPitch(Kept);
    (ap().*set)(1);
    EXPECT_FLOAT_EQ(ap().apPitch(), on_deg) << name;
    ap().apPitch(Kept);
    (ap().*set)(0);
    EXPECT_FLOAT_EQ(ap().apPitch(), off_deg) << name << " off";
  }
}

TEST_F(PitchModes, VnavTakesThePitchChannelAndShowsItsSpeeds) {
  expectPress("on", {}, [&] { flyVnav(); }, "VNAV AT=FMC_SPD pitch=VNAV_SPD", {"lamp 3=1"});
  EXPECT_EQ(afds().fmc.PhaseOfFlightEnum, Phase::Climb);
  const Act levelChange = [&] {
    ap().apLevelChange(1);
    ap().apAirspeedHoldByPitch(1);
  };
  expectPress("from level change", levelChange, [&] { flyVnav(); },
              "VNAV AT=FMC_SPD pitch=VNAV_SPD", {"lamp 1=0", "lamp 3=1"});
  expectPress(
      "from acquire", [&] { ap().apAltAcquire(1); }, [&] { flyVnav(); },
      "VNAV AT=FMC_SPD pitch=VNAV_SPD", {"lamp 3=1"});
}

TEST_F(PitchModes, VnavEndsAGoAroundAndKeepsTheLaterPhases) {
  expectPress(
      "go-around", [&] { ap().apToGa(1); }, [&] { flyVnav(); },
      "apHeadingHold VNAV RollModeActive AT=FMC_SPD roll=HDG_SEL pitch=VNAV_SPD",
      {"lamp 10=0", "lamp 3=1"});
  renew();
  afds().fmc.PhaseOfFlightEnum = Phase::Cruise;
  flyVnav();
  EXPECT_EQ(afds().fmc.PhaseOfFlightEnum, Phase::Cruise);
}

TEST_F(PitchModes, VnavOffShowsArm) {
  expectPress(
      "off", [&] { flyVnav(); }, [&] { afds().VNAV(0); }, "AT=ARM", {"lamp 3=0"});
}

}  // namespace
}  // namespace vorlent
