#include "platform/PlatformSettings.h"

#include "gtest/gtest.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

TEST(PlatformSettings, AreReadFromTheirSection) {
  const TempFolder folder;
  folder.write("Vorlent.ini",
               "[Vorlent]\r\nPort=5000\r\nLocalIp=1.2.3.4\r\n[platform]\r\n"
               "shareroot=/srv/net\r\nLocalIp=127.0.0.1\r\n");
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_EQ(settings.ShareRoot, "/srv/net");
  EXPECT_EQ(settings.LocalIp, "127.0.0.1");
}

TEST(PlatformSettings, ARelativeShareRootLiesBesideTheFile) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Platform]\nShareRoot=Network\n");
  EXPECT_EQ(readPlatformSettings(folder / "Vorlent.ini").ShareRoot, folder.path() + "\\Network");
}

TEST(PlatformSettings, AShareRootOfAnotherDriveStays) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Platform]\nShareRoot=D:\\Network\n");
  EXPECT_EQ(readPlatformSettings(folder / "Vorlent.ini").ShareRoot, "D:\\Network");
}

TEST(PlatformSettings, AreEmptyWithoutTheSection) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Vorlent]\nPort=5000\n");
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_EQ(settings.ShareRoot, "");
  EXPECT_EQ(settings.LocalIp, "");
}

TEST(PlatformSettings, SayWhoMayTalkAndWhatIsSwitchedOn) {
  const TempFolder folder;
  folder.write("Vorlent.ini",
               "[Platform]\nClientNetworks=10.0.0.0/8, 192.168.0.7\nNetworkKeys=true\n"
               "SouthernLatitudes=True\n");
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_EQ(settings.ClientNetworks, "10.0.0.0/8, 192.168.0.7");
  EXPECT_TRUE(settings.NetworkKeys);
  EXPECT_TRUE(settings.SouthernLatitudes);
}

TEST(PlatformSettings, OnlyTrueSwitchesOn) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Platform]\nNetworkKeys=1\nSouthernLatitudes=yes\n");
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_FALSE(settings.NetworkKeys);
  EXPECT_FALSE(settings.SouthernLatitudes);
}

TEST(PlatformSettings, SayWhetherTheGlidePathIsFlown) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Platform]\nGlideslope=True\n");
  EXPECT_TRUE(readPlatformSettings(folder / "Vorlent.ini").Glideslope);
  folder.write("Vorlent.ini", "[Platform]\n");
  EXPECT_FALSE(readPlatformSettings(folder / "Vorlent.ini").Glideslope);
}

TEST(PlatformSettings, CycleTimeIsOf100To2000Milliseconds) {
  const TempFolder folder;
  const auto read = [&folder](const std::string& text) {
    folder.write("Vorlent.ini", "[Platform]\n" + text);
    return readPlatformSettings(folder / "Vorlent.ini");
  };
  for (const auto& [text, time_ms] : {std::pair{"", 400},
                                      {"CycleTime=\n", 400},
                                      {"CycleTime=440\n", 440},
                                      {"CycleTime=100\n", 100},
                                      {"CycleTime=2000\n", 2000}}) {
    EXPECT_EQ(read(text).CycleTime, time_ms) << text;
    EXPECT_EQ(read(text).fault, "") << text;
  }
  for (const std::string text : {"99", "2001", "-440", "fast", "1E99"}) {
    EXPECT_EQ(read("CycleTime=" + text + "\n").CycleTime, 400) << text;
    EXPECT_EQ(read("CycleTime=" + text + "\n").fault,
              "Vorlent.ini, [Platform], CycleTime: \"" + text +
                  "\" is no time of 100 to 2000 ms; it is 400");
  }
}

TEST(PlatformSettings, AreEmptyWithoutTheFile) {
  const auto settings = readPlatformSettings("/nonexistent/Vorlent.ini");
  EXPECT_EQ(settings.ShareRoot, "");
  EXPECT_EQ(settings.LocalIp, "");
}

}  // namespace
}  // namespace vorlent
