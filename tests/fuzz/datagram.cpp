#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "independentText.h"
#include "independentTriples.h"
#include "require.h"
#include "support/TestServer.h"

// An input is a sequence of datagrams, separated by bytes 0x1E. The first byte of each says who
// sends it where and what happens then: bit 0 is the slot, bits 1 and 2 the sender, bits 3 and 4 an
// event behind it (time passes, "Stop Clients", "Stop" or "Start").

namespace {

using independent::Call;
using independent::isDigit;
using independent::RecordingCommands;
using independent::split;
using independent::wholeNumber;
using vorlent::Endpoint;
using vorlent::TestServer;

constexpr char Separator = '\x1E';
constexpr std::size_t MaxDatagrams = 48;
constexpr std::size_t MaxRead = 2048;
constexpr int Pause_ms = 100;

class RecordingAfds : public vorlent::clsAfds {
 public:
  using clsAfds::clsAfds;
  std::string ReadAircraftConfig(const std::string& planPath) override {
    plans.push_back(planPath);
    return {};
  }
  std::vector<std::string> plans;
};

/// What a command message asks for. Clients write their numbers with a point.
std::vector<Call> callsOf(const std::string& datagram) {
  if (!datagram.starts_with('p') || datagram.size() < 2) return {};
  return independent::triplesOf(std::string_view(datagram).substr(2), '.').calls;
}

struct Greeting {
  int interval_ms;
  std::string name;
};

/// The last field stands for those that are missing.
std::optional<Greeting> greetingOf(const std::string& datagram) {
  if (!datagram.starts_with("Connection on")) return std::nullopt;
  const auto fields = split(datagram, ' ');
  const auto field = [&](std::size_t at) {
    return at < fields.size() ? fields[at] : fields.back();
  };
  const auto interval_ms = wholeNumber(field(4), 0, 65535);
  if (!interval_ms) return std::nullopt;
  return Greeting{*interval_ms, field(5)};
}

bool isPlanOfAMachine(const std::string& path) {
  const std::string tail = "\\Tarnwick\\FMS\\plan.cfg";
  if (!path.starts_with("\\\\") || !path.ends_with(tail)) return false;
  const std::string host = path.substr(2, path.size() - 2 - tail.size());
  const auto allowed = [](char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_' ||
           c == '.';
  };
  return !host.empty() && host != "." && host != ".." &&
         std::all_of(host.begin(), host.end(), allowed);
}

/// A running server with two slots, and what a slot's owner may expect.
class Sessions {
 public:
  Sessions() {
    t.bus.put<std::uint8_t>(0x0AEC, 2);
    t.start();
    auto recordingCommands = std::make_unique<RecordingCommands>(t.server.commandContext());
    commands = recordingCommands.get();
    t.server.commands = std::move(recordingCommands);
    auto recordingAfds = std::make_unique<RecordingAfds>(t.server.autoflight);
    afds = recordingAfds.get();
    t.server.autoflight.afds = std::move(recordingAfds);
    VORLENT_REQUIRE(!t.exitStatus());
  }

  void deliver(int slot, const Endpoint& sender, const std::string& datagram) {
    const std::string text = datagram.substr(0, MaxRead);
    const bool heard = !owner(slot) || owner(slot)->address == sender.address;
    const auto greeting = owner(slot) ? std::nullopt : greetingOf(text);
    VORLENT_REQUIRE(t.deliver(slot, datagram, sender));
    if (heard && (owner(slot) || greeting)) owner(slot) = sender;

    VORLENT_REQUIRE(std::exchange(commands->calls, {}) ==
                    (heard ? callsOf(text) : std::vector<Call>{}));
    if (heard) VORLENT_REQUIRE(t.store.ReceivedText == text);
    VORLENT_REQUIRE(afds->plans.size() <= (greeting ? 1U : 0U));
    const auto sent = t.network.takeSent();
    VORLENT_REQUIRE(sent.size() == (greeting ? 1U : 0U));
    if (greeting) greeted(slot, *greeting, sent.front());
    agree();
  }

