#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/clsIniRw.h"
#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::vector<std::string> Lines = {
    "[Vorlent]",     "Cockpit=737-700", "Port=5000",
    "Ip=",           "Clients=2",       "Joysticks=1",
    "JoysticksOn=0", "Polling=50",      "SoundOn=False",
    "ShowTip=0",     "IDSoundDevice=1", "AutoTQ=False",
    "FSOnTop=False", "FSMax=False",     "WriteMcpOffsets=False"};

std::string iniWith(const std::string& lineBreak) {
  std::string text;
  for (const std::string& line : Lines) text += line + lineBreak;
  return text;
}

/// Told as one box, ended with status 1, nothing shown and the file left alone.
void expectInitializationError(TestServer& host) {
  const bool present = fs::exists(host.folder / "Vorlent.ini");
  const std::string before = host.folder.read("Vorlent.ini");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_THAT(host.op.shown, IsEmpty());
  EXPECT_EQ(host.bus.requests, 0);
  EXPECT_EQ(fs::exists(host.folder / "Vorlent.ini"), present);
  EXPECT_EQ(host.folder.read("Vorlent.ini"), before);
}

void expectInitializationErrorFrom(const std::string& ini) {
  TestServer host;
  host.folder.write("Vorlent.ini", ini);
  expectInitializationError(host);
}

void expectRegularStartFrom(const std::string& ini) {
  TestServer host;
  host.folder.write("Vorlent.ini", ini);
  host.start();
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_EQ(host.store.BasePort, 5000);
  EXPECT_EQ(host.store.ClientCount, 2);
  EXPECT_EQ(host.form.txtPoll.Text(), "50");
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "OK");
}

/// The last status text of a start that does not come about.
std::string toldBy(TestServer& host) {
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
  return host.form.sbStatusBar.panelText(1);
}

TEST(BadSettings, AKeyThatIsNoNumberIsToldWithItsPlaceAndWhatToDo) {
  TestServer host;
  host.configure("Polling", "5o");
  EXPECT_EQ(toldBy(host),
            "Vorlent.ini, section Vorlent, key Polling is \"5o\" (Type mismatch): put it right and "
            "start again");
}

TEST(BadSettings, AFileThatCannotBeReadIsToldAndNotItsFirstKey) {
  TestServer host;
  fs::remove(host.folder / "Vorlent.ini");
  EXPECT_EQ(toldBy(host), host.folder.path() + "\\Vorlent.ini cannot be used: File not found");
}

TEST(BadSettings, ANumberOfClientsBelowZeroIsToldWithItsPlace) {
  TestServer host;
  host.configure("Clients", "-1");
  EXPECT_EQ(toldBy(host),
            "Vorlent.ini, section Vorlent, key Clients is \"-1\" (Subscript out of range): put it "
            "right and start again");
}

TEST(BadSettings, AMissingSoundFileIsToldWithItsName) {
  TestServer host;
  fs::remove(host.folder / "Cockpits/737-700/sound.cfg");
  EXPECT_EQ(toldBy(host),
            host.folder.path() + "\\Cockpits\\737-700\\sound.cfg cannot be used: File not found");
}

TEST(BadSettings, KeysOfTheMachineThatCannotBeUsedAreToldOnceTheServerIsUp) {
  TestServer host;
  clsIniRw().WriteKey("Platform", "SouthernLatitudes", "yes", host.folder / "Vorlent.ini");
  host.start();
  EXPECT_EQ(host.form.sbStatusBar.panelText(1),
            "Vorlent.ini, [Platform], SouthernLatitudes=yes: only True switches it on, so it is "
            "off");
}

TEST(BadSettings, AMissingFileIsAnInitializationError) {
  TestServer host;
  fs::remove(host.folder / "Vorlent.ini");
  expectInitializationError(host);
}

