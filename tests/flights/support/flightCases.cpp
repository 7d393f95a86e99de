#include "FlightCase.h"

namespace vorlent {

std::vector<FlightCase> flightCases() {
  std::vector<FlightCase> all;
  for (const auto& part : {levelFlights(), verticalFlights(), radioFlights(), engagementFlights(),
                           legFlights(), approachFlights(), gateFlights()})
    all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace vorlent
