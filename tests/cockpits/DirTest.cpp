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
  EXPECT_EQ(form.txtPath.Text(), old / "cockpits");
  EXPECT_THAT(listed(), ElementsAre("..", "737-700", "747"));
  form.dirList1.ListIndex(0);
  EXPECT_EQ(form.txtPath.Text(), old.path());
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
  EXPECT_EQ(form.txtPath.Text(), old.path());
}

TEST_F(ImportOldCockpits, DrivesAreOfferedWhereThereAreSome) {
  EXPECT_FALSE(form.drvDrive1.Visible());
  form.close();
  host.chooser.theDrives = {"C:", "D:"};
  host.form.mnuFile(0).press();
  EXPECT_TRUE(form.drvDrive1.Visible());
  EXPECT_EQ(form.drvDrive1.Items().size(), 2U);
}

}  // namespace
}  // namespace vorlent
