#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "require.h"
#include "support/TestServer.h"

// An input is a reply that the simulator leaves in the shared block: one byte of flags (1: the
// answer is not 1; 2: 0xFF in the whole block first), two bytes that say where in the block the
// rest goes, low byte first, and the rest.

namespace {

using vorlent::clsFSUIPC;
using vorlent::SendResult;
using vorlent::TestServer;

constexpr std::size_t BlockSize = 32768;
constexpr std::uint8_t Untouched = 0x77;

struct Damage {
  std::int32_t reply = 1;
  bool wipes = false;
  std::size_t at = 0;
  std::vector<std::uint8_t> bytes;

  Damage(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return;
    reply = (data[0] & 1) != 0 ? 2 : 1;
    wipes = (data[0] & 2) != 0;
    at = (data[1] + 256U * data[2]) % BlockSize;
    bytes.assign(data + 3, data + 3 + std::min(size - 3, BlockSize - at));
  }

  SendResult leaveIn(std::byte* block) const {
    if (wipes) std::memset(block, 0xFF, BlockSize);
    if (!bytes.empty()) std::memcpy(block + at, bytes.data(), bytes.size());
    return {true, reply, 0};
  }
};

/// One reader between bytes that nobody may touch.
struct Reader {
  explicit Reader(std::size_t count) : size(count), memory(count + 32, Untouched) {}
  std::uint8_t* data() { return memory.data() + 16; }

  std::size_t size;
  std::vector<std::uint8_t> memory;
};

using Readers = std::vector<Reader>;

Readers makeReaders() {
  Readers readers;
  for (const std::size_t size : {1U, 4U, 8U, 37U, 300U}) readers.emplace_back(size);
  return readers;
}

/// What should come of a block: the readers' memory, and whether it was well formed.
class Expectation {
 public:
  explicit Expectation(std::vector<std::uint8_t> block)
      : readers(makeReaders()), block_(std::move(block)) {
    while (wellFormed && !ended_) record();
  }

  Readers readers;
  bool wellFormed = true;

 private:
  bool has(std::size_t count) const { return block_.size() - at_ >= count; }
  std::uint32_t word(std::size_t offset) const {
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;) value = value << 8 | block_[at_ + offset + byte];
    return value;
  }

  void record() {
    wellFormed = has(12);
    if (!wellFormed) return;
    switch (word(0) & 0xFFFF) {
      case 0:
        ended_ = true;
        return;
      case 1:
        body(16, true);
        return;
      case 2:
        body(12, false);
        return;
      default:
        wellFormed = false;
    }
  }

  void body(std::size_t header, bool isRead) {
    const std::size_t size = word(8);
    wellFormed = has(header) && has(header + size) && (!isRead || size == 0 || take(size));
    at_ += header + size;
  }

  bool take(std::size_t size) {
    const std::uint32_t number = word(12);
    if (number == 0) return true;
    if (number > readers.size() || size > readers[number - 1].size) return false;
    std::copy_n(block_.begin() + static_cast<std::ptrdiff_t>(at_ + 16), size,
                readers[number - 1].data());
    return true;
  }

  std::vector<std::uint8_t> block_;
  std::size_t at_ = 0;
  bool ended_ = false;
};

/// Sends one request with all readers, and a write among them.
bool request(clsFSUIPC& link, Readers& readers, int& result) {
  std::uint32_t offset = 0x0300;
  for (Reader& reader : readers) {
    VORLENT_REQUIRE(
        link.QueueRead(offset, static_cast<std::uint32_t>(reader.size), reader.data(), result));
    offset += 0x0400;
  }
  const std::uint16_t written = 0x4711;
  VORLENT_REQUIRE(link.QueueWrite(0x8000, 2, &written, result));
  result = 99;
  return link.Process(result);
}

bool sameMemory(const Readers& a, const Readers& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Reader& x, const Reader& y) { return x.memory == y.memory; });
}

/// Only the readers change, each within its size, exactly as the reply says.
void aReplyReachesItsReadersAlone(TestServer& t, const Damage& damage) {
  std::vector<std::uint8_t> left(BlockSize);
  t.bus.onRequest = [&](SendResult, std::byte* block) {
    const SendResult sent = damage.leaveIn(block);
    std::memcpy(left.data(), block, BlockSize);
    return sent;
  };
  Readers readers = makeReaders();
  int result = 0;
  const bool done = request(*t.server.fsuipc, readers, result);

  if (damage.reply != 1) {
    VORLENT_REQUIRE(!done && result == clsFSUIPC::BadData);
    VORLENT_REQUIRE(sameMemory(readers, makeReaders()));
    return;
  }
  const Expectation expected(left);
  VORLENT_REQUIRE(done == expected.wellFormed);
  VORLENT_REQUIRE(result == (done ? clsFSUIPC::Okay : 99));
  VORLENT_REQUIRE(sameMemory(readers, expected.readers));
}

void theNextRequestWorks(TestServer& t) {
  t.bus.onRequest = nullptr;
  Readers readers = makeReaders();
  int result = 0;
  VORLENT_REQUIRE(request(*t.server.fsuipc, readers, result));
  for (Reader& reader : readers)
    VORLENT_REQUIRE(std::equal(reader.data(), reader.data() + reader.size,
                               t.bus.offsets.begin() + 0x0300 + 0x0400 * (&reader - &readers[0])));
}

std::size_t blanksIn(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), ' '));
}

/// Tokens of the record that do not belong to an engine's block of 34.
std::size_t fixedTokens(const TestServer& t) {
  const int engines = t.store.EngineCount;
  const std::size_t blocks =
      engines >= 1 && engines <= 4 ? static_cast<std::size_t>(engines) : std::size_t{4};
  return blanksIn(t.store.DataRecord) - 34 * blocks;
}

/// A poll lives through any reply, and the record keeps its shape.
void aPollSurvives(TestServer& t, const Damage& damage, std::size_t usualTokens) {
  t.bus.onRequest = [&](SendResult, std::byte* block) { return damage.leaveIn(block); };
  t.server.failureDomain.run([&] { t.server.main->PollDispatch(); });
  VORLENT_REQUIRE(!t.exitStatus());
  VORLENT_REQUIRE(t.op.takeBoxes().empty());
  VORLENT_REQUIRE(t.store.DataRecord.starts_with("Data "));
  VORLENT_REQUIRE(t.store.DataRecord.ends_with(" end "));
  VORLENT_REQUIRE(fixedTokens(t) == usualTokens);

  t.bus.onRequest = nullptr;
  t.server.failureDomain.run([&] { t.server.main->PollDispatch(); });
  VORLENT_REQUIRE(!t.exitStatus());
}

/// A running server whose offsets all hold something.
struct Running {
  Running() {
    std::uint32_t random = 1;
    for (std::size_t offset = 0x4000; offset < 0x8000; ++offset) {
      random = random * 1664525 + 1013904223;
      t.bus.offsets[offset] = static_cast<std::uint8_t>(random >> 24);
    }
    t.bus.offsets[0x6FFF] = 0;
    t.start();
    VORLENT_REQUIRE(!t.exitStatus());
    usualTokens = fixedTokens(t);
  }

  TestServer t;
  std::size_t usualTokens = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Running running;
  const Damage damage(data, size);
  aReplyReachesItsReadersAlone(running.t, damage);
  theNextRequestWorks(running.t);
  aPollSurvives(running.t, damage, running.usualTokens);
  running.t.bus.writes.clear();
  return 0;
}
