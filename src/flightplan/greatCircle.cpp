#include "flightplan/greatCircle.h"

#include <algorithm>
#include <cmath>

#include "base/angles.h"
#include "base/numbers.h"

namespace vorlent {
namespace {

using namespace angles;

constexpr double QuarterTurn = 1.5707963267949;
constexpr double MinutesPerDegree = 60;

double sine(double degrees) { return std::sin(degrees * RadiansPerDegree); }
double cosine(double degrees) { return std::cos(degrees * RadiansPerDegree); }
double colatitude(double latitude_deg) { return QuarterTurn - latitude_deg * RadiansPerDegree; }

}  // namespace

double ArcCos(double x) {
  constexpr double InsteadOfMinus1 = -0.999999999;
  if (x >= 1) return 0;
  if (x <= -1) x = InsteadOfMinus1;
  return std::atan(-x / std::sqrt(1 - x * x)) + QuarterTurn;
}

// The spherical law of cosines, about the pole.
double GetDXRadians(GeoPoint a, GeoPoint b) {
  const double apart =
      std::cos(a.longitude_deg * RadiansPerDegree - b.longitude_deg * RadiansPerDegree);
  return ArcCos(sine(b.latitude_deg) * sine(a.latitude_deg) +
                cosine(b.latitude_deg) * apart * cosine(a.latitude_deg));
}

double GetDX(GeoPoint a, GeoPoint b) {
  return GetDXRadians(a, b) * MinutesPerDegree * DegreesPerRadian;
}

double GetCourse(GeoPoint to, GeoPoint from) {
  if (to.latitude_deg == from.latitude_deg || to.longitude_deg == from.longitude_deg) return 0;
  const double c1 = colatitude(to.latitude_deg);
  const double c2 = colatitude(from.latitude_deg);
  const double d = GetDXRadians(to, from);
  const double cosineOfAngle =
      quotient(std::cos(c1) - std::cos(d) * std::cos(c2), std::sin(d) * std::sin(c2));
  const double angle = ArcCos(cosineOfAngle) * DegreesPerRadian;
  return to.longitude_deg > from.longitude_deg ? angle : 360 - angle;
}

double GcLatAtLon(double longitude_deg, GeoPoint vertex) {
  return std::atan(std::tan(vertex.latitude_deg * RadiansPerDegree) *
                   cosine(vertex.longitude_deg - longitude_deg)) *
         DegreesPerRadian;
}

std::optional<double> crossingLongitude(double before, double beforeLongitude_deg, double now,
                                        double nowLongitude_deg) {
  if (before == now) return std::nullopt;
  const double beforeLongitude = beforeLongitude_deg * RadiansPerDegree;
  const double nowLongitude = nowLongitude_deg * RadiansPerDegree;
  return (nowLongitude * before - beforeLongitude * now) / (before - now) * DegreesPerRadian;
}

bool IsTowardLeg(double legCourse_deg, double heading_deg, int interceptSide) {
  const double off = legCourse_deg - heading_deg;
  if (std::fabs(off) >= 90) return false;
  return interceptSide < 1 ? off > 0 : off < 0;
}

bool IsBetween(double x, double a, double b) { return std::min(a, b) < x && x < std::max(a, b); }

}  // namespace vorlent
