#pragma once

#include "simulator/dynamics/PlantData.h"

namespace vorlent {

/// What goes in beyond the plant's mass without fuel, or comes out when negative, for this gross
/// weight with this fuel in the tanks. Raises RuntimeError, with the weights that are possible, for
/// one below that of the empty aircraft with the fuel or above the greatest for take-off.
double addedMassFor_kg(const PlantData& plant, double grossWeight_lb, double fuel_lb);

}  // namespace vorlent
