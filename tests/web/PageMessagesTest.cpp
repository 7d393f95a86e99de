#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/RuntimeError.h"
#include "display/records.h"
#include "web/json.h"
#include "web/pageCommands.h"

namespace vorlent {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

Record recordOf(const RecordText& text) { return RecordReader().read(text.text()); }

TEST(RecordMessage, NamesEveryTokenAndKeepsTextsAsTexts) {
  const std::string message = recordMessage(recordOf(RecordText(2)));
  EXPECT_THAT(message, StartsWith("{\"record\":{\"EngineCount\":2,\"EngineType\":1,\"Latitude\":"
                                  "47.26035,\"Longitude\":-11.34391,\"AircraftAltitude\":"
                                  "12345.6789012345,"));
  EXPECT_THAT(message, HasSubstr("\"Engines(2).N1\":85.1,"));
  EXPECT_THAT(message, HasSubstr("\"ATEngagedMode\":\"FMC_SPD\","));
  EXPECT_THAT(message, HasSubstr("\"LocalTimeText(2)\":\"05\","));
  EXPECT_THAT(message, HasSubstr("\"Vor2Id\":\"\","));
  EXPECT_THAT(message, EndsWith("\"FlapIncrement\":2047}}"));
}

TEST(RecordMessage, HasAPointWhateverTheServersMarkIs) {
  std::string commas = RecordText(1).text();
  std::replace(commas.begin(), commas.end(), '.', ',');
  EXPECT_THAT(recordMessage(RecordReader().read(commas)), HasSubstr("\"Latitude\":47.26035,"));
}

TEST(ChangesMessage, HasWhatIsNotAsItWas) {
  RecordText later(2);
  later.speeds = "306 310 250.5 340 -1203.25 12 ";
  EXPECT_EQ(changesMessage(recordOf(RecordText(2)), recordOf(later)),
            "{\"changes\":{\"GroundSpeed\":306,\"Ias\":250.5}}");
}

TEST(ChangesMessage, IsSentEmptyAsWellForItTellsThatTheServerLives) {
  EXPECT_EQ(changesMessage(recordOf(RecordText(2)), recordOf(RecordText(2))), "{\"changes\":{}}");
}

TEST(JsonText, EscapesWhatWouldEndItAndReplacesWhatIsNoAscii) {
  EXPECT_EQ(jsonText("a\"b\\c\n\xE4</script>"), "\"a\\\"b\\\\c?\?</script>\"");
}

TEST(AircraftMessage, TellsTheReply) {
  EXPECT_EQ(aircraftMessage({8, "My \"own\" aircraft", 2, 2047, "."}),
            "{\"aircraft\":{\"folder\":\"My \\\"own\\\" aircraft\",\"engines\":2,"
            "\"flapIncrement\":2047}}");
}

PlanFile planOf(const std::string& rows) { return readPlanFile(rows); }

const std::string Zeros = "\"\",\"\",0,0,0,0,0,0,0,0,0,0,0,0,0,0,";

TEST(PlanMessage, HasTheRouteAndThePointsOfTheProfileThatAreNoWaypoints) {
  const std::string exec = "1\r\n\"ALPHA\"," + Zeros + "12000,0,0,\"\",0,50.3,8.9,0,0\r\n\"B\"," +
                           Zeros + "3000,0,0,\"\",0,50.5,10.2,0,0\r\n";
  const std::string prof = "1\r\n\"ALPHA\"," + Zeros + "12000,0,0,\"\",0,50.3,8.9,0,0\r\n\"T/D\"," +
                           Zeros + "12000,0,0,\"PRF\",0,50.4,9.5,0,0\r\n";
  EXPECT_EQ(planMessage(planOf(exec), planOf(prof)),
            "{\"plan\":{\"route\":["
            "{\"name\":\"ALPHA\",\"latitude\":50.3,\"longitude\":8.9,\"altitude\":12000},"
            "{\"name\":\"B\",\"latitude\":50.5,\"longitude\":10.2,\"altitude\":3000}],"
            "\"profile\":["
            "{\"name\":\"T/D\",\"latitude\":50.4,\"longitude\":9.5,\"altitude\":12000}]}}");
}

TEST(PlanMessage, ADamagedPlanIsDrawnUpToItsFault) {
  const std::string exec =
      "2\r\n\"ALPHA\"," + Zeros + "12000,0,0,\"\",0,50.3,8.9,0,0\r\n\"B\",oops";
  EXPECT_EQ(planMessage(planOf(exec), planOf("")),
            "{\"plan\":{\"route\":[{\"name\":\"ALPHA\",\"latitude\":50.3,\"longitude\":8.9,"
            "\"altitude\":12000}],\"profile\":[]}}");
  EXPECT_EQ(planMessage(planOf(""), planOf("")), "{\"plan\":{\"route\":[],\"profile\":[]}}");
}

TEST(PageCommands, AreWrittenAsAtADisplay) {
  const auto commands = readPageCommands("A 82 360 P 172 1 T 27 0 E 13 -1");
  ASSERT_EQ(commands.size(), 4U);
  EXPECT_EQ(commandMessage(commands), "p A 82 360 P 172 1 T 27 0 E 13 -1 ");
}

TEST(PageCommands, KeystrokesAreRefusedTogetherWithWhatComesBesideThem) {
  for (const char* message : {"P 1001 1", "P 1065 1", "P 32767 1", "P -1 1", "A 82 360 P 2065 1",
                              "E 1001 1", "T -32768 0", "A 1001 5"})
    EXPECT_THROW(readPageCommands(message), RuntimeError) << message;
  EXPECT_NO_THROW(readPageCommands("P 1000 1"));
}

TEST(PageCommands, OtherKindsAndOtherTextsAreRefused) {
  for (const char* message :
       {"", "P", "P 163", "X 82 1", "p 163 1", "Connection on a b 50 c", "Xterm", "P 163 one",
        "P 163 1 2", "P 99999 1", "A 82 nan", "A 82 inf", "A 82 1e999"})
    EXPECT_THROW(readPageCommands(message), RuntimeError) << message;
}

TEST(PageCommands, AMessageOfMoreThan512BytesIsRefused) {
  std::string message;
  while (message.size() + 8 <= 512) message += "P 163 1 ";
  EXPECT_NO_THROW(readPageCommands(message));
  EXPECT_THROW(readPageCommands(message + "P 163 1 "), RuntimeError);
}

}  // namespace
}  // namespace vorlent
