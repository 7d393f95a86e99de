#include <cmath>
#include <random>

#include "clientlink/SessionTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

/// Datagrams of every length, of bytes that a fixed seed gives.
class FrmConnectBadInput : public RunningSessionTest {
 protected:
  std::string bytes(std::size_t length) {
    std::string text(length, '\0');
    for (char& c : text) c = static_cast<char>(random_() & 0xFF);
    return text;
  }
  /// Letters, digits and blanks that look like a message's fields.
  std::string fields(std::size_t length) {
    static const std::string alphabet = "EPTA 0123456789-.,e   ";
    std::string text(length, ' ');
    for (char& c : text) c = alphabet[random_() % alphabet.size()];
    return text;
  }
  void deliverEveryLength(const std::string& head, bool likeFields) {
    for (std::size_t length = 0; length <= 3000; ++length) {
      t.deliver(0, head + (likeFields ? fields(length) : bytes(length)));
      ASSERT_LE(t.store.ReceivedText.size(), 2048U);
      ASSERT_EQ(t.exitStatus(), std::nullopt) << length;
    }
  }
  void greetsAndStreams() {
    if (!session(0).Started()) t.greet(0);
    EXPECT_GT(sentWithin(70000), 0U);
    commands->take();
    EXPECT_THAT(callsOf("p P 1 2 "), ElementsAre(CommandCall{"button", 1, 2}));
  }

 private:
  std::mt19937 random_{20240608};
};

TEST_F(FrmConnectBadInput, RandomBytesBeforeAGreeting) {
  deliverEveryLength("", false);
  EXPECT_TRUE(idle(0));
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, RandomBytesOnALiveSession) {
  t.greet(0);
  deliverEveryLength("", false);
  EXPECT_TRUE(live(0));
  EXPECT_EQ(session(0).TimerConn().Interval(), 100);
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, RandomBytesInACommandMessage) {
  t.greet(0);
  deliverEveryLength("p ", false);
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, RandomFieldsInACommandMessage) {
  t.greet(0);
  deliverEveryLength("p ", true);
  for (const CommandCall& call : commands->take()) EXPECT_TRUE(std::isfinite(call.value));
  EXPECT_TRUE(live(0));
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, RandomBytesInAGreeting) {
  deliverEveryLength("Connection on ", false);
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, RandomFieldsInAGreeting) {
  for (std::size_t length = 0; length <= 3000; ++length) {
    t.deliver(0, "Connection on a b " + fields(length));
    ASSERT_EQ(t.exitStatus(), std::nullopt) << length;
    ASSERT_EQ(session(0).Started(), session(0).IsUp()) << length;
    if (!session(0).Started()) continue;
    session(0).IsUp(false);
    if (session(0).TimerConn().Interval() == 0) session(0).TimerConn().Interval(1);
    t.loop.advance(session(0).TimerConn().Interval());
    ASSERT_TRUE(idle(0)) << length;
  }
  greetsAndStreams();
}

TEST_F(FrmConnectBadInput, NameOfTwoThousandCharacters) {
  const std::string name(2000, 'x');
  t.greet(0, "100", name);
  EXPECT_TRUE(live(0));
  EXPECT_EQ(session(0).FmcName(), name);
}

TEST_F(FrmConnectBadInput, LineBreaksInADatagramStayOneLineOfTheLog) {
  t.deliver(0, "hello\r\nVorlent close\nQuit");
  EXPECT_TRUE(t.log().ends_with("hello  Vorlent close Quit\r\n"));
}

TEST_F(FrmConnectBadInput, EmptyDatagramChangesNothing) {
  const std::string before = t.log();
  t.deliver(0, "");
  t.deliver(0, "   ");
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(t.log(), before);
}

}  // namespace
}  // namespace vorlent
