#include "simulator/NavReception.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

constexpr double VorFull_deg = 10;
constexpr double SlopeFull_deg = 0.7;
/// Above the ground of the station; an estimate.
constexpr double GroundAntenna_m = 5;
/// The fin carries the aircraft's some 10 m above its place; an estimate.
constexpr double AirborneAntenna_m = 10;

struct ServiceVolume {
  VorClass volume;
  double ceiling_ft;  ///< above the station
  double range_nm;
};

/// By class, upwards (FAA, Aeronautical Information Manual 1-1-8).
constexpr std::array<ServiceVolume, 6> ServiceVolumes{{{VorClass::Terminal, 12000, 25},
                                                       {VorClass::Low, 18000, 40},
                                                       {VorClass::High, 14500, 40},
                                                       {VorClass::High, 18000, 100},
                                                       {VorClass::High, 45000, 130},
                                                       {VorClass::High, 60000, 100}}};

double serviceRange_m(VorClass volume, double height_m) {
  for (const ServiceVolume& layer : ServiceVolumes)
    if (layer.volume == volume && height_m <= layer.ceiling_ft * MetresPerFoot)
      return layer.range_nm * MetresPerNauticalMile;
  return 0;
}

bool inSight(const View& view) {
  return view.distance_m <=
         radioHorizon_m(GroundAntenna_m) + radioHorizon_m(view.height_m + AirborneAntenna_m);
}

bool within(const View& view, double range_nm) {
  return view.distance_m <= range_nm * MetresPerNauticalMile && inSight(view);
}

double ofFull(double deviation_deg, double full_deg) {
  return std::clamp(deviation_deg / full_deg, -1.0, 1.0);
}

DmeReading dmeReading(const View& view, const AircraftState& aircraft) {
  const double away_deg = aircraft.track_deg - view.bearing_deg;
  const double elevation = view.elevation_deg * RadiansPerDegree;
  const double outward_m_s =
      aircraft.groundSpeed_m_s * std::cos(away_deg * RadiansPerDegree) * std::cos(elevation) +
      aircraft.verticalSpeed_m_s * std::sin(elevation);
  return {view.slant_m, std::fabs(outward_m_s)};
}

bool localiserReaches(const View& view, double offCourse_deg) {
  if (view.elevation_deg > 7) return false;
  const double off_deg = std::fabs(offCourse_deg);
  return off_deg <= 35 && within(view, off_deg <= 10 ? 25 : 17);
}

/// The course line runs through the antenna: who is to its right from in front is so from behind.
void readLocaliser(NavReading& reading, const Ils& ils, const AircraftState& aircraft) {
  const View view = viewFrom(ils.localiser, ils.runway.elevation_m, aircraft);
  const double offFront_deg =
      signedAngle(view.bearing_deg - bearing_deg(ils.localiser, ils.runway.threshold));
  const bool behind = std::fabs(offFront_deg) > 90;
  const double offCourse_deg = behind ? signedAngle(180 - offFront_deg) : offFront_deg;
  reading.distance_m = view.distance_m;
  if ((behind && !ils.hasBackCourse) || !localiserReaches(view, offCourse_deg)) return;
  reading.courseHeard = true;
  reading.isLocaliser = true;
  reading.hasBackCourse = ils.hasBackCourse;
  reading.onBackCourse = behind;
  reading.deviation = ofFull(offCourse_deg, ils.courseHalfWidth_deg);
  reading.toFrom = ToFrom::To;
  reading.radial_deg = compass(view.bearing_deg - ils.runway.magneticVariation_deg);
}

void readGlidePath(NavReading& reading, const Ils& ils, const AircraftState& aircraft) {
  const View view = viewFrom(ils.glidePath, ils.runway.elevation_m, aircraft);
  if (ils.hasDme && within(view, 25)) reading.dme = dmeReading(view, aircraft);
  const double off_deg = signedAngle(view.bearing_deg - ils.runway.course_deg - 180);
  if (std::fabs(off_deg) > 8 || !within(view, 10)) return;
  if (view.elevation_deg < 0.3 * ils.slope_deg || view.elevation_deg > 1.75 * ils.slope_deg) return;
  reading.slopeDeviation = ofFull(view.elevation_deg - ils.slope_deg, SlopeFull_deg);
}

}  // namespace

