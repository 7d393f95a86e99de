#include "display/DisplayProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "display/displayNetwork.h"
#include "display/records.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const Endpoint DefaultServer{"10.0.0.7", 5000};  // where a display looks that has been told nothing

class DisplayProgramTest : public testing::Test {
 protected:
  DisplayProgram& start(const DisplayOptions& options, bool terminal = false,
                        const std::vector<std::string>& addresses = {}) {
    program.emplace(
        loop, network, options, addresses,
        DisplayProgram::Output{terminal, [this](std::string_view text) { written += text; },
                               [this](std::string_view text) { aside += text; }});
    program->start();
    return *program;
  }
  void fromServer(const std::string& text) { network.deliverFrom(DefaultServer, text); }
  std::string takeWritten() { return std::exchange(written, {}); }

  VirtualEventLoop loop;
  DisplayNetwork network;
  std::string written;
  std::string aside;
  std::optional<DisplayProgram> program;
};

TEST_F(DisplayProgramTest, GreetsTheServerOfItsOwnMachineInItsOwnNameWithoutOptions) {
  start({});
  EXPECT_THAT(network.takeTexts(),
              ElementsAre("10.0.0.7:5000 Connection on vorlent display 100 cockpit"));
}

TEST_F(DisplayProgramTest, GreetsTheServerThatItIsToldAsItIsTold) {
  DisplayOptions options;
  options.host = "192.168.1.20";
  options.port = 5002;
  options.interval_ms = 50;
  options.name = "master";
  start(options, false, {"192.168.1.20"});
  EXPECT_THAT(network.takeTexts(),
              ElementsAre("192.168.1.20:5002 Connection on vorlent display 50 master"));
}

TEST_F(DisplayProgramTest, ANameOfThisMachineStandsForTheAddressOfItsServerToo) {
  const std::string text = " Connection on vorlent display 100 cockpit";
  DisplayOptions options;
  options.host = "localhost";
  start(options, false, {"127.0.0.1"});
  EXPECT_THAT(network.takeTexts(), ElementsAre("127.0.0.1:5000" + text, "10.0.0.7:5000" + text));
  options.host = "sim-pc";
  start(options, false, {"192.168.1.20", "192.168.2.20"});
  EXPECT_THAT(network.takeTexts(),
              ElementsAre("192.168.1.20:5000" + text, "192.168.2.20:5000" + text));
  options.host = "127.0.0.1";
  start(options, false, {"127.0.0.1"});
  EXPECT_THAT(network.takeTexts(), ElementsAre("127.0.0.1:5000" + text));
}

TEST_F(DisplayProgramTest, WritesALineASecondWhereThereIsNoTerminal) {
  start({});
  EXPECT_EQ(takeWritten(), "greeting 10.0.0.7:5000\n");
  fromServer("81\\737-700\\2\\2047\\.");
  EXPECT_EQ(takeWritten(),
            "connected to 10.0.0.7:5000\n"
            "aircraft folder \"737-700\", 2 engines; tuning from machine \"cockpit\" (--name)\n");
  for (int tenth = 0; tenth < 20; ++tenth) {
    fromServer(RecordText(2).text());
    loop.advance(100);
  }
  const std::string lines = takeWritten();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 2);
  EXPECT_THAT(lines, StartsWith("16:05:09 N47.26035 "));
}

TEST_F(DisplayProgramTest, AsksWhetherTheAutopilotIsTunedAndTellsThatItIsNot) {
  start({});
  network.takeTexts();
  fromServer("81\\737-700\\2\\2047\\.");
  EXPECT_THAT(network.takeTexts(), ElementsAre("10.0.0.7:5000 tuning?"));
  takeWritten();
  fromServer("tuning ");
  EXPECT_EQ(takeWritten(), "");
  fromServer("tuning No tuning for the autopilot: plan.cfg is not there");
  EXPECT_EQ(takeWritten(),
            "No tuning for the autopilot: plan.cfg is not there; --name says on whose share, the "
            "shipped one is display's\n");
}

TEST_F(DisplayProgramTest, TellsEachTimeWhatTheServerDidNotCarryOut) {
  start({});
  fromServer(RecordText(2).text());
  for (int time = 0; time < 2; ++time) {
    network.takeTexts();
    takeWritten();
    program->typed("P 700 1");
    EXPECT_THAT(network.takeTexts(),
                ElementsAre("10.0.0.7:5000 p P 700 1 ", "10.0.0.7:5000 dropped?"));
    fromServer("dropped P 700, which is no command");
    EXPECT_EQ(takeWritten(),
              "sent: P 700 1\nthe server did not carry out P 700, which is no command\n");
  }
  fromServer("dropped ");
  EXPECT_EQ(takeWritten(), "");
}

TEST_F(DisplayProgramTest, WritesNoLineWithoutANewRecord) {
  start({});
  fromServer(RecordText(2).text());
  loop.advance(1000);
  takeWritten();
  loop.advance(1000);
  fromServer("Xterm");
  loop.advance(1000);
  EXPECT_EQ(takeWritten(), "the server ended the session; greeting again\n");
}

TEST_F(DisplayProgramTest, RedrawsAPageInPlaceOnATerminal) {
  start({}, true);
  EXPECT_THAT(takeWritten(), StartsWith("\x1b[?1049h"));
  fromServer(RecordText(2).text());
  loop.advance(100);
  EXPECT_THAT(takeWritten(), HasSubstr("\x1b[4;1HIAS  250.0 kt"));
  loop.advance(100);
  EXPECT_THAT(takeWritten(), IsEmpty());
  program.reset();
  EXPECT_EQ(takeWritten(), "\x1b[?1049l");
}

