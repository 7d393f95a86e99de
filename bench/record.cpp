#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "core/PollTick.h"
#include "simlink/decodeXPlane.h"
#include "support/IndependentXPlane.h"
#include "support/XPlaneServer.h"

// One poll without the transport (decode and record), of either kind, against its floor: copying
// the snapshot and printing as many numbers, singles with 7 and doubles with 15 digits, as the
// record has. Texts and the reserved zeros do not count as numbers. The figure is the counter
// "ratio". And one autoflight cycle without the transport against that poll: "cycle_ratio".

namespace {

using vorlent::PolledServer;
using vorlent::Snapshot;
using Reads = std::span<const vorlent::SnapshotRead>;

/// A twin-engined jet at cruise: most values have fractions.
void putCruise(vorlent::FakeSimulatorBus& bus) {
  bus.put(0x0AEC, std::uint8_t{2});
  bus.put(0x023B, std::uint16_t{0x2D0C});
  bus.put(0x02A0, std::uint16_t{65001});
  bus.put(0x02B4, std::uint32_t{15480000});
  bus.put(0x02B8, std::uint32_t{58000});
  bus.put(0x02BC, std::uint32_t{35841});
  bus.put(0x02C4, std::uint16_t{43521});
  bus.put(0x02C8, std::uint16_t{65001});
  bus.put(0x0330, std::uint16_t{16212});
  bus.put(0x0564, std::uint32_t{5012345});
  bus.put(0x056C, std::uint32_t{0xF1234567});
  bus.put(0x0570, std::uint64_t{0x00002AF081234567});
  bus.put(0x0578, std::uint32_t{0xFE123456});
  bus.put(0x057C, std::uint32_t{0x01234567});
  bus.put(0x0580, std::uint32_t{0x41234567});
  bus.put(0x0888, std::uint8_t{3});
  bus.put(0x0AF4, std::uint16_t{1715});
  for (std::uint32_t n = 0; n < 2; ++n) {
    for (std::uint32_t word = 0; word < 0x80; word += 2)
      bus.put(0x088C + 0x98 * n + word, static_cast<std::uint16_t>(9001 + 7 * word + n));
    for (const std::uint32_t at : {0x2028U, 0x2030U, 0x2038U}) bus.put(at + 0x100 * n, 1.4567 + n);
    bus.put(0x08E8 + 0x98 * n, 180.123456);
    bus.put(0x0918 + 0x98 * n, 2501.23456789);
    bus.put(0x2408 + 0x100 * n, 0.987654);
    bus.put(0x3B70 - 0xC0 * n, 1432.1);
    bus.put(0x2880 + 0x10 * n, 28.123);
    bus.put(0x2888 + 0x10 * n, 115.123);
  }
  for (std::uint32_t at = 0x0B74; at < 0x0BAC; at += 8) {
    bus.put(at, std::uint32_t{4198356});
    bus.put(at + 4, std::uint32_t{1200});
  }
  for (const std::uint32_t at :
       {0x034EU, 0x0350U, 0x0352U, 0x3118U, 0x311AU, 0x311CU, 0x311EU, 0x3120U})
    bus.put(at, std::uint16_t{0x2345});
  bus.putText(0x0C20, "12:34:56");
  for (const std::uint32_t at : {0x0C29U, 0x0C33U}) bus.putText(at, "12.3");
  for (const std::uint32_t at : {0x0C2EU, 0x0C38U}) bus.putText(at, "250.");
  for (const std::uint32_t at : {0x3000U, 0x301FU, 0x303EU, 0x02DCU}) bus.putText(at, "ORD");
  for (const std::uint32_t at : {0x0E8CU, 0x11D0U}) bus.put(at, std::uint16_t{52001});
  bus.put(0x0E90, std::uint16_t{45});
  bus.put(0x0E92, std::uint16_t{41234});
  bus.put(0x11C6, std::uint16_t{15974});
  bus.put(0x2EB0, -0.0123456789);
  bus.put(0x2EC0, 0.00123456789);
  bus.put(0x30C0, 145000.6);
  for (std::uint32_t at = 0x2840; at < 0x2880; at += 8) bus.put(at, 28.1234567);
}

/// The record's numbers, sorted by how they are printed; whole numbers count as singles.
struct Numbers {
  std::vector<float> singles;
  std::vector<double> doubles;
};

Numbers numbersOf(const PolledServer& sim, vorlent::IndependentRecord&& reading) {
  sim.takeOver(reading);
  reading.poll(sim.bus.offsets);
  Numbers numbers;
  for (const auto& token : reading.tokens()) {
    if (token.kind == 'T' || token.kind == '0') continue;
    const double value = std::strtod(token.text.c_str(), nullptr);
    if (token.kind == 'D')
      numbers.doubles.push_back(value);
    else
      numbers.singles.push_back(static_cast<float>(value));
  }
  return numbers;
}

/// Every channel at work: a turn, a climb to a held altitude, a speed. Four writes a cycle.
void engageAutoflight(vorlent::Server& server) {
  vorlent::clsXAutoP& ap = *server.autoflight.xAutoP;
  server.autoflight.afds->Init();
  ap.tuning.apPitchSensitivityFix = 300;
  ap.tuning.apVspeedSensitivityFix = 90;
  ap.tuning.apPitchControlfactor = 20;
  server.autoflight.xAutoT->apThrottleControlFactor(0.05F);
  server.autoflight.xAutoT->apAutoThrottle(1);
  server.autoflight.xAutoT->apAirspeedHoldByRpm(1);
  ap.apMcpAirSpeed(280);
  ap.apHeading(90);
  ap.apAltitude(static_cast<float>(server.store.AircraftAltitude + 400));
  ap.ApEngaged(1);
  ap.apHeadingHold(1);
  ap.apAltitudeHold(1);
}

/// What every measurement starts from.
struct Scene {
  Scene(std::unique_ptr<PolledServer> server, Reads fetched, vorlent::IndependentRecord&& reading)
      : owned(std::move(server)), reads(fetched) {
    putCruise(sim.bus);
    int result = 0;
    vorlent::clsFSUIPC& link = *sim.server.fsuipc;
    if (!link.QueueSnapshot(reads, *snapshot, result) || !link.ProcessSnapshot(*snapshot, result))
      std::abort();
    sim.poll();
    numbers = numbersOf(sim, std::move(reading));
    engageAutoflight(sim.server);
    sim.bus.acknowledgesOnly = true;
  }

