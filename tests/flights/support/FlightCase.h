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
struct FlightCase {
  std::string name;  ///< lower-case letters, digits and dashes
  std::function<Figures(const std::string& tuning)> fly;
  bool seldom = false;  ///< only where VORLENT_ALL_FLIGHTS is set
};

/// Every flight of docs/flights.md.
std::vector<FlightCase> flightCases();

// What flightCases() is put together from.
std::vector<FlightCase> levelFlights();
std::vector<FlightCase> verticalFlights();
std::vector<FlightCase> radioFlights();
std::vector<FlightCase> engagementFlights();
std::vector<FlightCase> legFlights();
std::vector<FlightCase> approachFlights();
std::vector<FlightCase> gateFlights();

}  // namespace vorlent
