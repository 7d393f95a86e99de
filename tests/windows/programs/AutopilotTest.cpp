#include <gmock/gmock.h>

#include <cmath>

#include "base/clsIniRw.h"
#include "display/RecordReader.h"
#include "windows/programs/WindowsCockpit.h"

namespace vorlent {
namespace {

/// A display that flies by the mode control panel. The flight is four times as fast as the clock:
/// poll and cycle keep up with it.
class FlownFromADisplay : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.configure("Polling", "15");
    clsIniRw().WriteKey("Platform", "CycleTime", "100", cockpit.path("Vorlent.ini"));
    cockpit.startSimulator({"--speed", "4"});
    cockpit.bringServerUp();
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    look();
    dial(Altitude, now("AircraftAltitude"));
    dial(Speed, now("Ias"));
    dial(Heading, now("MagHeading"));
    for (const int button : {Autothrottle, HoldSpeed, CommandA, HeadingSelect, AltitudeHold})
      press(button);
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

  void press(int code) { command("p P " + std::to_string(code) + " 1 "); }
  void dial(int code, double value) {
    command("p A " + std::to_string(code) + " " + std::to_string(std::lround(value)) + " ");
  }
  double now(const std::string& name) const { return record_->number(name); }
  /// Takes the next record.
  void look() {
    const auto text = display.receive("Data 2 1 ");
    if (!text) throw std::runtime_error("no record");
    record_.emplace(reader_.read(*text));
  }
  /// Watches until the condition holds; false after a minute without it.
  template <class Condition>
  bool flyUntil(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + 90s;
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      look();
    }
    return true;
  }
  double headingError_deg(double wanted_deg) const {
    return std::remainder(now("MagHeading") - wanted_deg, 360);
  }

  WindowsCockpit cockpit;
  DisplayLink display;

 private:
  void command(const std::string& text) { display.send(cockpit.basePort, text); }

  RecordReader reader_;
  std::optional<Record> record_;
};

TEST_F(FlownFromADisplay, AClimbEndsAtItsAltitude) {
  const double wanted_ft = std::round(now("AircraftAltitude")) + 1500;
  dial(Altitude, wanted_ft);
  press(LevelChange);
  ASSERT_TRUE(flyUntil([&] { return now("AircraftAltitude") > wanted_ft - 500; }));
  double highest_ft = 0;
  int settled = 0;
  EXPECT_TRUE(flyUntil([&] {
    highest_ft = std::max(highest_ft, now("AircraftAltitude"));
    settled = std::abs(now("AircraftAltitude") - wanted_ft) < 60 ? settled + 1 : 0;
    return settled > 150;
  }));
  EXPECT_LT(highest_ft, wanted_ft + 150);
}

TEST_F(FlownFromADisplay, ATurnEndsAtItsHeading) {
  const double wanted_deg = std::fmod(std::round(now("MagHeading")) + 90, 360);
  const double level_ft = now("AircraftAltitude");
  dial(Heading, wanted_deg);
  int settled = 0;
  double farthest_ft = 0;
  EXPECT_TRUE(flyUntil([&] {
    farthest_ft = std::max(farthest_ft, std::abs(now("AircraftAltitude") - level_ft));
    settled = std::abs(headingError_deg(wanted_deg)) < 2 ? settled + 1 : 0;
    return settled > 100;
  }));
  EXPECT_LT(farthest_ft, 150);
}

}  // namespace
}  // namespace vorlent
