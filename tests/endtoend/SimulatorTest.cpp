#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "display/RecordReader.h"
#include "endtoend/Cockpit.h"
#include "endtoend/OffsetClient.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string Greeting = "Connection on a b 50 localhost";

/// Seconds of the day, UTC.
int clock_s(OffsetClient& client) {
  return client.read<std::uint8_t>(0x023B) * 3600 + client.read<std::uint8_t>(0x023C) * 60 +
         client.read<std::uint8_t>(0x023A);
}

template <class Condition>
bool comesTrue(Condition holds, std::chrono::seconds limit = 30s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds())
    if (std::chrono::steady_clock::now() > end) return false;
  return true;
}

class SimulatorProgram : public testing::Test {
 protected:
  void start(const std::vector<std::string>& options) { cockpit.startSimulator(options); }
  OffsetClient client() const { return OffsetClient(cockpit.folder / "bus"); }
  int statusAfter(int signal) {
    cockpit.simulator->signal(signal);
    return cockpit.simulator->waitForEnd().value_or(-1);
  }
  /// The status of a start that comes to nothing.
  int statusOf(const std::vector<std::string>& options) {
    cockpit.simulator = cockpit.program("vorlent-sim", options);
    return cockpit.simulator->waitForEnd().value_or(-1);
  }
  const std::string& said() const { return cockpit.simulator->output(); }

  Cockpit cockpit{1};
};

struct Expected {
  const char* state;
  bool onGround;
  int combustion;  ///< a bit for each engine that runs
  double altitude_ft;
  double airspeed_kt;
};

/// Cruise: Mach 0.78 at 35000 feet is 264 knots of calibrated airspeed.
class StartingStateOfTheProgram : public SimulatorProgram,
                                  public testing::WithParamInterface<Expected> {};

TEST_P(StartingStateOfTheProgram, IsServedAndEndsInOrder) {
  const Expected& expected = GetParam();
  start({"--start", expected.state});
  OffsetClient offsets = client();
  EXPECT_EQ(offsets.read<std::uint16_t>(0x0366), expected.onGround ? 1 : 0);
  EXPECT_EQ(offsets.read<std::uint8_t>(0x0889), expected.combustion);
  EXPECT_NEAR(offsets.read<std::int32_t>(0x0574) / 0.3048, expected.altitude_ft, 20);
  EXPECT_NEAR(offsets.read<std::uint32_t>(0x02BC) / 128.0, expected.airspeed_kt, 2);
  EXPECT_EQ(statusAfter(SIGTERM), 0);
  EXPECT_EQ(said(), "ready\n");
}

INSTANTIATE_TEST_SUITE_P(All, StartingStateOfTheProgram,
                         testing::Values(Expected{"cold", true, 0, 75, 0},
                                         Expected{"runway", true, 3, 75, 0},
                                         Expected{"level", false, 3, 5000, 250},
                                         Expected{"cruise", false, 3, 35000, 264},
                                         Expected{"final", false, 3, 3066, 160}),
                         [](const auto& tested) { return std::string(tested.param.state); });

TEST_F(SimulatorProgram, ADisplaySeesSteadyFlightForAMinuteHandsOff) {
  start({"--speed", "10"});
  OffsetClient offsets = client();
  const int begin_s = clock_s(offsets);
  cockpit.bringServerUp();
  const DisplaySocket display;
  display.send(cockpit.basePort, Greeting);
  const RecordReader reader;
  int records = 0;
  for (; clock_s(offsets) < begin_s + 60 || records < 20; ++records) {
    const auto text = display.receive("Data ");
    ASSERT_TRUE(text);
    const Record record = reader.read(*text);
    ASSERT_NEAR(record.number("AircraftAltitude"), 5000, 100);
    ASSERT_NEAR(record.number("Ias"), 250, 5);
    ASSERT_NEAR(std::remainder(record.number("Bank"), 360), 0, 2);
    ASSERT_EQ(record.number("OnGround"), 0);
  }
}

// Bank is 0 to 360 in a record: with the right wing down it is above 180.
TEST_F(SimulatorProgram, AControlOffsetThatIsWrittenMovesTheAircraft) {
  start({});
  cockpit.bringServerUp();
  const DisplaySocket display;
  display.send(cockpit.basePort, Greeting);
  const RecordReader reader;
  const auto right_deg = [&] {
    return -std::remainder(reader.read(display.receive("Data ").value()).number("Bank"), 360);
  };
  ASSERT_NEAR(right_deg(), 0, 2);
  client().write<std::int16_t>(0x0BB6, 8000);
  EXPECT_TRUE(comesTrue([&] { return right_deg() > 10; }));
  client().write<std::int16_t>(0x0BB6, -8000);
  EXPECT_TRUE(comesTrue([&] { return right_deg() < -10; }));
}

/// Metres north and east of another place, by the small distance between them.
double distance_m(double north_deg, double east_deg, double latitude_deg) {
  constexpr double metresPerDegree = 6371008.8 * 3.14159265358979 / 180;
  return std::hypot(north_deg, east_deg * std::cos(latitude_deg * 3.14159265358979 / 180)) *
         metresPerDegree;
}

