#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/NavStations.h"
#include "simulator/StationRow.h"

namespace vorlent {

/// The stations of a table; data/Stations.txt tells its columns, units and ranges. Raises
/// StationTableError with the number of the line: "line 12: ...".
NavStations stationsFrom(std::string_view table);

/// The stations of a file. A file that cannot be read, or has a wrong row, gives none at all and is
/// told in one line.
NavStations loadStations(const std::string& path,
                         const std::function<void(const std::string&)>& tell);

}  // namespace vorlent
