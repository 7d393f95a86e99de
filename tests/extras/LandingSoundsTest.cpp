#include "extras/SoundTest.h"
#include "simulator/ScriptedFlight.h"
#include "support/places.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

/// The shipped flight to listen to, flown in virtual time in front of the whole server, which polls
/// by its own timer.
class LandingSounds : public SoundTest {
 protected:
  struct Call {
    double at_s;
    std::string what;
  };

  void fly() {
    const FlightScript script = readFlightScript(dataFolder() + "/Flights/landing.txt");
    OffsetMemory memory;
    ScriptedFlight aircraft(memory, script);
    show(memory);
    host.greet(0);
    for (double now_s = 0; now_s < durationOf_s(script) - 1; now_s += Step_s) {
      aircraft.step(Step_s);
      show(memory);
      host.loop.advance(static_cast<int>(Step_s * 1000));
      for (std::string& call : device.takeCalls()) calls.push_back({now_s, std::move(call)});
      onGround.push_back(memory.read<std::uint16_t>(0x0366) == 1);
    }
  }
  void show(OffsetMemory& memory) {
    for (const auto& [offset, size] :
         {std::pair{0x0264U, 0x03B0U}, {0x0892U, 0x9CU}, {0x0AECU, 1U}})
      for (unsigned at = offset; at < offset + size; ++at)
        host.bus.put(at, memory.read<std::uint8_t>(at));
  }
  /// What is played and stopped, in order; levels are left out.
  Calls events() const {
    Calls found;
    for (const Call& call : calls)
      if (call.what.find(" volume ") == std::string::npos &&
          (call.what.find(" pan ") == std::string::npos || call.what.starts_with("start.wav")))
        found.push_back(call.what);
    return found;
  }
  double timeOf(const std::string& what, double after_s = -1) const {
    for (const Call& call : calls)
      if (call.what == what && call.at_s > after_s) return call.at_s;
    return -1;
  }
  /// When the aircraft's wheels change to this, behind a moment.
  double wheels_s(bool ground, double after_s) const {
    for (auto i = static_cast<std::size_t>(after_s / Step_s) + 1; i < onGround.size(); ++i)
      if (onGround[i] == ground && onGround[i - 1] != ground)
        return static_cast<double>(i) * Step_s;
    return -1;
  }

  static constexpr double Step_s = 0.02;
  std::vector<Call> calls;
  std::vector<bool> onGround;
};

TEST_F(LandingSounds, ComeInTheOrderOfTheFlight) {
  fly();
  EXPECT_THAT(events(),
              ElementsAre("open 1", "load rumble.wav", "rumble.wav loop", "load bump.wav",
                          "load tyres.wav", "bump.wav play", "tyres.wav play",  // the first poll
                          "load start.wav", "start.wav loop", "start.wav pan -2223",
                          "start.wav stop", "start.wav rewind",  //
                          "load start.wav", "start.wav loop", "start.wav pan 2222",
                          "start.wav stop", "start.wav rewind",  //
                          "bump.wav play", "tyres.wav play"));
  EXPECT_EQ(host.server.soundEvents->StarterId(2), 5);
}

TEST_F(LandingSounds, StandAtTheirMomentsWithinAPoll) {
  fly();
  EXPECT_NEAR(timeOf("start.wav loop"), 5, 0.08);
  EXPECT_NEAR(timeOf("start.wav stop"), 13, 0.08);
  EXPECT_NEAR(timeOf("start.wav loop", 6), 13, 0.08);
  EXPECT_NEAR(timeOf("start.wav stop", 14), 21, 0.08);
  const double liftOff_s = wheels_s(false, 0);
  const double touchdown_s = wheels_s(true, liftOff_s);
  EXPECT_GT(touchdown_s, liftOff_s + 20);
  EXPECT_NEAR(timeOf("rumble.wav volume -10000", liftOff_s - 0.01), liftOff_s, 0.08);
  EXPECT_NEAR(timeOf("bump.wav play", 1), touchdown_s, 0.08);
}

TEST_F(LandingSounds, TheRollGrowsAndTheRollOutFadesInTheAirItIsSilent) {
  sounds.rumble = {"rumble.wav", 10, 0.5F, 95, 1, 5};
  fly();
  const double liftOff_s = wheels_s(false, 0);
  const double touchdown_s = wheels_s(true, liftOff_s);
  int last = -10000;
  for (const Call& call : calls) {
    if (!call.what.starts_with("rumble.wav volume ")) continue;
    const int volume = std::stoi(call.what.substr(18));
    const bool rolling = call.at_s < liftOff_s - 0.1;
    const bool flying = call.at_s > liftOff_s + 0.1 && call.at_s < touchdown_s - 0.1;
    const bool slowing = call.at_s > touchdown_s + 0.3;
    if (rolling) {
      EXPECT_GE(volume, last) << call.at_s;
    } else if (flying) {
      EXPECT_EQ(volume, -10000) << call.at_s;
    } else if (slowing) {
      EXPECT_LE(volume, last) << call.at_s;
    }
    if (slowing && call.at_s < touchdown_s + 1) {
      EXPECT_GT(volume, -500);
    }
    last = volume;
  }
  EXPECT_EQ(last, -10000) << "it stands again";
}

}  // namespace
}  // namespace vorlent
