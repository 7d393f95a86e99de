#pragma once

#include "simulator/FlightScript.h"
#include "simulator/ScriptedFlight.h"
#include "support/places.h"

namespace vorlent {

/// The flight that is shipped: 2055 s from the runway to its approach.
inline FlightScript roundTrip() {
  return readFlightScript(dataFolder() + "/Flights/round-trip.txt");
}

}  // namespace vorlent