View viewFrom(Place station, double elevation_m, const AircraftState& aircraft) {
  View view;
  view.distance_m = distanceBetween_m(station, aircraft.place);
  view.bearing_deg = bearing_deg(station, aircraft.place);
  view.height_m = aircraft.altitude_m - elevation_m;
  const double arc = view.distance_m / EarthRadius_m;
  const double across_m = (EarthRadius_m + aircraft.altitude_m) * std::sin(arc);
  // The ground falls away by the radius times 1 - cos(arc), which half angles keep exact.
  const double half = std::sin(arc / 2);
  const double up_m = view.height_m - 2 * (EarthRadius_m + aircraft.altitude_m) * half * half;
  view.slant_m = std::hypot(across_m, up_m);
  view.elevation_deg = std::atan2(up_m, across_m) / RadiansPerDegree;
  return view;
}

double radioHorizon_m(double height_m) {
  constexpr double Bending = 4.0 / 3;
  return std::sqrt(2 * Bending * EarthRadius_m * std::max(height_m, 0.0));
}

std::optional<NavReading> readIls(const Ils& ils, const AircraftState& aircraft) {
  NavReading reading;
  reading.id = ils.id;
  reading.name = ils.name;
  reading.ilsCourse_deg = ils.runway.course_deg;
  reading.slope_deg = ils.slope_deg;
  readLocaliser(reading, ils, aircraft);
  readGlidePath(reading, ils, aircraft);
  if (!reading.courseHeard && !reading.dme && !reading.slopeDeviation) return std::nullopt;
  return reading;
}

std::optional<NavReading> readVor(const Vor& vor, double course_deg,
                                  const AircraftState& aircraft) {
  const View view = viewFrom(vor.place, vor.elevation_m, aircraft);
  if (view.distance_m > serviceRange_m(vor.volume, view.height_m) || !inSight(view))
    return std::nullopt;
  NavReading reading;
  reading.id = vor.id;
  reading.name = vor.name;
  reading.distance_m = view.distance_m;
  if (vor.hasDme) reading.dme = dmeReading(view, aircraft);
  if (view.elevation_deg > 40) return reading;
  reading.courseHeard = true;
  reading.radial_deg = compass(view.bearing_deg - vor.variation_deg);
  const double toStation_deg = signedAngle(reading.radial_deg + 180 - course_deg);
  const bool to = std::fabs(toStation_deg) < 90;
  reading.toFrom = to ? ToFrom::To : ToFrom::From;
  reading.deviation = ofFull(to ? toStation_deg : signedAngle(180 - toStation_deg), VorFull_deg);
  return reading;
}

std::optional<double> readNdb_deg(const Ndb& ndb, const AircraftState& aircraft) {
  if (distanceBetween_m(aircraft.place, ndb.place) > ndb.range_m) return std::nullopt;
  return compass(bearing_deg(aircraft.place, ndb.place) - aircraft.heading_deg);
}

bool overMarker(const Ils& ils, Marker marker, const AircraftState& aircraft) {
  constexpr std::array<double, markerCount> HalfLength_m{300, 150, 75};
  // The beam of the FAA's fan is 4200 feet across the course for 2400 along it; how high it reaches
  // is an estimate.
  constexpr double AcrossPerAlong = 4200.0 / 2400;
  constexpr double Top_m = 1000;
  const double beforeThreshold_m = ils.markers_m[marker];
  const double height_m = aircraft.altitude_m - ils.runway.elevation_m;
  if (beforeThreshold_m == 0 || height_m > Top_m) return false;
  const Place place = onApproach(ils.runway, beforeThreshold_m);
  const double distance_m = distanceBetween_m(place, aircraft.place);
  const double off =
      (bearing_deg(place, aircraft.place) - ils.runway.course_deg) * RadiansPerDegree;
  return std::hypot(distance_m * std::cos(off), distance_m * std::sin(off) / AcrossPerAlong) <
         HalfLength_m[marker];
}

}  // namespace vorlent
