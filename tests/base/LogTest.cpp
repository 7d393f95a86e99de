#include "base/Log.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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

TEST_F(LogFile, ShowsControlCharactersByTheirNumbers) {
  log.WriteLog("host \x1B[2J\xC2\x9B\x9B\x7F H\xC3\xB6he");
  EXPECT_EQ(folder.read("log.txt"), "host \\x1B[2J\\xC2\\x9B\\x9B\\x7F H\xC3\xB6he\r\n");
}

TEST_F(LogFile, EndsAtAHundredMegabytesWithALineThatSaysSo) {
  folder.write("log.txt", "");
  fs::resize_file(folder / "log.txt", 99'999'988);
  log.WriteLog("0123");
  EXPECT_EQ(fs::file_size(folder / "log.txt"), 99'999'994u);
  log.WriteLog("last");
  log.WriteLog("lost");
  const std::string tail = "0123\r\nlast\r\nThe log ends here: it has 100 MB\r\n";
  ASSERT_EQ(fs::file_size(folder / "log.txt"), 99'999'988 + tail.size());
  std::ifstream file(folder / "log.txt", std::ios::binary);
  file.seekg(99'999'988);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), tail);
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
