#include "simulator/SimulatorHost.h"

#include <algorithm>
#include <utility>

#include "simulator/Identity.h"

namespace vorlent {
namespace {

constexpr double LongestStep_s = 1;

}  // namespace

SimulatorHost::SimulatorHost(OffsetMemory& memory, Aircraft& aircraft, const Options& options,
                             RequestServer::Note note)
    : memory_(memory), aircraft_(aircraft), options_(options), requests_(memory, std::move(note)) {
  writeIdentity(memory_, options_.asXPlane);
  showReadiness();
}

void SimulatorHost::advance(double elapsed_s) {
  const double counted_s = std::clamp(elapsed_s, 0.0, LongestStep_s);
  running_s_ += counted_s;
  showReadiness();
  aircraft_.step(counted_s * options_.speed);
}

void SimulatorHost::showReadiness() { writeReadiness(memory_, running_s_ >= options_.notReady_s); }

}  // namespace vorlent
