#pragma once

#include "base/files.h"
#include "simulator/StationTable.h"
#include "support/places.h"

namespace vorlent {

inline NavStations shippedStations() {
  return stationsFrom(readFile(joinedPath(dataFolder(), "Stations.txt")));
}

}  // namespace vorlent
