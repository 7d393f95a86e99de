#include "simulator/FlightScript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "simulator/RoundTrip.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

template <class Work>
std::string refusalOf(Work work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "";
}

std::string refusalOfText(const std::string& text) {
  return refusalOf([&] { flightScriptFrom(text); });
}

/// A good line with another field in one place, counted from 0.
std::string lineWith(std::size_t place, const std::string& field) {
  std::vector<std::string> fields{"climb", "30",  "160", "4.8",  "3000",
                                  "2200",  "240", "5",   "down", "0"};
  fields.at(place) = field;
  std::string line;
  for (const std::string& each : fields) line += each + ",";
  line.back() = '\n';
  return line;
}

TEST(FlightScript, ALineIsASegment) {
  const FlightScript script =
      flightScriptFrom("climb, 30, 160, 4.8, 3000, 2200, 245.5, 5, down, 0.25");
  ASSERT_EQ(script.size(), 1U);
  EXPECT_EQ(script[0].name, "climb");
  EXPECT_EQ(script[0].duration_s, 30);
  EXPECT_EQ(script[0].airspeed_kt, 160);
  EXPECT_EQ(script[0].acceleration_kt_s, 4.8);
  EXPECT_EQ(script[0].altitude_ft, 3000);
  EXPECT_EQ(script[0].verticalSpeed_ft_min, 2200);
  EXPECT_EQ(script[0].path.heading_deg, 245.5);
  EXPECT_FALSE(script[0].path.onCentreline);
  EXPECT_EQ(script[0].flapsDetent, 3);
  EXPECT_TRUE(script[0].gearDown);
  EXPECT_EQ(script[0].spoilers, 0.25);
}

TEST(FlightScript, CommentsAndEmptyLinesArePassedOver) {
  const FlightScript script = flightScriptFrom("# a flight\r\n\r\n" + lineWith(0, "one") +
                                               "\n  # more\n" + lineWith(0, "two"));
  ASSERT_EQ(script.size(), 2U);
  EXPECT_EQ(script[0].name, "one");
  EXPECT_EQ(script[1].name, "two");
  EXPECT_EQ(durationOf_s(script), 60);
}

TEST(FlightScript, TheCentrelineIsAPath) {
  EXPECT_TRUE(flightScriptFrom(lineWith(6, "centreline"))[0].path.onCentreline);
}

TEST(FlightScript, FlapsAreNamedByTheirAngle) {
  EXPECT_EQ(flightScriptFrom(lineWith(7, "0"))[0].flapsDetent, 0);
  EXPECT_EQ(flightScriptFrom(lineWith(7, "40"))[0].flapsDetent, 8);
}

TEST(FlightScript, AFaultIsToldWithItsLine) {
  EXPECT_EQ(refusalOfText("# a comment\n\n" + lineWith(1, "long")),
            "line 3: the duration in seconds is a number from 1 to 86400, not \"long\"");
  EXPECT_EQ(refusalOfText("climb, 30"),
            "line 1: a segment has 10 fields between commas, this has 2");
  EXPECT_EQ(refusalOfText(lineWith(0, "one") + lineWith(8, "half")),
            "line 2: the gear is \"up\" or \"down\", not \"half\"");
}

TEST(FlightScript, EveryFieldHasItsRange) {
  EXPECT_THAT(refusalOfText(lineWith(1, "0")), HasSubstr("from 1 to 86400"));
  EXPECT_THAT(refusalOfText(lineWith(2, "351")), HasSubstr("from 0 to 350"));
  EXPECT_THAT(refusalOfText(lineWith(2, "99")), HasSubstr("0, to stand, or from 100 to 350"));
  EXPECT_THAT(refusalOfText(lineWith(3, "0")), HasSubstr("from 0.1 to 10"));
  EXPECT_THAT(refusalOfText(lineWith(4, "41001")), HasSubstr("from 0 to 41000"));
  EXPECT_THAT(refusalOfText(lineWith(5, "-1")), HasSubstr("from 0 to 6000"));
  EXPECT_THAT(refusalOfText(lineWith(6, "361")), HasSubstr("from 0 to 360"));
  EXPECT_THAT(refusalOfText(lineWith(6, "home")), HasSubstr("or \"centreline\", not \"home\""));
  EXPECT_THAT(refusalOfText(lineWith(7, "3")), HasSubstr("0, 1, 2, 5, 10, 15, 25, 30 or 40"));
  EXPECT_THAT(refusalOfText(lineWith(9, "1.1")), HasSubstr("the spoilers is a number from 0 to 1"));
}

TEST(FlightScript, AnAircraftThatHasLandedDoesNotFlyAgain) {
  const std::string standing = lineWith(2, "0");
  EXPECT_EQ(refusalOfText(standing + standing + lineWith(2, "160")), "");
  EXPECT_EQ(refusalOfText(standing + lineWith(2, "160") + standing + standing), "");
  EXPECT_EQ(refusalOfText(standing + lineWith(2, "160") + standing + lineWith(2, "160")),
            "line 4: behind a landing the airspeed stays 0");
}

TEST(FlightScript, AnEleventhFieldTellsTheEngines) {
  using enum EngineUse;
  std::string line = lineWith(9, "0");
  line.pop_back();
  const auto enginesOf = [&](const std::string& field) {
    return flightScriptFrom(line + ", " + field).front().engines;
  };
  EXPECT_THAT(flightScriptFrom(line).front().engines, testing::ElementsAre(Running, Running));
  EXPECT_THAT(enginesOf("off"), testing::ElementsAre(Off, Off));
  EXPECT_THAT(enginesOf("start 1"), testing::ElementsAre(Starting, Off));
  EXPECT_THAT(enginesOf("start 2"), testing::ElementsAre(Running, Starting));
  EXPECT_THAT(enginesOf("running"), testing::ElementsAre(Running, Running));
  EXPECT_THAT(refusalOfText(line + ", idle"), HasSubstr("not \"idle\""));
}

TEST(FlightScript, AnEmptyOneIsRefused) {
  EXPECT_EQ(refusalOfText("# nothing\n"), "no line has a segment");
}

TEST(FlightScript, AFaultInAFileIsToldWithItsName) {
  const TempFolder folder;
  folder.write("bad.txt", "climb\n");
  const std::string path = folder / "bad.txt";
  EXPECT_EQ(
      refusalOf([&] { readFlightScript(path); }),
      "flight script " + path + ": line 1: a segment has 10 fields between commas, this has 1");
  EXPECT_THAT(refusalOf([&] { readFlightScript(folder / "none.txt"); }),
              testing::AllOf(StartsWith("flight script "), EndsWith("File not found")));
}

TEST(FlightScript, TheShippedOneTakes2055Seconds) { EXPECT_EQ(durationOf_s(roundTrip()), 2055); }

}  // namespace
}  // namespace vorlent