TEST_F(DisplayProgramTest, MarksThePageWhenNoRecordHasComeForTwoIntervals) {
  DisplayOptions options;
  options.interval_ms = 500;
  start(options, true);
  fromServer(RecordText(2).text());
  loop.advance(1000);
  EXPECT_THAT(takeWritten(), Not(HasSubstr("STALE")));
  loop.advance(100);
  EXPECT_THAT(takeWritten(), HasSubstr("\x1b[1;1H\x1b[7mSTALE 1.1 s   VORLENT DISPLAY"));
  loop.advance(2000);
  EXPECT_THAT(takeWritten(), HasSubstr("\x1b[7mSTALE 3.1 s"));
  fromServer(RecordText(2).text());
  loop.advance(100);
  EXPECT_THAT(takeWritten(),
              testing::AllOf(HasSubstr("\x1b[1;1HVORLENT DISPLAY"), Not(HasSubstr("STALE"))));
}

TEST_F(DisplayProgramTest, ARecordIsTrustedForAsLongAsThePageTakesToShowIt) {
  DisplayOptions options;
  options.interval_ms = 1;
  start(options, true);
  fromServer(RecordText(2).text());
  loop.advance(200);
  EXPECT_THAT(takeWritten(), Not(HasSubstr("STALE")));
  loop.advance(100);
  EXPECT_THAT(takeWritten(), HasSubstr("STALE 0.3 s"));
}

TEST_F(DisplayProgramTest, ShowsNoticesOnThePage) {
  start({}, true);
  loop.advance(1000);
  EXPECT_THAT(takeWritten(), HasSubstr("\x1b[23;1Hno answer from 10.0.0.7:5000 yet"));
}

TEST_F(DisplayProgramTest, PrintsOneRecordAndEnds) {
  DisplayOptions options;
  options.print = true;
  start(options, true);
  EXPECT_FALSE(loop.exitStatus());
  fromServer(RecordText(2).text());
  fromServer(RecordText(2).text());
  EXPECT_EQ(loop.exitStatus(), 0);
  EXPECT_THAT(written, StartsWith("EngineCount                  = 2\n"));
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 278);
  EXPECT_THAT(aside, StartsWith("greeting 10.0.0.7:5000\n"));
}

TEST_F(DisplayProgramTest, EndsInTimeWithStatusZeroWhenARecordCame) {
  DisplayOptions options;
  options.seconds = 3;
  start(options);
  fromServer(RecordText(2).text());
  loop.advance(2999);
  EXPECT_FALSE(loop.exitStatus());
  loop.advance(1);
  EXPECT_EQ(loop.exitStatus(), 0);
}

TEST_F(DisplayProgramTest, EndsInTimeWithStatusOneWhenNoRecordCame) {
  DisplayOptions options;
  options.seconds = 2;
  start(options);
  fromServer("81\\737-700\\2\\2047\\.");
  loop.advance(2000);
  EXPECT_EQ(loop.exitStatus(), 1);
}

TEST_F(DisplayProgramTest, SendsWhatIsTyped) {
  auto& display = start({});
  network.takeSent();
  takeWritten();
  display.typed("P 169 1");
  EXPECT_THAT(network.takeTexts(),
              ElementsAre("10.0.0.7:5000 p P 169 1 ", "10.0.0.7:5000 dropped?"));
  EXPECT_EQ(takeWritten(), "sent: P 169 1\n");
}

TEST_F(DisplayProgramTest, TellsWhatIsWrongWithALineAndSendsNothing) {
  auto& display = start({});
  network.takeSent();
  takeWritten();
  display.typed("P 169");
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  EXPECT_EQ(takeWritten(),
            "not sent: a command has three words, kind, id and value, such as \"P 169 1\"\n");
  display.typed("  ");
  EXPECT_EQ(takeWritten(), "");
}

TEST_F(DisplayProgramTest, ALineTypedOnThePageLeavesAnEmptyOne) {
  auto& display = start({}, true);
  takeWritten();
  display.typed("P 169 1");
  const std::string page = takeWritten();
  EXPECT_THAT(page, StartsWith("\x1b[24;1H\x1b[J> "));
  EXPECT_THAT(page, HasSubstr("\x1b[23;1Hsent: P 169 1"));
}

TEST_F(DisplayProgramTest, SaysThatTheServerDoesNotAnswerWhenNoRecordFollowsACommand) {
  auto& display = start({}, true);
  fromServer(RecordText(2).text());
  display.typed("P 169 1");
  loop.advance(200);
  EXPECT_THAT(takeWritten(), Not(HasSubstr("does not answer")));
  loop.advance(100);
  EXPECT_THAT(takeWritten(), HasSubstr("\x1b[23;1Hthe server does not answer: no record has come "
                                       "since a command was sent"));
}

TEST_F(DisplayProgramTest, ARecordBehindACommandIsAnAnswer) {
  auto& display = start({}, true);
  display.typed("P 169 1");
  loop.advance(100);
  fromServer(RecordText(2).text());
  loop.advance(1000);
  EXPECT_THAT(takeWritten(), Not(HasSubstr("does not answer")));
}

TEST_F(DisplayProgramTest, PrintingLeavesTheTerminalAsItIs) {
  DisplayOptions options;
  options.print = true;
  start(options, true);
  loop.advance(2000);
  EXPECT_THAT(written, Not(HasSubstr("\x1b")));
}

}  // namespace
}  // namespace vorlent
