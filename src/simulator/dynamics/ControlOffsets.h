#pragma once

#include "simulator/OffsetMemory.h"
#include "simulator/dynamics/FlightControls.h"

namespace vorlent {

/// The controls as the offsets have them. Whatever a client wrote there becomes a control within
/// its travel.
ControlInputs controlsFrom(const OffsetMemory& memory, const ControlData& data);

/// Levers, surfaces and trims stop at the ends of their travel: what was written beyond an end is
/// put to that end, where everybody reads it.
void stopAtEnds(OffsetMemory& memory);

/// Puts the controls into the offsets, as they stand before a flight.
void writeControls(OffsetMemory& memory, const ControlInputs& controls);

}  // namespace vorlent
