#include "flightplan/PerformanceData.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(PerformanceData, EachAircraftHasItsDefaults) {
  struct Row {
    const char* aircraft;
    std::int16_t takeoffN1;
    float climbN1;
  };
  for (const Row& row : {Row{"737-300", 88, 75}, Row{"737-400", 93, 85}, Row{"737-700", 88, 85}}) {
    PerformanceData data;
    setAircraftDefaults(row.aircraft, data);
    EXPECT_EQ(data.TakeoffN1, row.takeoffN1);
    EXPECT_EQ(data.ClimbN1, row.climbN1);
    EXPECT_EQ(data.FmcSpeed, 251);
    EXPECT_EQ(data.CruiseAlt(), 3000000);
    EXPECT_EQ(data.MaxCruiseAlt(), 3000000);
  }
}

TEST(PerformanceData, OnlyTheFirstSevenCharactersOfTheNameCount) {
  PerformanceData data;
  setAircraftDefaults("737-400F winter", data);
  EXPECT_EQ(data.TakeoffN1, 93);
}

TEST(PerformanceData, AnUnknownAircraftKeepsTheDefaultsOfThePreviousOne) {
  PerformanceData data;
  setAircraftDefaults("737-400", data);
  const PerformanceData before = data;
  for (const char* name : {"", "737", "737-800", "A320"}) setAircraftDefaults(name, data);
  EXPECT_EQ(data, before);
}

TEST(PerformanceData, EveryFieldOfTheTableIsTaken) {
  PerformanceData data;
  ReadPerformance({{"ClimbN1", "91.5"},
                   {"MaxCruiseAlt", "330"},
                   {"CruiseAlt", "310"},
                   {"FuelReserve", "4500"},
                   {"TripFuel", "12000.5"},
                   {"ZeroFuelWeight", "98000"},
                   {"LandingWeight", "105000"},
                   {"TakeoffWeight", "117000"},
                   {"TakeoffN1", "93.5"},
                   {"FMCspeed", "280"},
                   {"ClimbMach", "0.74"},
                   {"DescentMach", "0.72"}},
                  data);
  EXPECT_EQ(data.ClimbN1, 91.5F);
  EXPECT_EQ(data.FuelReserve, 4500);
  EXPECT_EQ(data.TripFuel, 12000.5F);
  EXPECT_EQ(data.ZeroFuelWeight, 98000);
  EXPECT_EQ(data.LandingWeight, 105000);
  EXPECT_EQ(data.TakeoffWeight, 117000);
  EXPECT_EQ(data.TakeoffN1, 94);
  EXPECT_EQ(data.FmcSpeed, 280);
  EXPECT_EQ(data.ClimbMach, 0.74F);
  EXPECT_EQ(data.DescentMach, 0.72F);
}

TEST(PerformanceData, TheCruiseAltitudeWinsOverItsLimit) {
  PerformanceData data;
  ReadPerformance({{"CruiseAlt", "310"}, {"MaxCruiseAlt", "330"}}, data);
  EXPECT_EQ(data.CruiseAlt(), 31000);
  EXPECT_EQ(data.MaxCruiseAlt(), 31000);
  ReadPerformance({{"MaxCruiseAlt", "370"}}, data);
  EXPECT_EQ(data.CruiseAlt(), 37000);
}

TEST(PerformanceData, AFieldThatCannotBeReadKeepsItsValueAndTheOthersAreRead) {
  PerformanceData data;
  setAircraftDefaults("737-700", data);
  ReadPerformance({{"ClimbN1", ""},
                   {"CruiseAlt", "21474837"},  // as feet beyond 32 bits
                   {"MaxCruiseAlt", "FL330"},
                   {"TakeoffN1", "40000"},
                   {"FMCspeed", "1e9"},
                   {"DescentMach", "0.7"}},
                  data);
  EXPECT_EQ(data.ClimbN1, 85);
  EXPECT_EQ(data.CruiseAlt(), 3000000);
  EXPECT_EQ(data.TakeoffN1, 88);
  EXPECT_EQ(data.FmcSpeed, 251);
  EXPECT_EQ(data.ClimbMach, 0);
  EXPECT_EQ(data.DescentMach, 0.7F);
}

TEST(PerformanceData, AnEmptyRowChangesNothing) {
  PerformanceData data;
  setAircraftDefaults("737-300", data);
  const PerformanceData before = data;
  ReadPerformance({}, data);
  EXPECT_EQ(data, before);
}

TEST(PerformanceData, FieldNamesDoNotMindTheCaseOfLetters) {
  PerformanceData data;
  ReadPerformance({{"FmcSpeed", "270"}}, data);
  EXPECT_EQ(data.FmcSpeed, 270);
}

TEST(PerformanceData, ALevelBeyond32BitsOfFeetIsAnOverflow) {
  PerformanceData data;
  data.CruiseAlt(21474836);
  EXPECT_EQ(data.CruiseAlt(), 2147483600);
  EXPECT_EQ(raisedBy([&data] { data.CruiseAlt(21474837); }), RuntimeError::Overflow);
}

}  // namespace
}  // namespace vorlent
