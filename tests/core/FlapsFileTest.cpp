#include "extras/Flaps.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

class FlapsFile : public ::testing::Test {
 protected:
  FlapsFile() {
    host.store.CockpitPath = host.folder.path() + "\\Cockpits\\737-700\\";
    host.server.fsuipc->XPlane(1);
  }
  void fileHolds(const std::string& content) const {
    host.folder.write("Cockpits/737-700/Flaps.cfg", content);
  }
  void write() const { host.server.flaps->writeFile(host.store.CockpitPath); }
  std::string file() const { return host.folder.read("Cockpits/737-700/Flaps.cfg"); }
  void initFromFile(const std::string& content) {
    fileHolds(content);
    host.server.flaps->InitFlaps();
  }

  TestServer host;
  TextBox& txtFlaps = host.form.txtFlaps;
};

TEST_F(FlapsFile, AShorterTextLeavesTheOldFilesTailBehind) {
  initFromFile("10,20,40\r\n");
  txtFlaps.Text(" 5,9 ");
  write();
  EXPECT_EQ(file(), "5,9\r\n,40\r\n");
}

TEST_F(FlapsFile, ALongerTextMakesTheFileLonger) {
  initFromFile("10,20\r\n");
  txtFlaps.Text("10,20,40");
  write();
  EXPECT_EQ(file(), "10,20,40\r\n");
}

TEST_F(FlapsFile, TheNextStartReadsTheShorterText) {
  initFromFile("10,20,40\r\n");
  txtFlaps.Text("5,9");
  write();
  host.server.flaps->InitFlaps();
  EXPECT_EQ(txtFlaps.Text(), "5,9");
  EXPECT_EQ(host.server.store.FlapTable(0).Degrees, 3);
}

TEST_F(FlapsFile, AnExitBeforeTheFileWasReadLeavesItAlone) {
  for (const std::string content :
       {"10,20,40\r\n", "10,20\r\n,40\r\n", "10,20,40", "10,20,40\nsecond\n", " 10 \r\n", ""}) {
    fileHolds(content);
    write();
    EXPECT_EQ(file(), content);
  }
}

TEST_F(FlapsFile, AnExitBeforeTheFileWasReadIgnoresTheBox) {
  txtFlaps.Text("9");
  write();
  EXPECT_EQ(file(), "1,2,5,10,15,25,30,40\r\n");
}

TEST_F(FlapsFile, AnExitBeforeTheFileWasReadMakesNoFile) {
  fs::remove(host.folder / "Cockpits/737-700/Flaps.cfg");
  write();
  EXPECT_FALSE(fs::exists(host.folder / "Cockpits/737-700/Flaps.cfg"));
}

}  // namespace
}  // namespace vorlent
