#include "simulator/StationTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "base/TextLines.h"
#include "base/files.h"
#include "base/text.h"
#include "simulator/Units.h"

namespace vorlent {
namespace {

[[noreturn]] void fail(const std::string& what) { throw StationTableError(what); }

/// The columns of a row, taken from left to right. A fault tells the column.
class Row {
 public:
  explicit Row(std::string_view line) {
    constexpr std::string_view blanks = " \t";
    for (auto from = line.find_first_not_of(blanks); from != std::string_view::npos;) {
      const auto to = std::min(line.find_first_of(blanks, from), line.size());
      words_.emplace_back(line.substr(from, to - from));
      from = line.find_first_not_of(blanks, to);
    }
  }

  bool isEmpty() const { return words_.empty(); }
  void endHere() const {
    if (next_ < words_.size()) fail("\"" + words_[next_] + "\" is one column too many");
  }

  std::string word(const std::string& column) {
    if (next_ >= words_.size()) fail(column + " is missing");
    return words_[next_++];
  }
  double number(const std::string& column, double lowest, double highest, const std::string& unit) {
    const std::string text = word(column);
    const std::optional<double> value = numeric(text);
    if (!value || *value < lowest || *value > highest)
      fail(column + " is \"" + text + "\"; it is a number from " + doubleText(lowest) + " to " +
           doubleText(highest) + " " + unit);
    return *value;
  }
  /// A whole number of `step`s of a frequency.
  int steps(const std::string& column, double lowest, double highest, double step,
            const std::string& unit) {
    const double value = number(column, lowest, highest, unit);
    const double whole = std::round(value / step);
    constexpr double tolerance = 1e-6;
    if (std::fabs(value / step - whole) > tolerance)
      fail(column + " " + doubleText(value) + " " + unit + " is no multiple of " +
           doubleText(step));
    return static_cast<int>(whole);
  }
  /// Nothing where the column holds "-".
  std::optional<double> optionalNumber(const std::string& column, double lowest, double highest,
                                       const std::string& unit) {
    if (next_ < words_.size() && words_[next_] == "-") {
      ++next_;
      return std::nullopt;
    }
    return number(column, lowest, highest, unit);
  }
  bool yes(const std::string& column) {
    const std::string text = word(column);
    if (text != "yes" && text != "no") fail(column + " is \"" + text + "\"; it is yes or no");
    return text == "yes";
  }
  template <class Value, std::size_t Size>
  Value oneOf(const std::string& column,
              const std::array<std::pair<std::string_view, Value>, Size>& values) {
    const std::string text = word(column);
    std::string known;
    for (const auto& [name, value] : values) {
      if (name == text) return value;
      known += (known.empty() ? "" : ", ") + std::string(name);
    }
    fail(column + " is \"" + text + "\"; it is one of " + known);
  }
  std::string ident() {
    std::string text = word("ident");
    const auto fits = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
    if (text.size() > 5 || !std::all_of(text.begin(), text.end(), fits))
      fail("ident is \"" + text + "\"; it has 1 to 5 capital letters and digits");
    return text;
  }
  /// All that is left of the row.
  std::string name() {
    std::string text = word("name");
    while (next_ < words_.size()) text += " " + words_[next_++];
    if (text.size() > 24) fail("name \"" + text + "\" is longer than 24 characters");
    return text;
  }
  Place place() {
    const double latitude_deg = number("latitude", -90, 90, "degrees");
    return {latitude_deg, number("longitude", -180, 180, "degrees")};
  }
  double elevation_m() { return number("elevation", -1500, 15000, "feet") * metresPerFoot; }
  double variation_deg() { return number("variation", -90, 90, "degrees"); }

