#include "display/RecordReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/RuntimeError.h"
#include "display/records.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

Record read(const std::string& text) { return RecordReader().read(text); }

std::string faultOf(const std::string& text, const std::string& mark = "") {
  RecordReader reader;
  reader.decimalMark(mark);
  try {
    reader.read(text);
  } catch (const RecordFault& fault) {
    return fault.what();
  }
  return "";
}

std::string withCommas(std::string text) {
  std::replace(text.begin(), text.end(), '.', ',');
  return text;
}

TEST(RecordReader, DecodesEveryGroupByName) {
  const Record record = read(RecordText(2).text());
  EXPECT_EQ(record.number("EngineCount"), 2);
  EXPECT_EQ(record.number("Latitude"), 47.26035);
  EXPECT_EQ(record.number("AircraftAltitude"), 12345.6789012345);
  EXPECT_EQ(record.number("TurnCoordinatorBall"), -4);
  EXPECT_EQ(record.number("TurnRate"), 12);
  EXPECT_EQ(record.number("IlsCourse"), 254.4);
  EXPECT_EQ(record.number("FuelTanks(Centre)"), 70);
  EXPECT_EQ(record.number("FuelTanks(RightMain)"), 56.5);
  EXPECT_EQ(record.number("RadioValues(12)"), 12);
  EXPECT_EQ(record.number("RadioValues(16)"), 113.1);
  EXPECT_EQ(record.number("StandbyValues(5)"), 380);
  EXPECT_EQ(record.number("RudderInput"), -7);
  EXPECT_EQ(record.number("StateValues(1)"), 2047);
  EXPECT_EQ(record.number("StateValues(19)"), 4.4);
  EXPECT_EQ(record.number("SwitchPair(2)"), 4);
  EXPECT_EQ(record.number("Word0EEE"), 1200);
  EXPECT_EQ(record.number("Mach"), 0.4512);
  EXPECT_EQ(record.number("FlapsPosition"), 8191);
  EXPECT_EQ(record.number("GearNose"), 16383);
  EXPECT_EQ(record.number("GearRight"), 0);
  EXPECT_EQ(record.number("StateValues(20)"), 20);
  EXPECT_EQ(record.number("Double0B18"), 1.5e7);
  EXPECT_EQ(record.number("StateValues(21)"), 21);
  EXPECT_EQ(record.number("CrsToNextWaypoint"), 256.2);
  EXPECT_EQ(record.number("PanelWord14"), 114);
  EXPECT_EQ(record.number("ClientValueC"), 7.5);
  EXPECT_EQ(record.number("Electrical(3)"), 28.1);
  EXPECT_EQ(record.number("Electrical(2)"), 12);
  EXPECT_EQ(record.number("FailureFlags(20)"), 20);
  EXPECT_EQ(record.number("FlapIncrement"), 2047);
}

TEST(RecordReader, KeepsTextsAsTheyStand) {
  const Record record = read(RecordText(1).text());
  EXPECT_EQ(record.text("Vor1Id"), "INN");
  EXPECT_EQ(record.text("LocalTimeText(2)"), "05");
  EXPECT_EQ(record.text("RollEngagedMode"), "VOR/LOC");
  EXPECT_EQ(record.text("CwsPitchEngagedMode"), "CWS_P");
  EXPECT_EQ(record.text("ActiveWpt"), "RTT");
  EXPECT_EQ(record.text("end"), "end");
}

TEST(RecordReader, CountsTwoBlanksInARowAsAnEmptyToken) {
  const Record record = read(RecordText(1).text());
  EXPECT_EQ(record.text("Vor2Id"), "");
  EXPECT_EQ(record.text("Adf1Id"), "AB");
  EXPECT_EQ(record.text("Adf2Id"), "");
  EXPECT_EQ(record.number("NavGpsSwitch"), 1);
}

