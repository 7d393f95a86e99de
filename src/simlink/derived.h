#pragma once

#include "store/modPublic.h"

/// What either poll works out of variables, not of offsets. Each is one statement of the poll.
namespace vorlent {

void deriveMagHeading(modPublic& v);
void deriveFlapPositions(modPublic& v);
/// An auxiliary tank without room is empty, whatever the simulator says.
void emptyMissingAuxTanks(modPublic& v);
void deriveFuelTotal(modPublic& v);
/// Moves by 0.00002 of the difference.
void deriveSlowTotalAirTemp(modPublic& v);

}  // namespace vorlent
