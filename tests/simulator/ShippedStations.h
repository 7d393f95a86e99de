#pragma once

#include "base/files.h"
#include "simulator/StationTable.h"

namespace vorlent {

inline NavStations shippedStations() {
  return stationsFrom(readFile(joinedPath(VORLENT_DATA, "Stations.txt")));
}

}  // namespace vorlent
