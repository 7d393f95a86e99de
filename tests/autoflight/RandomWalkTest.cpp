#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "autoflight/ModeTable.h"
#include "autoflight/PlannedFlight.h"
#include "base/bytes.h"
#include "support/walks.h"

namespace vorlent {
namespace {

using Kind = RandomFlight::Kind;
using Setters = RandomFlight::Setters;

/// The offsets that the autoflight may write and their sizes, lamps apart.
std::size_t sizeOf(std::uint32_t offset) {
  switch (offset) {
    case 0x07D4:
      return 4;
    case 0x2EB0:
      return 8;
    case 0x07CC:
    case 0x07E2:
    case 0x07E8:
    case 0x07F2:
    case 0x0BC0:
    case 0x088C:
    case 0x0924:
    case 0x09BC:
    case 0x0A54:
      return 2;
    case 0x07DC:
    case 0x07E4:
    case 0x0804:
      return 1;
    default:
      break;
  }
  const bool lamp = offset >= IndependentAutoflight::lampOffset(1) &&
                    offset <= IndependentAutoflight::lampOffset(22);
  return lamp ? 1 : 0;
}

/// Empty for a write that the simulator can take.
std::string faultOf(const FakeSimulatorBus::Write& write) {
  if (write.bytes.size() != sizeOf(write.offset))
    return "offset " + std::to_string(write.offset) + " in " + std::to_string(write.bytes.size()) +
           " bytes";
  if (write.bytes.size() == 1 && write.bytes[0] > 1)
    return "a switch at " + std::to_string(write.bytes[0]);
  if (write.bytes.size() != 8) return "";
  const double value = load<double>(reinterpret_cast<const std::byte*>(write.bytes.data()));
  return std::isfinite(value) ? "" : "an aileron trim that is no number";
}

/// One flight of many cycles along random plans, looked at after each command and each cycle.
class Walk {
 public:
  Walk(std::uint32_t seed, Kind kind) : flight_(both, seed, kind) {}

  /// Gives the first thing that is wrong, empty when nothing is.
  std::string start() {
    both.putShare();
    std::string found = both.Init() + flight_.tuneAll();
    both.applyInputs();
    return found;
  }
  std::string step(int nth) {
    flight_.move();
    if (nth % 3 == 0) check(flight_.command(Setters::WithoutCapture), flight_.last());
    check(both.AFDS(), "cycle");
    check(flight_.answer(), "answer");
    cutInARow_ = both.cut ? cutInARow_ + 1 : 0;
    longestCut = std::max(longestCut, cutInARow_);
    markStanding(both.server.server, seen);
    phases.insert(both.server.server.autoflight.afds->fmc.PhaseOfFlightEnum);
    return found_;
  }
  std::string retune() {
    check(flight_.retune(), flight_.last());
    return found_;
  }
  /// An aircraft in flight beside a leg, away from its altitude, on the course of a station in calm
  /// air.
  std::string calmDown() {
    flight_.planner.planWell();
    std::string found = flight_.execute();
    found += both.AFDS();
    flight_.standOnLeg();
    auto& in = both.twin.in;
    in.Paused = 0;
    in.Ias = 250;
    in.WindSpeedKt = 0;
    in.AircraftAltitude = both.twin.apAltitude() - 100;
    both.applyInputs();
    return found;
  }
  int answers() const { return flight_.planner.answers; }

  TwinAutoflight both;
  std::set<int> phases;
  std::vector<bool> seen = std::vector<bool>(annunciationRows());
  int longestCut = 0;

 private:
  void check(std::string found, const std::string& after) {
    for (const auto& write : both.lastWrites) found += faultOf(write);
    found += brokenModeRows(both.server.server);
    if (!found.empty() && found_.empty()) found_ = "after " + after + ": " + found;
  }

  PlannedFlight flight_;
  std::string found_;
  int cutInARow_ = 0;
};

constexpr const char* LogLines[] = {
    "DX within turningrange",          "Impossible Intercept",
    "Past Crossing Intercept",         "switch to FlightPhases.eclimb",
    "switch to FlightPhases.ecruise",  "switch to FlightPhases.epredescent",
    "switch to FlightPhases.edescent", "switch to FlightPhases.eapproach"};

/// A quarter of the million cycles; the seeds are told apart by the tests.
void walkAQuarter(std::uint32_t seed) {
  const int cycles = walkLength(250'000);
  constexpr int CyclesToACalm = 1000;
  Walk walk(seed, Kind::Wild);
  ASSERT_EQ(walk.start(), "");
  for (int nth = 1; nth <= cycles; ++nth) {
    if (nth % 100 == 0) {
      ASSERT_EQ(walk.retune(), "") << "cycle " << nth;
    }
    ASSERT_EQ(walk.step(nth), "") << "cycle " << nth;
    if (nth % CyclesToACalm != 0) continue;
    ASSERT_EQ(walk.start(), "") << "cycle " << nth;
    ASSERT_EQ(walk.calmDown(), "") << "cycle " << nth;
    ASSERT_EQ(walk.both.AFDS(), "") << "cycle " << nth;
    // The pacing counter faults at its end, which is after all that a cycle does.
    ASSERT_TRUE(!walk.both.cut || walk.both.server.server.autoflight.afds->Relay() == 32767)
        << "cut in calm air, cycle " << nth;
  }
  for (std::size_t row = 0; row < annunciationRows(); ++row)
    EXPECT_TRUE(walk.seen[row]) << annunciationRow(row) << " has never stood";
  EXPECT_GT(walk.both.faults, 0);
  EXPECT_EQ(walk.phases, (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_GT(walk.answers(), 0);
  for (const char* line : LogLines) EXPECT_GT(walk.both.logged[line], 0) << line;
  ::testing::Test::RecordProperty("faults", walk.both.faults);
  ::testing::Test::RecordProperty("longestCut", walk.longestCut);
  ::testing::Test::RecordProperty("answers", walk.answers());
  ::testing::Test::RecordProperty("writes", static_cast<int>(walk.both.written));
}

TEST(RandomWalk, SurvivesAQuarterMillionCyclesOfAnything1) { walkAQuarter(11); }
TEST(RandomWalk, SurvivesAQuarterMillionCyclesOfAnything2) { walkAQuarter(12); }
TEST(RandomWalk, SurvivesAQuarterMillionCyclesOfAnything3) { walkAQuarter(13); }
TEST(RandomWalk, SurvivesAQuarterMillionCyclesOfAnything4) { walkAQuarter(14); }

TEST(RandomWalk, InTheEnvelopeNoTrimAndNoLeverTurnsOver) {
  Walk walk(15, Kind::InEnvelope);
  ASSERT_EQ(walk.start(), "");
  const int cycles = walkLength(50'000);
  for (int nth = 1; nth <= cycles; ++nth) ASSERT_EQ(walk.step(nth), "") << "cycle " << nth;
  EXPECT_EQ(walk.both.twin.turnedOver, 0);
  EXPECT_GT(walk.both.written, static_cast<std::size_t>(cycles));
}

}  // namespace
}  // namespace vorlent
