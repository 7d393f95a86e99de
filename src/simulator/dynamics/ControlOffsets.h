#pragma once

#include "simulator/OffsetMemory.h"
#include "simulator/dynamics/FlightControls.h"

namespace vorlent {

/// The controls as the offsets have them. Whatever a client wrote there becomes a control within
/// its travel.
ControlInputs controlsFrom(const OffsetMemory& memory, const ControlData& data);

/// Puts the controls into the offsets, as they stand before a flight.
void writeControls(OffsetMemory& memory, const ControlInputs& controls);

}  // namespace vorlent
