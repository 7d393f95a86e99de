#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "core/Transcript.h"
#include "mcp/frmTestMCP.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class Menus : public ::testing::Test {
 protected:
  Menus() { host.start(); }
  std::vector<std::string> captions(const std::string& array) const {
    std::vector<std::string> all;
    for (const Control* control : host.form.controls())
      if (const auto* entry = dynamic_cast<const MenuItem*>(control))
        if (entry->name().starts_with(array)) all.push_back(entry->Caption());
    return all;
  }

  std::string manual() const { return nativePath(host.folder / "Docs/manual.htm"); }

  TestServer host;
};

TEST_F(Menus, HaveTheirEntries) {
  EXPECT_THAT(captions("mnuFile("),
              ElementsAre("&Import 6.x panels", "&Save as Template", "Export &cockpit...",
                          "Im&port cockpit...", "&Exit"));
  EXPECT_THAT(captions("Settings("),
              ElementsAre("&Automatic TQ", "&Enable acft sound", "FS on &top", "FS &maximized",
                          "&Write MCP offsets"));
  EXPECT_THAT(captions("mnuNetwork("), ElementsAre("&Rescan", "&Find FSUIPC"));
  EXPECT_THAT(captions("mnuAirac("), ElementsAre("&Status"));
  EXPECT_THAT(captions("mnuHelp("), ElementsAre("&Manual", "-", "&Show checklist"));
  EXPECT_EQ(host.form.mnuFile(2).Caption(), "&Exit");
}

TEST_F(Menus, AiracTellsTheCycleThatIsThere) {
  for (const auto& [cycle, shown] : std::vector<std::pair<std::string, std::string>>{
           {"2013", "2013"}, {"0501", "501"}, {"May 05", "May 05"}, {"", ""}}) {
    host.folder.write("Data/fmc_ident.TXT", "[Ident]\r\nOpProgram=" + cycle + "\r\n");
    host.form.mnuAirac(0).press();
    EXPECT_THAT(host.op.takeBoxes(),
                ElementsAre(plainBox("AIRAC data for update present\nCurrent cycle: " + shown +
                                     "\nYou can now use the update function in Tarnwick,\n"
                                     "Close Vorlent first to minimize network load")));
  }
}

TEST_F(Menus, AiracTellsAFileWithoutACycleWithAnEmptyOne) {
  host.folder.write("Data/fmc_ident.TXT", "[Other]\r\nOpProgram=2013\r\n");
  host.form.mnuAirac(0).press();
  const auto boxes = host.op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.find("AIRAC data for update present\nCurrent cycle: \nYou can"), 0U);
}

TEST_F(Menus, AiracTellsThatNothingIsThere) {
  host.form.mnuAirac(0).press();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("No AIRAC data for update present\n"
                                   "run the Navigraph updater and point to the Vorlent folder")));
}

TEST_F(Menus, TheCheckListOfTheHelpLeavesTheStartAlone) {
  host.store.ShowTipValue = 1;
  host.form.mnuHelp(2).press();
  const FrmTip& tip = *host.server.tip;
  EXPECT_EQ(tip.Caption(), "Please check....");
  EXPECT_EQ(tip.Text1.Text(),
            "Please check the following:\n"
            "\n"
            "\t1. There is a network card (ethernet adapter) in your computer\n"
            "\t2. This computer has an IP address in the local range\n"
            "\t3. You are administrator on both PC's and have write permission on the shares\n"
            "\t4. Your client PC's have IP addresses in the same range\n"
            "\t5. Your regional settings on all the PC's in your network are the same\n"
            "\t6. Tarnwick is running on all your clients\n"
            "\t7. Your firewall may need reconfiguration");
  EXPECT_FALSE(tip.chkNotShow.Visible());
  host.server.tip->close();
  EXPECT_EQ(host.store.ShowTipValue, 1);
}

TEST_F(Menus, TheManualIsOpenedFromTheMenuAndByTheImage) {
  host.folder.write("Docs/manual.htm", "<p>");
  host.form.mnuHelp(0).press();
  host.form.Image1.press();
  EXPECT_THAT(host.documents.opened, ElementsAre(manual(), manual()));
}

TEST_F(Menus, ABrowserThatFailsIsToldWithItsNumber) {
  for (const int result : {0, 1, 3, 30}) {
    host.documents.result = result;
    host.form.mnuHelp(0).press();
    EXPECT_THAT(host.op.takeBoxes(),
                ElementsAre(RecordingOperator::Box{
                    "Problem running your web browser. You should check that your browser is "
                    "correctly installed.  (Error " +
                        std::to_string(result) + ")",
                    BoxIcon::Plain, "Browser Unavailable"}));
  }
}

TEST_F(Menus, AMissingAssociationIsToldWithThePath) {
  host.documents.result = 32;
  host.form.mnuHelp(0).press();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Vorlent could not find a file association for " + manual() +
                                   " on your system. You should check that your browser is "
                                   "correctly installed and associated with this type of file.")));
}

TEST_F(Menus, ShownDocumentsAreNotToldOf) {
  for (const int result : {33, 42}) {
    host.documents.result = result;
    host.form.mnuHelp(0).press();
  }
  EXPECT_EQ(host.documents.opened.size(), 2U);
}

TEST_F(Menus, TestMcpShowsThePanelAndTheMeasurementStartsTheCycleAnew) {
  host.form.cmdStop.press();
  host.loop.advance(2000);
  EXPECT_EQ(host.loop.running(400), 1);
  host.form.Command2.press();
  EXPECT_TRUE(host.server.testMcp->Visible());
  EXPECT_EQ(host.op.shown.back(), (RecordingOperator::Shown{"frmTestMCP", "Test MCP", false}));
  EXPECT_EQ(host.loop.running(400), 2);
  host.loop.advance(400);
  EXPECT_EQ(host.loop.running(400), 1);
}

TEST_F(Menus, CaptionsThatAreKeptDoNothing) {
  EXPECT_EQ(host.form.chkFsTop.Caption(), "FS on top");
  EXPECT_EQ(host.form.chkFsMax.Caption(), "FS Maximized");
  host.form.chkFsTop.Value(1);
  host.form.chkFsMax.Value(1);
  host.form.chkSound.Value(1);
  host.form.chkBrake.Value(1);
  for (int i = 0; i < Setting::Count; ++i) EXPECT_FALSE(host.form.Settings(i).Checked());
}

}  // namespace
}  // namespace vorlent
