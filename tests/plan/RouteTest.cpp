#include "plan/Route.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;

using Reader = Route (*)(std::string_view);

std::string faultOf(Reader read, const std::string& text) {
  try {
    read(text);
    return "";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::InvalidCall);
    return error.description();
  }
}

std::string namesOf(const Route& route) {
  std::string names;
  for (const RoutePoint& point : route.points) names += point.name + " ";
  return names;
}

// --- X-Plane ---

const std::string XPlaneHead = "I\n1100 Version\nCYCLE 2611\nADEP XAAA\nADES XBBB\nDESRWY RW09\n";
const std::string Start = "1 XAAA ADEP 120.000000 50.500000 8.250000\n";
const std::string Middle = "11 ALPHA DRCT 24000.000000 50.750000 9.500000\n";
const std::string End = "1 XBBB ADES 310.000000 51.000000 11.000000\n";

TEST(XPlaneRoute, Version1100IsReadFromItsSixColumns) {
  const Route route = readXPlaneRoute(XPlaneHead + "NUMENR 3\n" + Start + Middle + End);
  EXPECT_EQ(namesOf(route), "XAAA ALPHA XBBB ");
  EXPECT_EQ(route.points[1].place.latitude_deg, 50.75);
  EXPECT_EQ(route.points[1].place.longitude_deg, 9.5);
  EXPECT_THAT(route.points[2].altitude_ft, Optional(310.0));
  EXPECT_THAT(route.cruise_ft, Optional(24000.0));
}

TEST(XPlaneRoute, Version3IsReadFromItsFiveColumns) {
  const Route route = readXPlaneRoute(
      "A\r\n3 version\r\n1\r\n2\r\n1\tXAAA  120 50.5 -8.25\r\n2 GL 1000 57.1 9.7\r\n"
      "28 +13.691_+100.760 0.0 13.691230 100.760811\r\n");
  EXPECT_EQ(namesOf(route), "XAAA GL +13.691_+100.760 ");
  EXPECT_EQ(route.points[0].place.longitude_deg, -8.25);
  EXPECT_THAT(route.cruise_ft, Optional(1000.0));
}

TEST(XPlaneRoute, PlacesThatAreNotUsedArePassedOver) {
  EXPECT_EQ(namesOf(readXPlaneRoute("I\n3 version\n1\n9\n1 XAAA 0 50 8\n0 ---- 0 0 0\n"
                                    "1 XBBB 0 51 9")),
            "XAAA XBBB ");
}

TEST(XPlaneRoute, ARouteOfAirportsHasNoCruiseAltitude) {
  EXPECT_EQ(readXPlaneRoute(XPlaneHead + "NUMENR 2\n" + Start + End).cruise_ft, std::nullopt);
}

TEST(XPlaneRoute, WhatIsNoPlanIsToldWithItsLine) {
  const std::string what = "this is no X-Plane plan";
  EXPECT_THAT(faultOf(readXPlaneRoute, ""), HasSubstr(what));
  EXPECT_THAT(faultOf(readXPlaneRoute, "<xml>"), StartsWith("line 1: " + what));
  EXPECT_THAT(faultOf(readXPlaneRoute, "I\n1100\n"), StartsWith("line 2: " + what));
  EXPECT_EQ(faultOf(readXPlaneRoute, "I\n900 Version\n"),
            "line 2: version \"900\" is not known, only 3 and 1100");
}

TEST(XPlaneRoute, AFileThatEndsEarlyIsTold) {
  EXPECT_EQ(faultOf(readXPlaneRoute, XPlaneHead + "NUMENR 3\n" + Start + End),
            "line 9: the file ends behind 2 waypoints, NUMENR tells 3");
  EXPECT_EQ(faultOf(readXPlaneRoute, XPlaneHead),
            "line 6: the file ends before NUMENR, the number of waypoints");
  EXPECT_EQ(faultOf(readXPlaneRoute, "I\n3 version\n1\n"), "line 3: the file ends in its head");
  EXPECT_EQ(faultOf(readXPlaneRoute, XPlaneHead + "NUMENR many\n"),
            "line 7: NUMENR has no number behind it");
}