TEST(BadSettings, AFolderInTheFilesPlaceIsAnInitializationError) {
  TestServer host;
  fs::remove(host.folder / "Vorlent.ini");
  host.folder.write("Vorlent.ini/file", "");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST(BadSettings, AnEmptyFileIsAnInitializationError) { expectInitializationErrorFrom(""); }

TEST(BadSettings, ABinaryFileIsAnInitializationError) {
  expectInitializationErrorFrom("\0\x01\xFF\xFE[Vor\0lent]\r\nPort=\0\x80\r\n"s);
}

TEST(BadSettings, AFileWithoutTheSectionIsAnInitializationError) {
  const std::string complete = iniWith("\r\n");
  expectInitializationErrorFrom(complete.substr(std::string("[Vorlent]\r\n").size()));
}

TEST(BadSettings, AnotherSectionsKeysDoNotCount) {
  std::string renamed = iniWith("\r\n");
  renamed.replace(renamed.find("[Vorlent]"), 9, "[Tarnwick]");
  expectInitializationErrorFrom(renamed);
}

TEST(BadSettings, CarriageReturnAndLineFeedAreRead) { expectRegularStartFrom(iniWith("\r\n")); }

TEST(BadSettings, LineFeedsAloneAreRead) { expectRegularStartFrom(iniWith("\n")); }

TEST(BadSettings, AByteOrderMarkIsPassedOver) {
  expectRegularStartFrom("\xEF\xBB\xBF" + iniWith("\r\n"));
}

TEST(BadSettings, SixteenBitTextIsRead) {
  std::string wide = "\xFF\xFE"s;
  for (const char c : iniWith("\r\n")) wide += {c, '\0'};
  expectRegularStartFrom(wide);
}

TEST(BadSettings, BlanksAndQuotesAroundValuesAreDropped) {
  std::string spaced = iniWith("\r\n");
  spaced.replace(spaced.find("Port=5000"), 9, " Port = \"5000\" ");
  expectRegularStartFrom(spaced);
}

class NumericKey : public ::testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Each, NumericKey,
                         ::testing::Values("Port", "Clients", "Joysticks", "JoysticksOn", "Polling",
                                           "ShowTip", "IDSoundDevice"),
                         [](const auto& key) { return std::string(key.param); });

TEST_P(NumericKey, MissingIsAnInitializationError) {
  TestServer host;
  clsIniRw().DeleteKey("Vorlent", GetParam(), host.folder / "Vorlent.ini");
  expectInitializationError(host);
}

TEST_P(NumericKey, EmptyIsAnInitializationError) {
  TestServer host;
  host.configure(GetParam(), "");
  expectInitializationError(host);
}

TEST_P(NumericKey, ThatHoldsTextIsAnInitializationError) {
  TestServer host;
  host.configure(GetParam(), "many");
  expectInitializationError(host);
}

TEST_P(NumericKey, ThatStartsWithThePointIsAnInitializationError) {
  TestServer host;
  host.configure(GetParam(), ".5");
  expectInitializationError(host);
}

TEST_P(NumericKey, Beyond16BitsIsAnInitializationError) {
  for (const char* value : {"32768", "-32769", "99999999999999999999", "1e999"}) {
    TestServer host;
    host.configure(GetParam(), value);
    expectInitializationError(host);
  }
}

class BooleanKey : public ::testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Each, BooleanKey,
                         ::testing::Values("SoundOn", "AutoTQ", "FSOnTop", "FSMax",
                                           "WriteMcpOffsets"),
                         [](const auto& key) { return std::string(key.param); });

TEST_P(BooleanKey, MissingIsAnInitializationError) {
  TestServer host;
  clsIniRw().DeleteKey("Vorlent", GetParam(), host.folder / "Vorlent.ini");
  expectInitializationError(host);
}

TEST_P(BooleanKey, ThatHoldsAnotherWordIsAnInitializationError) {
  TestServer host;
  host.configure(GetParam(), "on");
  expectInitializationError(host);
}

TEST(BadSettings, AMissingAddressIsFilledIn) {
  TestServer host;
  clsIniRw().DeleteKey("Vorlent", "Ip", host.folder / "Vorlent.ini");
  host.start();
  EXPECT_EQ(host.form.txtIP.Text(), "127.0.0.1");
}

TEST(BadSettings, NegativeClientsAreAnInitializationError) {
  TestServer host;
  host.configure("Clients", "-1");
  expectInitializationError(host);
}

TEST(BadSettings, ANegativePortIsToldWhenTheSocketsAreBound) {
  TestServer host;
  host.configure("Port", "-5");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{"Invalid procedure call or argument\n\n"
                                                 "Port -5, address 127.0.0.1",
                                                 BoxIcon::Exclamation, "Vorlent"}));
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_THAT(host.network.bound(), IsEmpty());
}

}  // namespace
}  // namespace vorlent
