#include "cockpits/frmNew.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A started server with the templates "737-800" and "Airbus", and the form that uses them.
class NewCockpit : public ::testing::Test {
 protected:
  NewCockpit() {
    host.folder.write("Templates/737-800/Flaps.cfg", "1,2\r\n");
    host.folder.write("Templates/737-800/sound.cfg", "60,1.2,95,40,0.05,90,80,70\r\n");
    host.folder.write("Templates/737-800/sound/rumble.wav", "RIFF");
    host.folder.write("Templates/737-800/sound/old/x.wav", "RIFF");
    host.folder.write("Templates/737-800/stick/stick0.cfg", "0\r\n");
    host.folder.write("Templates/Airbus/Flaps.cfg", "5\r\n");
    host.folder.write("Templates/readme.txt", "no folder");
    host.start();
  }
  void press(const Button& button) {
    host.server.failureDomain.run([&button] { button.press(); });
  }
  void make(const std::string& name) {
    press(host.form.Command1);
    form.Text1.Text(name);
    press(form.cmdOK);
  }
  bool there(const std::string& path) const { return fs::exists(host.folder / path); }
  std::vector<std::string> cockpits() const {
    std::vector<std::string> names;
    for (const auto& item : host.form.cboDir.Items()) names.push_back(item.text);
    return names;
  }

  TestServer host;
  frmNew& form = *host.server.newCockpit;
};

TEST_F(NewCockpit, OffersTheTemplatesAndAnEmptyName) {
  press(host.form.Command1);
  EXPECT_THAT(host.op.shown, ::testing::Contains(RecordingOperator::Shown{
                                 "frmNew", "New aircraft from template", true}));
  std::vector<std::string> names;
  for (const auto& item : form.cboDir.Items()) names.push_back(item.text);
  EXPECT_THAT(names, ElementsAre("737-800", "Airbus"));
  EXPECT_EQ(form.cboDir.Text(), "737-800");
  EXPECT_EQ(form.cboDir.ToolTipText(), "aircraft must match FS aircraft");
  EXPECT_EQ(form.Text1.Text(), "");
}

TEST_F(NewCockpit, CopiesTheFilesOfTheTemplateAndFollowsNoSubFolders) {
  make("  737-800 of mine ");
  EXPECT_EQ(host.folder.read("Cockpits/737-800 of mine/Flaps.cfg"), "1,2\r\n");
  EXPECT_EQ(host.folder.read("Cockpits/737-800 of mine/sound.cfg"),
            "60,1.2,95,40,0.05,90,80,70\r\n");
  EXPECT_EQ(host.folder.read("Cockpits/737-800 of mine/sound/rumble.wav"), "RIFF");
  EXPECT_EQ(host.folder.read("Cockpits/737-800 of mine/stick/stick0.cfg"), "0\r\n");
  EXPECT_FALSE(there("Cockpits/737-800 of mine/sound/old"));
  EXPECT_FALSE(form.Visible());
}

TEST_F(NewCockpit, IsInTheListAtOnceAndTheOneInUseStays) {
  make("737-800");
  EXPECT_THAT(cockpits(), ElementsAre("737-700", "737-800", "A-first"));
  EXPECT_EQ(host.form.cboDir.Text(), "737-700");
  EXPECT_EQ(host.store.CockpitPath, host.folder.path() + "\\Cockpits\\737-700\\");
}

TEST_F(NewCockpit, WhatWasMadeIsTheLastWordOnTheStatusBar) {
  make("Second");
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "Aircraft Second made from template 737-800");
}

TEST_F(NewCockpit, WithoutSoundAndStickFoldersTheyAreEmpty) {
  host.folder.write("Templates/Airbus/sound.cfg", "60,1.2,95,40,0.05,90,80,70\r\n");
  press(host.form.Command1);
  form.cboDir.ListIndex(1);
  form.Text1.Text("A320");
  press(form.cmdOK);
  EXPECT_TRUE(fs::is_empty(host.folder / "Cockpits/A320/sound"));
  EXPECT_TRUE(fs::is_empty(host.folder / "Cockpits/A320/stick"));
}

