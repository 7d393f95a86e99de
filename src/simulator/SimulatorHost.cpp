#include "simulator/SimulatorHost.h"

#include <algorithm>
#include <utility>

namespace vorlent {
namespace {

constexpr std::size_t VersionOffset = 0x3304;
constexpr std::size_t SimulatorOffset = 0x3308;
constexpr std::size_t NotReadyOffset = 0x3364;
constexpr std::size_t XPlaneMarkOffset = 0x6FFF;

constexpr std::uint32_t Version = 0x49500000;          // 4.950
constexpr std::uint32_t SimulatorNumber = 0xFADE0008;  // FSX
constexpr double LongestStep_s = 1;

}  // namespace

SimulatorHost::SimulatorHost(OffsetMemory& memory, Aircraft& aircraft, const Options& options,
                             RequestServer::Note note)
    : memory_(memory), aircraft_(aircraft), options_(options), requests_(memory, std::move(note)) {
  memory_.write(VersionOffset, Version);
  memory_.write(SimulatorOffset, SimulatorNumber);
  memory_.write<std::uint8_t>(XPlaneMarkOffset, options_.asXPlane ? 1 : 0);
  showReadiness();
}

void SimulatorHost::advance(double elapsed_s) {
  const double counted_s = std::clamp(elapsed_s, 0.0, LongestStep_s);
  running_s_ += counted_s;
  showReadiness();
  aircraft_.step(counted_s * options_.speed);
}

void SimulatorHost::showReadiness() {
  memory_.write<std::uint8_t>(NotReadyOffset, running_s_ < options_.notReady_s ? 1 : 0);
}

}  // namespace vorlent
