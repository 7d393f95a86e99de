#include "cockpits/frmZip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class ZipOfACockpit : public ::testing::Test {
 protected:
  ZipOfACockpit() { host.start(); }
  void importFrom(const std::string& zip, const std::string& name) {
    host.form.mnuFile(4).press();
    form.txtFile.Text(zip);
    form.txtFile.loseFocus();
    if (!name.empty()) form.txtName.Text(name);
    form.cmdOK.press();
  }
  /// What the unpacked zip holds.
  void unpacked(const std::string& file, const std::string& content) const {
    host.folder.write("import.tmp/" + file, content);
  }
  void end(const std::string& fault = {}) { host.zipFiles.end(fault); }

  TestServer host;
  frmZip& form = *host.server.zip;
};

TEST_F(ZipOfACockpit, ExportSuggestsAFileAndPacksTheAircraftInUse) {
  host.form.mnuFile(3).press();
  EXPECT_EQ(form.Caption(), "Export cockpit 737-700");
  EXPECT_FALSE(form.txtName.Visible());
  EXPECT_EQ(form.txtFile.Text(), nativePath(joinedPath(host.folder.path(), "737-700.zip")));
  form.txtFile.Text(host.folder / "out.zip");
  form.cmdOK.press();
  EXPECT_EQ(host.zipFiles.work,
            "pack " + host.folder.path() + "\\Cockpits\\737-700 to " + host.folder / "out.zip");
  EXPECT_FALSE(form.Visible());
  end();
  EXPECT_EQ(host.form.sbStatusBar.panelText(1),
            "Cockpit 737-700 exported to " + host.folder / "out.zip");
}

TEST_F(ZipOfACockpit, ExportOverwritesNothing) {
  host.folder.write("there.zip", "old");
  host.form.mnuFile(3).press();
  form.txtFile.Text(host.folder / "there.zip");
  form.cmdOK.press();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("This file already exists, please type a new name")));
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(host.zipFiles.work, "");
}

TEST_F(ZipOfACockpit, AFaultOfTheExportIsTold) {
  host.form.mnuFile(3).press();
  form.cmdOK.press();
  end("No space left on device");
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Cockpit 737-700 is not exported\nNo space left on device")));
}

TEST_F(ZipOfACockpit, ImportMakesANewAircraftNamedAfterTheFile) {
  host.folder.write("737-900.ZIP", "zip");
  importFrom(host.folder / "737-900.ZIP", "");
  EXPECT_EQ(form.txtName.Text(), "737-900");
  EXPECT_EQ(host.zipFiles.work, "unpack " + host.folder / "737-900.ZIP");
  unpacked("sound.cfg", "1");
  unpacked("Flaps.cfg", "2");
  unpacked("stick/stick0.cfg", "3");
  end();
  EXPECT_EQ(host.folder.read("Cockpits/737-900/stick/stick0.cfg"), "3");
  EXPECT_FALSE(fs::exists(host.folder / "import.tmp"));
  EXPECT_GE(host.form.cboDir.indexOf("737-900"), 0);
  EXPECT_EQ(host.form.cboDir.Text(), "737-700");
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "Cockpit 737-900 imported");
}

TEST_F(ZipOfACockpit, AZipThatHoldsTheFolderItselfIsTakenToo) {
  host.folder.write("a.zip", "zip");
  importFrom(host.folder / "a.zip", "A320");
  unpacked("Airbus/sound.cfg", "1");
  unpacked("Airbus/Flaps.cfg", "2");
  end();
  EXPECT_EQ(host.folder.read("Cockpits/A320/Flaps.cfg"), "2");
  EXPECT_FALSE(fs::exists(host.folder / "Cockpits/Airbus"));
}

TEST_F(ZipOfACockpit, AZipThatHoldsNoCockpitIsRefusedAndLeavesNothing) {
  host.folder.write("a.zip", "zip");
  importFrom(host.folder / "a.zip", "A320");
  unpacked("readme.txt", "1");
  end();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Cockpit A320 is not imported\nThis zip file holds no cockpit: "
                                   "there is no sound.cfg in it")));
  EXPECT_FALSE(fs::exists(host.folder / "Cockpits/A320"));
  EXPECT_FALSE(fs::exists(host.folder / "import.tmp"));
}

TEST_F(ZipOfACockpit, AFaultOfTheImportIsToldAndLeavesNothing) {
  host.folder.write("a.zip", "zip");
  importFrom(host.folder / "a.zip", "A320");
  unpacked("sound.cfg", "1");
  end("It is no zip file");
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Cockpit A320 is not imported\nIt is no zip file")));
  EXPECT_FALSE(fs::exists(host.folder / "Cockpits/A320"));
}

TEST_F(ZipOfACockpit, ImportNeedsAFileAndANewName) {
  host.folder.write("a.zip", "zip");
  const auto toldAbout = [&](const std::string& zip, const std::string& name) {
    importFrom(zip, name);
    EXPECT_TRUE(form.Visible());
    form.close();
    return host.op.takeBoxes();
  };
  EXPECT_THAT(toldAbout("", "x"), ElementsAre(plainBox("Please type the name of the zip file")));
  EXPECT_THAT(toldAbout(host.folder / "b.zip", "x"),
              ElementsAre(plainBox("There is no file " + host.folder / "b.zip")));
  EXPECT_THAT(toldAbout(host.folder / "a.zip", "737-700"),
              ElementsAre(plainBox("This name already exists, please type a new one")));
  EXPECT_THAT(
      toldAbout(host.folder / "a.zip", "../x"),
      ElementsAre(plainBox("\"../x\" cannot be an aircraft's name, please type another one")));
  EXPECT_EQ(host.zipFiles.work, "");
}

TEST_F(ZipOfACockpit, OneIsDoneAfterTheOther) {
  host.form.mnuFile(3).press();
  form.cmdOK.press();
  EXPECT_FALSE(form.cmdOK.Enabled());
  end();
  EXPECT_TRUE(form.cmdOK.Enabled());
}

TEST_F(ZipOfACockpit, AFileCanBePointedAt) {
  host.form.mnuFile(4).press();
  host.chooser.choice = host.folder / "Boeing.zip";
  form.cmdBrowse.press();
  EXPECT_EQ(form.txtFile.Text(), host.folder / "Boeing.zip");
  EXPECT_EQ(form.txtName.Text(), "Boeing");
}

TEST_F(ZipOfACockpit, AskedForTheOtherOneWhileItShowsItStaysWhatItIs) {
  host.folder.write("there.zip", "zip");
  host.form.mnuFile(4).press();
  host.form.mnuFile(3).press();
  EXPECT_EQ(form.Caption(), "Import cockpit");
  form.txtFile.Text(host.folder / "there.zip");
  form.txtName.Text("new");
  form.cmdOK.press();
  EXPECT_EQ(host.zipFiles.work, "unpack " + host.folder / "there.zip");
}

}  // namespace
}  // namespace vorlent
