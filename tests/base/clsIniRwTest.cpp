#include "base/clsIniRw.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

using namespace std::string_literals;

class ClsIniRw : public ::testing::Test {
 protected:
  IniValue read(std::string_view key) const { return ini.ReadKey("Vorlent", key, file); }
  IniValue readOf(std::string_view value) const {
    folder.write("Vorlent.ini", "[Vorlent]\nKey=" + std::string(value) + "\n");
    return read("Key");
  }
  std::string writtenFor(std::string_view value) const {
    folder.write("Vorlent.ini", "[Vorlent]\nKey=old\n");
    ini.WriteKey("Vorlent", "Key", value, file);
    return folder.read("Vorlent.ini");
  }

  const TempFolder folder;
  const std::string file = folder / "Vorlent.ini";
  const clsIniRw ini{};
};

TEST_F(ClsIniRw, ReadsAnAddressAsText) {
  const auto value = readOf("192.168.0.1");
  EXPECT_EQ(value.number(), std::nullopt);
  EXPECT_EQ(value.asText(), "192.168.0.1");
}

TEST_F(ClsIniRw, ReadsAWholeNumberAsNumber) {
  EXPECT_EQ(readOf("50").number(), 50.0);
  EXPECT_EQ(readOf("50").asInt16(), 50);
  EXPECT_EQ(readOf("-7").asInt16(), -7);
}

TEST_F(ClsIniRw, ReadsANumberThatStartsWithThePointAsText) {
  const auto value = readOf(".5");
  EXPECT_EQ(value.number(), std::nullopt);
  EXPECT_EQ(value.asText(), ".5");
}

TEST_F(ClsIniRw, ReadsADecimalNumberWithAPointAsNumber) {
  EXPECT_EQ(readOf("1.5").number(), 1.5);
  EXPECT_EQ(readOf("182.0444").asDouble(), 182.0444);
  EXPECT_EQ(readOf("-.5").number(), -0.5);
}

TEST_F(ClsIniRw, ReadsTextWithTwoPointsAsText) {
  EXPECT_EQ(readOf("1.5.").number(), std::nullopt);
  EXPECT_EQ(readOf("1..5").number(), std::nullopt);
}

TEST_F(ClsIniRw, ReadsADecimalCommaAsText) { EXPECT_EQ(readOf("1,5").number(), std::nullopt); }

TEST_F(ClsIniRw, KeepsTheTextOfANumber) {
  EXPECT_EQ(readOf("007").asText(), "007");
  EXPECT_EQ(readOf("007").asInt16(), 7);
  EXPECT_EQ(readOf("1e2").asText(), "1e2");
}

TEST_F(ClsIniRw, ReadsZeroAsANumberThatIsThere) {
  EXPECT_EQ(readOf("0").number(), 0.0);
  EXPECT_EQ(readOf("0").asInt16(), 0);
}

TEST_F(ClsIniRw, GivesAnEmptyTextForAMissingKeySectionOrFile) {
  EXPECT_EQ(read("Port").asText(), "");
  folder.write("Vorlent.ini", "[Vorlent]\nIp=\n");
  EXPECT_EQ(read("Ip").asText(), "");
  EXPECT_EQ(read("Port").asText(), "");
  EXPECT_EQ(ini.ReadKey("CDU", "EXEC", file).asText(), "");
  EXPECT_EQ(ini.ReadKey("CDU", "EXEC", folder.path()).asText(), "");
}

TEST_F(ClsIniRw, RaisesTypeMismatchWhereANumberIsWantedAndNoneIsThere) {
  EXPECT_EQ(raisedBy([&] { read("Port").asInt16(); }), 13);
  EXPECT_EQ(raisedBy([&] { read("Port").asDouble(); }), 13);
  EXPECT_EQ(raisedBy([&] { read("Port").asBoolean(); }), 13);
  EXPECT_EQ(raisedBy([&] { readOf("many").asInt16(); }), 13);
  EXPECT_EQ(raisedBy([&] { readOf(".5").asDouble(); }), 13);
}

TEST_F(ClsIniRw, RoundsToSixteenBitsHalfToEvenAndOverflows) {
  EXPECT_EQ(readOf("2.5").asInt16(), 2);
  EXPECT_EQ(readOf("32767").asInt16(), 32767);
  EXPECT_EQ(raisedBy([&] { readOf("32768").asInt16(); }), 6);
  EXPECT_EQ(raisedBy([&] { readOf("1e300").asInt16(); }), 6);
}

