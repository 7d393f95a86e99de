#include "clientlink/SessionTest.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// A display asks whether the autopilot is tuned.
TEST(TuningQuestion, IsAnsweredWithWhatIsMissingAndShownToNobody) {
  TestServer t;
  t.start();
  t.deliver(0, "tuning?");
  EXPECT_THAT(t.network.takeSent(), IsEmpty())
      << "before a greeting it is a message like any other";
  t.deliver(0, "Connection on a b 50 display");
  t.network.takeSent();
  const std::string shown = t.form.sbStatusBar.panelText(1);
  t.deliver(0, "tuning?");
  const auto sent = t.network.takeSent();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].text,
            "tuning No tuning for the autopilot, do not engage it: "
            "\\\\display\\Tarnwick\\FMS\\plan.cfg is not there");
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), shown);
}

/// What a display is answered that asks what was not carried out of `commands`.
std::string droppedOf(TestServer& t, const std::string& commands) {
  t.deliver(0, commands);
  t.network.takeSent();
  t.deliver(0, "dropped?");
  const auto sent = t.network.takeSent();
  return sent.size() == 1 ? sent[0].text : "";
}

TEST(DroppedQuestion, IsAnsweredWithWhatOfTheLastMessageWasNotCarriedOut) {
  TestServer t;
  t.start();
  t.deliver(0, "Connection on a b 50 display");
  EXPECT_EQ(droppedOf(t, "p P 700 1 P 167 1 "), "dropped P 700, which is no command");
  EXPECT_EQ(droppedOf(t, "p P 1082 1 "),
            "dropped keystroke code 1082, which NetworkKeys does not let clients send");
  EXPECT_EQ(droppedOf(t, "p P 167 x "), "dropped the rest of the message, Type mismatch");
  EXPECT_EQ(droppedOf(t, "p P 167 1 "), "dropped ");
}

TEST(DroppedQuestion, IsNotAnsweredBeforeAGreeting) {
  TestServer t;
  t.start();
  EXPECT_EQ(droppedOf(t, "p P 700 1 "), "");
}

class FrmConnectGreeting : public RunningSessionTest {
 protected:
  /// Neither reply nor session, and the next greeting is heard.
  void refused(const std::string& greeting) {
    t.deliver(0, greeting);
    EXPECT_TRUE(idle(0)) << greeting;
    EXPECT_THAT(sentTexts(), IsEmpty()) << greeting;
    EXPECT_EQ(t.exitStatus(), std::nullopt) << greeting;
    EXPECT_EQ(session(0).TimerConn().Interval(), 100) << greeting;
  }
  void accepted(const std::string& greeting, int interval_ms, const std::string& name) {
    t.deliver(0, greeting);
    EXPECT_TRUE(live(0)) << greeting;
    EXPECT_EQ(session(0).TimerConn().Interval(), interval_ms) << greeting;
    EXPECT_EQ(session(0).FmcName(), name) << greeting;
    EXPECT_THAT(sentTexts(), ElementsAre("81\\737-700\\0\\2047\\.")) << greeting;
  }
  static std::string withInterval(const std::string& interval) {
    return "Connection on a b " + interval + " fmc1";
  }
  std::vector<std::string> plans() const {
    std::vector<std::string> found;
    for (const auto& event : events)
      if (event.starts_with("plan ")) found.push_back(event.substr(5));
    return found;
  }
};

TEST_F(FrmConnectGreeting, IntervalOutsideATimersRangeEndsIt) {
  for (const char* interval : {"-1", "-100", "65536", "100000", "2147483648", "-2147483649",
                               "99999999999999999999", "1e99", "1e999"})
    refused(withInterval(interval));
  accepted(withInterval("80"), 80, "fmc1");
}

TEST_F(FrmConnectGreeting, IntervalThatIsNoNumberEndsIt) {
  for (const char* interval :
       {"abc", "10x", "x10", "1,5", "nan", "inf", "-", ".", "0x20", "1e", ""})
    refused(withInterval(interval));
  accepted(withInterval("80"), 80, "fmc1");
}

TEST_F(FrmConnectGreeting, RefusedOneHasBeenShownAndLogged) {
  refused(withInterval("abc"));
  EXPECT_THAT(events, ElementsAre("1| Connection on a b abc fmc1", "2| Connection on a b abc fmc1",
                                  "1| Connection on a b abc fmc1", "1| Call from client 0"));
}

TEST_F(FrmConnectGreeting, RefusedOneLeavesTheWindowAlone) {
  t.form.cmdSound.Enabled(true);
  refused(withInterval("-1"));
  EXPECT_TRUE(t.form.cmdSound.Enabled());
  EXPECT_TRUE(t.form.txtClients.Enabled());
  EXPECT_FALSE(t.store.CycleRunning);
  EXPECT_EQ(t.form.FmcName(), "");
  EXPECT_EQ(sentWithin(1000), 0U);
}

TEST_F(FrmConnectGreeting, LargestIntervalIs65535) {
  accepted(withInterval("65535"), 65535, "fmc1");
}

TEST_F(FrmConnectGreeting, SmallestIntervalIsOne) {
  accepted(withInterval("1"), 1, "fmc1");
  EXPECT_EQ(sentWithin(100), 100U);
}

TEST_F(FrmConnectGreeting, IntervalIsRoundedHalfToEven) {
  accepted(withInterval("60.5"), 60, "fmc1");
  t.greet(1, "61.5");
  EXPECT_EQ(session(1).TimerConn().Interval(), 62);
}

TEST_F(FrmConnectGreeting, IntervalZeroBringsUpASessionWithoutAStream) {
  accepted(withInterval("0"), 0, "fmc1");
  EXPECT_EQ(sentWithin(100000), 0U);
  EXPECT_THAT(callsOf("p P 1 1 "), ElementsAre(CommandCall{"button", 1, 1}));
}

