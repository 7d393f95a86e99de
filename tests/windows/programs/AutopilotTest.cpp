#include <gtest/gtest.h>

#include <cmath>

#include "base/clsIniRw.h"
#include "display/RecordReader.h"
#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

/// A display that flies by the mode control panel. How well the laws fly is tested elsewhere, in
/// virtual time; here they do it with the system's own timers and messages. The flight is twice as
/// fast as the clock: poll and cycle keep up with it, on a busy machine, too.
class FlownFromADisplay : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.configure("Polling", "30");
    clsIniRw().WriteKey("Platform", "CycleTime", "200", cockpit.path("Vorlent.ini"));
    cockpit.startSimulator({"--speed", "2"});
    cockpit.bringServerUp();
    // The name of the machine that has the tuning, as shipped.
    display.send(cockpit.basePort, "Connection on a b 50 display");
    ASSERT_TRUE(flyUntil([&] { return isOn("apMaster"); })) << "the cycle did not start";
    dial(Altitude, now("AircraftAltitude"));
    dial(Speed, now("Ias"));
    dial(Heading, now("MagHeading"));
    for (const int button : {Autothrottle, HoldSpeed, CommandA, HeadingSelect, AltitudeHold})
      press(button);
    ASSERT_TRUE(flyUntil([&] { return isOn("apCmdLeft"); })) << "it was not engaged";
  }

  enum Code {
    Altitude = 81,
    Heading = 82,
    Speed = 84,
    Autothrottle = 163,
    HoldSpeed = 165,
    LevelChange = 167,
    HeadingSelect = 172,
    AltitudeHold = 174,
    CommandA = 183
  };

  void press(int code) const { command("p P " + std::to_string(code) + " 1 "); }
  void dial(int code, double value) const {
    command("p A " + std::to_string(code) + " " + std::to_string(std::lround(value)) + " ");
  }
  double now(const std::string& name) const { return record_->number(name); }
  bool isOn(const std::string& mode) const { return record_->apBit(mode); }
  /// Looks at each record until the condition holds; false after four minutes without it.
  template <class Condition>
  bool flyUntil(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + 240s;
    do {
      if (std::chrono::steady_clock::now() > end) return false;
      look();
    } while (!holds());
    return true;
  }
  /// Waits until the aircraft has been there for ten seconds, twenty of its own.
  bool staysAt(double altitude_ft, double heading_deg) {
    int records = 0;
    return flyUntil([&] {
      const bool isThere = std::abs(now("AircraftAltitude") - altitude_ft) < 100 &&
                           std::abs(std::remainder(now("MagHeading") - heading_deg, 360)) < 2;
      records = isThere ? records + 1 : 0;
      return records == 200;
    });
  }
  std::string place() const {
    return std::to_string(now("AircraftAltitude")) + " ft, " + std::to_string(now("MagHeading")) +
           " degrees";
  }

  WindowsCockpit cockpit;
  DisplayLink display;

 private:
  void look() {
    const auto text = display.receive("Data 2 1 ");
    if (!text) throw std::runtime_error("no record");
    record_.emplace(reader_.read(*text));
  }
  void command(const std::string& text) const { display.send(cockpit.basePort, text); }

  RecordReader reader_;
  std::optional<Record> record_;
};

TEST_F(FlownFromADisplay, ClimbsToTheAltitudeAndTurnsToTheHeadingThatWereDialled) {
  const double level_ft = std::round(now("AircraftAltitude"));
  const double before_deg = std::round(now("MagHeading"));
  ASSERT_TRUE(staysAt(level_ft, before_deg)) << place();

  const double altitude_ft = level_ft + 1500;
  const double heading_deg = std::fmod(before_deg + 90, 360);
  dial(Heading, heading_deg);
  dial(Altitude, altitude_ft);
  press(LevelChange);
  EXPECT_TRUE(staysAt(altitude_ft, heading_deg)) << place();
  EXPECT_NEAR(now("Ias"), 250, 20);
}

}  // namespace
}  // namespace vorlent