TEST_F(SimulatorProgram, AClientThatAsksWithoutAPauseDoesNotHoldTheFlightUp) {
  using Clock = std::chrono::steady_clock;
  start({});
  OffsetClient offsets = client();
  const auto latitude_deg = [&] {
    return static_cast<double>(offsets.read<std::int64_t>(0x0560)) / 4294967296.0 * 90 / 10001750;
  };
  const auto longitude_deg = [&] {
    return static_cast<double>(offsets.read<std::int64_t>(0x0568)) / 4294967296.0 * 360 /
           4294967296.0;
  };
  const double north_deg = latitude_deg();
  const double east_deg = longitude_deg();
  const auto begin = Clock::now();
  while (Clock::now() - begin < 2s) offsets.read<std::uint16_t>(0x0366);
  const double flown_m =
      distance_m(latitude_deg() - north_deg, longitude_deg() - east_deg, north_deg);
  const double elapsed_s = std::chrono::duration<double>(Clock::now() - begin).count();
  const double speed_m_s = offsets.read<std::uint32_t>(0x02B4) / 65536.0;
  EXPECT_NEAR(flown_m / speed_m_s, elapsed_s, 0.3);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST_F(SimulatorProgram, TheTraceIsCompleteWhenItEnds) {
  start({"--speed", "10", "--trace", cockpit.folder / "trace.csv"});
  OffsetClient offsets = client();
  const int begin_s = clock_s(offsets);
  ASSERT_TRUE(comesTrue([&] { return clock_s(offsets) > begin_s + 10; }));
  EXPECT_EQ(statusAfter(SIGINT), 0);
  const std::string trace = cockpit.folder.read("trace.csv");
  ASSERT_THAT(trace, testing::EndsWith("\n"));
  const std::vector<std::string> lines = linesOf(trace);
  ASSERT_GT(lines.size(), 101U);
  EXPECT_THAT(lines.front(), StartsWith("time_s,latitude_deg,longitude_deg,altitude_ft,"));
  const auto commas = std::count(lines.front().begin(), lines.front().end(), ',');
  for (std::size_t i = 1; i < lines.size(); ++i) {
    ASSERT_EQ(std::count(lines[i].begin(), lines[i].end(), ','), commas) << i;
    ASSERT_NEAR(std::stod(lines[i]), static_cast<double>(i - 1) / 10, 1e-9);
  }
}

TEST_F(SimulatorProgram, TheEndOfItsTerminalIsAnOrderlyEnd) {
  start({});
  EXPECT_EQ(statusAfter(SIGHUP), 0);
  EXPECT_TRUE(std::filesystem::is_empty(cockpit.folder / "bus"));
}

TEST_F(SimulatorProgram, TheSameSeedIsTheSameFlightAtAnyPaceOfTime) {
  const auto traceAt = [this](const std::string& speed) {
    start({"--start", "final", "--turbulence", "moderate", "--seed", "42", "--speed", speed,
           "--trace", cockpit.folder / "trace.csv"});
    OffsetClient offsets = client();
    const int begin_s = clock_s(offsets);
    EXPECT_TRUE(comesTrue([&] { return clock_s(offsets) > begin_s + 10; }));
    EXPECT_EQ(statusAfter(SIGTERM), 0);
    std::vector<std::string> lines = linesOf(cockpit.folder.read("trace.csv"));
    EXPECT_GT(lines.size(), 101U);
    lines.resize(101);
    return lines;
  };
  EXPECT_EQ(traceAt("7.3"), traceAt("20"));
}

TEST_F(SimulatorProgram, ATraceThatCannotBeMadeIsToldAndNothingFlies) {
  EXPECT_EQ(statusOf({"--trace", cockpit.folder / "missing/trace.csv"}), 1);
  EXPECT_EQ(said(), "vorlent-sim: cannot write the trace " + cockpit.folder / "missing/trace.csv" +
                        ": No such file or directory\n");
}

TEST_F(SimulatorProgram, AFullDiskIsToldOnceAndTheFlightGoesOn) {
  start({"--speed", "10", "--trace", "/dev/full"});
  OffsetClient offsets = client();
  const int begin_s = clock_s(offsets);
  EXPECT_TRUE(comesTrue([&] { return clock_s(offsets) > begin_s + 2; }));
  EXPECT_EQ(statusAfter(SIGTERM), 1);
  EXPECT_EQ(said(),
            "vorlent-sim: cannot write the trace /dev/full: No space left on device\nready\n");
}

TEST_F(SimulatorProgram, AScriptFliesByItself) {
  start({"--speed", "100", "--script", cockpit.folder / "Flights/round-trip.txt"});
  OffsetClient offsets = client();
  EXPECT_TRUE(comesTrue([&] { return offsets.read<std::uint16_t>(0x0366) == 0; }));
  EXPECT_TRUE(comesTrue([&] { return offsets.read<std::int32_t>(0x0574) > 3000; }));
}

TEST_F(SimulatorProgram, AScriptWithAFaultIsToldWithItsLine) {
  cockpit.folder.write("bad.txt", "# a flight\nclimb, 30\n");
  const std::string path = cockpit.folder / "bad.txt";
  EXPECT_EQ(statusOf({"--script", path}), 1);
  EXPECT_EQ(said(), "vorlent-sim: flight script " + path +
                        ": line 2: a segment has 10 fields between commas, this has 2\n");
}

TEST_F(SimulatorProgram, AWeightThatTheAircraftCannotHaveIsAWrongOption) {
  EXPECT_EQ(statusOf({"--mass", "160000"}), 2);
  EXPECT_THAT(said(), HasSubstr(" to 154500 lb, not 160000\n"));
}

}  // namespace
}  // namespace vorlent
