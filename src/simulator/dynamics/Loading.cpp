#include "simulator/dynamics/Loading.h"

#include <cmath>
#include <string>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "base/units.h"

namespace vorlent {
namespace {

/// A ten-thousandth of a pound is an error of rounding.
constexpr double Tolerance_lb = 1e-4;

}  // namespace

double addedMassFor_kg(const PlantData& plant, double grossWeight_lb, double fuel_lb) {
  const double lowest_lb =
      std::ceil(plant.mass.emptyMass_kg / KilogramsPerPound + fuel_lb - Tolerance_lb);
  const double highest_lb =
      std::floor(plant.mass.maximumTakeOffMass_kg / KilogramsPerPound + Tolerance_lb);
  if (grossWeight_lb < lowest_lb || grossWeight_lb > highest_lb)
    throw RuntimeError(RuntimeError::InvalidCall,
                       "the " + std::string(plant.name) + " with " +
                           doubleText(std::round(fuel_lb)) + " lb of fuel weighs from " +
                           doubleText(lowest_lb) + " to " + doubleText(highest_lb) + " lb, not " +
                           doubleText(grossWeight_lb));
  return (grossWeight_lb - fuel_lb) * KilogramsPerPound - plant.mass.zeroFuelMass_kg;
}

}  // namespace vorlent
