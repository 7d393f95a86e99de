#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class CockpitSelection : public ::testing::Test {
 protected:
  void addCockpit(const std::string& name) const {
    host.folder.write("Cockpits/" + name + "/sound.cfg", "11,1.2,95,40,0.05,90,80,70\r\n5,1,1,1,1");
    host.folder.write("Cockpits/" + name + "/Flaps.cfg", "5,10\r\n");
  }
  std::vector<std::string> listed() const {
    std::vector<std::string> names;
    for (const auto& item : host.form.cboDir.Items()) names.push_back(item.text);
    return names;
  }

  TestServer host;
};

TEST_F(CockpitSelection, ListsTheSubFoldersInOrder) {
  addCockpit("b747");
  host.folder.write("Cockpits/readme.txt", "no folder");
  host.start();
  EXPECT_THAT(listed(), ElementsAre("737-700", "A-first", "b747"));
}

TEST_F(CockpitSelection, SelectsTheConfiguredOne) {
  host.configure("Cockpit", "A-first");
  host.start();
  EXPECT_EQ(host.form.cboDir.Text(), "A-first");
  EXPECT_EQ(host.store.CockpitPath, host.folder.path() + "\\Cockpits\\A-first\\");
}

TEST_F(CockpitSelection, ReadsTheSettingsOfTheSelectedOne) {
  addCockpit("b747");
  host.configure("Cockpit", "b747");
  host.start();
  EXPECT_EQ(host.server.soundSettings->rumble.Volume, 11);
  EXPECT_EQ(host.form.txtFlaps.Text(), "5,10");
}

TEST_F(CockpitSelection, AMissingFolderGivesWayToTheFirst) {
  host.configure("Cockpit", "gone");
  host.start();
  EXPECT_EQ(host.store.CockpitName, "737-700");
  EXPECT_EQ(host.store.CockpitPath, host.folder.path() + "\\Cockpits\\737-700\\");
  EXPECT_EQ(host.form.cboDir.Text(), "737-700");
  EXPECT_EQ(host.form.sbStatusBar.panelText(1),
            "There is no cockpit \"gone\", so it is 737-700: choose another one under Aircraft");
}

TEST_F(CockpitSelection, NoCockpitAtAllIsAnInitializationError) {
  fs::remove_all(host.folder / "Cockpits");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(CockpitSelection, ANameThatIsANumberIsKeptAsItIsWritten) {
  addCockpit("0737");
  host.configure("Cockpit", "0737");
  host.start();
  EXPECT_EQ(host.store.CockpitName, "0737");
  EXPECT_EQ(host.form.cboDir.Text(), "0737");
}

TEST_F(CockpitSelection, ANameInOtherCasesOfLettersIsTheFoldersAndIsSavedAsTheFoldersName) {
  host.configure("Cockpit", "a-FIRST");
  addCockpit("Z-last");
  host.start();
  EXPECT_EQ(host.form.cboDir.Text(), "A-first");
  EXPECT_EQ(host.store.CockpitName, "A-first");
}

TEST(SelectComboText, SelectsTheEntryWithTheTextAndStaysOnTheLastOneWithANameNotInTheList) {
  ComboBox box("cboDir");
  for (const std::string name : {"first", "second", "third"}) box.addItem(name);
  frmMainClient::SelectComboText(box, "second");
  EXPECT_EQ(box.Text(), "second");
  frmMainClient::SelectComboText(box, "fourth");
  EXPECT_EQ(box.Text(), "third");
}

TEST(SelectComboText, RunsNoHandlerButTheLastSelectionsOne) {
  ComboBox box("cboDir");
  for (const std::string name : {"first", "second", "third"}) box.addItem(name);
  std::vector<std::string> selected;
  box.ListIndex.onChange([&] { selected.push_back(box.Text()); });
  frmMainClient::SelectComboText(box, "third");
  frmMainClient::SelectComboText(box, "third");
  EXPECT_THAT(selected, ElementsAre("third"));
}

}  // namespace
}  // namespace vorlent
