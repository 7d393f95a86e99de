#include "platform/PlatformSettings.h"

#include <string>

#include "base/files.h"
#include "gtest/gtest.h"
#include "support/TempFolder.h"
#include "support/places.h"

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

TEST(PlatformSettings, SayHowSharesAreAsked) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "[Platform]\nShareCredentials=shares.txt\nSharePort=1445\n");
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_EQ(settings.ShareCredentials, folder.path() + "\\shares.txt");
  EXPECT_EQ(settings.SharePort, 1445);
}

TEST(PlatformSettings, APortThatIsNoneIsToldAndTheUsualTaken) {
  const TempFolder folder;
  for (const std::string port : {"x", "-1", "0", "65536"}) {
    folder.write("Vorlent.ini", "[Platform]\nSharePort=" + port + "\n");
    EXPECT_EQ(readPlatformSettings(folder / "Vorlent.ini").SharePort, 0) << port;
    EXPECT_EQ(platformSettingFaults(folder / "Vorlent.ini"),
              (std::vector{"Vorlent.ini, [Platform], SharePort=" + port +
                           ": this is no port, so it is the usual one"}));
  }
  folder.write("Vorlent.ini", "[Platform]\nSharePort=\n");
  EXPECT_TRUE(platformSettingFaults(folder / "Vorlent.ini").empty());
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
    EXPECT_TRUE(platformSettingFaults(folder / "Vorlent.ini").empty()) << text;
  }
  for (const std::string text : {"99", "2001", "-440", "fast", "1E99"}) {
    EXPECT_EQ(read("CycleTime=" + text + "\n").CycleTime, 400) << text;
    EXPECT_EQ(platformSettingFaults(folder / "Vorlent.ini"),
              (std::vector{"Vorlent.ini, [Platform], CycleTime=" + text +
                           ": this is no time of 100 to 2000 ms, so it is 400"}));
  }
}

TEST(PlatformSettings, OfTheShippedFileAreTheDefaultsButSharesFolderAndGlidePath) {
  const auto settings = readPlatformSettings(dataFolder() + "/Vorlent.ini");
  EXPECT_TRUE(settings.ShareRoot.ends_with("Network"));
  EXPECT_EQ(settings.LocalIp, "");
  EXPECT_EQ(settings.ClientNetworks, "");
  EXPECT_FALSE(settings.NetworkKeys);
  EXPECT_FALSE(settings.SouthernLatitudes);
  EXPECT_TRUE(settings.Glideslope);
  EXPECT_EQ(settings.CycleTime, 400);
}

TEST(PlatformSettings, OfTheShippedFileCountOnceTheirSemicolonIsTakenAway) {
  const TempFolder folder;
  std::string text = readFile(dataFolder() + "/Vorlent.ini");
  for (const std::string key : {"LocalIp", "ClientNetworks", "NetworkKeys", "SouthernLatitudes",
                                "CycleTime", "ShareCredentials", "SharePort"}) {
    const auto line = text.find("\n;" + key + "=");
    ASSERT_NE(line, std::string::npos) << key;
    text.erase(line + 1, 1);
  }
  folder.write("Vorlent.ini", text);
  const auto settings = readPlatformSettings(folder / "Vorlent.ini");
  EXPECT_EQ(settings.LocalIp, "192.168.0.10");
  EXPECT_EQ(settings.ClientNetworks, "192.168.0.0/24, 10.1.2.3");
  EXPECT_TRUE(settings.NetworkKeys);
  EXPECT_TRUE(settings.SouthernLatitudes);
  EXPECT_EQ(settings.CycleTime, 440);
  EXPECT_EQ(settings.ShareCredentials, folder.path() + "\\shares.txt");
  EXPECT_EQ(settings.SharePort, 445);
}

TEST(PlatformSettingFaults, TellEachKeyThatCannotBeUsed) {
  const TempFolder folder;
  folder.write("Vorlent.ini",
               "[Platform]\nShareRoot=Netwrok\nLocalIp=192.168.0\nNetworkKeys=yes\n"
               "SouthernLatitudes=1\n");
  EXPECT_EQ(platformSettingFaults(folder / "Vorlent.ini"),
            (std::vector<std::string>{
                "Vorlent.ini, [Platform], ShareRoot=Netwrok: there is no such folder, so no share "
                "is there",
                "Vorlent.ini, [Platform], LocalIp=192.168.0: this is no address such as "
                "192.168.0.10",
                "Vorlent.ini, [Platform], NetworkKeys=yes: only True switches it on, so it is off",
                "Vorlent.ini, [Platform], SouthernLatitudes=1: only True switches it on, so it is "
                "off"}));
}

TEST(PlatformSettingFaults, AreNoneWhereAllCanBeUsed) {
  const TempFolder folder;
  folder.write("Network/a", "");
  folder.write("Vorlent.ini",
               "[Platform]\nShareRoot=Network\nLocalIp= 192.168.0.7\nNetworkKeys=false\n"
               "SouthernLatitudes=TRUE\n");
  EXPECT_TRUE(platformSettingFaults(folder / "Vorlent.ini").empty());
  EXPECT_TRUE(platformSettingFaults("/nonexistent/Vorlent.ini").empty());
}

TEST(PlatformSettings, AreEmptyWithoutTheFile) {
  const auto settings = readPlatformSettings("/nonexistent/Vorlent.ini");
  EXPECT_EQ(settings.ShareRoot, "");
  EXPECT_EQ(settings.LocalIp, "");
}

TEST(PlatformSettings, AMisspeltKeyIsTold) {
  const TempFolder folder;
  folder.write(
      "Vorlent.ini",
      "[Vorlent]\nMine=1\n[Platform]\n;Ours=1\nSouthernLatitude = True\nglideslope=True\n");
  EXPECT_EQ(platformSettingFaults(folder / "Vorlent.ini"),
            (std::vector<std::string>{
                "Vorlent.ini, [Platform], SouthernLatitude=True: there is no such key"}));
}

TEST(PlatformSettings, EveryKeyThatTheShippedFileExplainsIsKnown) {
  const TempFolder folder;
  std::string text = readFile(dataFolder() + "/Vorlent.ini");
  text.erase(0, text.find("[Platform]"));
  for (std::size_t at = 0; (at = text.find("\n;", at)) != std::string::npos; ++at) {
    const auto equals = text.find('=', at);
    if (equals != std::string::npos && text.find(' ', at + 2) > equals) text.erase(at + 1, 1);
  }
  ASSERT_NE(text.find("\nSharePort=445"), std::string::npos);
  folder.write("Vorlent.ini", text);
  for (const std::string& fault : platformSettingFaults(folder / "Vorlent.ini"))
    EXPECT_EQ(fault.find("no such key"), std::string::npos) << fault;
}

}  // namespace
}  // namespace vorlent
