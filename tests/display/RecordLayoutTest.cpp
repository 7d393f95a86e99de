#include "display/RecordLayout.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

TEST(RecordLayout, HasTwoHundredAndTenTokensAndThirtyFourForEachEngine) {
  EXPECT_EQ(RecordLayout::ofBlocks(1).tokens().size(), 244u);
  EXPECT_EQ(RecordLayout::ofBlocks(2).tokens().size(), 278u);
  EXPECT_EQ(RecordLayout::ofBlocks(3).tokens().size(), 312u);
  EXPECT_EQ(RecordLayout::ofBlocks(4).tokens().size(), 346u);
}

TEST(RecordLayout, GroupsHaveTheirLengthsAndPositionsCountUp) {
  const int lengths[] = {2, 6, 4, 6, 25, 34, 20, 24, 2, 3, 11, 2, 3, 1, 27, 17, 14, 10, 11, 20, 2};
  std::size_t next = 0;
  for (int group = 1; group <= 21; ++group)
    for (int position = 1; position <= lengths[group - 1]; ++position, ++next) {
      ASSERT_LT(next, tokenRows().size());
      EXPECT_EQ(tokenRows()[next].group, group);
      EXPECT_EQ(tokenRows()[next].position, position) << "in group " << group;
    }
  EXPECT_EQ(next, tokenRows().size());
}

TEST(RecordLayout, FindsTokensByName) {
  const auto& two = RecordLayout::ofBlocks(2);
  EXPECT_EQ(two.indexOf("EngineCount"), 0u);
  EXPECT_EQ(two.indexOf("Latitude"), 2u);
  EXPECT_EQ(two.indexOf("Ias"), 14u);
  EXPECT_EQ(two.indexOf("FuelLbPerGallon"), 42u);
  EXPECT_EQ(two.indexOf("Engines(1).Epr"), 43u);
  EXPECT_EQ(two.indexOf("Engines(2).ClientValueB"), 110u);
  EXPECT_EQ(two.indexOf("RadioValues(1)"), 111u);
  EXPECT_EQ(two.indexOf("end"), 277u);
  EXPECT_EQ(two.tokens()[44].name, "Engines(1).N1");
}

TEST(RecordLayout, TokensBehindTheEnginesMoveWithTheNumberOfBlocks) {
  EXPECT_EQ(RecordLayout::ofBlocks(1).indexOf("apMcpAltitude"), 129u);
  EXPECT_EQ(RecordLayout::ofBlocks(4).indexOf("apMcpAltitude"), 231u);
}

TEST(RecordLayout, KnowsNoEngineThatHasNoBlock) {
  EXPECT_FALSE(RecordLayout::ofBlocks(2).indexOf("Engines(3).N1"));
  EXPECT_TRUE(RecordLayout::ofBlocks(3).indexOf("Engines(3).N1"));
  EXPECT_FALSE(RecordLayout::ofBlocks(4).indexOf("NoSuchToken"));
}

TEST(RecordLayout, NamesStandOnceInARecord) {
  const auto& layout = RecordLayout::ofBlocks(4);
  for (std::size_t i = 0; i < layout.tokens().size(); ++i)
    EXPECT_EQ(layout.indexOf(layout.tokens()[i].name), i) << layout.tokens()[i].name;
}

TEST(RecordLayout, OneToThreeEnginesGiveAsManyBlocksAndEverythingElseFour) {
  EXPECT_EQ(engineBlocks(1), 1);
  EXPECT_EQ(engineBlocks(2), 2);
  EXPECT_EQ(engineBlocks(3), 3);
  EXPECT_EQ(engineBlocks(4), 4);
  EXPECT_EQ(engineBlocks(0), 4);
  EXPECT_EQ(engineBlocks(5), 4);
  EXPECT_EQ(engineBlocks(255), 4);
  EXPECT_EQ(engineBlocks(-1), 4);
}

TEST(RecordLayout, ThereAreNoOtherNumbersOfBlocksThanOneToFour) {
  EXPECT_THROW(RecordLayout::ofBlocks(0), RuntimeError);
  EXPECT_THROW(RecordLayout::ofBlocks(5), RuntimeError);
}

TEST(RecordLayout, ElectricalValuesTravelInTheOrderThatBeginsWithTheThird) {
  const auto& layout = RecordLayout::ofBlocks(1);
  const auto first = layout.indexOf("Electrical(3)");
  ASSERT_TRUE(first);
  EXPECT_EQ(layout.indexOf("Electrical(1)"), *first + 1);
  EXPECT_EQ(layout.indexOf("Electrical(2)"), *first + 2);
  EXPECT_EQ(layout.indexOf("Electrical(4)"), *first + 3);
  EXPECT_EQ(layout.indexOf("Electrical(11)"), *first + 10);
}

}  // namespace
}  // namespace vorlent
