#pragma once

#include <optional>
#include <string_view>

#include "simulator/AircraftState.h"
#include "simulator/NavStations.h"

/// What receivers in an aircraft make of the stations: pure geometry and range limits.
namespace vorlent {

enum class ToFrom { None, To, From };

/// The straight line from a station to the aircraft, over a round earth.
struct View {
  double distance_m = 0;     ///< over the ground
  double slant_m = 0;        ///< through the air
  double bearing_deg = 0;    ///< at the station, true
  double elevation_deg = 0;  ///< of the aircraft, above the station's horizon
  double height_m = 0;       ///< of the aircraft above the station's elevation
};
View viewFrom(Place station, double elevation_m, const AircraftState& aircraft);

/// How far `height_m` above smooth ground the radio horizon is: rays bend as if the earth's radius
/// were 4/3 of what it is (standard refraction, ITU-R P.310).
double radioHorizon_m(double height_m);

struct DmeReading {
  double distance_m = 0;  ///< slant range
  double speed_m_s = 0;   ///< at which that changes; never negative
};

/// A course and what goes with it. A deviation is in parts of full deflection, -1 to 1.
struct NavReading {
  std::string_view id;
  std::string_view name;
  double distance_m = 0;     ///< to tell near stations from far ones
  bool courseHeard = false;  ///< without it only ident and DME are there
  bool isLocaliser = false;
  bool hasBackCourse = false;
  bool onBackCourse = false;
  double deviation = 0;  ///< positive: the course is to the right of somebody who flies it inbound,
                         ///< or outbound from a VOR; on a back course as on the front course
  ToFrom toFrom = ToFrom::None;
  double radial_deg = 0;  ///< from the station, magnetic there
  std::optional<DmeReading> dme;
  std::optional<double> slopeDeviation;  ///< positive: the glide path is below
  double ilsCourse_deg = 0;              ///< of the front course, true
  double slope_deg = 0;
};

/// Nothing when neither course nor glide path nor DME is in range. The localiser carries 25
/// nautical miles within 10 degrees of its course and 17 within 35, up to 7 degrees high; the glide
/// path 10 within 8 degrees of the centreline, from 0.3 to 1.75 times its slope (ICAO Annex 10
/// Volume I, 3.1.3.3 and 3.1.5.3), the DME 25. All need a line of sight.
std::optional<NavReading> readIls(const Ils& ils, const AircraftState& aircraft);

/// `course_deg` is magnetic. Nothing when the aircraft is out of the service volume or out of
/// sight. Higher than 40 degrees above the station there is no course (ICAO Annex 10 Volume
/// I, 3.3.4.2).
std::optional<NavReading> readVor(const Vor& vor, double course_deg, const AircraftState& aircraft);

/// The station's direction relative to the nose; nothing when it is out of range.
std::optional<double> readNdb_deg(const Ndb& ndb, const AircraftState& aircraft);

/// Whether the aircraft is in the beam of a marker. On the glide path the beams of the outer,
/// middle and inner one are 600, 300 and 150 m long (ICAO Annex 10 Volume I, 3.1.7.3).
bool overMarker(const Ils& ils, Marker marker, const AircraftState& aircraft);

}  // namespace vorlent
