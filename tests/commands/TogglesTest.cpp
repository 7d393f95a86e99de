#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::uint32_t Selected = 0x0888;

class Toggles : public CommandTest {
 protected:
  static Write byte(std::uint32_t offset, int value) {
    return {offset, {static_cast<std::uint8_t>(value)}};
  }
  /// The sixteen bits low byte first.
  static Write word(std::uint32_t offset, int value) {
    return {offset,
            {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> 8)}};
  }
};

TEST_F(Toggles, StartLeversAreHeldAndFollowedByTheNumberOfEngines) {
  for (const auto& [code, lever] :
       {std::pair(0, 0x08B2U), {1, 0x094AU}, {2, 0x09E2U}, {3, 0x0A7AU}}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(lever, 1), byte(Selected, 2))) << code;
    EXPECT_EQ(v.StateValues(11), 1) << code;
    EXPECT_THAT(toggle(code, 0), ElementsAre(byte(lever, 0), byte(Selected, 2))) << code;
    EXPECT_EQ(v.StateValues(11), 0) << code;
  }
}

TEST_F(Toggles, AllStartLeversMoveTogether) {
  EXPECT_THAT(toggle(4, 1), ElementsAre(byte(0x08B2, 1), byte(0x094A, 1), byte(0x09E2, 1),
                                        byte(0x0A7A, 1), byte(Selected, 2)));
  EXPECT_EQ(v.StateValues(11), 1);
}

TEST_F(Toggles, SwitchesOfTheSimulatorsAutopilotAreWrittenAndRecorded) {
  struct Case {
    int code, item;
    std::uint32_t offset;
  };
  for (const auto& [code, item, offset] : {Case{7, 3, 0x07FC},
                                           {8, 4, 0x07D8},
                                           {9, 5, 0x0804},
                                           {10, 6, 0x07C8},
                                           {11, 7, 0x0800},
                                           {13, 9, 0x07BC},
                                           {14, 10, 0x07C4},
                                           {15, 11, 0x07C0},
                                           {16, 12, 0x0810},
                                           {17, 13, 0x080C},
                                           {54, 19, 0x0808}}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(offset, 1))) << code;
    EXPECT_EQ(v.ApValues(item), 1) << code;
    EXPECT_THAT(toggle(code, 0), ElementsAre(byte(offset, 0))) << code;
    EXPECT_EQ(v.ApValues(item), 0) << code;
  }
}

TEST_F(Toggles, AirspeedHoldIsFollowedByThePresentSpeedWhichIsNotHeld) {
  v.Ias = 250;
  v.ApValues(17) = 210;
  EXPECT_THAT(toggle(5, 1), ElementsAre(byte(0x07DC, 1), word(0x07E2, 250)));
  EXPECT_EQ(v.ApValues(1), 1);
  EXPECT_EQ(v.ApValues(17), 210);
  EXPECT_THAT(toggle(5, 0), ElementsAre(byte(0x07DC, 0), word(0x07E2, 250)));
  EXPECT_EQ(v.ApValues(1), 0);
}

TEST_F(Toggles, AltitudeHoldIsFollowedByThePresentAltitudeWhichIsNotHeld) {
  v.AircraftAltitude = 10000;
  v.ApValues(14) = 7000;
  EXPECT_THAT(toggle(6, 1), ElementsAre(byte(0x07D0, 1), Write{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}}));
  EXPECT_EQ(v.ApValues(2), 1);
  EXPECT_EQ(v.ApValues(14), 7000);
  EXPECT_THAT(toggle(6, 0), ElementsAre(byte(0x07D0, 0), Write{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}}));
  EXPECT_EQ(v.ApValues(2), 0);
}

