#include "base/Log.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempFolder.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

class LogFile : public ::testing::Test {
 protected:
  TempFolder folder;
  Log log{folder / "log.txt"};
};

TEST_F(LogFile, TakesOneMessageALine) {
  log.WriteLog("first");
  log.WriteLog("");
  log.WriteLog("third");
  EXPECT_EQ(folder.read("log.txt"), "first\r\n\r\nthird\r\n");
}

TEST_F(LogFile, HoldsEachLineAsSoonAsItIsWritten) {
  log.WriteLog("first");
  EXPECT_EQ(folder.read("log.txt"), "first\r\n");
  fs::remove(folder / "log.txt");
  log.WriteLog("second");
  EXPECT_EQ(folder.read("log.txt"), "second\r\n");
}

TEST_F(LogFile, KeepsAMessageWithLineBreaksOnOneLine) {
  log.WriteLog("a\r\nb\nc");
  EXPECT_EQ(folder.read("log.txt"), "a  b c\r\n");
}

TEST_F(LogFile, IsAppendedToAfterARestartOfTheWriter) {
  log.WriteLog("first");
  Log(folder / "log.txt").WriteLog("second");
  EXPECT_EQ(folder.read("log.txt"), "first\r\nsecond\r\n");
}

TEST_F(LogFile, ThatCannotBeWrittenIsPassedOver) {
  fs::create_directories(folder / "log.txt");
  EXPECT_NO_THROW(log.WriteLog("lost"));
  EXPECT_TRUE(fs::is_directory(folder / "log.txt"));
}

TEST_F(LogFile, IsRemoved) {
  log.WriteLog("first");
  log.remove();
  EXPECT_FALSE(fs::exists(folder / "log.txt"));
}

TEST_F(LogFile, ThatIsNotThereOrCannotBeRemovedIsPassedOver) {
  EXPECT_NO_THROW(log.remove());
  folder.write("log.txt/in the way", "");
  EXPECT_NO_THROW(log.remove());
  EXPECT_TRUE(fs::exists(folder / "log.txt/in the way"));
}

}  // namespace
}  // namespace vorlent