TEST_F(ClsIniRw, ReadsBooleans) {
  EXPECT_TRUE(readOf("True").asBoolean());
  EXPECT_TRUE(readOf("TRUE").asBoolean());
  EXPECT_FALSE(readOf("False").asBoolean());
  EXPECT_TRUE(readOf("-1").asBoolean());
  EXPECT_FALSE(readOf("0").asBoolean());
  EXPECT_EQ(raisedBy([&] { readOf("on").asBoolean(); }), 13);
}

TEST_F(ClsIniRw, ReadsAtMost255CharactersOfAValue) {
  EXPECT_EQ(readOf(std::string(255, 'x')).asText(), std::string(255, 'x'));
  EXPECT_EQ(readOf(std::string(256, 'x')).asText(), std::string(255, 'x'));
}

TEST_F(ClsIniRw, NeverReadsHalfACharacter) {
  EXPECT_EQ(readOf(std::string(253, 'x') + "\xC3\xBC" + "y").asText(),
            std::string(253, 'x') + "\xC3\xBC");
  EXPECT_EQ(readOf(std::string(254, 'x') + "\xC3\xBC").asText(), std::string(254, 'x'));
  EXPECT_EQ(readOf(std::string(252, 'x') + "\xF0\x9F\x9B\xAB").asText(), std::string(252, 'x'));
  EXPECT_EQ(readOf(std::string(300, '\x80')).asText(), std::string(255, '\x80'));
}

TEST_F(ClsIniRw, ReadsAFileByAPathOfAnyCaseWithBackslashes) {
  folder.write("Cockpits/B737/Sound.cfg", "[Sound]\nVolume=3\n");
  EXPECT_EQ(ini.ReadKey("Sound", "Volume", folder / "COCKPITS\\b737\\sound.CFG").asInt16(), 3);
}

TEST_F(ClsIniRw, ReadsASectionWithEachLineEndedByNul) {
  folder.write("Vorlent.ini", "[a]\nj = 1\n; note\nk=\"2\"\n[b]\nk=3\n");
  EXPECT_EQ(ini.ReadSection("A", file), "j=1\0k=\"2\"\0"s);
  EXPECT_EQ(ini.ReadSection("c", file), "");
  EXPECT_EQ(ini.ReadSection("a", folder / "missing.ini"), "");
}

TEST_F(ClsIniRw, ReadsAtMost1022CharactersOfASection) {
  folder.write("Vorlent.ini", "[a]\nj=" + std::string(1019, 'x') + "\n");
  EXPECT_EQ(ini.ReadSection("a", file), "j=" + std::string(1019, 'x') + '\0');
  folder.write("Vorlent.ini", "[a]\nj=" + std::string(500, 'x') + "\nk=" + std::string(900, 'y'));
  EXPECT_EQ(ini.ReadSection("a", file),
            "j=" + std::string(500, 'x') + "\0k="s + std::string(517, 'y'));
}

TEST_F(ClsIniRw, WritesANumberTypedWithADecimalCommaWithAPoint) {
  EXPECT_EQ(writtenFor("1,5"), "[Vorlent]\nKey=1.5\n");
  EXPECT_EQ(writtenFor("-0,25"), "[Vorlent]\nKey=-0.25\n");
}

TEST_F(ClsIniRw, WritesANumberAsItStandsOtherwise) {
  EXPECT_EQ(writtenFor("5000"), "[Vorlent]\nKey=5000\n");
  EXPECT_EQ(writtenFor("007"), "[Vorlent]\nKey=007\n");
  EXPECT_EQ(writtenFor("1.50"), "[Vorlent]\nKey=1.50\n");
}

TEST_F(ClsIniRw, WritesTextAsItStands) {
  EXPECT_EQ(writtenFor("737, new"), "[Vorlent]\nKey=737, new\n");
  EXPECT_EQ(writtenFor("192.168.0.1"), "[Vorlent]\nKey=192.168.0.1\n");
  EXPECT_EQ(writtenFor("True"), "[Vorlent]\nKey=True\n");
  EXPECT_EQ(writtenFor(""), "[Vorlent]\nKey=\n");
}

TEST_F(ClsIniRw, KeepsEveryOtherLineOnAWrite) {
  folder.write("Vorlent.ini", "; mine\r\n\r\n[Vorlent]\r\nOwn=1\r\nPort=1 \r\n[Platform]\r\nX=2");
  ini.WriteKey("Vorlent", "Port", "5000", file);
  EXPECT_EQ(folder.read("Vorlent.ini"),
            "; mine\r\n\r\n[Vorlent]\r\nOwn=1\r\nPort=5000\r\n[Platform]\r\nX=2");
}