  std::unique_ptr<PolledServer> owned;
  PolledServer& sim = *owned;
  Reads reads;
  std::unique_ptr<Snapshot> snapshot = std::make_unique<Snapshot>();
  std::unique_ptr<Snapshot> copy = std::make_unique<Snapshot>();
  Numbers numbers;
  std::array<char, 16384> text{};
};

Scene& scene() {
  static Scene one(std::make_unique<PolledServer>(), vorlent::SnapshotReads,
                   vorlent::IndependentRecord());
  return one;
}

Scene& xplaneScene() {
  static Scene one(std::make_unique<vorlent::XPlaneServer>(), vorlent::xplaneReads(),
                   vorlent::IndependentXPlane());
  return one;
}

/// The bytes that a poll fetches, one copy for each read.
void copySnapshot(Scene& s) {
  for (const vorlent::SnapshotRead& read : s.reads)
    std::memcpy(s.copy->at(read.offset), s.snapshot->at(read.offset), read.size);
  std::memcpy(s.copy->RawApBlock(), s.snapshot->RawApBlock(), Snapshot::RawApBlockSize);
  benchmark::DoNotOptimize(s.copy->at(0));
}

void onePoll(Scene& s) {
  copySnapshot(s);
  s.sim.server.pollTick->decodeAndRecord(*s.copy);
  benchmark::DoNotOptimize(s.sim.store.DataRecord.data());
}

void floorOfOnePoll(Scene& s) {
  copySnapshot(s);
  char* to = s.text.data();
  char* const end = to + s.text.size();
  for (const float value : s.numbers.singles)
    to = std::to_chars(to, end, value, std::chars_format::general, 7).ptr;
  for (const double value : s.numbers.doubles)
    to = std::to_chars(to, end, value, std::chars_format::general, 15).ptr;
  benchmark::DoNotOptimize(to);
}

/// Everything but the simulator's answer: the four requests are built and counted as done.
void oneCycle(Scene& s) {
  const int before = s.sim.bus.requests;
  s.sim.server.autoflight.afds->AFDS();
  if (s.sim.bus.requests != before + 4) std::abort();
}

void Poll(benchmark::State& state) {
  for (auto _ : state) onePoll(scene());
}
BENCHMARK(Poll);

void Floor(benchmark::State& state) {
  for (auto _ : state) floorOfOnePoll(scene());
}
BENCHMARK(Floor);

void Cycle(benchmark::State& state) {
  for (auto _ : state) oneCycle(scene());
}
BENCHMARK(Cycle);

template <class Work>
double nanosecondsOf(const Work& work, Scene& at) {
  constexpr int Rounds = 200;
  const auto start = std::chrono::steady_clock::now();
  for (int round = 0; round < Rounds; ++round) work(at);
  const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
  return spent.count() / Rounds;
}

/// In turn, so that a busy machine slows them all; the best of each counts.
void measure(benchmark::State& state, Scene& at) {
  double poll_ns = HUGE_VAL;
  double floor_ns = HUGE_VAL;
  double cycle_ns = HUGE_VAL;
  for (auto _ : state) {
    poll_ns = std::min(poll_ns, nanosecondsOf(onePoll, at));
    floor_ns = std::min(floor_ns, nanosecondsOf(floorOfOnePoll, at));
    cycle_ns = std::min(cycle_ns, nanosecondsOf(oneCycle, at));
  }
  state.counters["poll_ns"] = poll_ns;
  state.counters["floor_ns"] = floor_ns;
  state.counters["ratio"] = poll_ns / floor_ns;
  state.counters["cycle_ns"] = cycle_ns;
  state.counters["cycle_ratio"] = cycle_ns / poll_ns;
  state.counters["numbers"] =
      static_cast<double>(at.numbers.singles.size() + at.numbers.doubles.size());
}

void Ratio(benchmark::State& state) { measure(state, scene()); }
BENCHMARK(Ratio)->Iterations(100);

void RatioXPlane(benchmark::State& state) { measure(state, xplaneScene()); }
BENCHMARK(RatioXPlane)->Iterations(100);

}  // namespace

BENCHMARK_MAIN();
