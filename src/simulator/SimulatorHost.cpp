#include "simulator/SimulatorHost.h"

#include <algorithm>
#include <utility>

namespace vorlent {
namespace {

constexpr std::size_t versionOffset = 0x3304;
constexpr std::size_t simulatorOffset = 0x3308;
constexpr std::size_t notReadyOffset = 0x3364;
constexpr std::size_t xPlaneMarkOffset = 0x6FFF;

constexpr std::uint32_t version = 0x49500000;          // 4.950
constexpr std::uint32_t simulatorNumber = 0xFADE0008;  // FSX
constexpr double longestStep_s = 1;

}  // namespace

SimulatorHost::SimulatorHost(OffsetMemory& memory, Aircraft& aircraft, const Options& options,
                             RequestServer::Note note)
    : memory_(memory), aircraft_(aircraft), options_(options), requests_(memory, std::move(note)) {
  memory_.write(versionOffset, version);
  memory_.write(simulatorOffset, simulatorNumber);
  memory_.write<std::uint8_t>(xPlaneMarkOffset, options_.asXPlane ? 1 : 0);
  showReadiness();
}

void SimulatorHost::advance(double elapsed_s) {
  const double counted_s = std::clamp(elapsed_s, 0.0, longestStep_s);
  running_s_ += counted_s;
  showReadiness();
  aircraft_.step(counted_s * options_.speed);
}

void SimulatorHost::showReadiness() {
  memory_.write<std::uint8_t>(notReadyOffset, running_s_ < options_.notReady_s ? 1 : 0);
}

}  // namespace vorlent