  void passTime() {
    t.loop.advance(Pause_ms);
    for (const auto& sent : t.network.takeSent()) {
      const int slot = sent.fromPort - 5000;
      VORLENT_REQUIRE(slot >= 0 && slot < 2 && owner(slot));
      VORLENT_REQUIRE(sent.to.address == owner(slot)->address && sent.to.port == owner(slot)->port);
      const bool isRecord = sent.text.starts_with("Data ") && sent.text.ends_with(" end ");
      VORLENT_REQUIRE(isRecord || sent.text == "Xterm");
    }
    for (const int slot : {0, 1}) {
      if (!owner(slot) || session(slot).Started()) continue;
      VORLENT_REQUIRE(ending(slot));
      owner(slot).reset();
      ending(slot) = false;
    }
    agree();
  }

  void stopClients() {
    t.form.cmdStopCts.press();
    for (const int slot : {0, 1}) ending(slot) = owner(slot).has_value();
    agree();
  }

  void stopOrStart() {
    t.form.cmdStop.press();
    agree();
  }

 private:
  std::optional<Endpoint>& owner(int slot) { return owners_[static_cast<std::size_t>(slot)]; }
  bool& ending(int slot) { return ending_[static_cast<std::size_t>(slot)]; }
  vorlent::frmConnect& session(int slot) {
    return *t.server.connect[static_cast<std::size_t>(slot)];
  }

  void greeted(int slot, const Greeting& greeting, const vorlent::FakeNetwork::Sent& reply) {
    VORLENT_REQUIRE(reply.text == "81\\737-700\\2\\2047\\.");
    VORLENT_REQUIRE(reply.fromPort == 5000 + slot);
    VORLENT_REQUIRE(reply.to.address == owner(slot)->address && reply.to.port == owner(slot)->port);
    VORLENT_REQUIRE(session(slot).TimerConn().Interval() == greeting.interval_ms);
    VORLENT_REQUIRE(session(slot).FmcName() == greeting.name);
    VORLENT_REQUIRE(t.form.FmcName() == greeting.name);
  }

  /// What holds at every moment.
  void agree() {
    for (const int slot : {0, 1}) {
      VORLENT_REQUIRE(session(slot).Started() == owner(slot).has_value());
      VORLENT_REQUIRE(session(slot).IsUp() == (owner(slot).has_value() && !ending(slot)));
      if (!owner(slot)) VORLENT_REQUIRE(!session(slot).TimerConn().Enabled());
    }
    VORLENT_REQUIRE(!t.exitStatus());
    const auto plans = std::exchange(afds->plans, {});
    VORLENT_REQUIRE(std::all_of(plans.begin(), plans.end(), isPlanOfAMachine));
    for (const auto& box : t.op.takeBoxes())
      VORLENT_REQUIRE(box.text == "Master conflict: Please resolve\nNo FMS possible");
  }

  TestServer t;
  RecordingCommands* commands = nullptr;
  RecordingAfds* afds = nullptr;
  std::array<std::optional<Endpoint>, 2> owners_;
  std::array<bool, 2> ending_{};
};

Endpoint senderOf(int control) {
  static const std::array<Endpoint, 4> senders = {
      Endpoint{"127.0.0.1", 40000}, {"127.0.0.1", 40001}, {"127.0.0.2", 40000}, {"127.0.0.3", 1}};
  return senders[static_cast<std::size_t>((control >> 1) & 3)];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto datagrams = split(std::string(data, data + size), Separator);
  datagrams.resize(std::min(datagrams.size(), MaxDatagrams));
  Sessions sessions;
  for (const std::string& datagram : datagrams) {
    if (datagram.empty()) continue;
    const int control = static_cast<unsigned char>(datagram.front());
    sessions.deliver(control & 1, senderOf(control), datagram.substr(1));
    switch ((control >> 3) & 3) {
      case 1:
        sessions.passTime();
        break;
      case 2:
        sessions.stopClients();
        break;
      case 3:
        sessions.stopOrStart();
        break;
      default:
        break;
    }
  }
  return 0;
}
