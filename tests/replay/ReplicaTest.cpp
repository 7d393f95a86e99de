#include "replay/Replica.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

#include "commands/commands.h"
#include "recording/EventStream.h"
#include "recording/samples.h"
#include "recordings.h"
#include "replay/check.h"
#include "support/Sticks.h"
#include "support/TestServer.h"
#include "support/walks.h"
#include "tap/Recorder.h"

namespace vorlent {
namespace {

const Endpoint Panel{"127.0.0.1", 40'000};

/// A server that is recorded, and what is done to it at random: offsets change, commands come, a
/// stick moves, the operator's hand works the console's lines, a turn of the loop runs out.
class RandomSession {
 public:
  explicit RandomSession(unsigned seed) : random_(seed) {
    writeCatalogues(fakes_.folder);
    fakes_.folder.write("Cockpits/737-700/stick/stick0.cfg", PlainStickFile);
    fakes_.controllers.plugIn("Board");
    fakes_.configure("JoysticksOn", "1");
    fakes_.network.turnIsOver = [this] { return below(5) == 0; };
    recorder_.emplace(fakes_.server.ports, link_, [this] { return fakes_.loop.now_ms() * 1000; });
    recorder_->begin("2026-11-22 13:16:00", fakes_.folder.path());
    server_.emplace(recorder_->ports(), Installation{fakes_.folder.path(), {}, {}});
    hand_.emplace(*server_);
    server_->failureDomain.run([this] { server_->main->Main(); });
    fakes_.network.deliver(5000, Panel, "Connection on a b 100 fmc1");
  }
  ~RandomSession() { fakes_.op.takeBoxes(); }

  void step() {
    changeOffsets();
    moveStick();
    if (below(3) == 0) command();
    if (below(10) == 0) work("press frmMainClient.Settings(4)");
    if (below(40) == 0) work("press frmMainClient.cmdStop");
    fakes_.loop.advance(static_cast<int>(1 + below(90)));
  }

  void end() {
    work("exit");
    recorder_.reset();
  }

  /// All that was told, in a file.
  void keepIn(WrittenRecording& recording) {
    EventStream stream;
    stream.add(link_.taken);
    stream.next();
    while (auto event = stream.next())
      recording.add(static_cast<double>(event->time_us) / 1e6, event->what);
  }
  std::size_t writes() const { return fakes_.bus.writes.size(); }

 private:
  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

  /// Mostly a nudge to what a poll reads, which leaves most numbers in their ranges.
  void changeOffsets() {
    for (int changes = 0; changes < 20; ++changes)
      fakes_.bus.put(0x0264 + below(4352), static_cast<std::uint8_t>(below(256)));
    fakes_.bus.put(0x0264, std::uint16_t{0});  // not paused
    fakes_.bus.put(0x0AEC, std::uint16_t{2});
  }

  void moveStick() {
    ControllerState& state = fakes_.controllers.all.front().state;
    state.x = static_cast<std::int32_t>(below(65536));
    state.buttons[below(15)] = below(2) == 0 ? ControllerState::Pressed : std::uint8_t{0};
  }

  void command() {
    std::string text = "p ";
    for (unsigned triples = 1 + below(8); triples > 0; --triples)
      text += std::string(1, "APTE"[below(4)]) + " " + std::to_string(1 + below(230)) + " " +
              std::to_string(below(400)) + " ";
    fakes_.network.deliver(5000, Panel, text);
    fakes_.network.nextTurn();
  }

  void work(const std::string& line) {
    const recorded::HandMoved hand{Deed::Line, {}, {}, line};
    recorder_->hand(hand);
    server_->failureDomain.run([&] { hand_->move(hand); });
  }

  std::mt19937 random_;
  TestServer fakes_;
  FakeRecorderLink link_;
  std::optional<Recorder> recorder_;
  std::optional<Server> server_;
  std::optional<ReplayHand> hand_;
};

class RandomRecording : public testing::TestWithParam<unsigned> {};

TEST_P(RandomRecording, IsLivedAgainToTheByte) {
  WrittenRecording recording;
  {
    RandomSession session(GetParam());
    for (int steps = walkLength(1000); steps > 0; --steps) session.step();
    session.end();
    session.keepIn(recording);
    EXPECT_GT(session.writes(), 100U);
  }
  const CheckResult result = checkRecording(recording.reader());
  EXPECT_TRUE(result.same) << result.report;
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRecording, testing::Range(1U, 7U));

}  // namespace
}  // namespace vorlent