TEST_F(FrmConnectGreeting, StreamOfOthersGoesOnBesideIntervalZero) {
  t.greet(1);
  sentTexts();
  accepted(withInterval("0"), 0, "fmc1");
  EXPECT_EQ(sentWithin(1000), 10U);
}

TEST_F(FrmConnectGreeting, WithoutAnIntervalEndsThere) {
  refused("Connection on");
  refused("Connection on ");
  refused("Connection on a");
  refused("Connection on a b");
  refused("Connection on a b ");
}

// The last field stands for all that are missing behind it.
TEST_F(FrmConnectGreeting, WithoutANameTakesTheIntervalForIt) {
  accepted("Connection on a b 100", 100, "100");
}

TEST_F(FrmConnectGreeting, OfOneNumberTakesItForEveryField) {
  accepted("Connection on 70", 70, "70");
}

TEST_F(FrmConnectGreeting, BlankBehindTheIntervalIsAnEmptyName) {
  accepted("Connection on a b 100 ", 100, "");
}

TEST_F(FrmConnectGreeting, TwoBlanksInARowAreAnEmptyField) {
  refused("Connection on a b  100 fmc1");
  accepted("Connection on  b 100 fmc1", 100, "fmc1");
}

TEST_F(FrmConnectGreeting, NameEndsAtABlank) {
  accepted("Connection on a b 100 fmc1 and more", 100, "fmc1");
}

TEST_F(FrmConnectGreeting, NameKeepsItsCaseAndGoesToTheMainWindow) {
  accepted("Connection on a b 100 FmcPC", 100, "FmcPC");
  EXPECT_EQ(t.form.FmcName(), "FmcPC");
}

TEST_F(FrmConnectGreeting, LatestNameIsTheMainWindows) {
  t.greet(0, "100", "first");
  t.greet(1, "100", "second");
  EXPECT_EQ(t.form.FmcName(), "second");
  EXPECT_EQ(session(0).FmcName(), "first");
}

TEST_F(FrmConnectGreeting, PlanOfAMachineIsRead) {
  for (const std::string name : {"fmc1", "FMC-PC_2", "fmc.local", "192.168.0.7", "...a"}) {
    events.clear();
    t.greet(0, "100", name);
    EXPECT_THAT(plans(), ElementsAre("\\\\" + name + "\\Tarnwick\\FMS\\plan.cfg"));
    t.form.cmdStopCts.press();
    t.loop.advance(100);
  }
}

TEST_F(FrmConnectGreeting, NameThatIsNoMachinesReadsNoPlan) {
  using namespace std::string_literals;
  for (const std::string& name :
       {"."s, ".."s, "..\\secret"s, "../secret"s, "a\\b"s, "a/b"s, "\\\\evil\\c$"s, "/etc"s, "C:"s,
        "fmc1\r\n"s, "fmc1\0"s, "f*"s, "%FMC%"s, "f\xC3\xA4rre"s, ""s}) {
    events.clear();
    t.greet(0, "100", name);
    EXPECT_THAT(plans(), IsEmpty()) << name;
    EXPECT_THAT(events, Contains("1| Client 0 gave no machine name, its plan is not read"));
    t.form.cmdStopCts.press();
    t.loop.advance(100);
  }
}

TEST_F(FrmConnectGreeting, ClientWithoutAMachinesNameIsServedAllTheSame) {
  accepted("Connection on a b 100 ..\\..\\x", 100, "..\\..\\x");
  EXPECT_EQ(sentWithin(1000), 10U);
}

TEST_F(FrmConnectGreeting, MachinesNameRaisesNoRemark) {
  t.greet(0);
  EXPECT_THAT(events, Not(Contains("1| Client 0 gave no machine name, its plan is not read")));
}

TEST_F(FrmConnectGreeting, SecondOneOnALiveSessionHasNoEffect) {
  accepted(withInterval("80"), 80, "fmc1");
  t.loop.advance(40);
  events.clear();
  t.bus.requests = 0;
  t.deliver(0, "Connection on a b 500 other");
  EXPECT_THAT(events, ElementsAre("1| Connection on a b 500 other"));
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_EQ(t.bus.requests, 0);
  EXPECT_EQ(session(0).TimerConn().Interval(), 80);
  EXPECT_EQ(session(0).FmcName(), "fmc1");
  EXPECT_EQ(t.form.FmcName(), "fmc1");
  EXPECT_EQ(session(0).Caption(), "Connection on a b 80 fmc1 5000");
  EXPECT_EQ(sentWithin(40), 1U);
}

TEST_F(FrmConnectGreeting, StrayDatagramBeforeItBlocksNothing) {
  for (const char* stray : {"", "hello", "p P 1 1 ", "Xterm", "Connection"}) {
    t.deliver(0, stray, stranger);
    EXPECT_FALSE(session(0).Started()) << stray;
  }
  accepted(withInterval("80"), 80, "fmc1");
}

TEST_F(FrmConnectGreeting, RefusedOneOfAStrangerBlocksNothing) {
  t.deliver(0, withInterval("abc"), stranger);
  accepted(withInterval("80"), 80, "fmc1");
}

TEST_F(FrmConnectGreeting, OnAnEndingSessionIsNotHeard) {
  accepted(withInterval("80"), 80, "fmc1");
  t.form.cmdStopCts.press();
  t.deliver(0, withInterval("90"));
  EXPECT_THAT(sentTexts(), IsEmpty());
  t.loop.advance(80);
  EXPECT_TRUE(idle(0));
  t.network.takeSent();
  accepted(withInterval("90"), 90, "fmc1");
}

}  // namespace
}  // namespace vorlent