TEST(XPlaneRoute, AWaypointThatIsWrongIsToldWithItsLine) {
  const auto fault = [](const std::string& line) {
    return faultOf(readXPlaneRoute, XPlaneHead + "NUMENR 3\n" + Start + line + "\n" + End);
  };
  EXPECT_EQ(fault("11 ALPHA DRCT 24000 50.75"), "line 9: a waypoint has 6 columns, not 5");
  EXPECT_EQ(fault("11 ALPHA DRCT 24000 north 9"), "line 9: the latitude \"north\" is no number");
  EXPECT_EQ(fault("11 ALPHA DRCT 24000 90.1 9"), "line 9: the latitude 90.1 is not from -90 to 90");
  EXPECT_EQ(fault("11 ALPHA DRCT 24000 50 -180.5"),
            "line 9: the longitude -180.5 is not from -180 to 180");
  EXPECT_EQ(fault("11 ALPHA DRCT nan 50 9"), "line 9: the altitude \"nan\" is no number");
}

TEST(XPlaneRoute, NoneAndOneWaypointAreTooFew) {
  EXPECT_EQ(faultOf(readXPlaneRoute, XPlaneHead + "NUMENR 0\n"),
            "a route has 2 waypoints or more, this one has 0");
  EXPECT_EQ(faultOf(readXPlaneRoute, XPlaneHead + "NUMENR 1\n" + Start),
            "a route has 2 waypoints or more, this one has 1");
}

TEST(XPlaneRoute, MoreThan1000WaypointsAreRefused) {
  std::string text = XPlaneHead + "NUMENR 1001\n";
  for (int i = 0; i < 1001; ++i) text += Middle;
  EXPECT_EQ(faultOf(readXPlaneRoute, text), "line 1008: a route has at most 1000 waypoints");
}

// --- Garmin ---

std::string garminWaypoint(const std::string& name, const std::string& kind,
                           const std::string& country, const std::string& place) {
  return "<waypoint><identifier>" + name + "</identifier><type>" + kind + "</type><country-code>" +
         country + "</country-code>" + place + "<comment/></waypoint>\n";
}

std::string garminPoint(const std::string& name, const std::string& kind,
                        const std::string& country) {
  return "<route-point><waypoint-identifier>" + name + "</waypoint-identifier><waypoint-type>" +
         kind + "</waypoint-type><waypoint-country-code>" + country +
         "</waypoint-country-code></route-point>\n";
}

std::string garminFile(const std::string& table, const std::string& points) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<flight-plan xmlns=\"http://www8.garmin.com/xmlschemas/FlightPlan/v1\">\n"
         "<waypoint-table>\n" +
         table + "</waypoint-table>\n<route><route-name>X</route-name>\n" + points +
         "</route></flight-plan>\n";
}

const std::string GarminTable =
    garminWaypoint("XAAA", "AIRPORT", "ED", "<lat>50.5</lat><lon>8.25</lon>") +
    garminWaypoint("ALPHA", "INT", "EH", "<lat>-1.5</lat><lon>-2.5</lon>") +
    garminWaypoint("ALPHA", "INT", "ED", "<lat>50.75</lat><lon> 9.5 </lon>");

TEST(GarminRoute, PointsAreLookedUpInTheTableByNameKindAndCountry) {
  const Route route = readGarminRoute(garminFile(
      GarminTable, garminPoint("XAAA", "AIRPORT", "ED") + garminPoint("ALPHA", "INT", "ED") +
                       garminPoint("XAAA", "AIRPORT", "ED")));
  EXPECT_EQ(namesOf(route), "XAAA ALPHA XAAA ");
  EXPECT_EQ(route.points[1].place.latitude_deg, 50.75);
  EXPECT_EQ(route.points[1].place.longitude_deg, 9.5);
  EXPECT_EQ(route.cruise_ft, std::nullopt);
}

