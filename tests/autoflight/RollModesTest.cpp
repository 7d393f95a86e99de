#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class RollModes : public AutoflightTest {
 protected:
  void engage() { ap().ApEngaged(1); }
  void flyLnav() {
    afds().fmc.MaxWaypointId = 1;
    afds().LNAV(1);
  }
  /// What the aileron trim gets for 10 degrees of bank to the left, wings level wanted.
  double aileronForTenDegrees() {
    store().Bank = 10;
    bus.writes.clear();
    ap().HoldBank(0);
    return load<double>(bus.writes.at(0).bytes.data());
  }
};

TEST_F(RollModes, NavTakesTheRollChannel) {
  expectPress("not engaged", {}, [&] { ap().apNav1Hold(1); }, "apNav1Hold RollModeActive",
              {"lamp 18=1"});
  expectPress(
      "engaged", [&] { engage(); }, [&] { ap().apNav1Hold(1); },
      "ApEngaged apCwsPitchMode apNav1Hold RollModeActive roll=VOR/LOC CWS_P", {"lamp 18=1"});
}

TEST_F(RollModes, NavClearsHeadingAndItsOwnCapture) {
  const Act before = [&] {
    engage();
    ap().apHeadingHold(1);
    ap().apLocalizerCapture(1);
  };
  expectPress("from heading", before, [&] { ap().apNav1Hold(1); },
              "ApEngaged apCwsPitchMode apNav1Hold RollModeActive roll=VOR/LOC CWS_P",
              {"2EB0=0", "lamp 17=0", "lamp 18=1"});
}

TEST_F(RollModes, NavOffFallsToCws) {
  expectPress(
      "not engaged", [&] { ap().apNav1Hold(1); }, [&] { ap().apNav1Hold(0); },
      "apCwsRollMode CWS_R", {"lamp 18=0"});
  const Act captured = [&] {
    engage();
    ap().apNav1Hold(1);
    ap().apLocalizerCapture(1);
  };
  expectPress("engaged", captured, [&] { ap().apNav1Hold(0); },
              "ApEngaged apCwsRollMode apCwsPitchMode CWS_R CWS_P", {"2EB0=0", "lamp 18=0"});
}

TEST_F(RollModes, WaypointShowsLnavAndHasNoLamp) {
  expectPress("on", {}, [&] { ap().apWaypointHold(1); }, "apWaypointHold roll=LNAV", {});
  expectPress(
      "from heading", [&] { ap().apHeadingHold(1); }, [&] { ap().apWaypointHold(1); },
      "apWaypointHold roll=LNAV", {"lamp 17=0"});
}

TEST_F(RollModes, WaypointOffLevelsTheAilerons) {
  const Act before = [&] {
    engage();
    ap().apWaypointHold(1);
  };
  expectPress("off", before, [&] { ap().apWaypointHold(0); }, "ApEngaged apCwsPitchMode CWS_P",
              {"2EB0=0"});
}

TEST_F(RollModes, HeadingIsAnnunciatedWhenEngagedOrGoingAround) {
  expectPress("not engaged", {}, [&] { ap().apHeadingHold(1); }, "apHeadingHold RollModeActive",
              {"lamp 17=1"});
  expectPress(
      "engaged", [&] { engage(); }, [&] { ap().apHeadingHold(1); },
      "ApEngaged apCwsPitchMode apHeadingHold RollModeActive roll=HDG_SEL CWS_P", {"lamp 17=1"});
  const Act goingAround = [&] {
    ap().apNav1Hold(1);
    ap().apToGa(1);
  };
  expectPress("going around", goingAround, [&] { ap().apHeadingHold(1); },
              "apToGa apNav1Hold apHeadingHold RollModeActive AT=N1 roll=HDG_SEL", {"lamp 17=1"});
}

TEST_F(RollModes, HeadingNotEngagedBlanksTheArmedAnnunciator) {
  const Act before = [&] {
    shown().RollArmedMode = "VOR/LOC";
    shown().RollEngagedMode = "LNAV";
  };
  expectPress("heading", before, [&] { ap().apHeadingHold(1); },
              "apHeadingHold RollModeActive roll=LNAV", {"lamp 17=1"});
}

