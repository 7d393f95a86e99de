#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "commands/CommandTable.h"
#include "sticks/catalogues.h"
#include "support/places.h"

namespace vorlent {
namespace {

using Item = std::pair<std::string, int>;
using Items = std::vector<Item>;

Items shipped(const char* file, HashRows hashRows) {
  std::string fault;
  Items items;
  for (const auto& item : readCatalogue(readFile(joinedPath(dataFolder(), file)), hashRows, fault))
    items.emplace_back(item.text, item.data);
  EXPECT_EQ(fault, "");
  return items;
}

void expectDifferentNamesThatFitALine(const Items& items) {
  constexpr std::size_t Line = 42;
  std::set<std::string> names;
  for (const auto& [name, code] : items) {
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_THAT(name.size(), testing::AllOf(testing::Ge(3U), testing::Le(Line))) << name;
  }
}

TEST(LeverCatalogue, OffersEveryCommandThatALeverCanSetAndNoOther) {
  Items commands;
  for (const CommandRow& row : analogRows())
    if (row.act != nullptr && row.lever != nullptr) commands.emplace_back(row.name, row.code);
  EXPECT_EQ(shipped("anasort.txt", HashRows::Skipped), commands);
}

TEST(LeverCatalogue, NamesTheTargetsOfTheAutopilotSwitchedOffAsNoLeverSetsThem) {
  Items targets;
  for (const CommandRow& row : analogRows())
    if (row.code >= 78 && row.code <= 85)
      targets.emplace_back("#" + std::string(row.name), row.code);
  Items switchedOff;
  for (const Item& item : shipped("anasort.txt", HashRows::Listed))
    if (item.first.starts_with('#')) switchedOff.push_back(item);
  EXPECT_EQ(targets.size(), 8U);
  EXPECT_EQ(switchedOff, targets);
}

TEST(LeverCatalogue, NamesAreDifferentAndFitALine) {
  expectDifferentNamesThatFitALine(shipped("anasort.txt", HashRows::Listed));
}

TEST(EncoderCatalogue, OffersEveryCommandOfAnEncoder) {
  Items commands;
  for (const CommandRow& row : encoderRows()) commands.emplace_back(row.name, row.code);
  EXPECT_EQ(shipped("encoder.txt", HashRows::Listed), commands);
}

TEST(EncoderCatalogue, NamesAreDifferentAndFitALine) {
  expectDifferentNamesThatFitALine(shipped("encoder.txt", HashRows::Listed));
}

}  // namespace
}  // namespace vorlent
