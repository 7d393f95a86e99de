#include "support/IndependentSphere.h"

#include <cmath>

#include "support/IndependentNumbers.h"

namespace vorlent::independent {
namespace {

constexpr double HalfPi = 1.5707963267949;

double arcCosine(double x) {
  if (x >= 1) return 0;
  if (x <= -1) x = -0.999999999;
  return std::atan(-x / std::sqrt(1 - x * x)) + HalfPi;
}

Place inRadians(Place degrees) { return {degrees.lat * RadPerDeg, degrees.lon * RadPerDeg}; }

}  // namespace

double GetDXRadians(Place one, Place two) {
  const Place a = inRadians(one);
  const Place b = inRadians(two);
  return arcCosine(std::sin(b.lat) * std::sin(a.lat) +
                   std::cos(b.lat) * std::cos(a.lon - b.lon) * std::cos(a.lat));
}

double GetCourse(Place to, Place from) {
  if (to.lat == from.lat || to.lon == from.lon) return 0;
  const double c1 = HalfPi - to.lat * RadPerDeg;
  const double c2 = HalfPi - from.lat * RadPerDeg;
  const double D = GetDXRadians(to, from);
  const double x = over(std::cos(c1) - std::cos(D) * std::cos(c2), std::sin(D) * std::sin(c2));
  const double angle = arcCosine(x) * DegPerRad;
  return to.lon > from.lon ? angle : 360 - angle;
}

double GcLatAtLon(double lon, Place vertex) {
  return std::atan(std::tan(vertex.lat * RadPerDeg) * std::cos((vertex.lon - lon) * RadPerDeg)) *
         DegPerRad;
}

}  // namespace vorlent::independent
