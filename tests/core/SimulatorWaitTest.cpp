#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

constexpr std::uint32_t NotReady = 0x3364;

class SimulatorWait : public ::testing::Test {
 protected:
  void simulatorNumber(std::uint32_t number) { host.bus.put(0x3308, 0xFADE0000 + number); }
  /// Ready during the n-th pause of 500 ms.
  void readyInPause(int n) {
    host.bus.put(NotReady, std::uint8_t{1});
    transcript.onSleep = [this, n](int duration_ms) {
      if (duration_ms == 500 && ++pauses == n) host.bus.put(NotReady, std::uint8_t{0});
    };
  }
  /// The state line and the pauses from the link's opening to the flaps.
  std::vector<std::string> linkLines() const {
    const auto first = std::find(transcript.lines.begin(), transcript.lines.end(), "1| Start ");
    const auto last = std::find(transcript.lines.begin(), transcript.lines.end(), "1| Init flaps");
    return {first, last};
  }

  TestServer host;
  Transcript transcript{host};
  int pauses = 0;
};

TEST_F(SimulatorWait, WaitsHalfASecondAtATimeUntilTheSimulatorIsReady) {
  readyInPause(3);
  host.start();
  EXPECT_THAT(linkLines(),
              ElementsAre("1| Start ", "2| Waiting for Flight Simulator...", "sleep 500",
                          "sleep 500", "sleep 500", "2| FS Ready", "2| Waiting for clients...."));
}

TEST_F(SimulatorWait, WaitsHalfASecondAlsoForAReadySimulator) {
  host.start();
  EXPECT_THAT(linkLines(), ElementsAre("1| Start ", "2| Waiting for Flight Simulator...",
                                       "sleep 500", "2| FS Ready", "2| Waiting for clients...."));
}

TEST_F(SimulatorWait, AnyValueButZeroIsNotReady) {
  host.bus.put(NotReady, std::uint8_t{255});
  transcript.onSleep = [this](int duration_ms) {
    if (duration_ms != 500) return;
    ++pauses;
    host.bus.put(NotReady, static_cast<std::uint8_t>(pauses == 1 ? 128 : 0));
  };
  host.start();
  EXPECT_EQ(pauses, 2);
}

TEST_F(SimulatorWait, DispatchesEventsWhileItWaits) {
  readyInPause(5);
  std::string statusAtEvent;
  const auto wait = transcript.onSleep;
  transcript.onSleep = [&](int duration_ms) {
    wait(duration_ms);
    if (pauses == 2) host.loop.post([&] { statusAtEvent = host.form.sbStatusBar.panelText(2); });
  };
  host.start();
  EXPECT_EQ(statusAtEvent, "Waiting for Flight Simulator...");
}

TEST_F(SimulatorWait, PollsOnceWhenTheSimulatorIsReady) {
  readyInPause(2);
  host.bus.put(0x0574, std::uint32_t{1000});
  int requestsBefore = 0;
  transcript.onSleep = [this, &requestsBefore, wait = transcript.onSleep](int duration_ms) {
    wait(duration_ms);
    requestsBefore = host.bus.requests;
    EXPECT_EQ(host.store.AircraftAltitude, 0);
  };
  host.start();
  EXPECT_NEAR(host.store.AircraftAltitude, 3281.15, 0.001);
  // The ready flag, the poll, the flap increment.
  EXPECT_EQ(host.bus.requests - requestsBefore, 3);
}

TEST_F(SimulatorWait, TheOperatorLeavesTheWaitByClosingTheProgram) {
  readyInPause(1000);
  const std::string flaps = "1,2,5,10,15,25,30,40\r\n";
  transcript.onSleep = [this, wait = transcript.onSleep](int duration_ms) {
    wait(duration_ms);
    if (pauses == 2)
      host.loop.post([this] { host.server.failureDomain.run([this] { host.form.close(); }); });
  };
  host.start();
  EXPECT_EQ(pauses, 2);
  EXPECT_EQ(host.exitStatus(), 0);
  EXPECT_EQ(host.log(), "Init IPC\r\nStart \r\nSave configuration\r\nVorlent close\r\nQuit\r\n");
  EXPECT_EQ(host.folder.read("Cockpits/737-700/Flaps.cfg"), flaps);
  EXPECT_EQ(host.bus.openBlocks, 0);
  EXPECT_EQ(host.form.sbStatusBar.panelText(2), "Waiting for Flight Simulator...");
}

TEST_F(SimulatorWait, ASimulatorThatGoesAwayInTheWaitEndsTheProcess) {
  readyInPause(1000);
  transcript.onSleep = [this, wait = transcript.onSleep](int duration_ms) {
    wait(duration_ms);
    if (pauses == 1) host.bus.unansweredRequests = 1000;
  };
  host.start();
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.log(),
            "Init IPC\r\nStart \r\nThe simulator does not answer as it should: start it again, "
            "then Vorlent\r\n"
            "FSUIPC Process error IPC timed out all retries\r\n");
}

TEST_F(SimulatorWait, WaitsForXPlaneByItsOwnWords) {
  host.bus.put(0x6FFF, std::uint8_t{1});
  host.bus.windows["X-System"] = 13;
  readyInPause(2);
  bool flapsBoxInTheWait = false;
  transcript.onSleep = [&, wait = transcript.onSleep](int duration_ms) {
    wait(duration_ms);
    flapsBoxInTheWait = host.form.txtFlaps.Visible();
  };
  host.start();
  EXPECT_THAT(linkLines(), ElementsAre("1| Start ", "2| Waiting for X-Plane...", "sleep 500",
                                       "sleep 500", "2| FS Ready", "2| Waiting for clients...."));
  EXPECT_EQ(host.store.FsWindow, 13);
  EXPECT_EQ(host.store.FsVersionCode, 8);
  EXPECT_TRUE(flapsBoxInTheWait);
  // By the poll: the start asks for it in the other case alone.
  EXPECT_EQ(host.store.FlapIncrement, 2047);
  EXPECT_EQ(host.store.FlapPositions, 9);
}

TEST_F(SimulatorWait, DoesNotWaitForASimulatorBelowThree) {
  simulatorNumber(2);
  host.bus.put(NotReady, std::uint8_t{1});
  host.bus.put(0x0574, std::uint32_t{1000});
  host.start();
  EXPECT_THAT(linkLines(),
              ElementsAre("1| Start ", "2| Waiting for clients....", "2| Waiting for clients...."));
  EXPECT_NEAR(host.store.AircraftAltitude, 3281.15, 0.001);
  EXPECT_FALSE(host.form.txtFlaps.Visible());
}

TEST_F(SimulatorWait, WaitsForSimulatorThree) {
  simulatorNumber(3);
  readyInPause(2);
  host.start();
  EXPECT_EQ(pauses, 2);
}

}  // namespace
}  // namespace vorlent
