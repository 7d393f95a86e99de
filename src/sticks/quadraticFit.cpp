#include "sticks/quadraticFit.h"

#include <set>

#include "base/numbers.h"
#include "base/roundTo.h"

namespace vorlent {
namespace {

constexpr int StoredDecimals = 8;

/// Sums over the points, named by the powers that they add up: single, but double where a power
/// above the first goes in.
struct Sums {
  double m = 0;
  float Sx = 0;
  float Sy = 0;
  float Sxy = 0;
  double Sx2 = 0;
  double Sx3 = 0;
  double Sx4 = 0;
  double Sy2 = 0;
  double Sx2y = 0;

  void add(double x, double y) {
    m += 1;
    Sx = toSingle(Sx + x);
    Sy = toSingle(Sy + y);
    Sxy = toSingle(Sxy + x * y);
    Sx2 += x * x;
    Sx3 += x * x * x;
    Sx4 += x * x * x * x;
    Sy2 += y * y;
    Sx2y += x * x * y;
  }
};

struct Parabola {
  double a, b, c;
  double at(double x) const { return a * x * x + b * x + c; }
};

/// The normal equations of least squares with the means taken out.
Parabola fitted(const Sums& s) {
  const double Sx = s.Sx;
  const double Sy = s.Sy;
  const double xx = s.Sx2 - Sx * Sx / s.m;
  const double xy = s.Sxy - Sx * Sy / s.m;
  const double xx2 = s.Sx3 - s.Sx2 * Sx / s.m;
  const double x2y = s.Sx2y - s.Sx2 * Sy / s.m;
  const double x2x2 = s.Sx4 - s.Sx2 * s.Sx2 / s.m;
  const double a = quotient(x2y * xx - xy * xx2, xx * x2x2 - xx2 * xx2);
  const double b = quotient(xy - a * xx2, xx);
  return {a, b, (Sy - a * s.Sx2 - b * Sx) / s.m};
}

}  // namespace

float QuadReg(std::span<const std::int32_t> x, std::span<const std::int32_t> y, int lastIndex,
              std::array<float, 3>& coefficients) {
  if (lastIndex < 0) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  const std::size_t count = std::size_t{1} + static_cast<std::size_t>(lastIndex);
  if (count > x.size() || count > y.size()) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  // Rounding errors would hide from the sums that the points fit many parabolas.
  if (std::set(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(count)).size() < 3)
    throw RuntimeError(RuntimeError::DivisionByZero);

  Sums sums;
  for (std::size_t i = 0; i < count; ++i) sums.add(x[i], y[i]);
  const Parabola fit = fitted(sums);
  coefficients = {toSingle(RoundTo(fit.a, StoredDecimals)),
                  toSingle(RoundTo(fit.b, StoredDecimals)),
                  toSingle(RoundTo(fit.c, StoredDecimals))};

  double squaredErrors = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double error = y[i] - fit.at(x[i]);
    squaredErrors += error * error;
  }
  const double variance = sums.Sy2 - double{sums.Sy} * sums.Sy / sums.m;
  return variance > 0 ? toSingle(1 - squaredErrors / variance) : -1;
}

}  // namespace vorlent
