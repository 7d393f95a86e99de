#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "display/LivePage.h"
#include "display/RecordReader.h"
#include "display/Screen.h"
#include "display/recordText.h"
#include "display/records.h"

namespace vorlent {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::SizeIs;

const PageStatus status{"127.0.0.1:5000", "737-700", 30, std::nullopt, "connected"};

std::vector<std::string> pageOf(const RecordText& text) {
  return livePage(RecordReader().read(text.text()), status, 79);
}

TEST(LivePage, ShowsTheFlight) {
  const auto page = pageOf(RecordText(2));
  EXPECT_EQ(page[0], "VORLENT DISPLAY   127.0.0.1:5000   737-700   record 30");
  EXPECT_EQ(page[1], "TIME 16:05:09  UTC 14:05   N47.26035 W011.34391   VAR +3.2");
  EXPECT_EQ(page[2], "ALT  12346 ft   RA 10234 ft   V/S -1203 ft/min   QNH 1013.2 hPa");
  EXPECT_EQ(page[3], "IAS  250.0 kt   TAS 310 kt   GS 305 kt   MACH 0.451   LIMIT 340 kt");
  EXPECT_EQ(page[4], "HDG  123.5   PITCH +2.5   BANK R14.5   OAT -12.5 C   WIND 250/25");
}

TEST(LivePage, ShowsModesWithADashForABlankOne) {
  const auto page = pageOf(RecordText(2));
  EXPECT_EQ(page[5], "FMA  A/T FMC_SPD   ROLL VOR/LOC   PITCH VNAV_SPD  A/P CMD");
  EXPECT_EQ(page[6], "ARM  ROLL -         PITCH -         CWS - CWS_P");
  EXPECT_EQ(page[7], "MCP  CRS 73  SPD 210  MACH 0.74  HDG 250  ALT 10000  V/S +1500  N1 90.1");
  EXPECT_EQ(page[8], "ON   AltitudeHold Master AutoThrottle LNAV VNAV");
  EXPECT_EQ(page[9], "FMC  WPT RTT     3.8 NM  CRS 256   PHASE climb   MINIMUMS 200");
}

TEST(LivePage, ShowsAColumnForEveryEngine) {
  const auto page = pageOf(RecordText(2));
  EXPECT_EQ(page[10], "ENGINE                 1           2");
  EXPECT_EQ(page[11], "N1 %                85.1        85.1");
  EXPECT_EQ(page[15], "FLOW lb/h           2411        2411");
  EXPECT_EQ(pageOf(RecordText(4))[10],
            "ENGINE                 1           2           3           4");
}

TEST(LivePage, ShowsSystems) {
  const auto page = pageOf(RecordText(2));
  EXPECT_EQ(page[18], "FUEL 9000 lb   LEFT 55.5%   CENTRE 70.0%   RIGHT 56.5%   WEIGHT 133000 lb");
  EXPECT_EQ(page[19],
            "COM1 118.50/122.80  COM2 121.65/121.50  NAV1 110.30/109.50  NAV2 114.70/113.10");
  EXPECT_EQ(page[20], "ADF1 350.5 AB  XPDR 0021  VOR1 INN 12.3 NM  VOR2 - 45.6 NM");
  EXPECT_EQ(page[21], "FLAPS 50%   GEAR L 49% N DOWN R UP   SPOILERS 50%   BRAKE SET   AIRBORNE");
  EXPECT_EQ(page[22], "connected");
}

TEST(LivePage, FitsATerminalOfEightyByTwentyFour) {
  RecordText text(4);
  text.autopilot = "255 255 255 100000 360 360 0.999 999 -30000 100.1 0.9999 ";
  text.management =
      "1 0 0 5 3 1234.5 359 FMC_SPD_LONG VOR/LOC_LONG VNAV_SPD_LONG ABC ABC CWS_R CWS_P CMD 20000 "
      "ALONGWAYPOINTNAME ";
  const auto page = pageOf(text);
  EXPECT_THAT(page, SizeIs(23));
  EXPECT_THAT(page, Each(SizeIs(testing::Le(79u))));
}

TEST(LivePage, ShowsOnlyWhatIsKnownBeforeTheFirstRecord) {
  const auto page =
      livePage(std::nullopt, {"127.0.0.1:5000", "", 0, std::nullopt, "no answer yet"}, 79);
  EXPECT_THAT(page, SizeIs(23));
  EXPECT_EQ(page[0], "VORLENT DISPLAY   127.0.0.1:5000      record 0");
  EXPECT_EQ(page[1], "");
  EXPECT_EQ(page[22], "no answer yet");
}

TEST(LivePage, UsesTheWholeWidth) {
  RecordText text(2);
  text.autopilot = "255 255 255 100000 360 360 0.999 999 -30000 100.1 0.9999 ";
  const Record record = RecordReader().read(text.text());
  EXPECT_THAT(livePage(record, status, 300)[8], testing::EndsWith("LevelChange ApproachHold"));
  EXPECT_EQ(livePage(record, status, 200)[8].size(), 200u);
  EXPECT_THAT(livePage(record, status, 20), Each(SizeIs(testing::Le(20u))));
}

TEST(LivePage, TellsTheAgeOfAStaleRecordFirst) {
  PageStatus stale = status;
  stale.stale_s = 3.44;
  EXPECT_EQ(livePage(RecordReader().read(RecordText(2).text()), stale, 79)[0],
            "STALE 3.4 s   VORLENT DISPLAY   127.0.0.1:5000   737-700   record 30");
}

TEST(LivePage, NeverSendsATerminalWhatItWouldObey) {
  RecordText text(1);
  text.management = "1 0 0 5 3 3.75 256.2 \x1b[2J LNAV _ _ _ _ _ CMD 200 \x9b\x07 ";
  for (const std::string& line : pageOf(text))
    EXPECT_THAT(line, Each(testing::AllOf(testing::Ge(' '), testing::Le('~')))) << line;
}

TEST(LivePage, AnUnknownPhaseIsAQuestionMark) {
  RecordText text(1);
  text.management = "1 0 0 5 99 3.75 256.2 _ _ _ _ _ _ _ FD 200  ";
  EXPECT_EQ(pageOf(text)[9], "FMC  WPT -       3.8 NM  CRS 256   PHASE ?   MINIMUMS 200");
}

TEST(ReportLine, TellsTheFlightInOneLine) {
  EXPECT_EQ(reportLine(RecordReader().read(RecordText(2).text())),
            "16:05:09 N47.26035 W011.34391 alt 12346 ft ra 10234 ft ias 250.0 kt gs 305 kt hdg "
            "123.5 vs -1203 ft/min pitch +2.5 bank R14.5 fma FMC_SPD|VOR/LOC|VNAV_SPD|CMD n1 85.1 "
            "85.1 % fuel 9000 lb");
}

TEST(FieldList, HasALineForEveryTokenWithItsUnit) {
  std::string commas = RecordText(2).text();
  std::replace(commas.begin(), commas.end(), '.', ',');
  const std::string list = fieldList(RecordReader().read(commas));
  EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 278);
  EXPECT_THAT(list, testing::StartsWith("EngineCount                  = 2\n"));
  EXPECT_THAT(list, HasSubstr("\nLatitude                     = 47.26035 degrees\n"));
  EXPECT_THAT(list, HasSubstr("\nAircraftAltitude             = 12345.6789012345 feet\n"));
  EXPECT_THAT(list, HasSubstr("\nEngines(2).N1                = 85.1 percent\n"));
  EXPECT_THAT(list, HasSubstr("\nVor2Id                       = \n"));
  EXPECT_THAT(list, HasSubstr("\nRollEngagedMode              = VOR/LOC\n"));
}

