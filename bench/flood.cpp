// A client that sends 400 KB of commands a second, each of them a write to the simulator: how
// regularly the server still polls.

#include <array>
#include <atomic>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

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

constexpr std::size_t Polls = 400;
constexpr std::size_t MostPolls = 4096;
constexpr std::int64_t DatagramPause_ns = 5'000'000;
constexpr std::size_t Datagram_bytes = 2000;
constexpr std::string_view Command = "A 13 0 ";

struct Seen {
  std::atomic<bool> listening = false;
  std::atomic<std::size_t> polls = 0;
  std::array<std::int64_t, MostPolls> moments_ns{};
};

/// A poll asks for dozens of runs of offsets; anything else asks for one or writes. A read's record
/// is its kind, 1, its offset, its size, the reader's place, and room for the size.
bool isPoll(std::span<const std::byte> block) {
  constexpr std::size_t Head_bytes = 16;
  constexpr int MostOfOthers = 4;
  std::size_t at = 0;
  for (int reads = 0; at + Head_bytes <= block.size(); ++reads) {
    std::array<std::uint32_t, 3> record{};
    std::memcpy(record.data(), block.data() + at, sizeof record);
    if (record[0] != 1) return false;
    if (reads == MostOfOthers) return true;
    at += Head_bytes + record[2];
  }
  return false;
}

void simulate(Seen& seen) {
  OffsetMemory memory;
  TwinJet flight(memory, {});
  SimulatorHost host(memory, flight, {}, [](const std::string&) {});
  const auto listener =
      listenForRequests({"UIPCMAIN", "FS98MAIN"}, [&](std::span<std::byte> block) {
        if (isPoll(block)) {
          seen.moments_ns[seen.polls % MostPolls] = now_ns();
          ++seen.polls;
        }
        return host.answer(block);
      });
  seen.listening = true;
  for (;;) listener->serve(1000);
}

void flood(std::uint16_t port) {
  std::string datagram = "p ";
  while (datagram.size() + Command.size() <= Datagram_bytes) datagram += Command;
  const StampedSocket client;
  for (std::int64_t next_ns = now_ns();; next_ns += DatagramPause_ns) {
    sleepUntil_ns(next_ns);
    client.send(port, datagram);
  }
}

/// The pauses between the next polls, in milliseconds.
std::vector<double> pauses_ms(const Seen& seen) {
  const std::size_t first = seen.polls;
  const std::int64_t begin_ns = now_ns();
  while (seen.polls <= first + Polls) {
    if (now_ns() - begin_ns > 120'000'000'000) throw std::runtime_error("the polls have stopped");
    sleepUntil_ns(now_ns() + 50'000'000);
  }
  std::vector<double> pauses;
  for (std::size_t i = first + 1; i <= first + Polls; ++i)
    pauses.push_back(
        static_cast<double>(seen.moments_ns[i % MostPolls] - seen.moments_ns[(i - 1) % MostPolls]) *
        1e-6);
  return pauses;
}

std::string told(const std::vector<double>& pauses) {
  return "p50 " + fixed(quantile(pauses, 0.5), 1) + ", p99 " + fixed(quantile(pauses, 0.99), 1) +
         ", max " + fixed(quantile(pauses, 1), 1) + " ms";
}

}  // namespace

void vorlent::measure() {
  Cockpit cockpit;
  setenv("VORLENT_BUS", (cockpit.folder / "bus").c_str(), 1);
  const SharedMemory<Seen> seen;
  const ForkedLoop simulator([&seen] { simulate(*seen); });
  while (!seen->listening) sleepUntil_ns(now_ns() + 1'000'000);
  cockpit.bringServerUp();
  const StampedSocket display;
  display.greetUntilRecord(cockpit.basePort, "Connection on a b 100 localhost");
  const std::string quiet = told(pauses_ms(*seen));
  const auto port = static_cast<std::uint16_t>(cockpit.basePort + 1);
  const ForkedLoop client([port] { flood(port); });
  printRow("poll to poll while a client sends 400 KB/s of commands that write", quiet + " without",
           told(pauses_ms(*seen)), "p99 ≤ 80 ms");
}
