#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "autoflight/clsAfds.h"
#include "flights/support/FlightCase.h"
#include "flights/support/Missed.h"
#include "support/walks.h"

namespace vorlent {

/// A failure then names the flight.
static void PrintTo(const FlightCase& flight, std::ostream* out) { *out << flight.name; }

namespace {

/// figures.csv in the folder that VORLENT_FLIGHT_DATA names; nothing without the variable.
void writeDown(const std::string& flight, const Figures& figures) {
  const char* folder = std::getenv("VORLENT_FLIGHT_DATA");
  if (folder == nullptr) return;
  std::ofstream file(std::string(folder) + "/figures.csv", std::ios::app);
  for (const Figure& f : figures)
    file << flight << ',' << f.what << ',' << f.unit << ',' << f.value << ',' << f.goal << '\n';
}

std::optional<double> boundOf(const std::string& flight, const std::string& what) {
  for (const Missed& missed : missedFigures())
    if (missed.flight == flight && missed.what == what) return missed.bound;
  return std::nullopt;
}

class ServerFlies : public testing::TestWithParam<FlightCase> {};

TEST_P(ServerFlies, WithinItsGoalsAndNoFartherBeyondThanKnown) {
  const std::string& name = GetParam().name;
  const Figures figures = GetParam().fly(shippedTuning());
  writeDown(name, figures);
  ASSERT_FALSE(figures.empty());
  for (const Figure& figure : figures) {
    const auto missed = boundOf(name, figure.what);
    EXPECT_LE(figure.value, missed.value_or(figure.goal))
        << figure.what << (missed ? ", a bound beyond its goal" : ", its goal");
  }
}

/// "vs-up-737" of "vs-up-737-5000-light".
std::string kindAndPlant(const std::string& name) {
  return name.substr(0, name.rfind('-', name.rfind('-') - 1));
}

/// All but the seldom ones; on short walks the first of each kind with each plant.
std::vector<FlightCase> flightsToFly() {
  std::vector<FlightCase> flights = flightCases();
  if (!allFlights()) std::erase_if(flights, [](const FlightCase& flight) { return flight.seldom; });
  std::set<std::string> flown;
  if (shortWalks())
    std::erase_if(flights, [&](const FlightCase& flight) {
      return !flown.insert(kindAndPlant(flight.name)).second;
    });
  return flights;
}

std::string testName(const testing::TestParamInfo<FlightCase>& flight) {
  std::string name = flight.param.name;
  std::ranges::replace(name, '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Every, ServerFlies, testing::ValuesIn(flightsToFly()), testName);

TEST(MissedFigures, BelongToFlights) {
  std::set<std::string> names;
  for (const FlightCase& flight : flightCases())
    EXPECT_TRUE(names.insert(flight.name).second) << flight.name;
  for (const Missed& missed : missedFigures())
    EXPECT_TRUE(names.contains(missed.flight)) << missed.flight;
}

/// Steady levers of the 737-700 at 15000 feet and 280 knots.
TEST(ShippedTuning, TheLeverOfAnN1IsThatOfTheAircraft) {
  Flight flight(Condition{.altitude_ft = 15000, .speed_kt = 280});
  for (const double lever_pct : {40.0, 60.0, 80.0}) {
    for (const std::size_t at : {0x088CU, 0x0924U})
      flight.memory().write(at, static_cast<std::int16_t>(std::lround(lever_pct * 163.84)));
    flight.fly(8);
    EXPECT_NEAR(flight.afds().CalcThrottleFromN1(flight.now().n1_pct), lever_pct, 2);
  }
}

}  // namespace
}  // namespace vorlent
