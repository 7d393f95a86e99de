#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Flight.h"

namespace vorlent {

/// Something measured in a flight, beside the most that it is to be.
struct Figure {
  std::string what;
  std::string unit;
  double value;
  double goal;
};

using Figures = std::vector<Figure>;

/// A flight that can be flown again and again with one tuning or another.
struct PlannedFlight {
  std::string name;  ///< lower-case letters, digits and dashes
  std::function<Figures(const std::string& tuning)> fly;
};

/// Every flight of docs/flights.md.
std::vector<PlannedFlight> plannedFlights();

// What plannedFlights() is put together from.
std::vector<PlannedFlight> levelFlights();
std::vector<PlannedFlight> verticalFlights();
std::vector<PlannedFlight> radioFlights();
std::vector<PlannedFlight> engagementFlights();
std::vector<PlannedFlight> legFlights();
std::vector<PlannedFlight> approachFlights();
std::vector<PlannedFlight> gateFlights();

}  // namespace vorlent