TEST_F(RollModes, HeadingWhileLnavFliesOnlyLightsItsLamp) {
  expectPress(
      "on", [&] { flyLnav(); }, [&] { ap().apHeadingHold(1); },
      "LNAV apWaypointHold apHeadingHold roll=LNAV", {"lamp 17=1"});
  const Act both = [&] {
    flyLnav();
    ap().apHeadingHold(1);
  };
  expectPress("off", both, [&] { ap().apHeadingHold(0); }, "LNAV apWaypointHold roll=LNAV",
              {"lamp 17=0"});
}

TEST_F(RollModes, HeadingOffFallsToCws) {
  const Act before = [&] {
    engage();
    ap().apHeadingHold(1);
  };
  expectPress("off", before, [&] { ap().apHeadingHold(0); },
              "ApEngaged apCwsRollMode apCwsPitchMode CWS_R CWS_P", {"2EB0=0", "lamp 17=0"});
}

TEST_F(RollModes, HeadingOffLeavesTheChannelToARadioMode) {
  const Act withNav = [&] {
    engage();
    ap().apNav1Hold(1);
    ap().apHeadingHold(1);
  };
  expectPress("NAV", withNav, [&] { ap().apHeadingHold(0); },
              "ApEngaged apCwsPitchMode apNav1Hold RollModeActive CWS_P", {"lamp 17=0"});
  const Act withLocalizer = [&] {
    engage();
    ap().apLocalizerHold(1);
    ap().apHeadingHold(1);
  };
  expectPress("localizer", withLocalizer, [&] { ap().apHeadingHold(0); },
              "ApEngaged apCwsPitchMode apLocalizerHold RollModeActive CWS_P", {"lamp 17=0"});
}

TEST_F(RollModes, LocalizerKeepsTheOtherRollModes) {
  expectPress(
      "not engaged", [&] { ap().apHeadingHold(1); }, [&] { ap().apLocalizerHold(1); },
      "apHeadingHold apLocalizerHold RollModeActive", {});
  expectPress(
      "engaged", [&] { engage(); }, [&] { ap().apLocalizerHold(1); },
      "ApEngaged apCwsRollMode apCwsPitchMode apLocalizerHold RollModeActive "
      "roll=VOR/LOC CWS_R CWS_P",
      {});
}

TEST_F(RollModes, LocalizerOffFallsToCwsAndLeavesTheAilerons) {
  const Act before = [&] {
    engage();
    ap().apLocalizerHold(1);
  };
  expectPress("off", before, [&] { ap().apLocalizerHold(0); },
              "ApEngaged apCwsRollMode apCwsPitchMode CWS_R CWS_P", {});
}

TEST_F(RollModes, LocalizerCaptureShowsVorLocAndIsQuietWhenItEnds) {
  expectPress("on", {}, [&] { ap().apLocalizerCapture(1); }, "apLocalizerCapture roll=VOR/LOC", {});
  expectPress(
      "off", [&] { ap().apLocalizerCapture(1); }, [&] { ap().apLocalizerCapture(0); },
      "roll=VOR/LOC", {});
}

TEST_F(RollModes, GlideslopeCaptureIsStoredOnly) {
  expectPress("on", {}, [&] { ap().apGsCapture(1); }, "apGsCapture", {});
}

TEST_F(RollModes, BackCourseTakesTheRollChannelSilently) {
  expectPress(
      "on", [&] { ap().apHeadingHold(1); }, [&] { ap().apBackCourseHold(1); },
      "apBackCourseHold RollModeActive", {"lamp 17=0"});
  expectPress(
      "off", [&] { ap().apBackCourseHold(1); }, [&] { ap().apBackCourseHold(0); }, "", {});
}

TEST_F(RollModes, ApproachFromHeadingTakesBothChannels) {
  const Act before = [&] {
    engageWithHeadingAndAltitude();
    ap().apLocalizerCapture(1);
    ap().apGsCapture(1);
  };
  expectPress("from heading", before, [&] { ap().apApproachHold(1); },
              "ApEngaged apHeadingHold apLocalizerHold apApproachHold apGlideslopeHold "
              "PitchModeActive RollModeActive roll=VOR/LOC",
              {"lamp 16=0", "lamp 19=1"});
  expectPress(
      "from waypoint", [&] { ap().apWaypointHold(1); }, [&] { ap().apApproachHold(1); },
      "apWaypointHold apLocalizerHold apApproachHold apGlideslopeHold PitchModeActive "
      "RollModeActive roll=VOR/LOC",
      {"lamp 19=1"});
}

