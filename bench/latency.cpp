// From a value's change in the simulator to the first datagram that shows it. The display asks for
// a record every millisecond, so that what is left is the poll's period and what the server adds.

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "display/RecordReader.h"
#include "endtoend/Cockpit.h"
#include "platform/RequestListener.h"
#include "simulator/OffsetMemory.h"
#include "simulator/SimulatorHost.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/ForkedLoop.h"
#include "support/SharedMemory.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"

namespace {

using namespace vorlent;

/// A 32-bit number in the simulator and the token that carries it unchanged. It counts the changes.
constexpr std::size_t CountedOffset = 0x2EC8;
constexpr const char* CountedToken = "Long2EC8";
constexpr int MostChanges = 2000;
constexpr std::int64_t LongestPause_ns = 40'000'000;
constexpr std::string_view Greeting = "Connection on a b 1 localhost";
constexpr std::chrono::milliseconds Silence{1000};

/// What both processes know: the moments of the changes, change n at n - 1.
struct Changes {
  std::atomic<bool> listening = false;
  std::atomic<bool> planned = false;
  std::array<std::int64_t, MostChanges> moments_ns{};

  int before(std::int64_t moment_ns) const {
    const auto end = std::upper_bound(moments_ns.begin(), moments_ns.end(), moment_ns);
    return planned ? static_cast<int>(end - moments_ns.begin()) : 0;
  }
};

/// A simulator that stands still but for the counted number, which goes up at the planned moments
/// to the nanosecond: each request sees the number of its own moment.
void simulate(Changes& changes) {
  OffsetMemory memory;
  TwinJet flight(memory, {});
  SimulatorHost host(memory, flight, {}, [](const std::string&) {});
  const auto listener =
      listenForRequests({"UIPCMAIN", "FS98MAIN"}, [&](std::span<std::byte> block) {
        memory.write<std::int32_t>(CountedOffset, changes.before(now_ns()));
        return host.answer(block);
      });
  changes.listening = true;
  for (;;) listener->serve(1000);
}

/// Random moments that follow each other more quickly than polls do; a change counts as shown by
/// the first record with its number or a later one.
void plan(Changes& changes) {
  std::minstd_rand random(std::random_device{}());
  std::uniform_int_distribution<std::int64_t> pause_ns(0, LongestPause_ns);
  std::int64_t moment_ns = now_ns() + LongestPause_ns;
  for (std::int64_t& planned_ns : changes.moments_ns) planned_ns = moment_ns += pause_ns(random);
  changes.planned = true;
}

/// The delays of all changes, in milliseconds, in their order.
std::vector<double> delays_ms(const StampedSocket& display, const Changes& changes) {
  const RecordReader reader;
  std::vector<double> delays;
  std::string last;
  const auto take = [&](std::string_view text, std::int64_t stamp_ns) {
    if (!text.starts_with("Data ") || text == last) return;
    last = text;
    const auto shown = static_cast<std::size_t>(reader.read(text).number(CountedToken));
    while (delays.size() < shown)
      delays.push_back(static_cast<double>(stamp_ns - changes.moments_ns[delays.size()]) * 1e-6);
  };
  while (delays.size() < MostChanges)
    if (!display.drainWithin(Silence, take)) throw std::runtime_error("the stream has stopped");
  return delays;
}

}  // namespace

void vorlent::measure() {
  Cockpit cockpit;
  setenv("VORLENT_BUS", (cockpit.folder / "bus").c_str(), 1);
  const SharedMemory<Changes> changes;
  const ForkedLoop simulator([&changes] { simulate(*changes); });
  const std::int64_t begin_ns = now_ns();
  while (!changes->listening) {
    if (now_ns() - begin_ns > 10'000'000'000) throw std::runtime_error("no simulator");
    sleepUntil_ns(now_ns() + 1'000'000);
  }
  cockpit.bringServerUp();
  const StampedSocket display;
  display.greetUntilRecord(cockpit.basePort, Greeting);
  plan(*changes);
  const std::vector<double> delays = delays_ms(display, *changes);
  std::cout << delays.size() << " changes\n";
  printRow("simulator value to datagram at the 60 ms poll, display at 1 ms", "60 ms",
           "p50 " + fixed(quantile(delays, 0.5), 1) + ", p99 " + fixed(quantile(delays, 0.99), 1) +
               ", max " + fixed(quantile(delays, 1), 1) + " ms",
           "p99 ≤ 65 ms");
}
