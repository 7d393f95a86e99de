#include <gtest/gtest.h>

#include <thread>

#include "support/Loudspeaker.h"
#include "windows/support/ForeignClient.h"
#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

using std::chrono::steady_clock;
using Moment = Loudspeaker::Moment;

constexpr double Audible = 0.02;

/// A hop, off the runway and down again.
const std::string Hop =
    "# name,   seconds, knots, knots/s, feet, feet/min, heading, flaps, gear, spoilers, engines\n"
    "stand,          5,     0,      1,    66,        0,     240,     5, down,        0, running\n"
    "roll,          45,   145,      5,   300,     1500,     240,     5, down,        0, running\n"
    "down,          40,   132,      2,     0,      900,     240,    30, down,        0, running\n";

template <class Condition>
Moment when(Condition holds) {
  const auto end = steady_clock::now() + 90s;
  while (!holds()) {
    if (steady_clock::now() > end) throw std::runtime_error("the aircraft does not hop");
    std::this_thread::sleep_for(2ms);
  }
  return steady_clock::now();
}

TEST(HeardProgram, TheTouchdownIsHeardAtItsTime) {
  Loudspeaker loudspeaker;
  WindowsCockpit cockpit;
  cockpit.folder.write("hop.txt", Hop);
  cockpit.folder.write("Flight deck 7/Cockpits/737-700/sound.cfg",
                       "60,1,95,40,0.05,90,80,70\r\n5,1,1,1,1\r\n");
  cockpit.startSimulator({"--script", cockpit.folder / "hop.txt"});
  cockpit.bringServerUp();
  cockpit.server->type("press frmMainClient.Settings(1)");
  ASSERT_TRUE(cockpit.server->waitForLine("="));
  const DisplayLink display;
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  ASSERT_TRUE(display.receive("Data ")) << cockpit.server->output();

  ForeignClient simulator;
  const auto onGround = [&] { return simulator.read<std::uint16_t>(0x0366) == 1; };
  Moment rolling = steady_clock::now();
  const Moment flying = when([&] {
    if (onGround()) rolling = steady_clock::now();
    return steady_clock::now() - rolling > 2s;
  });
  const Moment touchdown = when(onGround);
  // In the air it is silent.
  const auto heard = loudspeaker.heardUntil(touchdown + 500ms).firstAbove(Audible, flying);
  ASSERT_TRUE(heard);
  const double late_ms = std::chrono::duration<double, std::milli>(*heard - touchdown).count();
  RecordProperty("late_ms", std::to_string(late_ms));
  EXPECT_GT(late_ms, -100);
  EXPECT_LT(late_ms, 100);
  cockpit.server->type("exit");
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
}

}  // namespace
}  // namespace vorlent
