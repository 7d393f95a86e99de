#include <gtest/gtest.h>

#include <random>
#include <set>

#include "autoflight/ModeTable.h"
#include "autoflight/RandomFlight.h"
#include "commands/commands.h"
#include "support/walks.h"

namespace vorlent {
namespace {

/// A panel that anybody plays with: buttons 162 to 217 without the flight directors', and the
/// knobs of bank limit, altitude, heading, speed and vertical speed.
class RandomPanel {
 public:
  explicit RandomPanel(Server& server) : commands_(*server.commands) {}

  std::string touch() {
    if (random_() % 4 == 0) return turnKnob();
    std::int16_t code = 188;
    while (code == 188 || code == 189) code = static_cast<std::int16_t>(162 + random_() % 56);
    commands_.SetButtonValues(code, 1);
    return "button " + std::to_string(code);
  }

 private:
  struct Knob {
    std::int16_t id;
    int lowest;
    unsigned steps;
  };

  std::string turnKnob() {
    static constexpr Knob Knobs[] = {
        {79, 5, 30}, {81, 0, 42000}, {82, 0, 361}, {84, 100, 300}, {85, -8000, 14000}};
    const Knob& knob = Knobs[random_() % std::size(Knobs)];
    commands_.SetAnalogValues(
        knob.id, static_cast<float>(knob.lowest + static_cast<int>(random_() % knob.steps)));
    return "knob " + std::to_string(knob.id);
  }

  Commands& commands_;
  std::mt19937 random_{21};
};

/// Untuned, a VOR, untuned, a localizer, in turn.
std::int16_t radioFlags(int cycle) {
  constexpr std::int16_t Flags[] = {0, 128, 2, 130};
  return Flags[cycle / 200 % 4];
}

TEST(RandomPanel, LeavesTheAnnunciationsInTheTable) {
  TwinAutoflight both;
  Server& server = both.server.server;
  RandomFlight flight(both, 22, RandomFlight::Kind::InEnvelope);
  RandomPanel panel(server);
  ASSERT_EQ(both.Init() + flight.tuneAll(), "");
  std::vector<bool> seen(annunciationRows());
  const int cycles = walkLength(100'000);
  for (int cycle = 0; cycle < cycles; ++cycle) {
    flight.move();
    server.store.NavRadios(1).BackCourse = radioFlags(cycle);
    const std::string touched = cycle % 3 == 0 ? panel.touch() : "";
    ASSERT_EQ(brokenModeRows(server), "") << touched << ", cycle " << cycle;
    server.autoflight.afds->AFDS();
    ASSERT_EQ(brokenModeRows(server), "") << "cycle " << cycle;
    markStanding(server, seen);
    both.server.bus.writes.clear();
  }
  // The rest needs a plan or the flight directors, or has no button.
  const std::set<std::string> elsewhere = {"RollEngagedMode LNAV", "PitchEngagedMode VNAV_SPD",
                                           "PitchEngagedMode TO/GA", "ATEngagedMode FMC_SPD",
                                           "ATEngagedMode THR_HLD"};
  for (std::size_t row = 0; row < annunciationRows(); ++row)
    EXPECT_EQ(seen[row], !elsewhere.contains(annunciationRow(row))) << annunciationRow(row);
}

}  // namespace
}  // namespace vorlent
