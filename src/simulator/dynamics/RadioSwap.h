#pragma once

#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Exchanges active and standby frequencies of the radios whose bits a client has set at 0x3123 (8
/// COM1, 4 COM2, 2 NAV1, 1 NAV2) and takes the bits back.
void swapFrequencies(OffsetMemory& memory);

}  // namespace vorlent
