#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/printable.h"
#include "base/text.h"
#include "plan/Route.h"
#include "plan/routeFaults.h"

// X-Plane's .fms, a line each: "I" or "A" for the system that wrote it, then "3 version" or
// "1100 Version". Then version 3 has two counts, version 1100 lines of a key and a value up to
// NUMENR, the number of points. A point is its kind, its name, in version 1100 how it is reached,
// altitude in feet, latitude and longitude (developer.x-plane.com, "Flightplan files v11").

namespace vorlent {
namespace {

using Words = std::vector<std::string>;

constexpr std::size_t MostWordsOfInterest = 16;
constexpr std::string_view Blanks = " \t\r";

Words wordsOf(std::string_view line) {
  Words words;
  while (words.size() < MostWordsOfInterest) {
    const auto begin = line.find_first_not_of(Blanks);
    if (begin == std::string_view::npos) break;
    line.remove_prefix(begin);
    const auto end = std::min(line.find_first_of(Blanks), line.size());
    words.emplace_back(line.substr(0, end));
    line.remove_prefix(end);
  }
  return words;
}

/// The lines that are not blank, with their numbers.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  std::optional<Words> next() {
    while (!rest_.empty()) {
      const auto end = rest_.find('\n');
      Words words = wordsOf(rest_.substr(0, end));
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
      ++number_;
      if (!words.empty()) return words;
    }
    return std::nullopt;
  }
  std::string where() const { return "line " + std::to_string(number_); }

 private:
  std::string_view rest_;
  int number_ = 0;
};

[[noreturn]] void refuseHeader(const Lines& lines) {
  refuseRoute(lines.where(),
              "this is no X-Plane plan: \"I\" or \"A\" stands there, then \"3 version\" or "
              "\"1100 Version\"");
}

/// 3 or 1100.
int readHeader(Lines& lines) {
  const auto system = lines.next();
  if (!system || (system->front() != "I" && system->front() != "A")) refuseHeader(lines);
  const auto version = lines.next();
  if (!version || version->size() < 2 || !equalIgnoringCase((*version)[1], "version"))
    refuseHeader(lines);
  if (version->front() == "3") return 3;
  if (version->front() == "1100") return 1100;
  refuseRoute(lines.where(),
              "version \"" + printable(version->front()) + "\" is not known, only 3 and 1100");
}

/// Kinds of points: an airport's altitude is its elevation, 0 is a place that is not used.
constexpr std::string_view Airport = "1";
constexpr std::string_view Unused = "0";

void addLine(Route& route, const Words& words, std::size_t altitudeColumn, const Lines& lines) {
  const std::string where = lines.where();
  if (words.front() == Unused) return;
  if (words.size() < altitudeColumn + 3)
    refuseRoute(where, "a waypoint has " + std::to_string(altitudeColumn + 3) + " columns, not " +
                           std::to_string(words.size()));
  const GeoPoint place = placeOf(words[altitudeColumn + 1], words[altitudeColumn + 2], where);
  const double altitude_ft = altitudeOf(words[altitudeColumn], where);
  if (words.front() != Airport && altitude_ft > 0)
    route.cruise_ft = std::max(route.cruise_ft.value_or(0), altitude_ft);
  addPoint(route, {words[1], place, altitude_ft}, where);
}

Route readVersion3(Lines lines) {
  constexpr std::size_t AltitudeColumn = 2;
  Route route;
  if (!lines.next() || !lines.next()) refuseRoute(lines.where(), "the file ends in its head");
  while (const auto words = lines.next()) addLine(route, *words, AltitudeColumn, lines);
  return route;
}

double readPointCount(Lines& lines) {
  while (const auto words = lines.next()) {
    if (words->front() != "NUMENR") continue;
    const auto count = words->size() > 1 ? numeric((*words)[1]) : std::nullopt;
    if (!count || *count < 0) refuseRoute(lines.where(), "NUMENR has no number behind it");
    return *count;
  }
  refuseRoute(lines.where(), "the file ends before NUMENR, the number of waypoints");
}

Route readVersion1100(Lines lines) {
  constexpr std::size_t AltitudeColumn = 3;
  Route route;
  const double told = readPointCount(lines);
  double found = 0;
  for (; const auto words = lines.next(); ++found) addLine(route, *words, AltitudeColumn, lines);
  if (found < told)
    refuseRoute(lines.where(), "the file ends behind " + doubleText(found) +
                                   " waypoints, NUMENR tells " + doubleText(told));
  return route;
}

}  // namespace

Route readXPlaneRoute(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  Lines lines(text);
  return checkedRoute(readHeader(lines) == 3 ? readVersion3(lines) : readVersion1100(lines));
}

}  // namespace vorlent
