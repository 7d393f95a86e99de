#include <array>

#include "simlink/LinkTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using Box = RecordingOperator::Box;

class ClsFSUIPCInitLink : public LinkTest {
 protected:
  std::string versionTextOf(std::uint32_t version) {
    bus.put(0x3304, version);
    link.CloseLink();
    EXPECT_TRUE(link.InitLink());
    return link.IPCVersion();
  }
  std::string nameOf(std::uint32_t number) {
    bus.put(0x3308, 0xFADE0000 | number);
    link.CloseLink();
    EXPECT_TRUE(link.InitLink());
    return link.FSVersion();
  }
};

TEST_F(ClsFSUIPCInitLink, IdentifiesTheOtherSide) {
  EXPECT_FALSE(link.IPC_Available());
  ASSERT_TRUE(link.InitLink());
  EXPECT_TRUE(link.IPC_Available());
  EXPECT_EQ(link.FSVersion(), "FSX");
  EXPECT_EQ(link.IPCVersion(), "4.950");
  EXPECT_EQ(link.simulatorNumber(), 8U);
  EXPECT_EQ(link.XPlane(), 0);
}

TEST_F(ClsFSUIPCInitLink, TellsTheOperatorThatThereIsNoSimulator) {
  bus.windows.clear();
  EXPECT_FALSE(link.InitLink());
  EXPECT_FALSE(link.IPC_Available());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: Cannot link to FSUIPC; Possible cause: "
                              "FSUIPC not installed, inaccessible, or wrong version",
                              BoxIcon::Critical, "Initialization error"}));
}

TEST_F(ClsFSUIPCInitLink, TellsTheOperatorWhyThereCanBeNoSimulator) {
  bus.windows.clear();
  bus.whyNoWindow = "The folder /bus for the simulator interface belongs to another user";
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: The folder /bus for the simulator "
                              "interface belongs to another user",
                              BoxIcon::Critical, "Initialization error"}));
}

TEST_F(ClsFSUIPCInitLink, TellsTheOperatorThatTheSimulatorDoesNotAnswer) {
  bus.unansweredRequests = 1000;
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: IPC timed out all retries",
                              BoxIcon::Critical, "Initialization error"}));
}

TEST_F(ClsFSUIPCInitLink, TellsTheOperatorWhyASimulatorCannotBeAsked) {
  bus.unansweredRequests = 1000;
  bus.errorOfUnanswered = 5;
  bus.whyNoWindow = "The simulator runs with higher rights than this program";
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(
      t.op.takeBoxes(),
      ElementsAre(Box{"FSUIPC Connection failed: The simulator runs with higher rights than "
                      "this program",
                      BoxIcon::Critical, "Initialization error"}));
}

TEST_F(ClsFSUIPCInitLink, SecondOneIsRefusedAndLeavesTheLinkWorking) {
  ASSERT_TRUE(link.InitLink());
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: Attempt to Open when already Open",
                              BoxIcon::Critical, "Initialization error"}));
  EXPECT_TRUE(link.IPC_Available());
  EXPECT_EQ(link.FSVersion(), "FSX");
  link.ReadBytes(0x3BFA, 2, 1);
  EXPECT_EQ(link.FsBytes, (Bytes{0, 0xFF, 0x07}));
}

TEST_F(ClsFSUIPCInitLink, VersionTextIsTheFourTopDigits) {
  EXPECT_EQ(versionTextOf(0x49500000), "4.950");
  EXPECT_EQ(versionTextOf(0x39990000), "3.999");
  EXPECT_EQ(versionTextOf(0x20010000), "2.001");
}

TEST_F(ClsFSUIPCInitLink, VersionTextEndsWithTheBuildsLetter) {
  EXPECT_EQ(versionTextOf(0x49500001), "4.950a");
  EXPECT_EQ(versionTextOf(0x49500006), "4.950f");
  EXPECT_EQ(versionTextOf(0x3999001A), "3.999z");
}

TEST_F(ClsFSUIPCInitLink, LetterComesFromTheLowByteAlone) {
  EXPECT_EQ(versionTextOf(0x49500102), "4.950b");
  EXPECT_EQ(versionTextOf(0x49500100), "4.950`");
}

TEST_F(ClsFSUIPCInitLink, DigitsBeyondNineGoOnInTheCharacterTable) {
  EXPECT_EQ(versionTextOf(0xABCF0000), ":.;<?");
}

TEST_F(ClsFSUIPCInitLink, KnowsElevenSimulators) {
  const std::array names = {"Any",   "FS98",  "FS2K", "CFS2", "CFS1",    "FLY",
                            "FS2K2", "FS2K4", "FSX",  "ESP",  "Prepar3D"};
  for (std::uint32_t number = 0; number < names.size(); ++number)
    EXPECT_EQ(nameOf(number), names[number]) << number;
}

TEST_F(ClsFSUIPCInitLink, NumberBeyondTheTableIsItsOwnName) {
  EXPECT_EQ(nameOf(11), "11");
  EXPECT_EQ(nameOf(0xFFFF), "65535");
}

TEST_F(ClsFSUIPCInitLink, AnyMarkMeansTheOtherInterface) {
  for (const int mark : {1, 2, 0x80, 0xFF}) {
    bus.put(0x6FFF, static_cast<std::uint8_t>(mark));
    ASSERT_TRUE(link.InitLink());
    EXPECT_EQ(link.XPlane(), 1);
    EXPECT_EQ(link.FSVersion(), "X-Plane");
    EXPECT_EQ(link.simulatorNumber(), 8U);
    link.CloseLink();
  }
}

TEST_F(ClsFSUIPCInitLink, NumberBeyondTheTableHasANameBehindTheOtherInterface) {
  bus.put<std::uint8_t>(0x6FFF, 1);
  EXPECT_EQ(nameOf(11), "X-Plane");
}

TEST_F(ClsFSUIPCInitLink, MarkThatCannotBeReadEndsTheProcess) {
  bus.onArrival = [this](const std::byte*) {
    if (bus.requests == 2) bus.unansweredRequests = 1000;
  };
  EXPECT_EQ(endedBy([this] { link.InitLink(); }), 1);
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "FSUIPC Process error IPC timed out all retries");
}

TEST_F(ClsFSUIPCInitLink, FailureAfterAnInterfaceWasFoundNamesTheOriginalOne) {
  bus.put<std::uint8_t>(0x6FFF, 1);
  ASSERT_TRUE(link.InitLink());
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: Attempt to Open when already Open",
                              BoxIcon::Critical, "Initialization error"}));
}

TEST_F(ClsFSUIPCInitLink, TellsTheOperatorWhatKeepsTheBlockFromBeingMade) {
  bus.blockNameTaken = true;
  bus.whyNoWindow = "The shared memory is left of another user's program: start again";
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"FSUIPC Connection failed: The shared memory is left of another "
                              "user's program: start again",
                              BoxIcon::Critical, "Initialization error"}));
}

}  // namespace
}  // namespace vorlent
