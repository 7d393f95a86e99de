#include "simulator/NavStations.h"

#include "simulator/Units.h"

namespace vorlent {
namespace {

constexpr double runwayLength_m = 3000;
constexpr double localiserBeyondEnd_m = 300;

}  // namespace

Place onApproach(const Runway& runway, double beforeThreshold_m) {
  return placeFrom(runway.threshold, runway.course_deg + 180, beforeThreshold_m);
}

std::vector<NavStation> navStationsAround(const Runway& runway) {
  const Place field = runway.threshold;
  return {
      {"IVR", "RUNWAY ILS", 0x1030, onApproach(runway, -runwayLength_m - localiserBeyondEnd_m),
       true},
      {"NWD", "NOORDWAL", 0x1360, placeFrom(field, 330, 8 * metresPerNauticalMile), false},
      {"OSB", "OSTERBERG", 0x1520, placeFrom(field, 20, 45 * metresPerNauticalMile), false},
  };
}

std::vector<Beacon> beaconsAround(const Runway& runway) {
  return {
      {"VR", "RUNWAY LOCATOR", 3810, onApproach(runway, outerMarker_m)},
      {"KLB", "KLEEBORG", 3455, placeFrom(runway.threshold, 350, 30 * metresPerNauticalMile)},
  };
}

}  // namespace vorlent
