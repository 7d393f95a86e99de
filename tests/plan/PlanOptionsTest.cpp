#include "plan/PlanOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Optional;

using Arguments = std::vector<std::string>;

std::string refusal(const Arguments& arguments) {
  try {
    readPlanOptions(arguments);
    return "";
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    return end.text;
  }
}

TEST(PlanOptions, ARouteAndAShareAreEnough) {
  const PlanOptions options = readPlanOptions({"a.fms", "--share", "."});
  EXPECT_EQ(options.route, "a.fms");
  EXPECT_EQ(options.share, ".");
  EXPECT_EQ(options.host, "");
  EXPECT_EQ(options.port, 5001);
  EXPECT_FALSE(options.print);
  EXPECT_EQ(options.task.aircraft.name, "737-700");
  EXPECT_FALSE(options.task.cruise_ft);
  EXPECT_FALSE(options.task.runway);
  EXPECT_FALSE(options.pilot);
  EXPECT_EQ(options.flightSeconds, 1);
}

TEST(PlanOptions, EverythingCanBeSaid) {
  const PlanOptions options =
      readPlanOptions({"a.fpl", "cockpit", "5003", "--name", "pc", "--share", ".", "--aircraft",
                       "737-300", "--cruise", "290", "--zero-fuel-weight", "100000", "--reserve",
                       "4000", "--runway=-33.95,151.17,335,20.5"});
  EXPECT_EQ(options.host, "cockpit");
  EXPECT_EQ(options.port, 5003);
  EXPECT_EQ(options.name, "pc");
  EXPECT_EQ(options.task.aircraft.name, "737-300");
  EXPECT_THAT(options.task.cruise_ft, Optional(29000.0));
  EXPECT_THAT(options.task.weightWithoutFuel_lb, Optional(100000.0));
  EXPECT_THAT(options.task.reserve_lb, Optional(4000.0));
  ASSERT_TRUE(options.task.runway);
  EXPECT_EQ(options.task.runway->threshold.latitude_deg, -33.95);
  EXPECT_EQ(options.task.runway->threshold.longitude_deg, 151.17);
  EXPECT_EQ(options.task.runway->course_deg, 335);
  EXPECT_EQ(options.task.runway->elevation_ft, 20.5);
}

TEST(PlanOptions, ARouteIsNeededAndAShareUnlessItIsPrinted) {
  EXPECT_THAT(refusal({"--print"}), HasSubstr("the route file is missing"));
  EXPECT_THAT(refusal({"a.fms"}), HasSubstr("--share is missing"));
  EXPECT_TRUE(readPlanOptions({"a.fms", "--print"}).print);
}

TEST(PlanOptions, WrongValuesAreTold) {
  const auto with = [](const std::string& option) { return refusal({"a.fms", "--print", option}); };
  EXPECT_THAT(with("--aircraft=747-400"), HasSubstr("747-400"));
  EXPECT_THAT(with("--cruise=9"), HasSubstr("10 to 450"));
  EXPECT_THAT(with("--zero-fuel-weight=heavy"), HasSubstr("heavy"));
  EXPECT_THAT(with("--share=/no/such/folder"), HasSubstr("/no/such/folder"));
  EXPECT_THAT(with("--name=a/b"), HasSubstr("the name of a machine"));
  EXPECT_THAT(with("--port"), HasSubstr("--port"));
}

TEST(PlanOptions, APilotNeedsARunwayAndItsLandingSystem) {
  const Arguments shared = {"a.fms", "--share", ".", "--pilot"};
  const auto with = [&shared](const Arguments& more) {
    Arguments all = shared;
    all.insert(all.end(), more.begin(), more.end());
    return all;
  };
  EXPECT_THAT(refusal(with({})), HasSubstr("--pilot needs --runway"));
  EXPECT_THAT(refusal(with({"--runway=1,2,3,4"})), HasSubstr("--pilot needs --ils"));
  EXPECT_THAT(refusal(with({"--runway=1,2,3,4", "--ils=118.1"})), HasSubstr("108 to 111.975"));
  EXPECT_THAT(refusal(with({"--speed=11"})), HasSubstr("0.1 to 10"));
  const PlanOptions options =
      readPlanOptions(with({"--runway=1,2,3,4", "--ils=108.9", "--speed=4"}));
  EXPECT_TRUE(options.pilot);
  EXPECT_EQ(options.localizer_MHz, 108.9);
  EXPECT_EQ(options.flightSeconds, 4);
}

TEST(PlanOptions, ARunwayIsFourNumbersWithinTheirRanges) {
  for (const std::string runway : {"1,2,3", "1,2,3,4,5", "91,2,3,4", "1,181,3,4", "1,2,361,4",
                                   "1,2,3,20000", "a,2,3,4", "1,2,3,", "1;2;3;4"})
    EXPECT_THAT(refusal({"a.fms", "--print", "--runway=" + runway}),
                AllOf(HasSubstr("latitude, longitude, true course"), HasSubstr(runway)));
}

}  // namespace
}  // namespace vorlent