TEST(RecordReader, ReadsThreeEmptyIdentifiersInARow) {
  RecordText text(1);
  text.radios =
      "118.5 110.3 114.7 350.5 21 73 74 121.65 9 10 11 12 122.8 121.5 109.5 113.1 380    ";
  const Record record = read(text.text());
  EXPECT_EQ(record.number("StandbyValues(5)"), 380);
  EXPECT_EQ(record.text("Vor1Id"), "");
  EXPECT_EQ(record.text("Adf1Id"), "");
  EXPECT_EQ(record.number("ElevatorInput"), -16383);
}

TEST(RecordReader, ReadsAsManyEngineBlocksAsThereAreEnginesUpToThree) {
  for (int engines = 1; engines <= 3; ++engines) {
    const Record record = read(RecordText(engines).text());
    EXPECT_EQ(record.layout().blocks(), engines);
    EXPECT_EQ(record.number("Engines(" + std::to_string(engines) + ").Epr"), engines + 0.5);
    EXPECT_EQ(record.number("RadioValues(1)"), 118.5);
  }
}

TEST(RecordReader, ReadsFourEngineBlocksForFourEnginesForNoneAndForMoreThanFour) {
  for (const std::string count : {"4", "0", "5", "255"}) {
    RecordText text(4);
    text.header = count + " 1 ";
    const Record record = read(text.text());
    EXPECT_EQ(record.layout().blocks(), 4) << count;
    EXPECT_EQ(record.number("Engines(4).Epr"), 4.5) << count;
  }
}

TEST(RecordReader, DecodesAnEngineBlock) {
  const Record record = read(RecordText(2).text());
  EXPECT_EQ(record.number("Engines(2).N1"), 85.1);
  EXPECT_EQ(record.number("Engines(2).FuelFlow"), 2410.75);
  EXPECT_EQ(record.number("Engines(2).Itt"), -7);
  EXPECT_EQ(record.number("Engines(2).ThrustLever"), 88.5);
  EXPECT_EQ(record.number("Engines(2).FuelUsed"), 140.25);
  EXPECT_EQ(record.number("Engines(2).GeneratorB"), 16);
  EXPECT_EQ(record.number("Engines(2).Reserved(7)"), 0);
  EXPECT_EQ(record.number("Engines(2).N1Target"), 92.3);
  EXPECT_EQ(record.number("Engines(2).ClientValueB"), 17);
}

TEST(RecordReader, ReadsNumbersWithTheMarkOfTheReply) {
  RecordReader reader;
  reader.decimalMark(",");
  const Record record = reader.read(withCommas(RecordText(2).text()));
  EXPECT_EQ(record.number("Latitude"), 47.26035);
  EXPECT_EQ(record.number("Double0B18"), 1.5e7);
  EXPECT_EQ(record.text("Engines(1).Epr"), "1,5");
}

TEST(RecordReader, RecognisesTheMarkWhenTheReplyWasMissed) {
  const Record record = read(withCommas(RecordText(2).text()));
  EXPECT_EQ(record.number("Longitude"), -11.34391);
  EXPECT_EQ(record.number("Electrical(1)"), 0.5);
}

TEST(RecordReader, RecognisesAMarkOfMoreThanOneByte) {
  std::string text = RecordText(1).text();
  const std::string arabicMark = "\xd9\xab";
  for (auto at = text.find('.'); at != std::string::npos; at = text.find('.'))
    text.replace(at, 1, arabicMark);
  EXPECT_EQ(read(text).number("Latitude"), 47.26035);
}

TEST(RecordReader, TellsTheAutopilotBitsByName) {
  const Record record = read(RecordText(1).text());
  EXPECT_TRUE(record.apBit("apAltitudeHold"));
  EXPECT_TRUE(record.apBit("apMaster"));
  EXPECT_TRUE(record.apBit("apAutoThrottle"));
  EXPECT_TRUE(record.apBit("LNAV"));
  EXPECT_TRUE(record.apBit("VNAV"));
  EXPECT_FALSE(record.apBit("apAirspeedHoldByPitch"));
  EXPECT_FALSE(record.apBit("apGlideslopeHold"));
  EXPECT_FALSE(record.apBit("apCmdLeft"));
  EXPECT_FALSE(record.apBit("apApproachHold"));
  EXPECT_THROW(record.apBit("apNoSuchBit"), RuntimeError);
}

