#include "autoflight/clsAfds.h"
#include "core/singletons.h"
#include "flights/support/figures.h"

namespace vorlent {
namespace {

TEST(FlightHarness, ServerIsTunedAndItsCycleRuns) {
  Flight flight(Condition{});
  EXPECT_TRUE(flight.server().store.CycleRunning);
  EXPECT_GT(flight.autopilot().tuning.apPitchControlfactor, 0);
  EXPECT_EQ(flight.afds().AccelerationAltitude(), 1500);
  const auto before = flight.afds().Relay();
  flight.fly(4);
  EXPECT_EQ(flight.afds().Relay(), before + 10);
}

TEST(FlightHarness, NobodyMovesTheControlsBeforeTheAutopilotIsEngaged) {
  Flight flight(Condition{});
  const Sample start = flight.samples().front();
  flight.fly(60);
  for (const Sample& s : flight.samples()) {
    ASSERT_EQ(s.trim, start.trim);
    ASSERT_EQ(s.lever_pct, start.lever_pct);
  }
  EXPECT_LT(largestError(flight.samples(), &Sample::altitude_ft, 5000), 100);
}

TEST(FlightHarness, EngagedAutopilotAnnunciatesItsModes) {
  Flight flight(Condition{});
  flight.engageLevel();
  flight.fly(10);
  EXPECT_EQ(flight.shown().AutopilotMode, "CMD");
  EXPECT_EQ(flight.shown().PitchEngagedMode, "ALT_HOLD");
  EXPECT_EQ(flight.shown().RollEngagedMode, "HDG_SEL");
  EXPECT_EQ(flight.shown().ATEngagedMode, "MCP_SPD");
}

TEST(FlightHarness, SameConditionGivesTheSameFlight) {
  Condition rough;
  rough.wind.turbulence = Turbulence::Moderate;
  std::vector<double> ends;
  for (int n = 0; n < 2; ++n) {
    Flight flight(rough);
    flight.engageLevel();
    flight.fly(60);
    ends.push_back(flight.now().altitude_ft);
  }
  EXPECT_EQ(ends[0], ends[1]);
}

}  // namespace
}  // namespace vorlent
