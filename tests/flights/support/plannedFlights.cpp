#include "PlannedFlight.h"

namespace vorlent {

std::vector<PlannedFlight> plannedFlights() {
  std::vector<PlannedFlight> all;
  for (const auto& part : {levelFlights(), verticalFlights(), radioFlights(), engagementFlights(),
                           legFlights(), approachFlights(), gateFlights()})
    all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace vorlent
