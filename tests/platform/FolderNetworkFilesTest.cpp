#include "platform/FolderNetworkFiles.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "gtest/gtest.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

class FolderNetworkFilesTest : public testing::Test {
 protected:
  FolderNetworkFilesTest() {
    outer.write("secret", "outside");
    outer.write("net/fmc-pc/Tarnwick/FMS/EXEC", "plan");
  }
  TempFolder outer;
  FolderNetworkFiles files{outer / "net"};
};

TEST_F(FolderNetworkFilesTest, ReadsHostShareAndPathInAnyCaseOfLetters) {
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\FMS\\EXEC"), "plan");
  EXPECT_EQ(files.read("\\\\FMC-PC\\tarnwick\\fms\\exec"), "plan");
}

TEST_F(FolderNetworkFilesTest, AFileBeyondTheLimitIsNotReadAndToldApartFromNone) {
  const std::string path = "\\\\fmc-pc\\Tarnwick\\large";
  outer.write("net/fmc-pc/Tarnwick/large", std::string(1'048'576, 'x'));
  EXPECT_EQ(files.read(path), std::string(1'048'576, 'x'));
  std::filesystem::resize_file(outer / "net/fmc-pc/Tarnwick/large", 1'048'577);
  EXPECT_EQ(files.read(path), std::nullopt);
  EXPECT_TRUE(files.read(path).tooLarge);
  EXPECT_EQ(files.read(path, NetworkFiles::MostOfAPlan_bytes)->size(), 1'048'577u);
  std::filesystem::resize_file(outer / "net/fmc-pc/Tarnwick/large", 16'777'217);
  EXPECT_TRUE(files.read(path, NetworkFiles::MostOfAPlan_bytes).tooLarge);
  EXPECT_FALSE(files.read("\\\\fmc-pc\\Tarnwick\\none").tooLarge);
}

TEST_F(FolderNetworkFilesTest, FilesAndFoldersExistAndOthersDoNot) {
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick\\FMS\\EXEC"));
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick"));
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick\\"));
  EXPECT_FALSE(files.exists("\\\\fmc-pc\\Vorlent"));
  EXPECT_FALSE(files.exists("\\\\other\\Tarnwick"));
}

TEST_F(FolderNetworkFilesTest, AHostWithoutAShareIsNothing) {
  EXPECT_FALSE(files.exists("\\\\fmc-pc"));
  EXPECT_FALSE(files.exists("\\\\fmc-pc\\"));
  EXPECT_FALSE(files.write("\\\\new-host", "x"));
  EXPECT_FALSE(std::filesystem::exists(outer / "net/new-host"));
}

TEST_F(FolderNetworkFilesTest, WritesReplacesAndRemoves) {
  const std::string path = "\\\\fmc-pc\\Tarnwick\\FMS\\ACTIVE";
  EXPECT_TRUE(files.write(path, "first"));
  EXPECT_TRUE(files.write(path, "2"));
  EXPECT_EQ(outer.read("net/fmc-pc/Tarnwick/FMS/ACTIVE"), "2");
  EXPECT_TRUE(files.remove(path));
  EXPECT_FALSE(files.exists(path));
  EXPECT_FALSE(files.remove(path));
}

TEST_F(FolderNetworkFilesTest, MakesNoFolders) {
  EXPECT_FALSE(files.write("\\\\fmc-pc\\Tarnwick\\other\\ACTIVE", "x"));
  EXPECT_FALSE(files.exists("\\\\fmc-pc\\Tarnwick\\other"));
}

TEST_F(FolderNetworkFilesTest, FoldersAreNeitherReadNorRemoved) {
  std::filesystem::create_directory(outer / "net/fmc-pc/Tarnwick/empty");
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\empty"), std::nullopt);
  EXPECT_FALSE(files.remove("\\\\fmc-pc\\Tarnwick\\empty"));
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick\\empty"));
}

TEST_F(FolderNetworkFilesTest, ANamedPipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo((outer / "net/fmc-pc/Tarnwick/pipe").c_str(), 0600), 0);
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\pipe"), std::nullopt);
}

TEST_F(FolderNetworkFilesTest, NoPathLeavesTheFolder) {
  for (const std::string path :
       {"\\\\..\\secret", "\\\\fmc-pc\\..\\..\\secret", "\\\\fmc-pc/../../secret",
        "\\\\.\\..\\secret", "\\\\fmc-pc\\Tarnwick\\..\\..\\..\\secret", "\\\\\\..\\secret"}) {
    EXPECT_FALSE(files.exists(path)) << path;
    EXPECT_EQ(files.read(path), std::nullopt) << path;
    EXPECT_FALSE(files.write(path, "overwritten")) << path;
    EXPECT_FALSE(files.remove(path)) << path;
  }
  EXPECT_EQ(outer.read("secret"), "outside");
}

TEST_F(FolderNetworkFilesTest, AHostIsOneNameOfLettersDigitsAndAFewSigns) {
  std::filesystem::create_directories(outer / "net/a b/share");
  std::filesystem::create_directories(outer / "net/A-1_b.local/share");
  EXPECT_FALSE(files.exists("\\\\a b\\share"));
  EXPECT_TRUE(files.exists("\\\\A-1_b.local\\share"));
}

TEST_F(FolderNetworkFilesTest, LocalPathsAreNoneOfTheNetworks) {
  EXPECT_FALSE(files.exists(outer.path()));
  EXPECT_FALSE(files.exists("fmc-pc\\Tarnwick"));
  EXPECT_FALSE(files.exists("\\fmc-pc\\Tarnwick"));
  EXPECT_FALSE(files.exists(""));
}

TEST_F(FolderNetworkFilesTest, ANulInAPathIsRefused) {
  EXPECT_FALSE(files.exists(std::string("\\\\fmc-pc\\Tarnwick\\FMS\\EXEC\0.txt", 30)));
}

TEST(FolderNetworkFilesWithoutAFolder, NothingIsThere) {
  FolderNetworkFiles files{""};
  EXPECT_FALSE(files.exists("\\\\tmp\\share"));
  EXPECT_EQ(files.read("\\\\etc\\passwd"), std::nullopt);
  EXPECT_FALSE(files.write("\\\\tmp\\x", "x"));
  EXPECT_FALSE(files.remove("\\\\tmp\\x"));
}

}  // namespace
}  // namespace vorlent
