#include "plan/PlanShare.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "flightplan/PlanFile.h"
#include "plan/PerfDatabase.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

const std::string shipped = readFile(VORLENT_DATA_FOLDER "/Templates/temp.mdb");

class PlanShareTest : public testing::Test {
 protected:
  PlanShareTest() {
    PlanTask task;
    task.aircraft = *performanceOf("737-400");
    flight = planFlight({{{"XAAA", {50, 8}, 0}, {"ALPHA", {51, 9}}, {"XBBB", {52, 12}, 0}}, 15000},
                        task);
  }

  TempFolder folder;
  PlanShare share{folder.path(), shipped};
  PlannedFlight flight;
};

TEST_F(PlanShareTest, WritesTheFilesOfALegAndMakesTheFolders) {
  share.write(flight, 2);
  EXPECT_EQ(readPlanFile(folder.read("FMS/EXEC")).rows[0].Name, "ALPHA");
  EXPECT_EQ(readPlanFile(folder.read("FMS/PROF")).rows[1].Name, "T/D  ");
  EXPECT_EQ(plannedAircraft(folder.read("FMS/plan.cfg")), "737-400");
  EXPECT_EQ(folder.read("FMS/db/temp.mdb"), perfDatabase(shipped, perfDataOf(flight, 2)));
}

TEST_F(PlanShareTest, OfThePlanCfgAllButTheAircraftStays) {
  folder.write("FMS/plan.cfg",
               "; mine\r\n[Flight]\r\nAircraft=737-700\r\nPilot=A\r\n[X]\r\nY=1\r\n");
  share.write(flight, 1);
  EXPECT_EQ(folder.read("FMS/plan.cfg"),
            "; mine\r\n[Flight]\r\nAircraft=737-400\r\nPilot=A\r\n[X]\r\nY=1\r\n");
}

TEST_F(PlanShareTest, FilesOfAnyCaseAreReplacedNotDoubled) {
  folder.write("fms/exec", "old");
  share.write(flight, 1);
  EXPECT_EQ(readPlanFile(folder.read("fms/exec")).rows[0].Name, "XAAA ");
  EXPECT_FALSE(std::filesystem::exists(folder / "FMS"));
}

TEST_F(PlanShareTest, NothingButTheFilesIsLeftInTheShare) {
  share.write(flight, 1);
  share.write(flight, 2);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder / "FMS"))
    names.push_back(entry.path().filename().string());
  EXPECT_THAT(names, testing::UnorderedElementsAre("EXEC", "PROF", "plan.cfg", "db"));
}

TEST_F(PlanShareTest, AFileThatCannotBeWrittenIsNamed) {
  std::filesystem::create_directories(folder / "FMS/EXEC");
  try {
    share.write(flight, 1);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.description(), HasSubstr("EXEC"));
  }
}

TEST_F(PlanShareTest, AFolderThatCannotBeMadeIsNamed) {
  folder.write("FMS", "a file");
  try {
    share.write(flight, 1);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.description(), HasSubstr("FMS"));
  }
}

TEST_F(PlanShareTest, ActiveIsReadWithoutItsBlanksAndLineEnd) {
  EXPECT_EQ(share.active(), std::nullopt);
  folder.write("FMS/ACTIVE", "E/D  \r\n");
  ASSERT_TRUE(share.active());
  EXPECT_EQ(share.active()->waypoint, "E/D");
  share.forgetActive();
  EXPECT_EQ(share.active(), std::nullopt);
  share.forgetActive();
}

TEST_F(PlanShareTest, AnActiveThatIsWrittenAgainHasAnotherTime) {
  folder.write("FMS/ACTIVE", "ALPHA\r\n");
  const auto before = share.active();
  EXPECT_EQ(share.active(), before);
  std::filesystem::last_write_time(
      folder / "FMS/ACTIVE",
      std::filesystem::last_write_time(folder / "FMS/ACTIVE") + std::chrono::milliseconds(400));
  EXPECT_NE(share.active(), before);
}

}  // namespace
}  // namespace vorlent