TEST_F(Toggles, MachHoldIsFollowedByThePresentMachWhichIsNotHeld) {
  v.Mach = 0.78F;
  v.ApValues(16) = 0.7F;
  EXPECT_THAT(toggle(12, 1), ElementsAre(byte(0x07E4, 1), word(0x07E8, 51090)));
  EXPECT_EQ(v.ApValues(8), 1);
  EXPECT_EQ(v.ApValues(16), 0.7F);
  EXPECT_THAT(toggle(12, 0), ElementsAre(byte(0x07E4, 0), word(0x07E8, 51090)));
  EXPECT_EQ(v.ApValues(8), 0);
}

TEST_F(Toggles, AFaultIsToldAndLeavesTheLevelUnrecorded) {
  v.AircraftAltitude = 200000;
  EXPECT_THAT(toggle(6, 1), ElementsAre(byte(0x07D0, 1)));
  EXPECT_EQ(status(), "SetToggleValues Overflow");
  EXPECT_EQ(v.ApValues(2), 0);
  EXPECT_THAT(toggle(13, 256), IsEmpty());
  EXPECT_EQ(v.ApValues(9), 0);
}

TEST_F(Toggles, BrakesFollowTheLevel) {
  EXPECT_THAT(toggle(18, 1), ElementsAre(word(0x0BC4, 16383), word(0x0BC6, 16383)));
  EXPECT_THAT(toggle(18, 0), ElementsAre(word(0x0BC4, 0), word(0x0BC6, 0)));
  EXPECT_THAT(toggle(19, 1), ElementsAre(word(0x0BC4, 15000)));
  EXPECT_THAT(toggle(20, 1), ElementsAre(word(0x0BC6, 15000)));
  EXPECT_THAT(toggle(20, 0), ElementsAre(word(0x0BC6, 0)));
}

TEST_F(Toggles, DmeFollowsTheLevelOrWhatIsHeld) {
  EXPECT_THAT(toggle(21, 1), ElementsAre(byte(0x0378, 2)));
  EXPECT_THAT(toggle(21, 0), ElementsAre(byte(0x0378, 1)));
  v.RadioValues(9) = 1;
  EXPECT_THAT(toggle(29, 0), ElementsAre(byte(0x0378, 2)));
}

TEST_F(Toggles, CodesWithoutAFunctionDoNothing) {
  for (const int code : {-1, 22, 23, 24, 25, 26, 28, 60, 66, 78, 79, 84, 998, 1000, 1001, 32767})
    EXPECT_THAT(toggle(code, 1), IsEmpty()) << code;
  EXPECT_EQ(status(), "");
}

TEST_F(Toggles, GearIsDownAt1AndUpAtAnyOtherLevel) {
  EXPECT_THAT(toggle(27, 1), ElementsAre(word(0x0BE8, 16383)));
  EXPECT_EQ(v.StateValues(7), 16383);
  EXPECT_THAT(toggle(27, 0), ElementsAre(word(0x0BE8, 0)));
  EXPECT_EQ(v.StateValues(7), 0);
  EXPECT_THAT(toggle(27, 2), ElementsAre(word(0x0BE8, 0)));
}

TEST_F(Toggles, MixturesAreFullAt1) {
  int code = 31;
  for (const std::uint32_t offset : {0x0890U, 0x0928U, 0x09C0U, 0x0A58U}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(word(offset, 16383))) << code;
    EXPECT_THAT(toggle(code++, 0), ElementsAre(word(offset, 0)));
  }
  EXPECT_THAT(toggle(30, 1), ElementsAre(word(0x0890, 16383), word(0x0928, 16383)));
}

