#pragma once

#include <string>
#include <vector>

#include "bridge/Mapping.h"

namespace vorlent {

/// What each simulator has.
Mapping flightGearMapping();
Mapping xPlaneMapping();

/// The same for every simulator: what stays in the bridge, and what none of them gives.
void addCommonRows(Mapping& mapping);

/// The mapping as a table for people.
std::string listing(const Mapping& mapping);

}  // namespace vorlent
