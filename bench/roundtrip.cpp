// One whole poll batch through the transport, over the least that two processes can do: one packet
// there, one back, and the bytes copied.

#include <benchmark/benchmark.h>
#include <sched.h>
#include <sys/socket.h>

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/SystemServer.h"
#include "console/ConsoleOperator.h"
#include "endtoend/Cockpit.h"
#include "platform/TypingOnly.h"
#include "platform/linux/Descriptor.h"
#include "simlink/Snapshot.h"
#include "simlink/clsFSUIPC.h"
#include "simlink/decodeXPlane.h"
#include "support/ForkedLoop.h"
#include "support/SharedMemory.h"
#include "support/figures.h"

namespace {

using namespace vorlent;

using Reads = std::span<const SnapshotRead>;

std::size_t batchBytes(Reads reads) {
  std::size_t sum = Snapshot::RawApBlockSize;
  for (const SnapshotRead& read : reads) sum += read.size;
  return sum;
}

/// As large as a request may be.
using Block = std::array<std::byte, clsFSUIPC::MaxRequest_bytes>;
using Offsets = std::array<std::byte, 0x10000>;

constexpr std::uint16_t ApBlockOffset = 0x07CC;

/// copy(offset, at, size) for every read of a batch, with its place among the batch's bytes.
template <class Copy>
void forEachRead(Reads reads, Copy&& copy) {
  std::size_t at = 0;
  for (const SnapshotRead& read : reads) {
    copy(read.offset, at, read.size);
    at += read.size;
  }
  copy(ApBlockOffset, at, std::size_t{Snapshot::RawApBlockSize});
}

/// As long as what the transport sends: the message's text and the block's name.
constexpr std::string_view Request = "FSASMLIB:IPC\nFSASMLIB:IPC:1A2B:1";
constexpr std::int32_t Answer = 1;

/// Two processes and a pair of sockets. The other side copies the bytes of every read from their
/// offsets into shared memory before it answers, this side copies them to their offsets.
class PingPong {
 public:
  explicit PingPong(Reads reads) : reads_(reads), other_([this] { answerForEver(); }) {}

  void roundTrip() {
    std::int32_t answer = 0;
    if (send(near(), Request.data(), Request.size(), MSG_NOSIGNAL) < 0 ||
        recv(near(), &answer, sizeof answer, 0) != sizeof answer)
      throw std::runtime_error("the other side has gone");
    forEachRead(reads_, [this](std::size_t offset, std::size_t at, std::size_t size) {
      std::memcpy(&received_[offset], &(*block_)[at], size);
    });
    benchmark::DoNotOptimize(received_);
  }

 private:
  static std::array<int, 2> socketPair() {
    std::array<int, 2> pair{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0)
      throw std::runtime_error("no socket pair");
    return pair;
  }
  int near() const { return pair_[0]; }
  int far() const { return pair_[1]; }

  void answerForEver() {
    Offsets source{};
    std::array<char, 512> packet;
    while (recv(far(), packet.data(), packet.size(), 0) > 0) {
      forEachRead(reads_, [&](std::size_t offset, std::size_t at, std::size_t size) {
        std::memcpy(&(*block_)[at], &source[offset], size);
      });
      if (send(far(), &Answer, sizeof Answer, MSG_NOSIGNAL) < 0) return;
    }
  }

  Reads reads_;
  std::array<int, 2> pair_ = socketPair();
  Descriptor nearEnd_{pair_[0]};
  Descriptor farEnd_{pair_[1]};
  SharedMemory<Block> block_;
  Offsets received_{};
  ForkedLoop other_;
};

/// The transport of a whole server, linked with vorlent-sim.
class Link {
 public:
  Link(Reads reads, const std::vector<std::string>& simulatorOptions) : reads_(reads) {
    cockpit_.startSimulator(simulatorOptions);
    setenv("VORLENT_BUS", (cockpit_.folder / "bus").c_str(), 1);
    if (!fsuipc().InitLink()) throw std::runtime_error("no link");
    fsuipc().Offset_APHeading(ApBlockOffset);
  }

  void roundTrip() {
    int result = 0;
    if (!fsuipc().QueueSnapshot(reads_, snapshot_, result) ||
        !fsuipc().ProcessSnapshot(snapshot_, result))
      throw std::runtime_error("the batch failed: " + fsuipc().resultText(result));
    benchmark::DoNotOptimize(snapshot_);
  }

 private:
  clsFSUIPC& fsuipc() { return *host_.server().fsuipc; }

  Reads reads_;
  Cockpit cockpit_;
  ConsoleOutput output_{[](std::string_view line) { std::cerr << line; }};
  ConsoleOperator operator_{output_};
  TypingOnly chooser_{{}};
  SystemServer host_{cockpit_.folder.path(), operator_, chooser_};
  Snapshot snapshot_;
};

template <class Work>
double timed_us(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin)
      .count();
}

/// Long enough for each kind to run on what its own last round trip left in the caches, short
/// enough for a change of the machine's pace to meet both.
constexpr int RoundTripsInARow = 100;
constexpr int Rows = 600;

void measure(benchmark::State& state, const std::string& what, Reads reads,
             const std::vector<std::string>& simulatorOptions) {
  PingPong bare(reads);
  Link link(reads, simulatorOptions);
  std::vector<double> floor_us;
  std::vector<double> batch_us;
  for (auto _ : state) {
    for (int i = 0; i < RoundTripsInARow; ++i)
      floor_us.push_back(timed_us([&] { bare.roundTrip(); }));
    for (int i = 0; i < RoundTripsInARow; ++i)
      batch_us.push_back(timed_us([&] { link.roundTrip(); }));
  }
  const double floorMedian_us = quantile(floor_us, 0.5);
  const double batchMedian_us = quantile(batch_us, 0.5);
  state.counters["floor_us"] = floorMedian_us;
  state.counters["batch_us"] = batchMedian_us;
  state.counters["ratio"] = batchMedian_us / floorMedian_us;
  printRow(what + ", " + std::to_string(reads.size() + 1) + " reads, " +
               std::to_string(batchBytes(reads)) + " bytes",
           fixed(floorMedian_us, 1) + " µs",
           fixed(batchMedian_us, 1) + " µs, " + fixed(batchMedian_us / floorMedian_us, 2) + " x",
           "≤ 1.25 x");
}

void BatchRoundTrip(benchmark::State& state) {
  measure(state, "one batch round trip", SnapshotReads, {});
}
BENCHMARK(BatchRoundTrip)->Unit(benchmark::kMillisecond)->Iterations(Rows);

void XPlaneRoundTrip(benchmark::State& state) {
  measure(state, "one batch round trip of X-Plane's poll", xplaneReads(), {"--xplane"});
}
BENCHMARK(XPlaneRoundTrip)->Unit(benchmark::kMillisecond)->Iterations(Rows);

/// All processes on one processor: otherwise the system's choice of processors decides what a round
/// trip costs, and it need not choose the same for both.
void stayOnOneProcessor() {
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(static_cast<std::size_t>(sched_getcpu()), &one);
  sched_setaffinity(0, sizeof one, &one);
}

}  // namespace

int main(int argc, char** argv) {
  stayOnOneProcessor();
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
