#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

#include "bridge/Bridge.h"
#include "bridge/FlightGearLink.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/mappings.h"
#include "bridge/support/FakeSockets.h"
#include "require.h"

// An input is what stands in the place of FlightGear sends: its first byte says which way. With an
// even one the rest is a datagram; with an odd one, text of the property server. A datagram is laid
// before the bridge twice, so that a place counts, too. What is shown are numbers in their ranges.

namespace {

using namespace vorlent;

struct Fixture {
  Mapping mapping = flightGearMapping();
  FakeSockets sockets;
  std::unique_ptr<OffsetMemory> memory = std::make_unique<OffsetMemory>();
  double now_s = 1;
  FlightGearLink link{sockets, "127.0.0.1", 5500, mapping, [](const std::string&) {}};
  Bridge bridge{*memory, mapping, link, [this] { return now_s; }, [](const std::string&) {}};

  void turn() {
    now_s += 0.02;
    bridge.advance();
  }
  double valueOf(const std::string& name) const { return link.values().named(name); }
};

void requireSound(const Fixture& bridged) {
  for (const std::string& name : bridged.link.values().names())
    VORLENT_REQUIRE(!std::isinf(bridged.valueOf(name)));
  if (!bridged.link.flows(bridged.now_s)) return;
  VORLENT_REQUIRE(std::fabs(bridged.valueOf("/position/latitude-deg")) <= 90);
  VORLENT_REQUIRE(std::fabs(bridged.valueOf("/position/longitude-deg")) <= 180);
  for (const std::size_t weight : {0x30C0U, 0x2EB0U})
    VORLENT_REQUIRE(std::isfinite(bridged.memory->read<double>(weight)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(data + 1, data + size);
  Fixture bridged;
  bridged.turn();
  if (data[0] % 2 == 1) {
    bridged.sockets.line->toBridge = bytes;
    bridged.turn();
    VORLENT_REQUIRE(bridged.link.aircraft().size() <= 64);
    return 0;
  }
  const std::size_t whole = bridged.link.values().size() * 8 + 4;
  for (int i = 0; i < 2; ++i) {
    bridged.sockets.deliver(5500, "127.0.0.1", bytes);
    bridged.turn();
  }
  VORLENT_REQUIRE(bytes.size() == whole || !bridged.link.flows(bridged.now_s));
  requireSound(bridged);
  return 0;
}
