#include "plan/rowNames.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

using Names = std::vector<std::string>;

TEST(RowNames, ANameHasFiveCharactersAtMost) {
  EXPECT_EQ(rowNames({"XAVR", "Drosselby"}), (Names{"XAVR", "Dross"}));
}

TEST(RowNames, ANameThatStandsAgainGetsANumber) {
  EXPECT_EQ(rowNames({"ALPHA", "AB", "ALPHA", "AB", "ALPHA"}),
            (Names{"ALPHA", "AB", "ALPH2", "AB2", "ALPH3"}));
}

TEST(RowNames, ANumberThatIsTakenIsPassedOver) {
  EXPECT_EQ(rowNames({"ALPH2", "ALPHA", "ALPHA"}), (Names{"ALPH2", "ALPHA", "ALPH3"}));
}

TEST(RowNames, NamesWithAMeaningBecomeOthers) {
  EXPECT_EQ(rowNames({"T/D", "E/D", "T/C", "RX-24"}), (Names{"T_D", "E_D", "T_C", "RX_24"}));
}

TEST(RowNames, WhatCouldEndAFieldIsTakenOut) {
  EXPECT_EQ(rowNames({"A\"B,", "+13.6", "", "\n"}), (Names{"A_B_", "+13.6", "WPT", "_"}));
}

TEST(RowNames, AThousandEqualNamesAreToldApart) {
  const auto rows = rowNames(Names(1000, "ALPHA"));
  EXPECT_EQ(rows.back(), "A1000");
}

}  // namespace
}  // namespace vorlent
