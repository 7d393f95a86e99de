#include "cockpits/frmSave.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class SaveTemplate : public ::testing::Test {
 protected:
  SaveTemplate() {
    host.folder.write("Cockpits/737-700/stick/stick0.cfg", "0\r\n");
    host.folder.write("Cockpits/737-700/sound/own/deep.wav", "RIFF");
    host.start();
  }
  void press(const Button& button) {
    host.server.failureDomain.run([&button] { button.press(); });
  }
  void save(const std::string& name) {
    press(host.form.mnuFile(1));
    form.Text1.Text(name);
    press(form.cmdOK);
  }

  TestServer host;
  frmSave& form = *host.server.saveTemplate;
};

TEST_F(SaveTemplate, SuggestsANameEachTime) {
  press(host.form.mnuFile(1));
  EXPECT_EQ(form.Caption(), "Name of template to save to:");
  EXPECT_EQ(form.Text1.Text(), "Template1");
  EXPECT_THAT(host.op.shown, ::testing::Contains(RecordingOperator::Shown{
                                 "frmSave", "Name of template to save to:", true}));
  form.Text1.Text("other");
  press(form.cmdCancel);
  press(host.form.mnuFile(1));
  EXPECT_EQ(form.Text1.Text(), "Template1");
  EXPECT_FALSE(fs::exists(host.folder / "Templates"));
}

TEST_F(SaveTemplate, CopiesTheWholeFolderOfTheAircraftInUse) {
  save("mine");
  EXPECT_EQ(host.folder.read("Templates/mine/Flaps.cfg"), "1,2,5,10,15,25,30,40\r\n");
  EXPECT_EQ(host.folder.read("Templates/mine/stick/stick0.cfg"), "0\r\n");
  EXPECT_EQ(host.folder.read("Templates/mine/sound/own/deep.wav"), "RIFF");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "Aircraft 737-700 saved as template mine");
}

TEST_F(SaveTemplate, ANameThatExistsStaysInTheFormAndChangesNothing) {
  host.folder.write("Templates/Template1/Flaps.cfg", "9\r\n");
  for (const std::string name : {"Template1", "TEMPLATE1", "", " "}) {
    save(name);
    EXPECT_THAT(host.op.takeBoxes(),
                ElementsAre(plainBox("Template name already exists, please try another")));
    EXPECT_TRUE(form.Visible());
    form.close();
  }
  EXPECT_EQ(host.folder.read("Templates/Template1/Flaps.cfg"), "9\r\n");
  EXPECT_FALSE(fs::exists(host.folder / "Templates/Template1/stick"));
}

TEST_F(SaveTemplate, ANameThatLeadsElsewhereEndsTheProcessWithNothingMade) {
  save("..\\evil");
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '52':\n\nBad file name or number\n"), 0U);
  EXPECT_FALSE(fs::exists(host.folder / "evil"));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(SaveTemplate, AFileInThePlaceOfTheTemplateFailsAndStays) {
  host.folder.write("Templates/taken", "a file");
  save("taken");
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '75':"), 0U);
  EXPECT_EQ(host.folder.read("Templates/taken"), "a file");
}

TEST_F(SaveTemplate, AnAircraftWhoseFolderIsGoneEndsTheProcess) {
  fs::remove_all(host.folder / "Cockpits/737-700");
  save("mine");
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("Run-time error '76':"), 0U);
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_FALSE(fs::exists(host.folder / "Templates/mine"));
}

}  // namespace
}  // namespace vorlent
