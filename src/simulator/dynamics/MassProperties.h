#pragma once

#include "simulator/dynamics/PlantData.h"
#include "simulator/dynamics/Vector3.h"

namespace vorlent {

/// What is in the tanks.
struct FuelLoad {
  double centre_kg = 0;
  double left_kg = 0;
  double right_kg = 0;

  double total_kg() const { return centre_kg + left_kg + right_kg; }
};

/// Mass, where it is and how it resists turning. The matrix of inertia is symmetric about the
/// plane of the aircraft but for fuel that lies more on one side, whose cross terms are left out.
struct MassProperties {
  double mass_kg;
  Vector3 centre_m;  ///< from the reference centre of gravity
  double x_kgm2;
  double y_kgm2;
  double z_kgm2;
  double xz_kgm2;

  Vector3 angularMomentum(const Vector3& rates) const;
  /// The rates that belong to an angular momentum.
  Vector3 ratesOf(const Vector3& momentum) const;
};

/// `addedMass_kg` is payload beyond the plant's mass without fuel.
MassProperties massProperties(const MassData& data, double addedMass_kg, const FuelLoad& fuel);

}  // namespace vorlent