TEST(GarminRoute, AMissingCountryIsNoFault) {
  const Route route = readGarminRoute(garminFile(
      GarminTable, garminPoint("XAAA", "AIRPORT", "") + garminPoint("ALPHA", "INT", "")));
  EXPECT_EQ(route.points[1].place.latitude_deg, -1.5);
}

TEST(GarminRoute, AnUnknownPointIsTold) {
  EXPECT_EQ(faultOf(readGarminRoute, garminFile(GarminTable, garminPoint("XAAA", "AIRPORT", "ED") +
                                                                 garminPoint("BRAVO", "", ""))),
            "route point 2 (BRAVO): the waypoint table does not have it");
}

TEST(GarminRoute, AWaypointWithoutACoordinateIsTold) {
  EXPECT_EQ(faultOf(readGarminRoute,
                    garminFile(garminWaypoint("XAAA", "AIRPORT", "", "<lat>50.5</lat>"), "")),
            "waypoint 1 (XAAA): there is no longitude");
  EXPECT_EQ(faultOf(readGarminRoute,
                    garminFile(garminWaypoint("XAAA", "", "", "<lat>500</lat><lon>1</lon>"), "")),
            "waypoint 1 (XAAA): the latitude 500 is not from -90 to 90");
}

TEST(GarminRoute, ATableOrARouteThatIsMissingIsTold) {
  EXPECT_EQ(faultOf(readGarminRoute, "<flight-plan/>"),
            "<flight-plan><waypoint-table>: there is none");
  EXPECT_EQ(faultOf(readGarminRoute, "<flight-plan><waypoint-table/></flight-plan>"),
            "<flight-plan><route>: there is none");
  EXPECT_EQ(faultOf(readGarminRoute, "<gpx/>"), "<flight-plan>: there is none");
}

TEST(GarminRoute, MalformedXmlIsToldWithItsLine) {
  EXPECT_THAT(faultOf(readGarminRoute, "<flight-plan>\n<waypoint-table>\n</route>\n"),
              StartsWith("line 3: "));
  EXPECT_THAT(faultOf(readGarminRoute, ""), StartsWith("line 1: "));
}

TEST(GarminRoute, EntitiesCannotBeDeclared) {
  EXPECT_EQ(faultOf(readGarminRoute,
                    "<?xml version=\"1.0\"?>\n<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\">"
                    "<!ENTITY b \"&a;&a;&a;&a;\">]>\n<flight-plan>&b;</flight-plan>"),
            "line 2: a document type is not taken");
}

TEST(GarminRoute, NoneAndOnePointAreTooFew) {
  EXPECT_EQ(faultOf(readGarminRoute, garminFile(GarminTable, "")),
            "a route has 2 waypoints or more, this one has 0");
  EXPECT_EQ(faultOf(readGarminRoute, garminFile(GarminTable, garminPoint("XAAA", "", ""))),
            "a route has 2 waypoints or more, this one has 1");
}

// --- Little Navmap ---

std::string navmapFile(const std::string& head, const std::string& waypoints) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LittleNavmap>\n<Flightplan>\n<Header>" +
         head + "</Header>\n<Waypoints>" + waypoints +
         "</Waypoints>\n</Flightplan>\n</LittleNavmap>\n";
}

const std::string NavmapStart =
    "<Waypoint><Name>Far Field</Name><Ident>XAAA</Ident><Type>AIRPORT</Type>"
    "<Pos Lon=\"8.25\" Lat=\"50.5\" Alt=\"120.00\"/></Waypoint>";

TEST(LittleNavmapRoute, PlacesAreReadFromAttributesInAnyOrder) {
  const Route route = readLittleNavmapRoute(
      navmapFile("<FlightplanType>IFR</FlightplanType><CruisingAlt>31000</CruisingAlt>",
                 NavmapStart + "<Waypoint><Name>My place</Name><Type>USER</Type>"
                               "<Pos Lat=\"-50.75\" Lon=\"-9.5\"/></Waypoint>"));
  EXPECT_EQ(namesOf(route), "XAAA My place ");
  EXPECT_THAT(route.points[0].altitude_ft, Optional(120.0));
  EXPECT_EQ(route.points[1].altitude_ft, std::nullopt);
  EXPECT_EQ(route.points[1].place.latitude_deg, -50.75);
  EXPECT_EQ(route.points[1].place.longitude_deg, -9.5);
  EXPECT_THAT(route.cruise_ft, Optional(31000.0));
}