TEST_F(NewCockpit, WithANameThatExistsNothingChangesOnDisk) {
  for (const std::string name : {"737-700", "a-FIRST", "", "   "}) {
    make(name);
    EXPECT_THAT(host.op.takeBoxes(),
                ElementsAre(plainBox("This name already exists, please type a new one")));
    EXPECT_TRUE(form.Visible());
    form.cmdCancel.press();
  }
  EXPECT_THAT(subFolders(host.folder / "Cockpits"), ElementsAre("737-700", "A-first"));
  EXPECT_FALSE(there("Cockpits/sound"));
  EXPECT_FALSE(there("Cockpits/737-700/sound"));
}

TEST_F(NewCockpit, ANameThatLeadsElsewhereEndsTheProcessWithNothingMade) {
  make("../evil");
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '52':\n\nBad file name or number\n" +
                                      host.folder.path() + "\\Cockpits\\../evil")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_FALSE(there("evil"));
}

class BadName : public NewCockpit, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadName, EndsTheProcessWithNothingMade) {
  make(GetParam());
  ASSERT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_THAT(subFolders(host.folder / "Cockpits"), ElementsAre("737-700", "A-first"));
}

INSTANTIATE_TEST_SUITE_P(Names, BadName,
                         ::testing::Values(".", "..", "a\\b", "a/b", "/abs", "C:", "line\nbreak"));

TEST_F(NewCockpit, ATemplateWithoutSoundCfgFailsAndLeavesAHalfFilledFolder) {
  press(host.form.Command1);
  form.cboDir.ListIndex(1);
  form.Text1.Text("A320");
  press(form.cmdOK);
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '53':\n\nFile not found\n"), 0U);
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.folder.read("Cockpits/A320/Flaps.cfg"), "5\r\n");
  EXPECT_TRUE(there("Cockpits/A320/sound"));
  EXPECT_FALSE(there("Cockpits/A320/sound.cfg"));
}

TEST_F(NewCockpit, AFileInThePlaceOfTheFolderFailsAndStays) {
  host.folder.write("Cockpits/taken", "a file");
  make("taken");
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '75':\n\nPath/File access error\n"), 0U);
  EXPECT_EQ(host.folder.read("Cockpits/taken"), "a file");
}

TEST_F(NewCockpit, WithoutTemplatesThereIsNothingToPress) {
  fs::remove_all(host.folder / "Templates");
  press(host.form.Command1);
  EXPECT_THAT(form.cboDir.Items(), IsEmpty());
  EXPECT_FALSE(form.cmdOK.Enabled());
}

TEST_F(NewCockpit, CancelMakesNothingAndRereadsAllTheSame) {
  press(host.form.Command1);
  form.Text1.Text("737-800");
  host.form.txtPoll.Text("75");
  press(form.cmdCancel);
  EXPECT_FALSE(there("Cockpits/737-800"));
  EXPECT_EQ(host.form.txtPoll.Text(), "75");
  EXPECT_EQ(clsIniRw().ReadKey("Vorlent", "Polling", host.folder / "Vorlent.ini").asText(), "75");
}

TEST_F(NewCockpit, EndsLiveSessionsInOrderAndBindsThemAgain) {
  host.greet(0);
  ASSERT_TRUE(host.server.connect[0]->IsUp());
  host.network.takeSent();
  make("737-800");
  std::vector<std::string> said;
  for (const auto& sent : host.network.takeSent()) said.push_back(sent.text);
  EXPECT_THAT(said, ElementsAre("Xterm", "Xterm"));
  EXPECT_FALSE(host.server.connect[0]->IsUp());
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000", "127.0.0.1:5001"));
  host.greet(0);
  EXPECT_TRUE(host.server.connect[0]->IsUp());
}

TEST_F(NewCockpit, StopsTheClientsFirstWithTheirSoundsAndGivesTheirBoxBack) {
  host.server.soundSettings->rumble = {"rumble.wav", 60, 1, 95, 1, 5};
  host.greet(0);
  ASSERT_GT(host.server.soundEvents->RumbleId, 0);
  ASSERT_FALSE(host.form.txtClients.Enabled());
  host.soundDevice.takeCalls();
  press(host.form.Command1);
  press(form.cmdCancel);
  EXPECT_EQ(host.server.soundEvents->RumbleId, 0);
  EXPECT_THAT(host.soundDevice.takeCalls(), ::testing::Contains("rumble.wav stop"));
  EXPECT_TRUE(host.form.txtClients.Enabled());
}

}  // namespace
}  // namespace vorlent
