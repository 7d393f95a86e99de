#include "keeper/FailureReport.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/files.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

TEST(FailureReport, TheNewestEndStandsFirstAndTenAreKept) {
  const TempFolder folder;
  FailureReport report(folder / "keeper.txt");
  for (int time = 1; time <= 12; ++time)
    report.add(std::to_string(time) + " o'clock", "ended by itself with status 1", "bye\n");
  const std::string text = readFile(folder / "keeper.txt");
  EXPECT_TRUE(text.starts_with(
      "12 o'clock: the server ended by itself with status 1. It said last:\nbye\n\n11 o'clock:"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 30);
  EXPECT_EQ(text.find("\n2 o'clock"), std::string::npos);
}

}  // namespace
}  // namespace vorlent
