#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "require.h"
#include "simlink/Snapshot.h"
#include "support/PolledServer.h"

// An input is what the simulator holds at the offsets that a poll reads. Its first byte chooses the
// generation of the simulator, the decimal mark and the number of polls (one or two). The rest
// fills the offsets in the order of the poll's reads, as long as it lasts; the second poll goes on
// in it.

namespace {

using vorlent::FakeSimulatorBus;
using vorlent::IndependentRecord;
using vorlent::PolledServer;
using vorlent::SnapshotRead;
using vorlent::SnapshotReads;

constexpr std::array<std::int16_t, 4> Generations{8, 5, 1, 2};
constexpr std::size_t TokensWithoutEngines = 210;
constexpr std::size_t TokensOfAnEngine = 34;

struct Bytes {
  const std::uint8_t* data;
  std::size_t size;

  void fill(FakeSimulatorBus& bus, std::uint32_t offset, std::size_t count) {
    const std::size_t taken = std::min(count, size);
    std::copy(data, data + taken, bus.offsets.begin() + offset);
    data += taken;
    size -= taken;
  }
};

/// A started server and its second reading, put back to their start for every input.
class Subject {
 public:
  explicit Subject(const std::string& mark) : sim(mark), startStore_(sim.store) {
    startReading_.poll(sim.bus.offsets);
    startReading_.FsVersionCode = sim.store.FsVersionCode;
    sim.takeOver(startReading_);
  }

  void restart(std::int16_t generation) {
    sim.store = startStore_;
    sim.store.FsVersionCode = generation;
    reading = startReading_;
    reading.FsVersionCode = generation;
    std::fill(sim.bus.offsets.begin(), sim.bus.offsets.end(), std::uint8_t{0});
  }

  PolledServer sim;
  IndependentRecord reading;

 private:
  vorlent::modPublic startStore_;
  IndependentRecord startReading_;
};

Subject& subjectWith(char mark) {
  static auto* const point = new Subject(".");
  static auto* const comma = new Subject(",");
  return mark == ',' ? *comma : *point;
}

bool isNumber(std::string_view token, char mark) {
  const auto allowed = [mark](char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == 'E' || c == mark;
  };
  return !token.empty() && token != "-0" && std::all_of(token.begin(), token.end(), allowed);
}

void recordIsWellFormed(const PolledServer& sim, char mark) {
  const std::string& record = sim.store.DataRecord;
  VORLENT_REQUIRE(record.starts_with("Data ") && record.ends_with(" end "));
  const auto tokens = sim.fields();
  const int count = sim.store.EngineCount;
  const std::size_t blocks = count >= 1 && count <= 3 ? static_cast<std::size_t>(count) : 4;
  VORLENT_REQUIRE(tokens.size() == TokensWithoutEngines + TokensOfAnEngine * blocks);
  for (std::size_t at = 0; at < 43 + TokensOfAnEngine * blocks + 17; ++at)
    VORLENT_REQUIRE(isNumber(tokens[at], mark));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t choice = data[0];
  Bytes bytes{data + 1, size - 1};
  const char mark = (choice & 4) != 0 ? ',' : '.';
  Subject& subject = subjectWith(mark);
  subject.restart(Generations[choice & 3]);
  for (int poll = 0; poll < ((choice & 8) != 0 ? 2 : 1); ++poll) {
    for (const SnapshotRead& read : SnapshotReads)
      bytes.fill(subject.sim.bus, read.offset, read.size);
    const std::string difference = subject.sim.firstDifference(subject.reading);
    if (!difference.empty()) std::fprintf(stderr, "%s\n", difference.c_str());
    VORLENT_REQUIRE(difference.empty());
    recordIsWellFormed(subject.sim, mark);
  }
  return 0;
}
