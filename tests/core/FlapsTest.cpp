#include "extras/Flaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class FlapsOfACockpit : public ::testing::Test {
 protected:
  FlapsOfACockpit() {
    host.store.CockpitPath = host.folder.path() + "\\Cockpits\\737-700\\";
    host.store.FsVersionCode = 8;
  }
  void fileHolds(const std::string& content) const {
    host.folder.write("Cockpits/737-700/Flaps.cfg", content);
  }
  void init() {
    host.server.failureDomain.run([this] { host.server.flaps->InitFlaps(); });
  }
  void initFromFile(const std::string& content) {
    fileHolds(content);
    host.server.fsuipc->XPlane(1);
    init();
  }
  void initFromSimulator(std::int16_t positions) {
    host.store.FlapPositions = positions;
    init();
  }
  std::vector<int> column(std::int16_t FlapDetent::*field, int last) const {
    std::vector<int> values;
    for (int i = 0; i <= last; ++i) values.push_back(host.server.store.FlapTable(i).*field);
    return values;
  }
  void expectRunTimeError(const std::string& text) {
    EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Run-time error " + text)));
    EXPECT_EQ(host.exitStatus(), 1);
  }

  TestServer host;
  TextBox& txtFlaps = host.form.txtFlaps;
};

TEST_F(FlapsOfACockpit, TheFileDecidesForXPlane) {
  initFromFile("10,20,40\r\n");
  EXPECT_THAT(column(&FlapDetent::Degrees, 5), ElementsAre(4, 0, 10, 20, 40, 0));
  EXPECT_THAT(column(&FlapDetent::Position, 4), ElementsAre(0, 5461, 10922, 16383, 16383));
  EXPECT_THAT(column(&FlapDetent::Limit, 4), ElementsAre(0, 2730, 8192, 13652, 19114));
  EXPECT_EQ(txtFlaps.Text(), "10,20,40");
  EXPECT_TRUE(txtFlaps.Enabled());
  EXPECT_TRUE(txtFlaps.Visible());
}

TEST_F(FlapsOfACockpit, TheFileDecidesForTheOldestSimulator) {
  fileHolds("40\r\n");
  host.store.FsVersionCode = 1;
  init();
  EXPECT_THAT(column(&FlapDetent::Degrees, 2), ElementsAre(2, 0, 40));
  EXPECT_THAT(column(&FlapDetent::Position, 2), ElementsAre(0, 16383, 16383));
  EXPECT_TRUE(txtFlaps.Visible());
}

TEST_F(FlapsOfACockpit, TheSimulatorDecidesWhereItTellsTheDetents) {
  host.store.FsVersionCode = 2;
  txtFlaps.Visible(true);
  initFromSimulator(5);
  EXPECT_THAT(column(&FlapDetent::Position, 5), ElementsAre(0, 4095, 8190, 12285, 16380, 16383));
  EXPECT_THAT(column(&FlapDetent::Limit, 5), ElementsAre(0, 2048, 6142, 10238, 14332, 18428));
  EXPECT_THAT(column(&FlapDetent::Degrees, 5), ElementsAre(5, 0, 0, 0, 0, 0));
  EXPECT_EQ(txtFlaps.Text(), "1,2,5,10,15,25,30,40");
  EXPECT_FALSE(txtFlaps.Enabled());
  EXPECT_FALSE(txtFlaps.Visible());
}

TEST_F(FlapsOfACockpit, AStartWithADefaultSimulatorHasNineDetents) {
  host.start();
  EXPECT_EQ(host.server.store.FlapTable(0).Degrees, 9);
  EXPECT_EQ(host.server.store.FlapTable(1).Position, 2047);
  EXPECT_EQ(host.server.store.FlapTable(8).Position, 16376);
  EXPECT_EQ(host.server.store.FlapTable(9).Position, 16383);
}

TEST_F(FlapsOfACockpit, BlanksAroundTheNumbersDoNotMatter) {
  initFromFile(" 10, 20 ,40 \n");
  EXPECT_THAT(column(&FlapDetent::Degrees, 4), ElementsAre(4, 0, 10, 20, 40));
}

TEST_F(FlapsOfACockpit, OnlyTheFirstLineIsRead) {
  initFromFile("10,20\n,40\n\n");
  EXPECT_EQ(txtFlaps.Text(), "10,20");
  EXPECT_EQ(host.server.store.FlapTable(0).Degrees, 3);
}

TEST_F(FlapsOfACockpit, FifteenPositionsFillTheTable) {
  initFromFile("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\r\n");
  EXPECT_EQ(host.server.store.FlapTable(0).Degrees, 16);
  EXPECT_EQ(host.server.store.FlapTable(16).Degrees, 15);
  EXPECT_EQ(host.server.store.FlapTable(15).Position, 16380);
  EXPECT_EQ(host.server.store.FlapTable(16).Position, 16383);
}

TEST_F(FlapsOfACockpit, SixteenPositionsAreABoundsError) {
  initFromFile("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16\r\n");
  expectRunTimeError("'9':\n\nSubscript out of range");
}

TEST_F(FlapsOfACockpit, MoreDetentsOfTheSimulatorThanTheTableHoldsAreABoundsError) {
  initFromSimulator(17);
  expectRunTimeError("'9':\n\nSubscript out of range");
}

TEST_F(FlapsOfACockpit, OneDetentAloneDividesByZero) {
  initFromSimulator(1);
  expectRunTimeError("'11':\n\nDivision by zero");
}

TEST_F(FlapsOfACockpit, AnEmptyLineEndsInAConversionError) {
  initFromFile("\r\n");
  expectRunTimeError("'13':\n\nType mismatch");
}

TEST_F(FlapsOfACockpit, AnEmptyFileIsReadPastItsEnd) {
  initFromFile("");
  expectRunTimeError("'62':\n\nInput past end of file");
}

TEST_F(FlapsOfACockpit, ATextThatIsNoNumberEndsInAConversionError) {
  initFromFile("10,up,40\r\n");
  expectRunTimeError("'13':\n\nType mismatch");
}

TEST_F(FlapsOfACockpit, ACommaTooManyEndsInAConversionError) {
  initFromFile("10,20,\r\n");
  expectRunTimeError("'13':\n\nType mismatch");
}

TEST_F(FlapsOfACockpit, ANumberBeyond16BitsOverflows) {
  initFromFile("10,40000\r\n");
  expectRunTimeError("'6':\n\nOverflow");
}

TEST_F(FlapsOfACockpit, BinaryJunkEndsInAConversionError) {
  initFromFile(std::string("\xEF\xBB\xBF\0\x01,\xFF", 7));
  expectRunTimeError("'13':\n\nType mismatch");
}

TEST_F(FlapsOfACockpit, AMissingFileIsToldAndEnds) {
  fs::remove(host.folder / "Cockpits/737-700/Flaps.cfg");
  init();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{
                  host.folder.path() + "\\Cockpits\\737-700\\Flaps.cfg not found",
                  BoxIcon::Exclamation, "File error"}));
  EXPECT_EQ(host.exitStatus(), 1);
}

}  // namespace
}  // namespace vorlent
