#include "simulator/dynamics/MassProperties.h"

#include <array>

namespace vorlent {

Vector3 MassProperties::angularMomentum(const Vector3& rates) const {
  return {x_kgm2 * rates.x - xz_kgm2 * rates.z, y_kgm2 * rates.y,
          z_kgm2 * rates.z - xz_kgm2 * rates.x};
}

Vector3 MassProperties::ratesOf(const Vector3& momentum) const {
  const double determinant = x_kgm2 * z_kgm2 - xz_kgm2 * xz_kgm2;
  return {(z_kgm2 * momentum.x + xz_kgm2 * momentum.z) / determinant, momentum.y / y_kgm2,
          (x_kgm2 * momentum.z + xz_kgm2 * momentum.x) / determinant};
}

MassProperties massProperties(const MassData& data, double addedMass_kg, const FuelLoad& fuel) {
  struct Lump {
    double mass_kg;
    Vector3 place;
  };
  const Vector3 leftTank{data.mainTank.x, -data.mainTank.y, data.mainTank.z};
  const std::array<Lump, 3> lumps{{{fuel.centre_kg, data.centreTank},
                                   {fuel.left_kg, leftTank},
                                   {fuel.right_kg, data.mainTank}}};
  const double empty_kg = data.zeroFuelMass_kg + addedMass_kg;
  const double loading = empty_kg / data.zeroFuelMass_kg;
  MassProperties result{empty_kg,
                        {},
                        data.inertiaX_kgm2 * loading,
                        data.inertiaY_kgm2 * loading,
                        data.inertiaZ_kgm2 * loading,
                        data.inertiaXZ_kgm2 * loading};
  for (const auto& [mass_kg, r] : lumps) {
    result.mass_kg += mass_kg;
    result.centre_m += r * mass_kg;
    result.x_kgm2 += mass_kg * (r.y * r.y + r.z * r.z);
    result.y_kgm2 += mass_kg * (r.x * r.x + r.z * r.z);
    result.z_kgm2 += mass_kg * (r.x * r.x + r.y * r.y);
    result.xz_kgm2 += mass_kg * r.x * r.z;
  }
  result.centre_m = result.centre_m * (1 / result.mass_kg);
  return result;
}

}  // namespace vorlent
