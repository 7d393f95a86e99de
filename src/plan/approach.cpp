#include "plan/approach.h"

#include <cmath>

#include "base/units.h"
#include "plan/sphere.h"

namespace vorlent {
namespace {

constexpr double FeetPerNauticalMile = MetresPerNauticalMile / MetresPerFoot;
constexpr double GlidePath_deg = 3;
constexpr double ThresholdCrossing_ft = 50;
constexpr double Height_ft = 2000;
constexpr double Level_ft = 100;
constexpr double LevelFlight_nm = 6;

double glideDistance_nm(double height_ft) {
  return (height_ft - ThresholdCrossing_ft) / std::tan(GlidePath_deg * RadiansPerDegree) /
         FeetPerNauticalMile;
}

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

// Runways are numbered by their magnetic course in tens of degrees; the true one is near enough for
// a name.
int ArrivalRunway::number() const {
  const int tens = static_cast<int>(std::lround(course_deg / 10)) % 36;
  return tens <= 0 ? tens + 36 : tens;
}

Approach approachTo(const ArrivalRunway& runway) {
  const auto onCentreLine = [&runway](double out_nm) {
    return sphere::pointAlong(runway.threshold, runway.course_deg + 180, out_nm);
  };
  const double altitude_ft = approachAltitude_ft(runway.elevation_ft);
  const double glide_nm = glideDistance_nm(altitude_ft - runway.elevation_ft);
  const double end_nm = glide_nm + LevelFlight_nm;
  return {altitude_ft, end_nm, onCentreLine(end_nm), onCentreLine(glide_nm),
          "RX-" + twoDigits(runway.number())};
}

double approachAltitude_ft(double elevation_ft) {
  return std::ceil((elevation_ft + Height_ft) / Level_ft) * Level_ft;
}

}  // namespace vorlent