TEST(LittleNavmapRoute, FaultsNameTheWaypoint) {
  const auto fault = [](const std::string& place) {
    return faultOf(
        readLittleNavmapRoute,
        navmapFile("", NavmapStart + "<Waypoint><Ident>ALPHA</Ident>" + place + "</Waypoint>"));
  };
  EXPECT_EQ(fault(""), "waypoint 2 (ALPHA): there is no latitude");
  EXPECT_EQ(fault("<Pos Lat=\"1\"/>"), "waypoint 2 (ALPHA): there is no longitude");
  EXPECT_EQ(fault("<Pos Lat=\"1,5\" Lon=\"2\"/>"),
            "waypoint 2 (ALPHA): the latitude \"1,5\" is no number");
  EXPECT_EQ(fault("<Pos Lat=\"1\" Lon=\"2\" Alt=\"1e9\"/>"),
            "waypoint 2 (ALPHA): the altitude 1e9 is not from -2000 to 60000");
}

TEST(LittleNavmapRoute, AnotherDocumentAndTooFewWaypointsAreTold) {
  EXPECT_EQ(faultOf(readLittleNavmapRoute, "<flight-plan/>"), "<LittleNavmap>: there is none");
  EXPECT_EQ(faultOf(readLittleNavmapRoute, navmapFile("", "")),
            "a route has 2 waypoints or more, this one has 0");
  EXPECT_EQ(faultOf(readLittleNavmapRoute, navmapFile("", NavmapStart)),
            "a route has 2 waypoints or more, this one has 1");
  EXPECT_THAT(faultOf(readLittleNavmapRoute, navmapFile("<CruisingAlt>high</CruisingAlt>", "")),
              StartsWith("<CruisingAlt>: "));
}

// --- Files ---

std::string faultOfFile(const std::string& path) {
  try {
    loadRoute(path);
    return "";
  } catch (const RuntimeError& error) {
    return error.description();
  }
}

TEST(LoadRoute, TheEndOfTheNameTellsTheFormat) {
  const TempFolder folder;
  folder.write("a.FMS", XPlaneHead + "NUMENR 2\n" + Start + End);
  folder.write("b.lnmpln", navmapFile("", NavmapStart + NavmapStart));
  folder.write("c.fpl",
               garminFile(GarminTable, garminPoint("XAAA", "", "") + garminPoint("ALPHA", "", "")));
  EXPECT_EQ(namesOf(loadRoute(folder / "a.FMS")), "XAAA XBBB ");
  EXPECT_EQ(namesOf(loadRoute(folder / "b.lnmpln")), "XAAA XAAA ");
  EXPECT_EQ(namesOf(loadRoute(folder / "c.fpl")), "XAAA ALPHA ");
}

TEST(LoadRoute, FaultsNameTheFile) {
  const TempFolder folder;
  folder.write("a.fms", "I\n7 Version\n");
  folder.write("a.txt", "");
  EXPECT_EQ(faultOfFile(folder / "a.fms"),
            folder / "a.fms: line 2: version \"7\" is not known, only 3 and 1100");
  EXPECT_EQ(faultOfFile(folder / "a.txt"),
            folder / "a.txt: the end of its name is none of .fms, .fpl and .lnmpln");
  EXPECT_EQ(faultOfFile(folder / "none.fms"), folder / "none.fms: File not found");
}

TEST(LoadRoute, AFileOfMoreThan4MegabytesIsNotRead) {
  const TempFolder folder;
  folder.write("a.fms", std::string((4 << 20) + 1, '\n'));
  EXPECT_EQ(faultOfFile(folder / "a.fms"), folder / "a.fms: a route file has at most 4 MB");
}

}  // namespace
}  // namespace vorlent