TEST_F(RollModes, ApproachFromAnyOtherModeOnlySetsItsMembers) {
  expectPress(
      "from altitude", [&] { ap().apAltitudeHold(1); }, [&] { ap().apApproachHold(1); },
      "apLocalizerHold apApproachHold apAltitudeHold apGlideslopeHold PitchModeActive "
      "pitch=ARM",
      {"lamp 19=1"});
}

TEST_F(RollModes, ApproachOffFallsToCwsInBothChannels) {
  const Act before = [&] {
    engage();
    ap().apHeadingHold(1);
    ap().apApproachHold(1);
  };
  expectPress("off", before, [&] { ap().apApproachHold(0); },
              "ApEngaged apCwsRollMode apCwsPitchMode apHeadingHold CWS_R CWS_P",
              {"2EB0=0", "lamp 19=0"});
}

TEST_F(RollModes, ApproachDoublesTheRollFactorUntilRollModesAreKilled) {
  // 10 degrees x 0.5 in radians, twice that, and back.
  engage();
  EXPECT_NEAR(aileronForTenDegrees(), 5 * 0.0174532930056254, 1e-9);
  ap().apHeadingHold(1);
  ap().apApproachHold(1);
  EXPECT_NEAR(aileronForTenDegrees(), 10 * 0.0174532930056254, 1e-9);
  ap().KillRollModes();
  EXPECT_NEAR(aileronForTenDegrees(), 5 * 0.0174532930056254, 1e-9);
}

TEST_F(RollModes, OnlyAnApproachFromARollModeRunsThePitchLawNext) {
  ap().apHeadingHold(1);
  ap().apApproachHold(1);
  EXPECT_EQ(afds().Relay(), 1);
  renew();
  ap().apApproachHold(1);
  EXPECT_EQ(afds().Relay(), 0);
}

TEST_F(RollModes, EndOfApproachArmingLeavesWhatFlies) {
  const Act before = [&] {
    engage();
    ap().apHeadingHold(1);
    ap().apApproachHold(1);
  };
  expectPress("captured", before, [&] { ap().endApproachArming(); },
              "ApEngaged apHeadingHold apLocalizerHold apGlideslopeHold PitchModeActive "
              "RollModeActive roll=VOR/LOC",
              {"lamp 19=0"});
}

TEST_F(RollModes, LnavAndVnavWithoutAPlanDoNothing) {
  const Act before = [&] { engageWithHeadingAndAltitude(); };
  const std::string as =
      "ApEngaged apHeadingHold apAltitudeHold PitchModeActive RollModeActive roll=HDG_SEL "
      "pitch=ALT_HOLD";
  for (const std::int16_t value : {std::int16_t{1}, std::int16_t{0}}) {
    expectPress("LNAV", before, [&] { afds().LNAV(value); }, as, {});
    expectPress("VNAV", before, [&] { afds().VNAV(value); }, as, {});
  }
}

TEST_F(RollModes, LnavTakesTheRollChannel) {
  expectPress("on", {}, [&] { flyLnav(); }, "LNAV apWaypointHold roll=LNAV", {"lamp 2=1"});
  const Act heading = [&] {
    engage();
    ap().apHeadingHold(1);
  };
  expectPress("from heading", heading, [&] { flyLnav(); },
              "ApEngaged apCwsPitchMode LNAV apWaypointHold roll=LNAV CWS_P",
              {"2EB0=0", "lamp 17=0", "lamp 2=1"});
}

TEST_F(RollModes, LnavOffBlanksTheRollAnnunciator) {
  const Act before = [&] {
    engage();
    flyLnav();
  };
  expectPress("off", before, [&] { afds().LNAV(0); }, "ApEngaged apCwsPitchMode CWS_P",
              {"2EB0=0", "2EB0=0", "lamp 2=0"});
}

TEST_F(RollModes, LnavGoesOffWithoutALampWhenThePlanIsGone) {
  expectPress(
      "no plan", [&] { flyLnav(); },
      [&] {
        afds().fmc.MaxWaypointId = 0;
        afds().LNAV(1);
      },
      "apWaypointHold roll=LNAV", {});
}

}  // namespace
}  // namespace vorlent
