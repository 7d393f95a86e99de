#include <set>
#include <string>
#include <vector>

#include "simlink/decode.h"
#include "support/DecodeRow.h"

namespace vorlent {
namespace {

std::vector<std::string> namesOf(std::span<const Family> families) {
  std::vector<std::string> names;
  for (const Family family : families)
    for (const DecodeRow& row : family()) names.emplace_back(row.name);
  return names;
}

TEST(DecodeFamilies, EveryVariableStandsInOneRow) {
  std::vector<std::string> names = namesOf(familiesBeforeEngines());
  for (const std::string& name : namesOf(familiesAfterEngines())) names.push_back(name);
  for (const EngineRow& row : engineRows()) names.emplace_back(row.name);
  EXPECT_EQ(names.size(), 174U);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

TEST(DecodeFamilies, ThePauseCountsForTheSpeedOfTheSamePoll) {
  PolledServer sim;
  sim.bus.put<std::uint32_t>(0x02BC, 250 * 128);
  sim.bus.put<std::uint8_t>(0x0264, 1);
  sim.poll();
  EXPECT_EQ(sim.store.Ias, 0);
  sim.bus.put<std::uint8_t>(0x0264, 0);
  sim.poll();
  EXPECT_EQ(sim.store.Ias, 250);
}

TEST(DecodeFamilies, TheFuelUsedTakesTheWeightOfThePollBefore) {
  PolledServer sim;
  sim.store.FuelBurnt(1) = 100;
  sim.bus.put<std::uint16_t>(0x0AF4, 6 * 256);
  sim.poll();
  sim.bus.put<std::uint16_t>(0x0AF4, 7 * 256);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).FuelUsedLb, 600);
  EXPECT_EQ(sim.store.FuelLbPerGallon, 7);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).FuelUsedLb, 700);
}

TEST(DecodeFamilies, TheEngineCountCountsForTheEnginesOfTheSamePoll) {
  PolledServer sim;
  sim.bus.put<std::uint8_t>(0x0AEC, 1);
  sim.bus.put<std::uint8_t>(0x0894, 1);
  sim.bus.put<std::uint8_t>(0x0894 + 0x98, 1);
  sim.store.Engines(1).Combustion = 0;
  sim.store.Engines(2).Combustion = 0;
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).Combustion, 1);
  EXPECT_EQ(sim.store.Engines(2).Combustion, 0);
}

}  // namespace
}  // namespace vorlent