TEST(Screen, TakesTheOtherPageAndGivesTheFirstOneBack) {
  std::string written;
  {
    Screen screen([&written](std::string_view text) { written += text; });
    EXPECT_EQ(written, "\x1b[?1049h\x1b[2J");
    written.clear();
  }
  EXPECT_EQ(written, "\x1b[?1049l");
}

TEST(Screen, DrawsInPlaceAndLeavesTheCursorWhereTheUserTypes) {
  std::string written;
  Screen screen([&written](std::string_view text) { written += text; });
  written.clear();
  screen.draw({"one", "", "three"}, false);
  EXPECT_EQ(written,
            "\x1b"
            "7\x1b[1;1Hone\x1b[K\x1b[2;1H\x1b[K\x1b[3;1Hthree\x1b[K\x1b"
            "8");
  written.clear();
  screen.prompt(24, "> ");
  EXPECT_EQ(written, "\x1b[24;1H\x1b[J> ");
}

TEST(Screen, DrawsTheFirstLineInverseInAnAlarm) {
  std::string written;
  Screen screen([&written](std::string_view text) { written += text; });
  screen.draw({"one", "two"}, true);
  EXPECT_THAT(written, HasSubstr("\x1b[1;1H\x1b[7mone\x1b[m\x1b[K\x1b[2;1Htwo\x1b[K"));
}

}  // namespace
}  // namespace vorlent
