#include "platform/SystemBus.h"

#include "platform/linux/UnixSimulatorBus.h"

namespace vorlent {

std::unique_ptr<SimulatorBus> openSimulatorBus() { return std::make_unique<UnixSimulatorBus>(); }

}  // namespace vorlent
