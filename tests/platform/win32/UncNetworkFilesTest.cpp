#include "platform/win32/UncNetworkFiles.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "gtest/gtest.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

/// Wine's own folder for what `\\host\share` is: another machine that is a folder of this one.
class UncNetworkFilesTest : public testing::Test {
 protected:
  void SetUp() override {
    const char* const prefix = std::getenv("WINEPREFIX");
    ASSERT_NE(prefix, nullptr) << "not under Wine";
    hosts = fs::path("Z:" + std::string(prefix)) / "dosdevices/unc";
    fs::create_directories(share() / "FMS");
  }
  void TearDown() override { fs::remove_all(hosts / "fmc-pc"); }

  fs::path share() const { return hosts / "fmc-pc/Tarnwick"; }
  void put(const fs::path& name, const std::string& content) const {
    std::ofstream(share() / name, std::ios::binary) << content;
  }
  std::string get(const fs::path& name) const {
    std::ifstream file(share() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  fs::path hosts;
  UncNetworkFiles files;
  const std::string exec = "\\\\fmc-pc\\Tarnwick\\FMS\\EXEC";
};

TEST_F(UncNetworkFilesTest, ReadsEveryByte) {
  std::string bytes;
  for (int i = 0; i < 300'000; ++i) bytes += static_cast<char>(i * 7 % 256);
  put("FMS/EXEC", bytes);
  EXPECT_TRUE(files.read(exec) == bytes);
  EXPECT_TRUE(files.read("//fmc-pc/Tarnwick/FMS/EXEC") == bytes);
  put("FMS/EXEC", "");
  EXPECT_EQ(files.read(exec), "");
}

TEST_F(UncNetworkFilesTest, NamesAreUtf8) {
  put(fs::path(L"\u00E4.cfg"), "wide");
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\\xC3\xA4.cfg"), "wide");
}

TEST_F(UncNetworkFilesTest, FilesAndFoldersExistAndOthersDoNot) {
  put("FMS/EXEC", "plan");
  EXPECT_TRUE(files.exists(exec));
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick\\FMS"));
  EXPECT_FALSE(files.exists("\\\\fmc-pc\\Tarnwick\\FMS\\PROF"));
  EXPECT_FALSE(files.exists("\\\\other-pc\\Tarnwick\\FMS\\EXEC"));
  EXPECT_FALSE(files.exists("C:\\windows"));
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\FMS\\PROF"), std::nullopt);
  EXPECT_EQ(files.read("\\\\fmc-pc\\Tarnwick\\FMS"), std::nullopt);
}

TEST_F(UncNetworkFilesTest, AFileBeyondTheLimitIsNotReadAndToldApartFromNone) {
  put("FMS/EXEC", "12345");
  EXPECT_EQ(files.read(exec, 5), "12345");
  EXPECT_EQ(files.read(exec, 4), std::nullopt);
  EXPECT_TRUE(files.read(exec, 4).tooLarge);
  EXPECT_FALSE(files.read("\\\\fmc-pc\\Tarnwick\\FMS\\PROF", 4).tooLarge);
}

TEST_F(UncNetworkFilesTest, WritesReplacesAndRemoves) {
  const std::string active = "\\\\fmc-pc\\Tarnwick\\FMS\\ACTIVE";
  EXPECT_TRUE(files.write(active, "first and longer"));
  EXPECT_TRUE(files.write(active, "2"));
  EXPECT_EQ(get("FMS/ACTIVE"), "2");
  EXPECT_TRUE(files.remove(active));
  EXPECT_FALSE(files.exists(active));
  EXPECT_FALSE(files.remove(active));
  EXPECT_FALSE(files.remove("\\\\fmc-pc\\Tarnwick\\FMS"));
  EXPECT_FALSE(files.write("\\\\fmc-pc\\Tarnwick\\none\\ACTIVE", "x"));
}

}  // namespace
}  // namespace vorlent