TEST_F(Toggles, MagnetosAreHeldAndSelectTheirEngine) {
  for (const int first : {36, 41}) {
    int engine = 0;
    for (const std::uint32_t offset : {0x0892U, 0x092AU, 0x09C2U, 0x0A5AU}) {
      const int code = first + engine++;
      EXPECT_THAT(toggle(code, 1), ElementsAre(byte(offset, 1), byte(Selected, engine))) << code;
      EXPECT_EQ(v.StateValues(3), 1) << code;
      EXPECT_THAT(toggle(code, 0), ElementsAre(byte(offset, 0), byte(Selected, engine))) << code;
      EXPECT_EQ(v.StateValues(3), 0) << code;
    }
  }
  for (const int code : {35, 40}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(0x0892, 1), byte(0x092A, 1), byte(Selected, 2)));
    EXPECT_EQ(v.StateValues(3), 1);
    EXPECT_THAT(toggle(code, 0), ElementsAre(byte(0x0892, 0), byte(0x092A, 0), byte(Selected, 2)));
    EXPECT_EQ(v.StateValues(3), 0);
  }
}

TEST_F(Toggles, SwitchesThatAreHeldAreWrittenAndRecorded) {
  struct Case {
    int code, item;
    std::uint32_t offset;
  };
  for (const auto& [code, item, offset] :
       {Case{45, 5, 0x028C}, {48, 10, 0x029C}, {53, 6, 0x0281}, {62, 17, 0x0280}}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(offset, 1))) << code;
    EXPECT_EQ(v.StateValues(item), 1) << code;
    EXPECT_THAT(toggle(code, 0), ElementsAre(byte(offset, 0))) << code;
    EXPECT_EQ(v.StateValues(item), 0) << code;
  }
}

TEST_F(Toggles, SwitchesThatAreNotHeldAreWritten) {
  for (const auto& [code, offset] : {std::pair(47, 0x0264U),
                                     {50, 0x05DCU},
                                     {80, 0x132CU},
                                     {81, 0x2E80U},
                                     {82, 0x281CU},
                                     {83, 0x2E88U}}) {
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(offset, 1))) << code;
    EXPECT_THAT(toggle(code, 0), ElementsAre(byte(offset, 0))) << code;
  }
}

TEST_F(Toggles, ParkingBrakeIsRecorded) {
  EXPECT_THAT(toggle(46, 1), ElementsAre(word(0x0BC8, 1)));
  EXPECT_EQ(v.StateValues(9), 1);
  EXPECT_THAT(toggle(46, 0), ElementsAre(word(0x0BC8, 0)));
  EXPECT_EQ(v.StateValues(9), 0);
}

TEST_F(Toggles, ReverseThrustIsSelectedAtEitherLevel) {
  const Writes reverse{word(0x088C, 61439), word(0x0924, 61439)};  // 65535 - 4096
  EXPECT_THAT(toggle(49, 1), ElementsAreArray(reverse));
  EXPECT_THAT(toggle(49, 0), ElementsAreArray(reverse));
}

TEST_F(Toggles, SpoilersRecordTheirPosition) {
  EXPECT_THAT(toggle(51, 1), ElementsAre(word(0x0BD0, 16383)));
  EXPECT_EQ(v.StateValues(2), 16383);
  EXPECT_THAT(toggle(51, 0), ElementsAre(word(0x0BD0, 0)));
  EXPECT_EQ(v.StateValues(2), 0);
}

TEST_F(Toggles, SpoilersArmIsRecorded) {
  EXPECT_THAT(toggle(52, 1), ElementsAre(byte(0x0BCC, 1)));
  EXPECT_EQ(v.SpoilersArm, 1);
  EXPECT_THAT(toggle(52, 0), ElementsAre(byte(0x0BCC, 0)));
  EXPECT_EQ(v.SpoilersArm, 0);
}

TEST_F(Toggles, StartOfAllEnginesAtEitherLevel) {
  const Writes start{byte(0x0892, 4), byte(0x092A, 4), byte(Selected, 2)};
  EXPECT_THAT(toggle(55, 1), ElementsAreArray(start));
  EXPECT_THAT(toggle(55, 0), ElementsAreArray(start));
  EXPECT_EQ(v.StateValues(3), 4);
}