TEST_F(ClsIniRw, MakesAMissingFileOnAWrite) {
  ini.WriteKey("Vorlent", "Port", "5000", file);
  EXPECT_EQ(folder.read("Vorlent.ini"), "[Vorlent]\r\nPort=5000\r\n");
  ini.WriteSection("a", "x=1\0y=2\0"s, folder / "new.ini");
  EXPECT_EQ(folder.read("new.ini"), "[a]\r\nx=1\r\ny=2\r\n");
}

TEST_F(ClsIniRw, WritesManyKeysInOneReplacement) {
  folder.write("Vorlent.ini", "[Vorlent]\nPort=1\n; note\nClients=1\n");
  const std::array<clsIniRw::KeyValue, 3> entries{
      {{"Clients", "4"}, {"Polling", "12,5"}, {"Port", "5000"}}};
  ini.WriteKeys("Vorlent", entries, file);
  EXPECT_EQ(folder.read("Vorlent.ini"), "[Vorlent]\nPort=5000\n; note\nClients=4\nPolling=12.5\n");
}

TEST_F(ClsIniRw, WritesAllKeysOrNone) {
  const std::string old = "[Vorlent]\nPort=1\n";
  folder.write("Vorlent.ini", old);
  const std::array<clsIniRw::KeyValue, 2> refused{{{"Port", "2"}, {"a=b", "3"}}};
  EXPECT_EQ(raisedBy([&] { ini.WriteKeys("Vorlent", refused, file); }), 5);
  EXPECT_EQ(folder.read("Vorlent.ini"), old);
}

TEST_F(ClsIniRw, ReplacesTheLinesOfASection) {
  folder.write("Vorlent.ini", "[a]\n; note\nj=1\n[b]\nk=2\n");
  ini.WriteSection("a", "x=1\0y=2\0"s, file);
  EXPECT_EQ(folder.read("Vorlent.ini"), "[a]\n; note\nx=1\ny=2\n[b]\nk=2\n");
  EXPECT_EQ(ini.ReadSection("a", file), "x=1\0y=2\0"s);
}

TEST_F(ClsIniRw, DeletesAKeyAndNothingElse) {
  folder.write("Vorlent.ini", "[Vorlent]\nPort=1\nIp=2\n");
  ini.DeleteKey("Vorlent", "port", file);
  ini.DeleteKey("Vorlent", "Clients", file);
  EXPECT_EQ(folder.read("Vorlent.ini"), "[Vorlent]\nIp=2\n");
}

TEST_F(ClsIniRw, MakesNoFileToDeleteAKeyFromIt) {
  ini.DeleteKey("Vorlent", "Port", file);
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini"));
}

TEST_F(ClsIniRw, RaisesWhenTheFileCannotBeWrittenAndLeavesItAsItWas) {
  const std::string old = "[Vorlent]\nPort=1\n";
  folder.write("Vorlent.ini", old);
  fs::create_directories(folder / "Vorlent.ini.new");
  EXPECT_NE(raisedBy([&] { ini.WriteKey("Vorlent", "Port", "2", file); }), 0);
  EXPECT_NE(raisedBy([&] { ini.WriteSection("Vorlent", "x=1\0"s, file); }), 0);
  EXPECT_NE(raisedBy([&] { ini.DeleteKey("Vorlent", "Port", file); }), 0);
  EXPECT_EQ(folder.read("Vorlent.ini"), old);
}

TEST_F(ClsIniRw, RaisesWhenThereIsNoSuchFolderOrAFolderStandsInThePlace) {
  EXPECT_EQ(raisedBy([&] { ini.WriteKey("a", "k", "1", folder / "missing\\x.ini"); }), 76);
  EXPECT_EQ(raisedBy([&] { ini.WriteKey("a", "k", "1", folder.path()); }), 75);
}

TEST_F(ClsIniRw, SurvivesFilesThatAreNoIni) {
  const std::string binary = "\0\xFF[\r\n\x01=\n"s;
  folder.write("Vorlent.ini", binary);
  EXPECT_EQ(read("Port").asText(), "");
  ini.WriteKey("Vorlent", "Port", "5000", file);
  EXPECT_EQ(folder.read("Vorlent.ini"), binary + "[Vorlent]\r\nPort=5000\r\n");
  EXPECT_EQ(read("Port").asInt16(), 5000);
}

TEST_F(ClsIniRw, ReadsAndWritesAFileWithAByteOrderMark) {
  folder.write("Vorlent.ini", "\xEF\xBB\xBF[Vorlent]\r\nPort=5000\r\n");
  EXPECT_EQ(read("Port").asInt16(), 5000);
  ini.WriteKey("Vorlent", "Port", "6000", file);
  EXPECT_EQ(folder.read("Vorlent.ini"), "\xEF\xBB\xBF[Vorlent]\r\nPort=6000\r\n");
}

}  // namespace
}  // namespace vorlent
