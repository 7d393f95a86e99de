// From a movement of a virtual stick to the simulator's offset: an axis that turns the aileron and
// buttons that turn the altimeter's pressure, at a stick period of 20 ms.

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "platform/RequestListener.h"
#include "platform/linux/SocketStickDevice.h"
#include "simulator/OffsetMemory.h"
#include "simulator/SimulatorHost.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/ForkedLoop.h"
#include "support/SharedMemory.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"
#include "support/sticks.h"

namespace {

using namespace vorlent;

constexpr int Period_ms = 20;
constexpr std::int64_t Millisecond_ns = 1'000'000;
constexpr std::int64_t Start_ns = 1000 * Millisecond_ns;

/// Axis positions that follow each other more quickly than the stick is polled.
constexpr int Moves = 1500;
constexpr std::int64_t LongestPause_ns = 40 * Millisecond_ns;
/// A press lasts longer than a period, and the server has seen its end before the next one.
constexpr int Presses = 400;
constexpr std::int64_t PressLength_ns = 30 * Millisecond_ns;
constexpr std::int64_t ShortestRest_ns = 50 * Millisecond_ns;
constexpr std::int64_t LongestRest_ns = 70 * Millisecond_ns;

constexpr std::size_t Aileron = 0x0BB6;
constexpr std::size_t Altimeter = 0x0330;
/// One position of the axis is one of the aileron's 32767, so each is told from the other.
constexpr std::int32_t ReadingsPerMove = 2;
constexpr std::int16_t AileronAtRest = 16383;

/// X is the aileron; buttons 1 and 2 turn the pressure down and up; the others do nothing.
const std::string StickFile = [] {
  std::string text;
  for (const char* axis : {"X-Axis, 13", "Y-Axis, 61", "Z-Axis, 61", "R-Axis, 61"})
    text += std::string(axis) + ",0,0,0,1,0,33,66,1,1,1,0\r\n";
  text += "Button-1,13,0,1\r\nButton-2,14,0,1\r\nButton-3,22,1,1\r\nButton-4,22,1,1\r\n";
  for (int button = 5; button <= 15; ++button)
    text += "Button-" + std::to_string(button) + ",60\r\n";
  return text;
}();

/// What arrives in the simulator, as the processes know it together. All moments are of one clock.
struct Arrivals {
  std::atomic<bool> listening = false;
  /// When the aileron first stood at move n or at a later one.
  std::array<std::int64_t, Moves + 1> moved_ns{};
  std::atomic<int> lastMove = 0;
  /// When the pressure changed.
  std::array<std::int64_t, 10 * Presses> turned_ns{};
  std::atomic<int> turns = 0;
};

void noteAileron(Arrivals& arrivals, std::int16_t aileron) {
  const int move = std::min(AileronAtRest - aileron, Moves);
  for (int n = arrivals.lastMove + 1; n <= move; ++n)
    arrivals.moved_ns[static_cast<std::size_t>(n)] = now_ns();
  if (move > arrivals.lastMove) arrivals.lastMove = move;
}

void noteTurn(Arrivals& arrivals) {
  const auto turn = static_cast<std::size_t>(arrivals.turns.load());
  if (turn == arrivals.turned_ns.size()) return;
  arrivals.turned_ns[turn] = now_ns();
  ++arrivals.turns;
}

/// A simulator that stands still and notes what comes.
void simulate(Arrivals& arrivals) {
  OffsetMemory memory;
  TwinJet flight(memory, {});
  SimulatorHost host(memory, flight, {}, [](const std::string&) {});
  memory.write<std::int16_t>(Aileron, AileronAtRest);
  const auto listener =
      listenForRequests({"UIPCMAIN", "FS98MAIN"}, [&](std::span<std::byte> block) {
        const auto pressure = memory.read<std::uint16_t>(Altimeter);
        const std::int32_t answer = host.answer(block);
        noteAileron(arrivals, memory.read<std::int16_t>(Aileron));
        if (memory.read<std::uint16_t>(Altimeter) != pressure) noteTurn(arrivals);
        return answer;
      });
  arrivals.listening = true;
  for (;;) listener->serve(1000);
}

/// Random moments from `begin_ns` on.
std::vector<std::int64_t> moments(std::int64_t begin_ns, int count, std::int64_t shortest_ns,
                                  std::int64_t longest_ns) {
  std::minstd_rand random(std::random_device{}());
  std::uniform_int_distribution<std::int64_t> pause_ns(shortest_ns, longest_ns);
  std::vector<std::int64_t> result;
  for (int i = 0; i < count; ++i) result.push_back(begin_ns += pause_ns(random));
  return result;
}

/// The board: at each moment one more step of its hand.
class Hand {
 public:
  explicit Hand(const std::string& folder) : device_(folder, "bench", -1, never_) {}

