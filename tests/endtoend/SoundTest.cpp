#include <gmock/gmock.h>
#include <signal.h>

#include <thread>

#include "endtoend/Cockpit.h"
#include "endtoend/GroundSimulator.h"
#include "endtoend/PulseSink.h"

namespace vorlent {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Moment = steady_clock::time_point;

/// The real server on a loudspeaker that is recorded, in front of an aircraft that the test flies.
class HeardServer : public testing::Test {
 protected:
  explicit HeardServer(int loudspeakers = 2) : sink(loudspeakers) {
    for (const std::string helper : {"vorlent-share", "vorlent-mdb"}) cockpit.addProgram(helper);
    cockpit.folder.write("Cockpits/737-700/sound.cfg", "60,1,95,40,0.05,90,80,70\r\n5,1,1,1,1\r\n");
    simulator.groundSpeed(130);
    simulator.descent(400);
    cockpit.bringServerUp();
    cockpit.server->type("press frmMainClient.Settings(1)");
    EXPECT_TRUE(cockpit.server->waitForLine("="));
  }
  bool greet() {
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    return display.receive("Data ").has_value();
  }
  void exit() {
    cockpit.server->type("exit");
    EXPECT_EQ(cockpit.server->waitForEnd(), 0) << cockpit.server->output();
  }

  PulseSink sink;
  Cockpit cockpit;
  GroundSimulator simulator{cockpit.folder / "bus"};
  DisplaySocket display;
};

constexpr double Audible = 0.02;

TEST_F(HeardServer, TouchdownIsHeardAtItsTimeAndTheRollGrowsWithSpeed) {
  SinkRecording recording(sink);
  ASSERT_TRUE(greet()) << cockpit.server->output();
  const Moment flying = steady_clock::now();
  recording.waitUntil(flying + 1s);
  EXPECT_FALSE(recording.firstAbove(Audible, flying)) << "the rumble is silent in the air";

  const Moment touchdown = simulator.onGround(true);
  recording.waitUntil(touchdown + 3s);
  const auto heard = recording.firstAbove(Audible, touchdown - 200ms);
  ASSERT_TRUE(heard);
  const double late_ms = std::chrono::duration<double, std::milli>(*heard - touchdown).count();
  RecordProperty("late_ms", std::to_string(late_ms));
  EXPECT_GT(late_ms, -100);
  EXPECT_LT(late_ms, 100);

  const double fast_dB = recording.level_dB(0, touchdown + 1500ms, touchdown + 3s);
  simulator.groundSpeed(15);  // volume 70 in place of 95: 2.7 dB less
  const Moment slow = simulator.descent(0);
  recording.waitUntil(slow + 2500ms);
  const double slow_dB = recording.level_dB(0, slow + 1s, slow + 2500ms);
  EXPECT_NEAR(fast_dB - slow_dB, 2.7, 1.0);
  const Moment standing = simulator.groundSpeed(0);
  recording.waitUntil(standing + 2s);
  EXPECT_LT(recording.level_dB(0, standing + 1s, standing + 2s), -80);
  exit();
}

TEST_F(HeardServer, AStarterIsHeardFromItsEnginesSideUntilTheEngineBurns) {
  ASSERT_TRUE(greet());
  SinkRecording recording(sink);
  const Moment start = simulator.starter(true);
  recording.waitUntil(start + 2s);
  const double left_dB = recording.level_dB(0, start + 1s, start + 2s);
  const double right_dB = recording.level_dB(1, start + 1s, start + 2s);
  EXPECT_GT(left_dB, -35);
  EXPECT_NEAR(left_dB - right_dB, 22.2, 1.5) << "engine 1 is panned to 20";
  simulator.starter(false);
  const Moment burning = simulator.put<std::uint8_t>(0x0894, 1);
  recording.waitUntil(burning + 2s);
  EXPECT_LT(recording.level_dB(0, burning + 1s, burning + 2s), -80);
}

/// On a device with a single channel.
class HeardOnOneLoudspeaker : public HeardServer {
 protected:
  HeardOnOneLoudspeaker() : HeardServer(1) {}
};

TEST_F(HeardOnOneLoudspeaker, BothChannelsAreHeard) {
  ASSERT_TRUE(greet());
  SinkRecording recording(sink);
  const Moment rolling = simulator.onGround(true);
  recording.waitUntil(rolling + 2s);
  EXPECT_GT(recording.level_dB(0, rolling + 1s, rolling + 2s), -35);
  exit();
}

TEST_F(HeardServer, ASoundServerThatGoesAwayCostsALineAndIsTakenAgain) {
  ASSERT_TRUE(greet());
  simulator.onGround(true);
  sink.stop();
  ASSERT_TRUE(cockpit.server->waitForLine("1| Sound device lost")) << cockpit.server->output();
  ASSERT_TRUE(display.receive("Data "));
  sink.startAgain();
  ASSERT_TRUE(cockpit.server->waitForLine("1| Sound device is back")) << cockpit.server->output();
  SinkRecording recording(sink);
  const Moment now = steady_clock::now();
  recording.waitUntil(now + 1s);
  EXPECT_GT(recording.level_dB(0, now + 500ms, now + 1s), -35) << "the rumble goes on";
  exit();
}

TEST_F(HeardServer, ASoundServerThatHangsBeforeTheDeviceIsOpenedCostsASecondAndABox) {
  sink.signal(SIGSTOP);
  const Moment began = steady_clock::now();
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  EXPECT_TRUE(cockpit.server->waitForLine("box plain \"Vorlent\": Could not create Directsound"))
      << cockpit.server->output();
  EXPECT_LT(steady_clock::now() - began, 4s);
  exit();
  sink.signal(SIGCONT);
}

TEST_F(HeardServer, ASoundServerThatHangsInFlightKeepsNoRecordWaiting) {
  ASSERT_TRUE(greet());
  simulator.onGround(true);
  sink.signal(SIGSTOP);
  for (int i = 0; i < 60; ++i) {
    simulator.groundSpeed(i);
    ASSERT_TRUE(display.receive("Data ", 1000ms)) << i;
  }
  exit();
  sink.signal(SIGCONT);
}

}  // namespace
}  // namespace vorlent