TEST_F(Toggles, AnEngineThatStandsIsStartedAtAnyLevelBut0) {
  int engine = 0;
  for (const std::uint32_t magneto : {0x0892U, 0x092AU, 0x09C2U, 0x0A5AU}) {
    const int code = 56 + engine++;
    v.StateValues(3) = 0;
    EXPECT_THAT(toggle(code, 0), IsEmpty()) << code;
    EXPECT_EQ(v.StateValues(3), 0) << code;
    EXPECT_THAT(toggle(code, 1), ElementsAre(byte(magneto, 4), byte(Selected, engine))) << code;
    EXPECT_EQ(v.StateValues(3), 4) << code;
  }
}

TEST_F(Toggles, AnEngineThatRunsIsNotStarted) {
  v.Engines(2).Combustion = 1;
  EXPECT_THAT(toggle(57, 1), IsEmpty());
  EXPECT_EQ(v.StateValues(3), 0);
  EXPECT_THAT(toggle(56, 1), ElementsAre(byte(0x0892, 4), byte(Selected, 1)));
}

TEST_F(Toggles, ThePanelSwitchIsForTheDisplaysAlone) {
  EXPECT_THAT(toggle(61, 1), IsEmpty());
  EXPECT_EQ(v.StateValues(16), 1);
  toggle(61, 0);
  EXPECT_EQ(v.StateValues(16), 0);
}

TEST_F(Toggles, PropellerSyncFollowsTheLevel) {
  EXPECT_THAT(toggle(63, 1), ElementsAre(word(0x2EC8, 1)));
  EXPECT_THAT(toggle(63, 0), ElementsAre(word(0x2EC8, 0)));
}

TEST_F(Toggles, CrossfeedGoesOneWayOrTheOther) {
  EXPECT_THAT(toggle(64, 1), ElementsAre(byte(0x0AF8, 14)));
  EXPECT_THAT(toggle(64, 0), ElementsAre(byte(0x0AF8, 0)));
  EXPECT_THAT(toggle(65, 1), ElementsAre(byte(0x0AF8, 15)));
  EXPECT_THAT(toggle(65, 2), ElementsAre(byte(0x0AF8, 0)));
}

TEST_F(Toggles, TheExecLampIsMirrored) {
  EXPECT_THAT(toggle(67, 1), ElementsAre(lamp(13, 1)));
  EXPECT_THAT(toggle(67, 0), ElementsAre(lamp(13, 0)));
  t.server.accessors.autoP->Do_Write_Offsets = 0;
  EXPECT_THAT(toggle(67, 1), IsEmpty());
}

TEST_F(Toggles, AutothrottleIsArmedByTheLevel) {
  EXPECT_THAT(toggle(68, 1), ElementsAre(lamp(9, 1)));
  EXPECT_EQ(t.server.autoflight.xAutoT->apAutoThrottle(), 1);
  EXPECT_EQ(t.server.autoflight.annunciators.ATEngagedMode, "ARM");
  EXPECT_THAT(toggle(68, 0), ElementsAre(lamp(9, 0)));
  EXPECT_EQ(t.server.autoflight.xAutoT->apAutoThrottle(), 0);
}

TEST_F(Toggles, PanelWordsTakeTheLevelRoundedToAWholeNumber) {
  for (int n = 1; n <= 9; ++n) {
    EXPECT_THAT(toggle(68 + n, static_cast<float>(n)), IsEmpty());
    EXPECT_EQ(v.PanelWord(n), n);
  }
  toggle(69, 2.5F);
  EXPECT_EQ(v.PanelWord(1), 2);
  toggle(69, 40000);
  EXPECT_EQ(v.PanelWord(1), 2);
  EXPECT_EQ(status(), "SetToggleValues Overflow");
}

TEST_F(Toggles, Code999TellsTheDisplaysTheLevelPlus2) {
  EXPECT_THAT(toggle(999, 0), IsEmpty());
  EXPECT_EQ(v.StateValues(20), 2);
  toggle(999, 1);
  EXPECT_EQ(v.StateValues(20), 3);
}

}  // namespace
}  // namespace vorlent