TEST(RecordReader, AskingForATokenThatIsNotThereIsAFault) {
  const Record record = read(RecordText(1).text());
  EXPECT_THROW(record.number("Engines(2).N1"), RuntimeError);
  EXPECT_THROW(record.text("nothing"), RuntimeError);
}

TEST(RecordReader, RefusesWhatIsNoRecord) {
  for (const std::string text : {"", "Xterm", "Data", "81\\737-700\\2\\2047\\.", "data 1 2 end "})
    EXPECT_EQ(faultOf(text), "no data record: it does not begin with \"Data \"") << text;
}

TEST(RecordReader, RefusesARecordThatWasCutOff) {
  const std::string whole = RecordText(2).text();
  const auto cut = [&whole](std::size_t size) { return faultOf(whole.substr(0, size)); };
  EXPECT_EQ(cut(whole.size() - 1), "the record is cut off: no blank follows its last token");
  EXPECT_EQ(cut(whole.size() - 4), "the record is cut off: it does not close with \"end\"");
  EXPECT_EQ(cut(5), "the record is cut off: it does not close with \"end\"");
  for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_NE(cut(size), "") << size;
}

TEST(RecordReader, RefusesARecordWithATokenTooFewOrTooMany) {
  RecordText text(2);
  text.wind = "250 25 ";
  EXPECT_EQ(faultOf(text.text()), "the record has 277 tokens, but with 2 engine blocks it has 278");
  text.wind = "250 25 1200 0 ";
  EXPECT_EQ(faultOf(text.text()), "the record has 279 tokens, but with 2 engine blocks it has 278");
}

TEST(RecordReader, RefusesARecordWithOtherEngineBlocksThanItsHeaderSays) {
  RecordText text(2);
  text.header = "3 1 ";
  EXPECT_EQ(faultOf(text.text()), "the record has 278 tokens, but with 3 engine blocks it has 312");
  text.header = "two 1 ";
  EXPECT_EQ(faultOf(text.text()), "the number of engines is no whole number: \"two\"");
}

TEST(RecordReader, NamesTheTokenThatIsNoNumber) {
  RecordText text(1);
  text.attitude = "2.5 345.5 abc -4 ";
  EXPECT_EQ(faultOf(text.text()), "`MagHeading` (group 3, token 3) is no number: \"abc\"");
  text.attitude = "2.5  123.4 -4 ";
  EXPECT_EQ(faultOf(text.text()), "`Bank` (group 3, token 2) is no number: \"\"");
}

TEST(RecordReader, RefusesAFractionWhereAWholeNumberStands) {
  RecordText text(1);
  text.selectors = "3 4.5 ";
  EXPECT_THAT(faultOf(text.text()), HasSubstr("`SwitchPair(2)` (group 9, token 2)"));
}

TEST(RecordReader, RefusesWhatIsNoFiniteNumber) {
  for (const std::string value : {"inf", "nan", "-inf", "1E+999"}) {
    RecordText text(1);
    text.single = value + " ";
    EXPECT_THAT(faultOf(text.text()), HasSubstr("`StateValues(20)`")) << value;
  }
}

TEST(RecordReader, RefusesAnotherMarkThanTheReplyHasTold) {
  EXPECT_THAT(faultOf(RecordText(1).text(), ","), HasSubstr("`Latitude`"));
  EXPECT_THAT(faultOf(withCommas(RecordText(1).text()), "."), HasSubstr("`Latitude`"));
}

TEST(RecordReader, RefusesTwoMarksInOneRecord) {
  RecordText text(1);
  text.speeds = withCommas(text.speeds);
  EXPECT_THAT(faultOf(text.text()), HasSubstr("`Ias`"));
}

TEST(RecordReader, TakesNoLetterForAMark) {
  RecordText text(1);
  text.position = "47x26 11 12345 10234 3 0 ";
  EXPECT_THAT(faultOf(text.text()), HasSubstr("`Latitude`"));
}

}  // namespace
}  // namespace vorlent
