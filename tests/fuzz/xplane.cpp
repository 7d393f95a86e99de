#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

#include "bridge/Bridge.h"
#include "bridge/XPlaneLink.h"
#include "bridge/mappings.h"
#include "bridge/support/FakeSockets.h"
#include "require.h"

// An input is a row of datagrams, each behind a byte of its length, in units of four bytes, and one
// that says where it arrives: with an even one at the bridge's socket, else at the beacons'. What
// is shown are numbers in their ranges, and nothing is sent to a machine that was not named.

namespace {

using namespace vorlent;

constexpr const char* There = "192.0.2.1";

struct Fixture {
  Mapping mapping = xPlaneMapping();
  FakeSockets sockets;
  std::unique_ptr<OffsetMemory> memory = std::make_unique<OffsetMemory>();
  double now_s = 1;
  XPlaneLink link{sockets, There, 49000, mapping, [](const std::string&) {}};
  Bridge bridge{*memory, mapping, link, [this] { return now_s; }, [](const std::string&) {}};

  void turn() {
    now_s += 0.02;
    bridge.advance();
    for (const auto& sent : sockets.takeSent()) VORLENT_REQUIRE(sent.receiver.address == There);
  }
};

void requireSound(const Fixture& bridged) {
  const PropertyValues& values = bridged.link.values();
  for (std::size_t slot = 0; slot < values.size(); ++slot)
    VORLENT_REQUIRE(!std::isinf(values[slot]));
  if (!bridged.link.flows(bridged.now_s)) return;
  VORLENT_REQUIRE(std::fabs(values.named("RPOS/latitude")) <= 90);
  VORLENT_REQUIRE(std::fabs(values.named("RPOS/longitude")) <= 180);
  VORLENT_REQUIRE(std::isfinite(bridged.memory->read<double>(0x30C0)));
  VORLENT_REQUIRE(bridged.link.aircraft().size() <= 4);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fixture bridged;
  std::string input(data, data + size);
  while (input.size() > 2) {
    const std::size_t length =
        std::min<std::size_t>(4U * static_cast<std::uint8_t>(input[0]) + 1, input.size() - 2);
    const std::uint16_t port = input[1] % 2 == 0 ? 0 : 49707;
    bridged.sockets.deliver(port, There, input.substr(2, length));
    input.erase(0, 2 + length);
    bridged.turn();
  }
  bridged.turn();
  requireSound(bridged);
  return 0;
}
