#pragma once

#include "simulator/AircraftState.h"
#include "simulator/OffsetMemory.h"
#include "simulator/OffsetScales.h"

namespace vorlent {

/// Writes what an aircraft shows into the offsets, each in the scale and sign of the interface.
/// Raises Overflow for a NaN or a value that its offset cannot hold.
void writeAircraftState(OffsetMemory& memory, const AircraftState& state,
                        const OffsetScales& scales = FsuipcScales);

}  // namespace vorlent
