#include "simulator/StationTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "simulator/ShippedStations.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

const std::string runway = "runway TEST 09 0 0 90 3000 100 2\n";

/// What is wrong with a table; empty when it is right.
std::string faultIn(const std::string& table) {
  try {
    stationsFrom(table);
    return "";
  } catch (const StationTableError& error) {
    return error.what();
  }
}

TEST(StationTable, AnIlsTakesItsPlacesFromTheRunway) {
  const auto found =
      stationsFrom(runway + "ils TST 110.35 TEST 09 3 50 300 7400 1050 250 yes no TEST ILS\n");
  ASSERT_EQ(found.ils.size(), 1u);
  const Ils& ils = found.ils[0];
  EXPECT_EQ(ils.id, "TST");
  EXPECT_EQ(ils.name, "TEST ILS");
  EXPECT_EQ(ils.frequency_10kHz, 11035);
  EXPECT_NEAR(ils.runway.elevation_m, 30.48, 1e-9);
  // Along the equator a degree is 111195.08 m. The localiser is 3300 m beyond the threshold, the
  // glide path antenna 15.24 m / tan 3 degrees = 290.80 m.
  EXPECT_NEAR(ils.localiser.longitude_deg, 3300 / 111195.08, 1e-8);
  EXPECT_NEAR(ils.glidePath.longitude_deg, 290.80 / 111195.08, 1e-7);
  EXPECT_NEAR(ils.localiser.latitude_deg, 0, 1e-9);
  EXPECT_NEAR(ils.courseHalfWidth_deg, 1.8554, 0.0001);  // arctangent of 106.897 / 3300
  EXPECT_TRUE(ils.hasDme);
  EXPECT_FALSE(ils.hasBackCourse);
  EXPECT_EQ(ils.markers_m, (std::array<double, markerCount>{7400, 1050, 250}));
}

TEST(StationTable, TheCourseOfAShortRunwayIsThreeDegreesWideToEitherSide) {
  const auto found = stationsFrom(
      "runway TEST 09 0 0 90 1200 0 2\nils TST 110.3 TEST 09 3 50 300 - - - no no A\n");
  EXPECT_EQ(found.ils.at(0).courseHalfWidth_deg, 3);  // 4.1 by its length
  EXPECT_EQ(found.ils.at(0).markers_m, (std::array<double, markerCount>{0, 0, 0}));
}

TEST(StationTable, CommentsBlankLinesAndLineBreaksOfEitherSystemAreFine) {
  const auto found = stationsFrom(
      "# head\r\n\r\n  vor\tVVV 113.00 L -10.5 -20.25 100 -3 no LONG NAME # tail\r\n"
      "ndb N 345.5 MH 1 2 BEACON");
  ASSERT_EQ(found.vor.size(), 1u);
  EXPECT_EQ(found.vor[0].frequency_10kHz, 11300);
  EXPECT_EQ(found.vor[0].volume, VorClass::Low);
  EXPECT_EQ(found.vor[0].place.latitude_deg, -10.5);
  EXPECT_EQ(found.vor[0].place.longitude_deg, -20.25);
  EXPECT_EQ(found.vor[0].variation_deg, -3);
  EXPECT_EQ(found.vor[0].name, "LONG NAME");
  EXPECT_FALSE(found.vor[0].hasDme);
  ASSERT_EQ(found.ndb.size(), 1u);
  EXPECT_EQ(found.ndb[0].frequency_100Hz, 3455);
  EXPECT_EQ(found.ndb[0].range_m, 46300);  // 25 miles
}

TEST(StationTable, AFaultTellsLineColumnAndRange) {
  EXPECT_EQ(faultIn("\n# x\nndb N 345.5 MH 91 2 B"),
            "line 3: latitude is \"91\"; it is a number from -90 to 90 degrees");
  EXPECT_EQ(faultIn("ndb N 345.5 MH 1 east B"),
            "line 1: longitude is \"east\"; it is a number from -180 to 180 degrees");
  EXPECT_EQ(faultIn("ndb N 345.55 MH 1 2 B"), "line 1: frequency 345.55 kHz is no multiple of 0.1");
  EXPECT_EQ(faultIn("ndb N 345.5 XX 1 2 B"),
            "line 1: class is \"XX\"; it is one of LOM, MH, H, HH");
  EXPECT_EQ(faultIn("ndb lower 345.5 H 1 2 B"),
            "line 1: ident is \"lower\"; it has 1 to 5 capital letters and digits");
  EXPECT_EQ(faultIn("ndb TOLONG 345.5 H 1 2 B"),
            "line 1: ident is \"TOLONG\"; it has 1 to 5 capital letters and digits");
  EXPECT_EQ(faultIn("ndb N 345.5 H 1 2"), "line 1: name is missing");
  EXPECT_EQ(faultIn("ndb N 345.5 H 1 2 ABCDEFGHIJKL NOPQRSTUVWX"), "");
  EXPECT_EQ(faultIn("ndb N 345.5 H 1 2 ABCDEFGHIJKL NOPQRSTUVWXY"),
            "line 1: name \"ABCDEFGHIJKL NOPQRSTUVWXY\" is longer than 24 characters");
  EXPECT_EQ(faultIn("tacan N 345.5 H 1 2 B"),
            "line 1: \"tacan\" is no kind of row; known are runway, ils, vor, ndb");
}

