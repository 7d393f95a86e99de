#pragma once

#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace vorlent {

/// An oscillation of second order.
struct Mode {
  double naturalFrequency_rad_s;
  double dampingRatio;

  double period_s() const {
    return 2 * std::numbers::pi /
           (naturalFrequency_rad_s * std::sqrt(std::max(1e-9, 1 - dampingRatio * dampingRatio)));
  }
};

/// The mode that explains samples best: least squares of x[k+2] = a x[k+1] + b x[k] + c, whose
/// characteristic roots are the exponentials of the mode's over the interval.
inline Mode modeOf(const std::vector<double>& x, double interval_s) {
  std::array<std::array<double, 4>, 3> m{};
  for (std::size_t k = 0; k + 2 < x.size(); ++k) {
    const std::array<double, 4> row{x[k + 1], x[k], 1, x[k + 2]};
    for (std::size_t i = 0; i < 3; ++i)
      for (std::size_t j = 0; j < 4; ++j) m[i][j] += row[i] * row[j];
  }
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) {
      if (i == j) continue;
      const double factor = m[j][i] / m[i][i];
      for (std::size_t k = 0; k < 4; ++k) m[j][k] -= factor * m[i][k];
    }
  const double a = m[0][3] / m[0][0];
  const double b = m[1][3] / m[1][1];
  const std::complex<double> root = (a + std::sqrt(std::complex<double>(a * a + 4 * b))) / 2.0;
  const std::complex<double> s = std::log(root) / interval_s;
  return {std::abs(s), -s.real() / std::abs(s)};
}

}  // namespace vorlent