  void serveFor(int duration_ms) { device_.pause(duration_ms); }
  /// Returns the moments of the moves, in nanoseconds.
  std::vector<std::int64_t> move() {
    const auto planned_ns = moments(now_ns() + Start_ns, Moves, 0, LongestPause_ns);
    return carryOut(planned_ns, [this](std::size_t) { state_.x += ReadingsPerMove; });
  }
  /// Returns the moments of the presses, of the two buttons in turn.
  std::vector<std::int64_t> press() {
    std::vector<std::int64_t> planned_ns;
    for (const std::int64_t press_ns :
         moments(now_ns() + Start_ns, Presses, PressLength_ns + ShortestRest_ns,
                 PressLength_ns + LongestRest_ns)) {
      planned_ns.push_back(press_ns);
      planned_ns.push_back(press_ns + PressLength_ns);
    }
    const auto done_ns = carryOut(planned_ns, [this](std::size_t step) {
      state_.buttons[step / 2 % 2] = step % 2 == 0 ? ControllerState::Pressed : 0;
    });
    std::vector<std::int64_t> presses_ns;
    for (std::size_t step = 0; step < done_ns.size(); step += 2)
      presses_ns.push_back(done_ns[step]);
    return presses_ns;
  }

 private:
  template <class Change>
  std::vector<std::int64_t> carryOut(const std::vector<std::int64_t>& planned_ns,
                                     const Change& change) {
    std::vector<std::int64_t> done_ns;
    for (std::size_t step = 0; step < planned_ns.size(); ++step) {
      sleepUntil_ns(planned_ns[step]);
      change(step);
      done_ns.push_back(now_ns());
      device_.show(state_);
    }
    return done_ns;
  }

  static const volatile std::sig_atomic_t never_;
  SocketStickDevice device_;
  ControllerState state_;
};

const volatile std::sig_atomic_t Hand::never_ = 0;

void waitFor(const std::string& what, const std::function<bool()>& holds) {
  for (const std::int64_t begin_ns = now_ns(); !holds();) {
    if (now_ns() - begin_ns > 10'000 * Millisecond_ns) throw std::runtime_error("no " + what);
    sleepUntil_ns(now_ns() + Millisecond_ns);
  }
}

std::vector<double> delaysOfMoves_ms(const std::vector<std::int64_t>& moved_ns,
                                     const Arrivals& arrivals) {
  waitFor("last move", [&] { return arrivals.lastMove == Moves; });
  std::vector<double> delays;
  for (std::size_t n = 0; n < moved_ns.size(); ++n)
    delays.push_back(static_cast<double>(arrivals.moved_ns[n + 1] - moved_ns[n]) * 1e-6);
  return delays;
}

/// A press is answered by the first turn behind it; a press that is held turns more than once.
std::vector<double> delaysOfPresses_ms(const std::vector<std::int64_t>& pressed_ns,
                                       const Arrivals& arrivals) {
  waitFor("turn behind the last press", [&] {
    const int turns = arrivals.turns;
    return turns > 0 && arrivals.turned_ns[static_cast<std::size_t>(turns - 1)] > pressed_ns.back();
  });
  const auto begin = arrivals.turned_ns.begin();
  const auto end = begin + arrivals.turns;
  std::vector<double> delays;
  for (const std::int64_t press_ns : pressed_ns)
    delays.push_back(static_cast<double>(*std::upper_bound(begin, end, press_ns) - press_ns) *
                     1e-6);
  return delays;
}

void tell(const std::string& what, const std::vector<double>& delays) {
  printRow(what + " to the simulator's offset, sticks at 20 ms", std::to_string(Period_ms) + " ms",
           "p50 " + fixed(quantile(delays, 0.5), 1) + ", p99 " + fixed(quantile(delays, 0.99), 1) +
               ", max " + fixed(quantile(delays, 1), 1) + " ms",
           "p99 ≤ 25 ms");
}

}  // namespace

void vorlent::measure() {
  Cockpit cockpit(1);
  setenv("VORLENT_BUS", (cockpit.folder / "bus").c_str(), 1);
  furnishSticks(cockpit, StickFile, Period_ms);
  const SharedMemory<Arrivals> arrivals;
  const ForkedLoop simulator([&arrivals] { simulate(*arrivals); });
  waitFor("simulator", [&] { return arrivals->listening.load(); });
  cockpit.bringServerUp();
  Hand hand(cockpit.folder / "bus");
  startSticks(cockpit, 1);
  hand.serveFor(500);
  const auto moved_ns = hand.move();
  const auto movesDelays = delaysOfMoves_ms(moved_ns, *arrivals);
  const auto pressed_ns = hand.press();
  const auto pressesDelays = delaysOfPresses_ms(pressed_ns, *arrivals);
  std::cout << Moves << " moves of an axis, " << Presses << " presses of a button\n";
  tell("axis of a virtual stick", movesDelays);
  tell("button of a virtual stick", pressesDelays);
}
