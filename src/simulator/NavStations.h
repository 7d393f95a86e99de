#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "simulator/FlightScript.h"

namespace vorlent {

enum Marker : std::size_t { Outer, Middle, Inner, markerCount };

/// Localiser and glide path of a runway, with markers and, where there is one, a DME beside the
/// glide path antenna. Both antennas stand on the centreline.
struct Ils {
  std::string id;
  std::string name;
  int frequency_10kHz = 0;  ///< 11030 is 110.30 MHz
  Runway runway{};
  Place localiser{};
  Place glidePath{};
  double courseHalfWidth_deg = 0;  ///< from the course to full deflection
  double slope_deg = 0;
  std::array<double, markerCount> markers_m{};  ///< before the threshold; 0 where there is none
  bool hasDme = false;
  bool hasBackCourse = false;
};

/// The service volume of a VOR: terminal, low or high altitude.
enum class VorClass { Terminal, Low, High };

struct Vor {
  std::string id;
  std::string name;
  int frequency_10kHz = 0;
  VorClass volume = VorClass::High;
  Place place{};
  double elevation_m = 0;
  double variation_deg = 0;  ///< of its radial 0, east positive
  bool hasDme = false;
};

struct Ndb {
  std::string id;
  std::string name;
  int frequency_100Hz = 0;  ///< 3455 is 345.5 kHz
  double range_m = 0;
  Place place{};
};

/// Everything that the receivers of an aircraft can hear.
struct NavStations {
  std::vector<Ils> ils;
  std::vector<Vor> vor;
  std::vector<Ndb> ndb;
};

/// On the extended centreline, in front of the threshold; negative is beyond it.
Place onApproach(const Runway& runway, double beforeThreshold_m);

}  // namespace vorlent