 private:
  std::vector<std::string> words_;
  std::size_t next_ = 0;
};

constexpr std::array<std::pair<std::string_view, VorClass>, 3> vorClasses{
    {{"T", VorClass::Terminal}, {"L", VorClass::Low}, {"H", VorClass::High}}};
/// Ranges in nautical miles (FAA, Aeronautical Information Manual, table of NDB service volumes).
constexpr std::array<std::pair<std::string_view, double>, 4> ndbClasses{
    {{"LOM", 15}, {"MH", 25}, {"H", 50}, {"HH", 75}}};

/// Between 108 and 112 MHz localisers have the odd tenths (ICAO Annex 10 Volume V).
bool isLocaliserChannel(int frequency_10kHz) {
  return frequency_10kHz < 11200 && frequency_10kHz / 10 % 2 == 1;
}

int navFrequency_10kHz(Row& row, bool ofLocaliser) {
  constexpr int channel_10kHz = 5;
  const int frequency = row.steps("frequency", 108, 117.95, 0.05, "MHz") * channel_10kHz;
  if (isLocaliserChannel(frequency) != ofLocaliser)
    fail("frequency " + doubleText(frequency / 100.0) + " MHz is " +
         (ofLocaliser ? "no channel" : "a channel") + " of an ILS");
  return frequency;
}

/// At the threshold full deflection is 107 m off the centreline (0.155 DDM at 0.00145 DDM a metre),
/// but nowhere more than 3 degrees off it: ICAO Annex 10 Volume I, 3.1.3.7.
double courseHalfWidth_deg(double localiserToThreshold_m) {
  constexpr double fullAtThreshold_m = 0.155 / 0.00145;
  return std::min(3.0, std::atan(fullAtThreshold_m / localiserToThreshold_m) / radiansPerDegree);
}

class Reader {
 public:
  void read(Row& row) {
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
      fail("\"" + kind + "\" is no kind of row; known are runway, ils, vor, ndb");
  }
  NavStations found() && { return std::move(stations_); }

 private:
  struct KnownRunway {
    Runway runway;
    double length_m;
  };

  void readRunway(Row& row) {
    const std::string airport = row.word("airport");
    const std::string key = airport + " " + row.word("runway");
    KnownRunway known{};
    known.runway.threshold = row.place();
    known.runway.course_deg = row.number("course", 0, 360, "degrees");
    known.length_m = row.number("length", 300, 6000, "metres");
    known.runway.elevation_m = row.elevation_m();
    known.runway.magneticVariation_deg = row.variation_deg();
    row.endHere();
    if (!runways_.try_emplace(key, known).second) fail("runway " + key + " is there already");
  }

  void readIls(Row& row) {
    Ils ils;
    ils.id = row.ident();
    ils.frequency_10kHz = navFrequency_10kHz(row, true);
    const KnownRunway& known = runwayOf(row);
    ils.runway = known.runway;
    ils.slope_deg = row.number("slope", 2, 4.5, "degrees");
    const double crossing_m = row.number("crossing", 30, 70, "feet") * metresPerFoot;
    ils.glidePath =
        onApproach(ils.runway, -crossing_m / std::tan(ils.slope_deg * radiansPerDegree));
    const double localiser_m = known.length_m + row.number("beyond", 100, 1000, "metres");
    ils.localiser = onApproach(ils.runway, -localiser_m);
    ils.courseHalfWidth_deg = courseHalfWidth_deg(localiser_m);
    readMarkers(row, ils);
    ils.hasDme = row.yes("dme");
    ils.hasBackCourse = row.yes("back");
    ils.name = row.name();
    stations_.ils.push_back(std::move(ils));
  }

  const KnownRunway& runwayOf(Row& row) const {
    const std::string airport = row.word("airport");
    const std::string key = airport + " " + row.word("runway");
    const auto known = runways_.find(key);
    if (known == runways_.end()) fail("there is no runway " + key + " above this row");
    return known->second;
  }

  static void readMarkers(Row& row, Ils& ils) {
    constexpr std::array<const char*, markerCount> columns{"outer", "middle", "inner"};
    double last_m = 0;
    for (std::size_t i = 0; i < markerCount; ++i) {
      const auto marker_m = row.optionalNumber(columns[i], 50, 20000, "metres");
      if (!marker_m) continue;
      if (last_m > 0 && *marker_m >= last_m)
        fail(std::string(columns[i]) + " is farther out than the marker before it");
      ils.markers_m[i] = last_m = *marker_m;
    }
  }

  void readVor(Row& row) {
    Vor vor;
    vor.id = row.ident();
    vor.frequency_10kHz = navFrequency_10kHz(row, false);
    vor.volume = row.oneOf("class", vorClasses);
    vor.place = row.place();
    vor.elevation_m = row.elevation_m();
    vor.variation_deg = row.variation_deg();
    vor.hasDme = row.yes("dme");
    vor.name = row.name();
    stations_.vor.push_back(std::move(vor));
  }

  void readNdb(Row& row) {
    Ndb ndb;
    ndb.id = row.ident();
    ndb.frequency_100Hz = row.steps("frequency", 190, 1750, 0.1, "kHz");
    ndb.range_m = row.oneOf("class", ndbClasses) * metresPerNauticalMile;
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
    Row row(std::string_view(line).substr(0, line.find('#')));
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
