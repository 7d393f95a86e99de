#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "require.h"
#include "simulator/NavReceivers.h"
#include "simulator/StationTable.h"

// An input is a table of stations. Either all of it is read, or its first faulty line is told; what
// was read is in its ranges, and a receiver beside each station bears it.

namespace {

using namespace vorlent;

bool between(double value, double least, double most) { return value >= least && value <= most; }

void requirePlace(const Place& place) {
  VORLENT_REQUIRE(between(place.latitude_deg, -90, 90));
  VORLENT_REQUIRE(between(place.longitude_deg, -180, 180));
}

void requireNames(const std::string& id, const std::string& name) {
  VORLENT_REQUIRE(between(static_cast<double>(id.size()), 1, 5));
  VORLENT_REQUIRE(between(static_cast<double>(name.size()), 1, 24));
  for (const char c : id) VORLENT_REQUIRE((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'));
}

/// Odd tenths between 108 and 112 MHz are of localisers.
void requireFrequency(int frequency_10kHz, bool ofLocaliser) {
  VORLENT_REQUIRE(between(frequency_10kHz, 10800, 11795) && frequency_10kHz % 5 == 0);
  const bool odd = frequency_10kHz / 10 % 10 % 2 == 1;
  VORLENT_REQUIRE((odd && frequency_10kHz < 11200) == ofLocaliser);
}

void require(const Ils& ils) {
  requireNames(ils.id, ils.name);
  requireFrequency(ils.frequency_10kHz, true);
  for (const Place& place : {ils.runway.threshold, ils.localiser, ils.glidePath})
    requirePlace(place);
  VORLENT_REQUIRE(between(ils.slope_deg, 2, 4.5));
  // 107 m at the threshold, 3 degrees at the most; the antenna stands 400 to 7000 m behind it.
  VORLENT_REQUIRE(between(ils.courseHalfWidth_deg, 0.87, 3));
  VORLENT_REQUIRE(between(ils.runway.course_deg, 0, 360));
  for (const double marker_m : ils.markers_m)
    VORLENT_REQUIRE(marker_m == 0 || between(marker_m, 50, 20000));
}

void require(const Vor& vor) {
  requireNames(vor.id, vor.name);
  requireFrequency(vor.frequency_10kHz, false);
  requirePlace(vor.place);
  VORLENT_REQUIRE(between(vor.elevation_m, -1500 * 0.3048, 15000 * 0.3048));
  VORLENT_REQUIRE(between(vor.variation_deg, -90, 90));
}

void require(const Ndb& ndb) {
  requireNames(ndb.id, ndb.name);
  VORLENT_REQUIRE(between(ndb.frequency_100Hz, 1900, 17500));
  requirePlace(ndb.place);
  VORLENT_REQUIRE(between(ndb.range_m, 15 * 1852, 75 * 1852));
}

/// What kinds of rows the table has, as its first words say.
std::map<std::string, std::size_t> kindsIn(const std::string& table) {
  std::map<std::string, std::size_t> kinds;
  bool inComment = false;
  bool inFirstWord = true;
  std::string word;
  for (const char c : table + '\n') {
    const bool ends = c == '\n' || c == '\r';
    if (c == '#') inComment = true;
    const bool blank = ends || inComment || c == ' ' || c == '\t';
    if (inFirstWord && !blank) word += c;
    if (inFirstWord && blank && !word.empty()) {
      ++kinds[word];
      word.clear();
      inFirstWord = false;
    }
    if (ends) {
      inComment = false;
      inFirstWord = true;
    }
  }
  return kinds;
}

int packed(int twoDigits) { return twoDigits / 10 * 16 + twoDigits % 10; }

class Listener {
 public:
  explicit Listener(const NavStations& stations) : receivers_(*memory_, stations) {}

  void tuneNav(int frequency_10kHz) {
    for (const std::size_t at : {0x0350U, 0x0352U})
      memory_->write(at, static_cast<std::uint16_t>(packed(frequency_10kHz / 100 % 100) * 256 +
                                                    packed(frequency_10kHz % 100)));
  }
  void tuneAdf(int frequency_100Hz) {
    const int kHz = frequency_100Hz / 10;
    memory_->write(0x034C,
                   static_cast<std::uint16_t>(packed(kHz / 100 % 10) * 256 + packed(kHz % 100)));
    memory_->write(0x0356, static_cast<std::uint16_t>(kHz / 1000 * 256 + frequency_100Hz % 10));
  }
  /// Some three kilometres north of it, 600 metres high.
  void listenAt(const Place& place, double elevation_m) {
    AircraftState state;
    const double north = place.latitude_deg < 89.9 ? 0.03 : -0.03;
    state.place = {place.latitude_deg + north, place.longitude_deg};
    state.altitude_m = elevation_m + 600;
    state.groundSpeed_m_s = 100;
    receivers_.show(state);
    for (const std::size_t needle : {0x0C48U, 0x0C49U, 0x0C59U})
      VORLENT_REQUIRE(memory_->read<std::int8_t>(needle) >= -127);
    for (const std::size_t text : {0x0C29U, 0x0C2EU, 0x0C33U, 0x0C38U})
      for (std::size_t i = 0; i < 5; ++i)
        VORLENT_REQUIRE((memory_->read<char>(text + i) == 0) == (i == 4));
  }
  bool hearsNav() const { return memory_->read<char>(0x3000) != 0; }
  bool hearsAdf() const { return memory_->read<char>(0x303E) != 0; }

 private:
  std::unique_ptr<OffsetMemory> memory_ = std::make_unique<OffsetMemory>();
  NavReceivers receivers_;
};

void listenTo(const NavStations& stations) {
  constexpr std::size_t most = 20;
  Listener listener(stations);
  for (const Ils& ils : stations.ils) {
    listener.tuneNav(ils.frequency_10kHz);
    listener.listenAt(ils.localiser, ils.runway.elevation_m);
  }
  for (std::size_t i = 0; i < std::min(most, stations.vor.size()); ++i) {
    listener.tuneNav(stations.vor[i].frequency_10kHz);
    listener.listenAt(stations.vor[i].place, stations.vor[i].elevation_m);
    VORLENT_REQUIRE(listener.hearsNav());
  }
  for (std::size_t i = 0; i < std::min(most, stations.ndb.size()); ++i) {
    listener.tuneAdf(stations.ndb[i].frequency_100Hz);
    listener.listenAt(stations.ndb[i].place, 0);
    VORLENT_REQUIRE(listener.hearsAdf());
  }
}

/// Where the line of this number begins, counted from 1; the end of the table behind the last one.
std::size_t beginOf(const std::string& table, int line) {
  std::size_t at = 0;
  while (--line > 0 && at < table.size()) {
    at = std::min(table.find_first_of("\r\n", at), table.size());
    if (at < table.size()) at += table.compare(at, 2, "\r\n") == 0 ? 2 : 1;
  }
  return at;
}

/// The line of a fault: "line 12: ...".
int lineIn(const std::string& fault) {
  VORLENT_REQUIRE(fault.starts_with("line "));
  const int line = std::stoi(fault.substr(5));
  VORLENT_REQUIRE(line >= 1 && fault.starts_with("line " + std::to_string(line) + ": "));
  return line;
}

std::string faultOf(const std::string& table) {
  try {
    stationsFrom(table);
    return "";
  } catch (const StationTableError& error) {
    return error.what();
  }
}

void check(const std::string& table) {
  const NavStations stations = stationsFrom(table);
  auto kinds = kindsIn(table);
  VORLENT_REQUIRE(stations.ils.size() == kinds["ils"]);
  VORLENT_REQUIRE(stations.vor.size() == kinds["vor"]);
  VORLENT_REQUIRE(stations.ndb.size() == kinds["ndb"]);
  std::size_t rows = 0;
  for (const auto& [kind, count] : kinds) rows += count;
  VORLENT_REQUIRE(rows == kinds["ils"] + kinds["vor"] + kinds["ndb"] + kinds["runway"]);
  for (const Ils& ils : stations.ils) require(ils);
  for (const Vor& vor : stations.vor) require(vor);
  for (const Ndb& ndb : stations.ndb) require(ndb);
  listenTo(stations);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string table(data, data + size);
  const std::string fault = faultOf(table);
  if (fault.empty()) {
    check(table);
    return 0;
  }
  const int line = lineIn(fault);
  // What stands above the line is good, and what stands below it does not matter.
  VORLENT_REQUIRE(beginOf(table, line) < table.size());
  VORLENT_REQUIRE(faultOf(table.substr(0, beginOf(table, line))).empty());
  VORLENT_REQUIRE(faultOf(table.substr(0, beginOf(table, line + 1))) == fault);
  return 0;
}
