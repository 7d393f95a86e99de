#include "simulator/StationTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "base/RuntimeError.h"
#include "base/TextLines.h"
#include "base/files.h"
#include "base/text.h"
#include "base/units.h"

namespace vorlent {
namespace {

constexpr std::array<std::pair<std::string_view, VorClass>, 3> VorClasses{
    {{"T", VorClass::Terminal}, {"L", VorClass::Low}, {"H", VorClass::High}}};
/// Ranges in nautical miles (FAA, Aeronautical Information Manual, table of NDB service volumes).
constexpr std::array<std::pair<std::string_view, double>, 4> NdbClasses{
    {{"LOM", 15}, {"MH", 25}, {"H", 50}, {"HH", 75}}};

/// Between 108 and 112 MHz localisers have the odd tenths (ICAO Annex 10 Volume V).
bool isLocaliserChannel(int frequency_10kHz) {
  return frequency_10kHz < 11200 && frequency_10kHz / 10 % 2 == 1;
}

int navFrequency_10kHz(StationRow& row, bool ofLocaliser) {
  constexpr int Channel_10kHz = 5;
  const int frequency = row.steps("frequency", 108, 117.95, 0.05, "MHz") * Channel_10kHz;
  if (isLocaliserChannel(frequency) != ofLocaliser)
    failStations("frequency " + doubleText(frequency / 100.0) + " MHz is " +
                 (ofLocaliser ? "no channel" : "a channel") + " of an ILS");
  return frequency;
}

/// At the threshold full deflection is 107 m off the centreline (0.155 DDM at 0.00145 DDM per
/// metre), but nowhere more than 3 degrees off it: ICAO Annex 10 Volume I, 3.1.3.7.
double courseHalfWidth_deg(double localiserToThreshold_m) {
  constexpr double FullAtThreshold_m = 0.155 / 0.00145;
  return std::min(3.0, std::atan(FullAtThreshold_m / localiserToThreshold_m) / RadiansPerDegree);
}

class Reader {
 public:
  void read(StationRow& row) {
    const std::string kind = row.word("kind");
    if (kind == "runway")
      readRunway(row);
    else if (kind == "ils")
      readIls(row);
    else if (kind == "vor")
      readVor(row);
    else if (kind == "ndb")
      readNdb(row);
    else
      failStations("\"" + kind + "\" is no kind of row; known are runway, ils, vor, ndb");
  }
  NavStations found() && { return std::move(stations_); }

 private:
  struct KnownRunway {
    Runway runway;
    double length_m;
  };

  void readRunway(StationRow& row) {
    const std::string airport = row.word("airport");
    const std::string key = airport + " " + row.word("runway");
    KnownRunway known{};
    known.runway.threshold = row.place();
    known.runway.course_deg = row.number("course", 0, 360, "degrees");
    known.length_m = row.number("length", 300, 6000, "metres");
    known.runway.elevation_m = row.elevation_m();
    known.runway.magneticVariation_deg = row.variation_deg();
    row.endHere();
    if (!runways_.try_emplace(key, known).second)
      failStations("runway " + key + " is there already");
  }

  void readIls(StationRow& row) {
    Ils ils;
    ils.id = row.ident();
    ils.frequency_10kHz = navFrequency_10kHz(row, true);
    const KnownRunway& known = runwayOf(row);
    ils.runway = known.runway;
    ils.slope_deg = row.number("slope", 2, 4.5, "degrees");
    const double crossing_m = row.number("crossing", 30, 70, "feet") * MetresPerFoot;
    ils.glidePath =
        onApproach(ils.runway, -crossing_m / std::tan(ils.slope_deg * RadiansPerDegree));
    const double localiser_m = known.length_m + row.number("beyond", 100, 1000, "metres");
    ils.localiser = onApproach(ils.runway, -localiser_m);
    ils.courseHalfWidth_deg = courseHalfWidth_deg(localiser_m);
    readMarkers(row, ils);
    ils.hasDme = row.yes("dme");
    ils.hasBackCourse = row.yes("back");
    ils.name = row.name();
    stations_.ils.push_back(std::move(ils));
  }

  const KnownRunway& runwayOf(StationRow& row) const {
    const std::string airport = row.word("airport");
    const std::string key = airport + " " + row.word("runway");
    const auto known = runways_.find(key);
    if (known == runways_.end()) failStations("there is no runway " + key + " above this row");
    return known->second;
  }

  static void readMarkers(StationRow& row, Ils& ils) {
    constexpr std::array<const char*, markerCount> Columns{"outer", "middle", "inner"};
    double last_m = 0;
    for (std::size_t i = 0; i < markerCount; ++i) {
      const auto marker_m = row.optionalNumber(Columns[i], 50, 20000, "metres");
      if (!marker_m) continue;
      if (last_m > 0 && *marker_m >= last_m)
        failStations(std::string(Columns[i]) + " is farther out than the marker before it");
      ils.markers_m[i] = last_m = *marker_m;
    }
  }

  void readVor(StationRow& row) {
    Vor vor;
    vor.id = row.ident();
    vor.frequency_10kHz = navFrequency_10kHz(row, false);
    vor.volume = row.oneOf("class", VorClasses);
    vor.place = row.place();
    vor.elevation_m = row.elevation_m();
    vor.variation_deg = row.variation_deg();
    vor.hasDme = row.yes("dme");
    vor.name = row.name();
    stations_.vor.push_back(std::move(vor));
  }

  void readNdb(StationRow& row) {
    Ndb ndb;
    ndb.id = row.ident();
    ndb.frequency_100Hz = row.steps("frequency", 190, 1750, 0.1, "kHz");
    ndb.range_m = row.oneOf("class", NdbClasses) * MetresPerNauticalMile;
    ndb.place = row.place();
    ndb.name = row.name();
    stations_.ndb.push_back(std::move(ndb));
  }

  NavStations stations_;
  std::map<std::string, KnownRunway> runways_;
};

}  // namespace

NavStations stationsFrom(std::string_view table) {
  Reader reader;
  TextLines lines(table);
  for (int number = 1; !lines.atEnd(); ++number) {
    const std::string line = lines.next();
    StationRow row(std::string_view(line).substr(0, line.find('#')));
    if (row.isEmpty()) continue;
    try {
      reader.read(row);
    } catch (const StationTableError& error) {
      throw StationTableError("line " + std::to_string(number) + ": " + error.what());
    }
  }
  return std::move(reader).found();
}

NavStations loadStations(const std::string& path,
                         const std::function<void(const std::string&)>& tell) {
  const auto without = [&](const std::string& what) {
    tell(nativePath(path) + ": " + what + "; the flight goes on without radio stations");
    return NavStations{};
  };
  try {
    return stationsFrom(readFile(path));
  } catch (const StationTableError& error) {
    return without(error.what());
  } catch (const RuntimeError& error) {
    return without(error.description());
  }
}

}  // namespace vorlent
