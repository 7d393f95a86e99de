#include "web/PlanWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "support/TempFolder.h"
#include "support/VirtualEventLoop.h"
#include "web/qrText.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(PlanWatch, TellsThePlanAtTheStartAndThenWhenItIsAnother) {
  const TempFolder folder;
  VirtualEventLoop loop;
  std::vector<std::string> plans;
  PlanWatch watch(loop, folder / ".", [&plans](const std::string& plan) { plans.push_back(plan); });
  watch.start();
  EXPECT_THAT(plans, ElementsAre("{\"plan\":{\"route\":[],\"profile\":[]}}"));
  loop.advance(5000);
  EXPECT_EQ(plans.size(), 1U);
  const std::string row =
      "\"ALPHA\",\"\",\"\",0,0,0,0,0,0,0,0,0,0,0,0,0,0,12000,0,0,\"\",0,50.3,"
      "8.9,0,0\r\n";
  folder.write("FMS/EXEC", "1\r\n" + row + row);
  loop.advance(1000);
  ASSERT_EQ(plans.size(), 2U);
  EXPECT_THAT(plans[1], HasSubstr("\"route\":[{\"name\":\"ALPHA\""));
  loop.advance(5000);
  EXPECT_EQ(plans.size(), 2U);
}

TEST(QrText, HasALineForTwoRowsAndTooLongATextHasNone) {
  // 60 characters take version 4 at level M: 33 modules and 8 of the quiet zone.
  const std::string code = qrText(std::string(60, 'a'));
  EXPECT_EQ(std::count(code.begin(), code.end(), '\n'), 21);
  EXPECT_THAT(code, HasSubstr("\x1b[30;107m"));
  EXPECT_THAT(qrText(std::string(5000, 'a')), IsEmpty());
}

}  // namespace
}  // namespace vorlent
