#include "platform/SystemBus.h"

#include "platform/win32/WindowsSimulatorBus.h"

namespace vorlent {

std::unique_ptr<SimulatorBus> openSimulatorBus() { return std::make_unique<WindowsSimulatorBus>(); }

}  // namespace vorlent
