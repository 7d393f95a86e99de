#include "extras/SoundSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

const std::string Line1 = "60,1.25,95,40,0.5,90,80,70";

class SoundCfg : public ::testing::Test {
 protected:
  void read(const std::string& content, bool soundOn = false) {
    folder.write("sound.cfg", content);
    settings.read(folder / "sound.cfg", soundOn);
  }
  int faultOf(const std::string& content) {
    return raisedBy([&] { read(content); });
  }
  std::vector<int> flags() const {
    return {settings.rumble.Threshold, settings.rumble.Enabled, settings.bump.Enabled,
            settings.tyres.Enabled, settings.start.Enabled};
  }

  TempFolder folder;
  SoundSettings settings;
};

TEST_F(SoundCfg, HoldsTheVolumesInTheFirstLine) {
  read(Line1 + "\r\n5,1,1,1,1\r\n");
  EXPECT_EQ(settings.rumble.Volume, 60);
  EXPECT_EQ(settings.rumble.Factor, 1.25F);
  EXPECT_EQ(settings.rumble.MaxVolume, 95);
  EXPECT_EQ(settings.bump.Volume, 40);
  EXPECT_EQ(settings.bump.Factor, 0.5F);
  EXPECT_EQ(settings.bump.MaxVolume, 90);
  EXPECT_EQ(settings.tyres.Volume, 80);
  EXPECT_EQ(settings.start.Volume, 70);
}

TEST_F(SoundCfg, HoldsThresholdAndFlagsInTheSecondLine) {
  read(Line1 + "\r\n5,1,0,1,0\r\n");
  EXPECT_THAT(flags(), ElementsAre(5, 1, 0, 1, 0));
  read(Line1 + "\r\n7,0,1,0,1\r\n");
  EXPECT_THAT(flags(), ElementsAre(7, 0, 1, 0, 1));
}

TEST_F(SoundCfg, NamesTheFourFiles) {
  read(Line1);
  EXPECT_EQ(settings.rumble.file, "rumble.wav");
  EXPECT_EQ(settings.bump.file, "bump.wav");
  EXPECT_EQ(settings.tyres.file, "tyres.wav");
  EXPECT_EQ(settings.start.file, "start.wav");
}

TEST_F(SoundCfg, WithTheSoundOnTheFlagsAreZeroWhateverTheFileSays) {
  read(Line1 + "\r\n5,1,1,1,1\r\n");
  read(Line1 + "\r\n5,1,1,1,1\r\n", true);
  EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_EQ(settings.rumble.Volume, 60);
}

TEST_F(SoundCfg, WithTheSoundOnTheSecondLineIsNotRead) {
  read(Line1 + "\r\nnot,a,number\r\n", true);
  EXPECT_EQ(settings.start.Volume, 70);
}

TEST_F(SoundCfg, AMissingSecondLineLeavesTheFlags) {
  read(Line1 + "\r\n");
  EXPECT_THAT(flags(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(SoundCfg, LineFeedsAloneAreRead) {
  read(Line1 + "\n5,1,0,1,0");
  EXPECT_THAT(flags(), ElementsAre(5, 1, 0, 1, 0));
}

TEST_F(SoundCfg, BlanksAroundTheNumbersDoNotMatter) {
  read(" 60 , 1.25 , 95 , 40 , 0.5 , 90 , 80 , 70 \r\n 5 , 1 , 0 , 1 , 0 \r\n");
  EXPECT_EQ(settings.rumble.Factor, 1.25F);
  EXPECT_THAT(flags(), ElementsAre(5, 1, 0, 1, 0));
}

TEST_F(SoundCfg, RoundsVolumesHalfToEven) {
  read("60.5,1,95,41.5,1,90,80,70");
  EXPECT_EQ(settings.rumble.Volume, 60);
  EXPECT_EQ(settings.bump.Volume, 42);
}

TEST_F(SoundCfg, AMissingFileIsAFault) {
  EXPECT_EQ(raisedBy([this] { settings.read(folder / "sound.cfg", false); }), 53);
}

TEST_F(SoundCfg, AShortLineIsAFault) {
  EXPECT_EQ(faultOf(""), 62);
  EXPECT_EQ(faultOf("60,1.25,95,40,0.5,90,80\r\n5,1,1,1,1\r\n"), 62);
  EXPECT_EQ(faultOf(Line1 + "\r\n5,1,1,1\r\n"), 62);
}

TEST_F(SoundCfg, WhatIsNoNumberIsAFault) {
  EXPECT_EQ(faultOf("\r\n"), 62);
  EXPECT_EQ(faultOf("60,loud,95,40,0.5,90,80,70\r\n"), 13);
  EXPECT_EQ(faultOf("60,,95,40,0.5,90,80,70\r\n"), 13);
  EXPECT_EQ(faultOf("\xEF\xBB\xBF" + Line1), 13);
  EXPECT_EQ(faultOf(Line1 + "\r\n5,on,1,1,1\r\n"), 13);
}

TEST_F(SoundCfg, WhatIsTooLargeIsAFault) {
  EXPECT_EQ(faultOf("32768,1.25,95,40,0.5,90,80,70"), 6);
  EXPECT_EQ(faultOf("60,1e39,95,40,0.5,90,80,70"), 6);
  EXPECT_EQ(faultOf(Line1 + "\r\n-32769,1,1,1,1"), 6);
}

TEST_F(SoundCfg, AFaultLeavesEverythingAsItWas) {
  read(Line1 + "\r\n5,1,0,1,0\r\n");
  EXPECT_EQ(faultOf("61,1.25,95,40,0.5,90,80,70\r\n6,1,1\r\n"), 62);
  EXPECT_EQ(settings.rumble.Volume, 60);
  EXPECT_THAT(flags(), ElementsAre(5, 1, 0, 1, 0));
}

class SoundCfgAtTheStart : public ::testing::Test {
 protected:
  void expectInitializationError() {
    host.start();
    EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
    EXPECT_EQ(host.exitStatus(), 1);
  }
  TestServer host;
};

TEST_F(SoundCfgAtTheStart, MissingIsAnInitializationError) {
  fs::remove(host.folder / "Cockpits/737-700/sound.cfg");
  expectInitializationError();
}

TEST_F(SoundCfgAtTheStart, ShortIsAnInitializationError) {
  host.folder.write("Cockpits/737-700/sound.cfg", "60,1.2,95\r\n");
  expectInitializationError();
}

TEST_F(SoundCfgAtTheStart, BinaryIsAnInitializationError) {
  host.folder.write("Cockpits/737-700/sound.cfg", std::string("\0\xFF,\x80\r\n", 6));
  expectInitializationError();
}

TEST_F(SoundCfgAtTheStart, IsReadAfterTheMenuThatDecidesOnItsFlags) {
  host.configure("SoundOn", "True");
  host.start();
  EXPECT_EQ(host.server.soundSettings->rumble.Enabled, 0);
  EXPECT_EQ(host.server.soundSettings->rumble.Volume, 60);
}

TEST_F(SoundCfgAtTheStart, GivesItsFlagsWithTheMenuUnchecked) {
  host.start();
  EXPECT_EQ(host.server.soundSettings->rumble.Threshold, 5);
  EXPECT_EQ(host.server.soundSettings->start.Enabled, 1);
}

}  // namespace
}  // namespace vorlent
