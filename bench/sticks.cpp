// Eight virtual sticks at 20 ms, all of whose levers move all the time, each movement of which goes
// to the simulator: what they cost the server, over a bare loop beside it that reads the same
// sticks at the same pace and does no more than writing and reading each value as text.

#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <charconv>
#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "platform/linux/SocketStickDevice.h"
#include "platform/linux/StickSockets.h"
#include "support/ForkedLoop.h"
#include "support/ProcessCosts.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"
#include "support/sticks.h"

namespace {

using namespace vorlent;

constexpr int Sticks = MostSticks;
constexpr int Period_ms = 20;
constexpr std::int64_t Period_ns = Period_ms * std::int64_t{1'000'000};
constexpr std::int64_t Window_ns = 1'000'000'000;
constexpr int Windows = 15;
constexpr int Axes = 4;
/// For each board in a period, so that all of them are done in less than half of it.
constexpr int AttendReaders_ms = 1;
/// More than any null zone, and different on every tick.
constexpr std::int32_t AxisStep = 400;

/// The levers' code is the ailerons': each movement is a round trip to the simulator.
const std::string StickFile = [] {
  std::string text;
  for (const char* axis : {"X", "Y", "Z", "R"})
    text += std::string(axis) + "-Axis, 13,0,1,0,1,0,33,66,1,1,1,0\r\n";
  for (int button = 1; button <= 4; ++button)
    text += "Button-" + std::to_string(button) + ",999,1,1\r\n";
  for (int button = 5; button <= 15; ++button)
    text += "Button-" + std::to_string(button) + ",999\r\n";
  return text;
}();

std::string stickName(int stick) { return "bench" + std::to_string(stick); }

/// The boards, in a process of their own.
void moveLevers(const std::string& folder) {
  static const volatile std::sig_atomic_t never = 0;
  std::vector<std::unique_ptr<SocketStickDevice>> devices;
  for (int stick = 0; stick < Sticks; ++stick)
    devices.push_back(std::make_unique<SocketStickDevice>(folder, stickName(stick), -1, never));
  ControllerState state;
  for (std::int64_t due_ns = now_ns();; due_ns += Period_ns) {
    const std::int32_t lever = (state.x + AxisStep) % ControllerState::AxisMax;
    state.x = state.y = state.rz = state.slider[0] = lever;
    for (const auto& device : devices) {
      device->show(state);
      device->pause(AttendReaders_ms);
    }
    sleepUntil_ns(due_ns + Period_ns);
  }
}

/// The least that reads the same: no timers, no conditioning, no commands.
class BareReader {
 public:
  explicit BareReader(const std::string& folder) {
    for (int stick = 0; stick < Sticks; ++stick) {
      Descriptor& socket = sockets_[static_cast<std::size_t>(stick)];
      socket = Descriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
      sockaddr_un address{};
      address.sun_family = AF_UNIX;
      const std::string path = folder + "/" + stickSocketName(stickName(stick));
      path.copy(address.sun_path, sizeof address.sun_path - 1);
      if (connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
          0)
        throw std::runtime_error("no stick at " + path);
    }
    loop_ = std::make_unique<ForkedLoop>([this] { readForEver(); });
  }
  pid_t process() const { return loop_->id(); }

 private:
  void readForEver() const {
    for (std::int64_t due_ns = now_ns();; due_ns += Period_ns) {
      for (const Descriptor& socket : sockets_) {
        ControllerState state;
        while (recv(socket.number(), &state, sizeof state, MSG_DONTWAIT) ==
               static_cast<ssize_t>(sizeof state)) {
        }
        for (const std::int32_t value : {state.x, state.y, state.slider[0], state.rz})
          writeAndRead(static_cast<float>(value));
      }
      sleepUntil_ns(due_ns + Period_ns);
    }
  }

  static void writeAndRead(float value) {
    std::array<char, 32> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 7)
            .ptr;
    double number = 0;
    std::from_chars(text.data(), end, number);
    benchmark::DoNotOptimize(number);
  }

  std::array<Descriptor, Sticks> sockets_;
  std::unique_ptr<ForkedLoop> loop_;
};

struct Shares {
  double server;
  double bare;
};

Shares medianShares(const ProcessCosts& server, const ProcessCosts& bare) {
  std::vector<double> ofServer;
  std::vector<double> ofBare;
  for (int window = 0; window < Windows; ++window) {
    const std::int64_t begin_ns = now_ns();
    const double server_s = server.cpu_s();
    const double bare_s = bare.cpu_s();
    sleepUntil_ns(begin_ns + Window_ns);
    const double elapsed_s = static_cast<double>(now_ns() - begin_ns) * 1e-9;
    ofServer.push_back((server.cpu_s() - server_s) / elapsed_s);
    ofBare.push_back((bare.cpu_s() - bare_s) / elapsed_s);
  }
  return {quantile(ofServer, 0.5), quantile(ofBare, 0.5)};
}

std::string lever(Process& server) {
  server.type("get frmCStick(" + std::to_string(Sticks - 1) + ").txtValue(3)");
  return server.waitForLine("= ").value_or("no answer");
}

/// What is measured is worth nothing where the server does not see the boards.
void requireMovement(Process& server) {
  const std::string before = lever(server);
  sleepUntil_ns(now_ns() + 10 * Period_ns);
  if (lever(server) == before) throw std::runtime_error("the levers stand still at " + before);
}

}  // namespace

void vorlent::measure() {
  Cockpit cockpit(1);
  furnishSticks(cockpit, StickFile, Period_ms);
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const std::string bus = cockpit.folder / "bus";
  const ForkedLoop boards([&bus] { moveLevers(bus); });
  sleepUntil_ns(now_ns() + Window_ns);
  const BareReader reader(bus);
  const ProcessCosts server(cockpit.server->id());
  const ProcessCosts bare(reader.process());

  const Shares idle = medianShares(server, bare);
  startSticks(cockpit, Sticks);
  sleepUntil_ns(now_ns() + Window_ns);
  const Shares polling = medianShares(server, bare);

  requireMovement(*cockpit.server);
  const double cost = polling.server - idle.server;
  std::cout << "without sticks the server takes " << fixed(100 * idle.server, 2) << " % of a core; "
            << Axes << " levers of each of " << Sticks << " sticks move\n";
  printRow("8 sticks at 20 ms, all levers moving: CPU of the server",
           fixed(100 * polling.bare, 2) + " % of a core",
           fixed(100 * cost, 2) + " %, " + fixed(cost / polling.bare, 1) + " x", "≤ 2 %");
}
