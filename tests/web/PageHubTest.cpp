#include "web/PageHub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>

#include "display/records.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

struct FakePage : Page {
  void send(const std::string& message) override { messages.push_back(message); }
  bool isBehind() const override { return behind; }
  void end() override { ended = true; }
  std::vector<std::string> take() { return std::exchange(messages, {}); }

  std::vector<std::string> messages;
  bool behind = false;
  bool ended = false;
};

class PageHubTest : public testing::Test {
 protected:
  void record(int groundSpeed, int engines = 2) {
    RecordText text(engines);
    text.speeds = std::to_string(groundSpeed) + " 310 250 340 0 12 ";
    hub.show(RecordReader().read(text.text()));
  }

  VirtualEventLoop loop;
  std::vector<std::string> sent;
  bool reachable = true;
  PageHub hub{loop, [this](std::span<const Command> commands) {
                sent.push_back(commandMessage(commands));
                return reachable;
              }};
  FakePage page;
};

TEST_F(PageHubTest, APageGetsAWholeRecordAndThenTheChanges) {
  hub.join(page);
  record(300);
  record(301);
  record(301);
  EXPECT_THAT(page.take(), ElementsAre(StartsWith("{\"record\":{\"EngineCount\":2,"),
                                       "{\"changes\":{\"GroundSpeed\":301}}", "{\"changes\":{}}"));
}

TEST_F(PageHubTest, APageThatComesLaterGetsAllThatIsKnown) {
  hub.show(GreetingReply{8, "737-700", 2, 2047, "."});
  hub.showNotice("connected");
  hub.showPlan("{\"plan\":{}}");
  record(300);
  hub.join(page);
  record(301);
  EXPECT_THAT(
      page.take(),
      ElementsAre("{\"aircraft\":{\"folder\":\"737-700\",\"engines\":2,\"flapIncrement\":"
                  "2047}}",
                  "{\"notice\":\"connected\"}", "{\"plan\":{}}", StartsWith("{\"record\":{")));
}

TEST_F(PageHubTest, AnotherNumberOfEnginesIsAWholeRecord) {
  hub.join(page);
  record(300, 2);
  page.take();
  record(300, 4);
  EXPECT_THAT(page.take(), ElementsAre(StartsWith("{\"record\":{\"EngineCount\":4,")));
}

TEST_F(PageHubTest, APageThatIsBehindMissesRecordsAndThenGetsAWholeOne) {
  hub.join(page);
  record(300);
  page.take();
  page.behind = true;
  record(301);
  EXPECT_THAT(page.take(), IsEmpty());
  page.behind = false;
  record(302);
  EXPECT_THAT(page.take(), ElementsAre(StartsWith("{\"record\":{")));
}

TEST_F(PageHubTest, APageThatTakesNothingAnyMoreIsGivenUp) {
  hub.join(page);
  page.behind = true;
  for (int i = 1; i < PageHub::MostRecordsBehind; ++i) record(i);
  EXPECT_FALSE(page.ended);
  record(0);
  EXPECT_TRUE(page.ended);
}

TEST_F(PageHubTest, CommandsGoToTheServer) {
  hub.join(page);
  hub.take(page, "A 82 360 P 172 1");
  EXPECT_THAT(sent, ElementsAre("p A 82 360 P 172 1 "));
  EXPECT_THAT(page.take(), IsEmpty());
}

TEST_F(PageHubTest, WhatMayNotGoThereIsToldToThePageAlone) {
  FakePage other;
  hub.join(page);
  hub.join(other);
  hub.take(page, "P 1065 1");
  EXPECT_THAT(sent, IsEmpty());
  EXPECT_THAT(page.take(),
              ElementsAre("{\"refused\":\"a page sends codes from 0 to 1000, and 1065 is none: "
                          "keystrokes are not for pages\"}"));
  EXPECT_THAT(other.take(), IsEmpty());
}

TEST_F(PageHubTest, ACommandThatCouldNotBeSentIsTold) {
  hub.join(page);
  reachable = false;
  hub.take(page, "P 172 1");
  EXPECT_THAT(page.take(),
              ElementsAre("{\"refused\":\"the command could not be sent to the server\"}"));
}

TEST_F(PageHubTest, SixtyCommandsGoAtOnceAndThenThirtyASecondOfEachPage) {
  FakePage other;
  hub.join(page);
  hub.join(other);
  for (int i = 0; i < 61; ++i) hub.take(page, "P 172 1");
  EXPECT_EQ(sent.size(), 60U);
  EXPECT_THAT(page.take(), ElementsAre("{\"refused\":\"too many commands at once\"}"));
  hub.take(other, "P 172 1");
  EXPECT_EQ(sent.size(), 61U);
  loop.advance(1000);
  for (int i = 0; i < 31; ++i) hub.take(page, "P 172 1");
  EXPECT_EQ(sent.size(), 91U);
}

TEST_F(PageHubTest, NoMorePagesThanThirtyTwoJoin) {
  std::list<FakePage> pages(33);
  int joined = 0;
  for (FakePage& one : pages) joined += hub.join(one) ? 1 : 0;
  EXPECT_EQ(joined, 32);
  hub.leave(pages.front());
  EXPECT_TRUE(hub.join(pages.back()));
}

TEST_F(PageHubTest, APageThatLeftGetsNothingAndCommandsNothing) {
  hub.join(page);
  hub.leave(page);
  record(300);
  hub.take(page, "P 172 1");
  EXPECT_THAT(page.take(), IsEmpty());
  EXPECT_THAT(sent, IsEmpty());
}

}  // namespace
}  // namespace vorlent
