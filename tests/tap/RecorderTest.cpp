#include "tap/Recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/frmMainClient.h"
#include "recording/EventStream.h"
#include "recording/plainLines.h"
#include "recording/samples.h"
#include "support/TestServer.h"

namespace vorlent {
namespace {

using namespace recorded;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const Endpoint Display{"127.0.0.1", 40'000};

/// A server on the fakes of a TestServer, whose own one is not started; recorded or not.
class RecordedServer {
 public:
  explicit RecordedServer(bool isRecorded = true) {
    if (isRecorded) record();
    server.emplace(recorder ? recorder->ports() : fakes.server.ports,
                   Installation{fakes.folder.path(), {}, {}});
    if (recorder) recorder->follow(*server);
  }

  void record() {
    recorder.emplace(fakes.server.ports, link, [this] { return fakes.loop.now_ms() * 1000; });
    recorder->begin("2026-11-22 13:16:00", fakes.folder.path());
  }
  void start() {
    server->failureDomain.run([this] { server->main->Main(); });
  }
  void send(const std::string& text) { fakes.network.deliver(5000, Display, text); }

  /// What has been told so far.
  std::vector<Event> events() {
    EventStream stream;
    fakes.loop.advance(Recorder::SendPeriod_ms);
    stream.add(link.taken);
    std::vector<Event> events;
    while (auto event = stream.next()) events.push_back(*event);
    return events;
  }

  template <class Kind>
  std::vector<Kind> told() {
    std::vector<Kind> found;
    for (const Event& event : events())
      if (const auto* kind = std::get_if<Kind>(&event.what)) found.push_back(*kind);
    return found;
  }

  TestServer fakes;
  FakeRecorderLink link;
  std::optional<Recorder> recorder;
  std::optional<Server> server;
};

/// A short flight: greeting, buttons, levers, a changed box, and the exit.
void flyShortly(RecordedServer& recorded) {
  recorded.start();
  recorded.send("Connection on a b 100 fmc1");
  recorded.fakes.loop.advance(1000);
  recorded.fakes.bus.put<std::int32_t>(0x0574, 1234);
  recorded.send("p A 1 8000 P 163 1 ");
  recorded.fakes.loop.advance(1000);
  recorded.send("p P 183 1 A 81 5000 ");
  recorded.server->mainClient->txtPoll.Text("75");
  recorded.fakes.loop.advance(1000);
  recorded.server->failureDomain.run([&] { recorded.server->mainClient->cmdExit4.press(); });
}

TEST(ARecordedServer, DoesWhatItDoesUnrecorded) {
  RecordedServer with(true);
  RecordedServer without(false);
  flyShortly(with);
  flyShortly(without);
  EXPECT_THAT(with.fakes.bus.writes, Not(IsEmpty()));
  EXPECT_EQ(with.fakes.bus.writes, without.fakes.bus.writes);
  EXPECT_EQ(with.fakes.bus.calls, without.fakes.bus.calls);
  EXPECT_EQ(with.fakes.bus.requests, without.fakes.bus.requests);
  const auto sent = with.fakes.network.takeSent();
  EXPECT_THAT(sent, Not(IsEmpty()));
  EXPECT_TRUE(sent == without.fakes.network.takeSent());
  EXPECT_EQ(with.fakes.exitStatus(), 0);
  EXPECT_EQ(without.fakes.exitStatus(), 0);
  EXPECT_EQ(with.fakes.folder.read("Vorlent.ini"), without.fakes.folder.read("Vorlent.ini"));
}

TEST(ARecording, HasEveryWriteInItsOrder) {
  RecordedServer recorded;
  flyShortly(recorded);
  // The fake simulator keeps all but the greeting of its interface.
  std::vector<FakeSimulatorBus::Write> writes;
  for (const Exchanged& exchange : recorded.told<Exchanged>())
    for (const PlainWrite& write : plainWrites(exchange))
      if (write.offset != 0x330A)
        writes.push_back({write.offset, {write.bytes.begin(), write.bytes.end()}});
  EXPECT_EQ(writes, recorded.fakes.bus.writes);
}

TEST(ARecording, HasWhatEachPollRead) {
  RecordedServer recorded;
  recorded.start();
  recorded.send("Connection on a b 100 fmc1");
  recorded.fakes.bus.put<std::int32_t>(0x0574, 0x01020304);
  recorded.fakes.loop.advance(600);
  const std::vector<Exchanged> exchanges = recorded.told<Exchanged>();
  const Exchanged& poll = exchanges.back();
  std::size_t at = 0;
  bool found = false;
  for (const Operation& operation : *poll.request) {
    ASSERT_FALSE(operation.write);
    const std::uint32_t from = 0x0574 - operation.offset;
    if (operation.offset <= 0x0574 && from + 4 <= operation.size_bytes) {
      EXPECT_EQ(poll.read.substr(at + from, 4), "\x04\x03\x02\x01");
      found = true;
    }
    at += operation.size_bytes;
  }
  EXPECT_TRUE(found);
  EXPECT_EQ(at, poll.read.size());
  // The same request is one and the same.
  EXPECT_EQ(exchanges[exchanges.size() - 2].request, poll.request);
}

TEST(ARecording, BeginsWithTheFilesOfTheProgramFolder) {
  RecordedServer recorded(false);
  recorded.fakes.folder.write("shares.txt", "a password");
  recorded.fakes.folder.write("Templates/777/Flaps.cfg", "1,2\r\n");
  recorded.record();
  const std::vector<Event> events = recorded.events();
  ASSERT_FALSE(events.empty());
  ASSERT_TRUE(std::holds_alternative<Started>(events[0].what));
  EXPECT_EQ(std::get<Started>(events[0].what).local_time, "2026-11-22 13:16:00");
  std::vector<std::string> paths;
  for (const FileKept& file : recorded.told<FileKept>()) {
    paths.push_back(file.path);
    EXPECT_EQ(file.content, recorded.fakes.folder.read(file.path));
  }
  EXPECT_THAT(paths, ElementsAre("Vorlent.ini", "Cockpits/737-700/Flaps.cfg",
                                 "Cockpits/737-700/sound.cfg", "Cockpits/A-first/Flaps.cfg",
                                 "Cockpits/A-first/sound.cfg", "Templates/777/Flaps.cfg"));
}

TEST(ARecording, TellsWhoSentWhatAndWhichSessionsBeganAndEnded) {
  RecordedServer recorded;
  recorded.start();
  recorded.send("nothing of use");
  recorded.send("Connection on a b 100 fmc1");
  recorded.send("p P 163 1 ");
  recorded.server->mainClient->cmdStopCts.press();
  // The start makes its two sessions anew once it knows its settings.
  EXPECT_THAT(recorded.told<DatagramCame>(),
              ElementsAre(DatagramCame{2, "127.0.0.1", 40'000, "nothing of use"},
                          DatagramCame{2, "127.0.0.1", 40'000, "Connection on a b 100 fmc1"},
                          DatagramCame{2, "127.0.0.1", 40'000, "p P 163 1 "}));
  EXPECT_THAT(recorded.told<SessionChanged>(),
              ElementsAre(SessionChanged{2, SessionChanged::What::Greeted, "127.0.0.1", 40'000},
                          SessionChanged{2, SessionChanged::What::Stopped, "127.0.0.1", 40'000}));
}

TEST(ARecording, TellsWhatTheStatusLineShows) {
  RecordedServer recorded;
  recorded.start();
  EXPECT_THAT(recorded.told<StatusShown>(), Contains(StatusShown{2, "Waiting for clients...."}));
}

TEST(ARecording, PutsABoxAroundWhatHappensMeanwhile) {
  RecordedServer recorded;
  recorded.fakes.instance.free = false;
  recorded.start();
  recorded.fakes.op.takeBoxes();
  std::vector<Event> events = recorded.events();
  const auto box = std::find_if(events.begin(), events.end(), [](const Event& event) {
    return std::holds_alternative<BoxShown>(event.what);
  });
  ASSERT_GE(events.end() - box, 4);
  EXPECT_EQ(std::get<BoxShown>(box->what).text, "You can only run 1 Vorlent at a time");
  EXPECT_EQ(box[1].what, What(Answered{Call::MessageBox, 1, ""}));
  EXPECT_EQ(box[2].what, What(Answered{Call::MessageBox, 0, ""}));
  EXPECT_EQ(box[3].what, What(Ended{1}));
}

TEST(ARecording, HasARequestThatNobodyAnsweredAndItsRepetition) {
  RecordedServer recorded;
  recorded.fakes.bus.unansweredRequests = 1;
  recorded.start();
  const std::vector<Exchanged> exchanges = recorded.told<Exchanged>();
  ASSERT_GE(exchanges.size(), 2U);
  EXPECT_FALSE(exchanges[0].answered);
  EXPECT_EQ(exchanges[0].read, "");
  EXPECT_TRUE(exchanges[1].answered);
  EXPECT_EQ(*exchanges[0].request, *exchanges[1].request);
}

TEST(ARecording, HasTheWholeBlockOfADamagedReply) {
  RecordedServer recorded;
  recorded.fakes.bus.onRequest = [](SendResult served, std::byte* block) {
    block[8] = std::byte{0xFF};  // the length of the first record
    return served;
  };
  recorded.start();
  recorded.fakes.op.takeBoxes();
  const std::vector<Exchanged> exchanges = recorded.told<Exchanged>();
  ASSERT_FALSE(exchanges.empty());
  EXPECT_EQ(exchanges[0].damaged.size(), 32'768U);
  EXPECT_EQ(exchanges[0].damaged[8], '\xFF');
  EXPECT_EQ(exchanges[0].read, "");
}

TEST(ARecording, HasTheFaultsOfItsPorts) {
  RecordedServer recorded;
  recorded.fakes.network.bindErrors.emplace(
      5001, RuntimeError(SocketError::AddressInUse, "Address in use"));
  recorded.start();
  recorded.fakes.op.takeBoxes();
  EXPECT_THAT(recorded.told<Raised>(),
              ElementsAre(Raised{Call::Bind, SocketError::AddressInUse, "Address in use"}));
}

TEST(ARecorder, ThatCannotRecordTellsTheOperatorAndTheFlightGoesOn) {
  RecordedServer recorded;
  recorded.start();
  recorded.link.isLost = true;
  recorded.link.sentence = "Nothing is recorded: its helper has ended";
  recorded.send("Connection on a b 100 fmc1");
  recorded.fakes.loop.advance(1000);
  EXPECT_THAT(recorded.fakes.log(), HasSubstr("Nothing is recorded: its helper has ended"));
  EXPECT_THAT(recorded.fakes.network.takeSent(), Not(IsEmpty()));
}

TEST(ARecorder, GivesTheRestAtItsEnd) {
  RecordedServer recorded;
  recorded.start();
  recorded.server.reset();
  recorded.recorder.reset();
  EXPECT_TRUE(recorded.link.ended);
}

}  // namespace
}  // namespace vorlent
