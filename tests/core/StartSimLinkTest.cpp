#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"
#include "support/Sticks.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class StartSimLink : public ::testing::Test {
 protected:
  std::vector<int> pans() const {
    return {host.store.EnginePan(1), host.store.EnginePan(2), host.store.EnginePan(3),
            host.store.EnginePan(4)};
  }

  TestServer host;
  Transcript transcript{host};
};

TEST_F(StartSimLink, TakesTheWindowAndTheNumberOfTheSimulator) {
  host.bus.put(0x3308, std::uint32_t{0xFADE0006});
  host.start();
  EXPECT_EQ(host.store.FsWindow, 12);
  EXPECT_EQ(host.store.FsVersionCode, 6);
}

TEST_F(StartSimLink, ShowsTheFlapsBoxForTheOldestSimulatorOnly) {
  for (const std::uint32_t number : {1U, 2U}) {
    TestServer one;
    one.bus.put(0x3308, 0xFADE0000 + number);
    std::vector<bool> shownAtEachState;
    one.form.sbStatusBar.addView([&](int panel) {
      if (panel == 2) shownAtEachState.push_back(one.form.txtFlaps.Visible());
    });
    one.start();
    EXPECT_THAT(shownAtEachState, ElementsAre(false, number == 1, number == 1));
  }
}

TEST_F(StartSimLink, TellsTheSimulatorThatItIsThere) {
  host.start();
  EXPECT_THAT(host.bus.writes, ElementsAre(FakeSimulatorBus::Write{0x033C, {1}}));
}

TEST_F(StartSimLink, ReadsTheFlapIncrementLowByteFirst) {
  host.bus.put(0x3BFA, std::uint8_t{0xFF});
  host.bus.put(0x3BFB, std::uint8_t{0x0F});
  host.start();
  EXPECT_EQ(host.store.FlapIncrement, 4095);
  EXPECT_EQ(host.store.FlapPositions, 5);
}

TEST_F(StartSimLink, AFlapIncrementOfZeroCountsAs2047) {
  host.bus.put(0x3BFA, std::uint16_t{0});
  host.start();
  EXPECT_EQ(host.store.FlapIncrement, 2047);
  EXPECT_EQ(host.store.FlapPositions, 9);
}

TEST_F(StartSimLink, CutsTheNumberOfFlapPositionsToTheWholePart) {
  host.bus.put(0x3BFA, std::uint16_t{6000});
  host.start();
  EXPECT_EQ(host.store.FlapPositions, 3);
}

TEST_F(StartSimLink, AFlapIncrementBeyond16BitsSignedIsAFault) {
  host.bus.put(0x3BFA, std::uint16_t{0x8000});
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Run-time error '6':\n\nOverflow")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(StartSimLink, FillsTheTankBoxesWithPercentTimesCapacity) {
  host.bus.put(0x0B84, std::uint32_t{4194304});  // half, left aux
  host.bus.put(0x0B88, std::uint32_t{7});
  host.bus.put(0x0B7C, std::uint32_t{2097152});  // a quarter, left main
  host.bus.put(0x0B80, std::uint32_t{1288});
  host.bus.put(0x0B94, std::uint32_t{8388608});  // full, right main
  host.bus.put(0x0B98, std::uint32_t{1290});
  host.bus.put(0x0B9C, std::uint32_t{4194304});  // half of nothing, right aux
  host.bus.put(0x0BA0, std::uint32_t{0});
  host.start();
  EXPECT_EQ(host.form.txtLeftAux.Text(), "3.5");
  EXPECT_EQ(host.form.txtLeftMain.Text(), "322");
  EXPECT_EQ(host.form.txtRightMain.Text(), "1290");
  EXPECT_EQ(host.form.txtRightAux.Text(), "0");
  EXPECT_EQ(host.form.txtLeftAux.ToolTipText(), "Max: 7");
  EXPECT_EQ(host.form.txtLeftMain.ToolTipText(), "Max: 1288");
  EXPECT_EQ(host.form.txtRightMain.ToolTipText(), "Max: 1290");
  EXPECT_EQ(host.form.txtRightAux.ToolTipText(), "Max: 0");
}

TEST_F(StartSimLink, SetsTheFuelSelectorsToTheMainTanks) {
  host.start();
  EXPECT_EQ(host.store.SwitchPair(1), 3);
  EXPECT_EQ(host.store.SwitchPair(2), 4);
  EXPECT_EQ(host.form.txtFuelL.Text(), "Left Main");
  EXPECT_EQ(host.form.txtFuelR.Text(), "Right Main");
}

TEST_F(StartSimLink, SetsThePanelWords) {
  for (int word = 1; word <= 14; ++word) host.store.PanelWord(word) = 77;
  host.start();
  std::vector<int> words;
  for (int word = 1; word <= 14; ++word) words.push_back(host.store.PanelWord(word));
  EXPECT_THAT(words, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 5, 10, 0, 0));
}

TEST_F(StartSimLink, OneEngineSoundsFromTheMiddle) {
  host.bus.put(0x0AEC, std::uint8_t{1});
  host.start();
  EXPECT_EQ(host.store.EngineCount, 1);
  EXPECT_THAT(pans(), ElementsAre(50, 0, 0, 0));
}

TEST_F(StartSimLink, NoEngineIsPannedAsOne) {
  host.bus.put(0x0AEC, std::uint8_t{0});
  host.start();
  EXPECT_THAT(pans(), ElementsAre(50, 0, 0, 0));
}

TEST_F(StartSimLink, TwoEnginesSoundFromLeftAndRight) {
  host.bus.put(0x0AEC, std::uint8_t{2});
  host.start();
  EXPECT_THAT(pans(), ElementsAre(20, 80, 0, 0));
}

TEST_F(StartSimLink, ThreeAndFourEnginesSoundFromFourPlaces) {
  host.bus.put(0x0AEC, std::uint8_t{4});
  host.start();
  EXPECT_EQ(host.store.EngineCount, 4);
  EXPECT_THAT(pans(), ElementsAre(20, 30, 70, 80));
  host.bus.put(0x0AEC, std::uint8_t{3});
  host.server.main->StartSimLink();
  EXPECT_THAT(pans(), ElementsAre(20, 30, 70, 80));
}

TEST_F(StartSimLink, PutsTheStickBoxToItsConfiguredState) {
  addSticks(host, 1);
  host.configure("JoysticksOn", "1");
  host.start();
  EXPECT_EQ(host.form.chkStick.Value(), 1);
  EXPECT_TRUE(host.form.cmdStick.Enabled());
}

TEST_F(StartSimLink, RunsTheStickBoxsHandlerAlsoWhenItsStateStays) {
  host.form.cmdStick.Enabled(true);
  host.start();
  EXPECT_EQ(host.form.chkStick.Value(), 0);
  EXPECT_FALSE(host.form.cmdStick.Enabled());
}

TEST_F(StartSimLink, RunsAgainByTheMenuWithTheHourglass) {
  host.start();
  transcript.lines.clear();
  host.op.pointers.clear();
  host.server.failureDomain.run([this] { host.form.mnuNetwork(1).press(); });
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{
                  "FSUIPC Connection failed: Attempt to Open when already Open", BoxIcon::Critical,
                  "Initialization error"}));
  EXPECT_THAT(transcript.lines, ElementsAre("2| Waiting for Flight Simulator...", "sleep 500",
                                            "2| FS Ready", "2| Waiting for clients...."));
  EXPECT_THAT(host.op.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

}  // namespace
}  // namespace vorlent