TEST(StationTable, AFaultInAVorOrRunwayIsTold) {
  EXPECT_EQ(faultIn("vor V 118.00 H 0 0 0 0 yes A"),
            "line 1: frequency is \"118.00\"; it is a number from 108 to 117.95 MHz");
  EXPECT_EQ(faultIn("vor V 110.30 H 0 0 0 0 yes A"),
            "line 1: frequency 110.3 MHz is a channel of an ILS");
  EXPECT_EQ(faultIn("vor V 113.02 H 0 0 0 0 yes A"),
            "line 1: frequency 113.02 MHz is no multiple of 0.05");
  EXPECT_EQ(faultIn("vor V 113.00 H 0 0 0 0 maybe A"), "line 1: dme is \"maybe\"; it is yes or no");
  EXPECT_EQ(faultIn(runway + runway), "line 2: runway TEST 09 is there already");
  EXPECT_EQ(faultIn("runway TEST 09 0 0 90 3000 100 2 9"), "line 1: \"9\" is one column too many");
  EXPECT_EQ(faultIn("runway TEST 09 0 0 90 3000"), "line 1: elevation is missing");
}

TEST(StationTable, AFaultInAnIlsIsTold) {
  EXPECT_EQ(faultIn(runway + "ils T 110.30 TEST 27 3 50 300 - - - yes no A"),
            "line 2: there is no runway TEST 27 above this row");
  EXPECT_EQ(faultIn(runway + "ils T 110.20 TEST 09 3 50 300 - - - yes no A"),
            "line 2: frequency 110.2 MHz is no channel of an ILS");
  EXPECT_EQ(faultIn(runway + "ils T 110.30 TEST 09 3 50 300 1000 7000 - yes no A"),
            "line 2: middle is farther out than the marker before it");
  EXPECT_EQ(faultIn(runway + "ils T 110.30 TEST 09 5 50 300 - - - yes no A"),
            "line 2: slope is \"5\"; it is a number from 2 to 4.5 degrees");
}

/// A table comes from somebody's hand: whatever is in it, it is read or told with its line.
TEST(StationTable, ADamagedTableIsReadOrTold) {
  const std::string whole = readFile(joinedPath(VORLENT_DATA, "Stations.txt"));
  std::mt19937 random(7);
  int told = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string table = whole;
    for (int k = 0; k < 20; ++k)
      table[random() % table.size()] = static_cast<char>(random() % 2 ? random() % 256 : ' ');
    if (i % 3 == 0) table.resize(random() % table.size());
    const std::string fault = faultIn(table);
    if (!fault.empty()) ++told;
    ASSERT_TRUE(fault.empty() || fault.starts_with("line ")) << fault;
  }
  EXPECT_GT(told, 500);
}

TEST(StationTable, AFileThatIsMissingOrWrongIsToldAndGivesNoStations) {
  const TempFolder folder;
  const std::string path = nativePath(folder / "Stations.txt");
  std::vector<std::string> told;
  const auto tell = [&told](const std::string& text) { told.push_back(text); };
  EXPECT_TRUE(loadStations(path, tell).ndb.empty());
  replaceFile(path, "ndb N 345.5 H 1 2 RIGHT\nndb N 345.5 H 1\n");
  EXPECT_TRUE(loadStations(path, tell).ndb.empty());
  const std::string without = "; the flight goes on without radio stations";
  EXPECT_EQ(told, (std::vector<std::string>{path + ": File not found" + without,
                                            path + ": line 2: longitude is missing" + without}));
  replaceFile(path, "ndb N 345.5 H 1 2 RIGHT\n");
  EXPECT_EQ(loadStations(path, tell).ndb.size(), 1u);
  EXPECT_EQ(told.size(), 2u);
}

TEST(ShippedStations, HaveTwoAirportsWithIlsFourVorWithDmeAndTwoBeacons) {
  const NavStations stations = shippedStations();
  ASSERT_GE(stations.ils.size(), 2u);
  EXPECT_GT(distanceBetween_m(stations.ils[0].localiser, stations.ils[1].localiser), 20000);
  for (const Ils& ils : stations.ils) {
    EXPECT_TRUE(ils.hasDme) << ils.id;
    EXPECT_GT(ils.markers_m[Outer], 0) << ils.id;
    EXPECT_GT(ils.markers_m[Middle], 0) << ils.id;
  }
  EXPECT_GE(std::count_if(stations.vor.begin(), stations.vor.end(),
                          [](const Vor& vor) { return vor.hasDme; }),
            4);
  EXPECT_GE(stations.ndb.size(), 2u);
}

TEST(ShippedStations, TheFirstIlsStandsAtTheRunwayWhereFlightsBegin) {
  const Runway runwayThere = shippedStations().ils.at(0).runway;
  EXPECT_LT(distanceBetween_m(runwayThere.threshold, HomeRunway.threshold), 1);
  EXPECT_EQ(runwayThere.course_deg, HomeRunway.course_deg);
  EXPECT_NEAR(runwayThere.elevation_m, HomeRunway.elevation_m, 0.01);
  EXPECT_EQ(runwayThere.magneticVariation_deg, HomeRunway.magneticVariation_deg);
}

}  // namespace
}  // namespace vorlent
