#include "cockpits/frmDir.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

const auto Present = plainBox("This is your PRESENT Vorlent folder\nplease go to the old one...");
const auto NoVorlent = plainBox("This is not a Vorlent folder\nplease try again...");

class ImportOldCockpits : public ::testing::Test {
 protected:
  ImportOldCockpits() {
    old.write("cockpits/737-700/Flaps.cfg", "9\r\n");
    old.write("cockpits/747/sound/x.wav", "RIFF");
    host.start();
    host.form.mnuFile(0).press();
  }
  void ok() {
    host.server.failureDomain.run([this] { form.cmdOK.press(); });
  }
  std::vector<std::string> listed() const {
    std::vector<std::string> names;
    for (const auto& item : form.dirList1.Items()) names.push_back(item.text);
    return names;
  }
  void choose(const std::string& path) {
    form.txtPath.Text(path);
    form.txtPath.loseFocus();
  }

  TempFolder old;
  TestServer host;
  frmDir& form = *host.server.importOld;
};

TEST_F(ImportOldCockpits, BeginsInTheProgramFolderAndRefusesItWhateverTheCaseOfTheLetters) {
  EXPECT_EQ(form.txtPath.Text(), nativePath(host.folder.path()));
  ok();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(Present));
  for (const std::string& spelling :
       {upperCase(host.folder.path()), host.folder.path() + "/", host.folder.path() + "\\",
        host.folder.path() + "/Cockpits/.."}) {
    choose(spelling);
    ok();
    EXPECT_THAT(host.op.takeBoxes(), ElementsAre(Present)) << spelling;
    EXPECT_TRUE(form.Visible());
  }
}

TEST_F(ImportOldCockpits, AFolderWithoutCockpitsIsRefused) {
  choose(old / "cockpits");
  ok();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(NoVorlent));
  EXPECT_TRUE(form.Visible());
}

TEST_F(ImportOldCockpits, WhatIsNoFolderIsComplainedAboutAndRefused) {
  choose(old / "missing");
  EXPECT_EQ(form.txtPath.Complaint(), "There is no such folder");
  ok();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(NoVorlent));
}

TEST_F(ImportOldCockpits, TakesTheCockpitsOverAndKeepsWhatTheyOverwrite) {
  choose(old.path());
  ok();
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(host.folder.read("Cockpits/737-700/Flaps.cfg"), "9\r\n");
  EXPECT_EQ(host.folder.read("Cockpits/737-700/Flaps.cfg.bak"), "1,2,5,10,15,25,30,40\r\n");
  EXPECT_TRUE(fs::exists(host.folder / "Cockpits/737-700/sound.cfg"));
  EXPECT_EQ(host.folder.read("Cockpits/747/sound/x.wav"), "RIFF");
  EXPECT_GE(host.form.cboDir.indexOf("747"), 0);
  EXPECT_EQ(host.form.cboDir.Text(), "737-700");
}

TEST_F(ImportOldCockpits, TheListLeadsDownIntoFoldersAndUp) {
  choose(old.path());
  EXPECT_THAT(listed(), ElementsAre("..", "cockpits"));
  form.dirList1.ListIndex(1);
  EXPECT_EQ(form.txtPath.Text(), nativePath(old / "cockpits"));
  EXPECT_THAT(listed(), ElementsAre("..", "737-700", "747"));
  form.dirList1.ListIndex(0);
  EXPECT_EQ(form.txtPath.Text(), nativePath(old.path()));
}

TEST_F(ImportOldCockpits, UpEndsAtTheRoot) {
  for (int i = 0; i < 40; ++i) form.dirList1.ListIndex(0);
  EXPECT_EQ(form.txtPath.Complaint(), "");
  EXPECT_LE(form.txtPath.Text().size(), 3U);
}

TEST_F(ImportOldCockpits, AFolderCanBePointedAt) {
  form.cmdBrowse.press();
  EXPECT_THAT(host.chooser.starts, ElementsAre(nativePath(host.folder.path())));
  EXPECT_EQ(form.txtPath.Text(), nativePath(host.folder.path()));
  host.chooser.choice = old.path();
  form.cmdBrowse.press();
  EXPECT_EQ(form.txtPath.Text(), nativePath(old.path()));
}

TEST_F(ImportOldCockpits, DrivesAreOfferedWhereThereAreSome) {
  EXPECT_FALSE(form.drvDrive1.Visible());
  form.close();
  host.chooser.theDrives = {"C:", "D:"};
  host.form.mnuFile(0).press();
  EXPECT_TRUE(form.drvDrive1.Visible());
  EXPECT_EQ(form.drvDrive1.Items().size(), 2U);
}

TEST_F(ImportOldCockpits, TheDriveBoxFollowsTheFolder) {
  // On a system without drives a name with a colon stands for one.
  const bool onDrive = old.path().find(':') != std::string::npos;
  const std::string folder = onDrive ? old.path() : old / "D:/old";
  if (!onDrive) old.write("D:/old/cockpits/747/Flaps.cfg", "9\r\n");
  const std::string drive = upperCase(nativePath(folder.substr(0, folder.find(':') + 1)));
  form.close();
  host.chooser.theDrives = {"A:", drive};
  host.form.mnuFile(0).press();
  choose(folder);
  EXPECT_EQ(form.txtPath.Text(), nativePath(folder));
  EXPECT_EQ(form.drvDrive1.Text(), drive);
}

TEST_F(ImportOldCockpits, ADriveThatCannotBeReadLeavesTheFolderAndIsNotChosen) {
  form.close();
  host.chooser.theDrives = {"C:", "Q:"};
  host.form.mnuFile(0).press();
  const std::string before = form.txtPath.Text();
  const int drive = form.drvDrive1.ListIndex();
  form.drvDrive1.ListIndex(1);
  EXPECT_EQ(form.txtPath.Text(), before);
  EXPECT_EQ(form.drvDrive1.ListIndex(), drive);
}

TEST_F(ImportOldCockpits, AFileInThePlaceOfACockpitEndsTheProcessAndStays) {
  host.folder.write("Cockpits/747", "a file");
  choose(old.path());
  ok();
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '75':"), 0U);
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.folder.read("Cockpits/747"), "a file");
}

TEST_F(ImportOldCockpits, CancelTakesNothingOver) {
  choose(old.path());
  form.cmdCancel.press();
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(fs::exists(host.folder / "Cockpits/747"));
}

TEST_F(ImportOldCockpits, IsShownModally) {
  EXPECT_THAT(host.op.shown,
              ::testing::Contains(RecordingOperator::Shown{"frmDir", "Import 6.x panels", true}));
}

}  // namespace
}  // namespace vorlent
