#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "commands/commands.h"
#include "support/TestServer.h"

namespace vorlent {

/// Which command routine was called with what.
struct CommandCall {
  std::string routine;
  int id;
  float value;
  bool operator==(const CommandCall&) const = default;
};

inline CommandCall encoder(int id, float value) { return {"encoder", id, value}; }
inline CommandCall toggle(int id, float value) { return {"toggle", id, value}; }
inline CommandCall button(int id, float value) { return {"button", id, value}; }
inline CommandCall analog(int id, float value) { return {"analog", id, value}; }

inline std::ostream& operator<<(std::ostream& out, const CommandCall& call) {
  return out << call.routine << " " << call.id << " " << call.value;
}

class RecordingCommands : public Commands {
 public:
  using Commands::Commands;
  void SetAnalogValues(std::int16_t id, float value) override { add("analog", id, value); }
  void SetButtonValues(std::int16_t id, float value) override { add("button", id, value); }
  void SetToggleValues(std::int16_t id, float value) override { add("toggle", id, value); }
  void SetEncoderValues(std::int16_t id, float value) override { add("encoder", id, value); }

  std::vector<CommandCall> take() { return std::exchange(calls_, {}); }

 private:
  void add(const char* routine, std::int16_t id, float value) {
    calls_.push_back({routine, id, value});
  }
  std::vector<CommandCall> calls_;
};

class RecordingAfds : public clsAfds {
 public:
  RecordingAfds(Server& server, std::vector<std::string>& events)
      : clsAfds(server.autoflight), events_(events) {}
  std::string ReadAircraftConfig(const std::string& planPath) override {
    events_.push_back("plan " + planPath);
    return {};
  }

 private:
  std::vector<std::string>& events_;
};

/// A server whose displays are the test. `events` tells in one list what the operator sees, which
/// plan is read, and what goes to the simulator and to the displays.
class SessionTest : public ::testing::Test {
 protected:
  static constexpr std::uint16_t DisplayPort = 40000;
  const Endpoint display{"127.0.0.1", DisplayPort};
  const Endpoint stranger{"127.0.0.2", DisplayPort};

  void start() {
    t.start();
    ASSERT_EQ(t.exitStatus(), std::nullopt);
    t.server.autoflight.afds = std::make_unique<RecordingAfds>(t.server, events);
    auto recording = std::make_unique<RecordingCommands>(t.server.commandContext());
    commands = recording.get();
    t.server.commands = std::move(recording);
    t.form.sbStatusBar.addView([this](int panel) {
      events.push_back(std::to_string(panel) + "| " + t.form.sbStatusBar.panelText(panel));
    });
    t.bus.requests = 0;
    t.bus.writes.clear();
  }

  frmConnect& session(int slot) { return *t.server.connect.at(static_cast<std::size_t>(slot)); }

  bool live(int slot) {
    frmConnect& s = session(slot);
    return s.Started() && s.IsUp() && s.TimerConn().Enabled();
  }
  bool idle(int slot) {
    frmConnect& s = session(slot);
    return !s.Started() && !s.IsUp() && !s.TimerConn().Enabled();
  }

  /// What was sent since the last call, as text alone.
  std::vector<std::string> sentTexts() {
    std::vector<std::string> texts;
    for (const auto& sent : t.network.takeSent()) texts.push_back(sent.text);
    return texts;
  }
  /// How many datagrams went out in this time.
  std::size_t sentWithin(int duration_ms) {
    t.network.takeSent();
    t.loop.advance(duration_ms);
    return t.network.takeSent().size();
  }
  std::vector<CommandCall> callsOf(const std::string& datagram) {
    t.deliver(0, datagram);
    return commands->take();
  }

  TestServer t;
  RecordingCommands* commands = nullptr;
  std::vector<std::string> events;
};

class RunningSessionTest : public SessionTest {
 protected:
  void SetUp() override { start(); }
};

}  // namespace vorlent
