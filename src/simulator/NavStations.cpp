#include "simulator/NavStations.h"

namespace vorlent {

Place onApproach(const Runway& runway, double beforeThreshold_m) {
  return placeFrom(runway.threshold, runway.course_deg + 180, beforeThreshold_m);
}

}  // namespace vorlent
