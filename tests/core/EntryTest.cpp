#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Entry, ASecondInstanceIsToldAndEnds) {
  TestServer host;
  host.instance.free = false;
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("You can only run 1 Vorlent at a time")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_FALSE(host.store.IsMaster);
  EXPECT_FALSE(fs::exists(host.folder / "log.txt"));
  EXPECT_THAT(host.op.shown, IsEmpty());
}

TEST(Entry, TheOnlyInstanceIsMaster) {
  TestServer host;
  EXPECT_FALSE(host.store.IsMaster);
  host.start();
  EXPECT_TRUE(host.store.IsMaster);
}

TEST(Entry, TheFirstMissingSystemFileIsToldAndEnds) {
  TestServer host;
  host.folder.write("system/first.dll", "");
  host.server.installation.systemFiles = {host.folder / "system/first.dll",
                                          host.folder / "system/second.dll",
                                          host.folder / "system/third.dll"};
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("You are missing a system file\n" +
                                   (host.folder / "system/second.dll") + " not found")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.log(), "Checking system files...\r\n");
}

TEST(Entry, AllSystemFilesThereLetsTheStartGoOn) {
  TestServer host;
  host.folder.write("system/first.dll", "");
  host.server.installation.systemFiles = {host.folder / "system/first.dll"};
  host.start();
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_TRUE(host.form.Visible());
}

TEST(Entry, TheLinesBeforeTheMainWindowDoNotSurviveInTheLog) {
  TestServer host;
  host.start();
  EXPECT_EQ(host.log().find("Checking"), std::string::npos);
}

TEST(Entry, TheChecksAreLoggedBeforeTheMainWindowLoads) {
  TestServer host;
  fs::create_directories(host.folder / "test.txt");
  host.start();
  EXPECT_EQ(host.log(), "Checking system files...\r\nChecking file/directory access...\r\n" +
                            host.folder.path() + "\\test.txt: Path/File access error\r\n");
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
}

TEST(Entry, AProgramFolderThatCannotBeWrittenIsToldAndEnds) {
  TestServer host;
  host.server.installation.programFolder = "/proc/1";
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Couldn't write to /proc/1\nCheck your file permissions")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_THAT(host.op.shown, IsEmpty());
}

TEST(Entry, AProgramFolderThatIsNoFolderIsToldAndEnds) {
  TestServer host;
  host.folder.write("aFile", "");
  host.server.installation.programFolder = host.folder / "aFile";
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Couldn't write to " + (host.folder / "aFile") +
                                   "\nCheck your file permissions")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST(Entry, TheTestFileIsGoneAfterTheCheck) {
  TestServer host;
  host.start();
  EXPECT_FALSE(fs::exists(host.folder / "test.txt"));
}

TEST(Entry, ALongerTestFileLeftByACrashDoesNotStopTheStart) {
  TestServer host;
  host.folder.write("test.txt", "left over from a start that was cut off\r\n");
  host.start();
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_FALSE(fs::exists(host.folder / "test.txt"));
}

TEST(Entry, AFileThatCanBeReadPassesTheReadCheck) {
  TestServer host;
  host.folder.write("share/EXEC", "x");
  host.server.main->TestFileAccess(host.folder / "share/EXEC", modMain::Access::Read);
  EXPECT_THAT(host.op.takeBoxes(), IsEmpty());
}

TEST(Entry, AFileThatCannotBeReadIsToldByItsFolderAndEnds) {
  TestServer host;
  host.server.failureDomain.run([&host] {
    host.server.main->TestFileAccess("\\\\fmc1\\Tarnwick\\FMS\\EXEC", modMain::Access::Read);
  });
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Couldn't read from \\\\fmc1\\Tarnwick\\FMS\n"
                                   "Check your file permissions")));
  EXPECT_EQ(host.exitStatus(), 1);
}

}  // namespace
}  // namespace vorlent
