#pragma once

#include <memory>

#include "platform/SimulatorBus.h"

namespace vorlent {

/// The simulator interface as this system has it.
std::unique_ptr<SimulatorBus> openSimulatorBus();

}  // namespace vorlent
