#include "simulator/StationRow.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "base/units.h"

namespace vorlent {
[[noreturn]] void failStations(const std::string& what) { throw StationTableError(what); }

StationRow::StationRow(std::string_view line) {
  constexpr std::string_view Blanks = " \t";
  for (auto from = line.find_first_not_of(Blanks); from != std::string_view::npos;) {
    const auto to = std::min(line.find_first_of(Blanks, from), line.size());
    words_.emplace_back(line.substr(from, to - from));
    from = line.find_first_not_of(Blanks, to);
  }
}

void StationRow::endHere() const {
  if (next_ < words_.size()) failStations("\"" + words_[next_] + "\" is one column too many");
}

std::string StationRow::word(const std::string& column) {
  if (next_ >= words_.size()) failStations(column + " is missing");
  return words_[next_++];
}

double StationRow::number(const std::string& column, double lowest, double highest,
                          const std::string& unit) {
  const std::string text = word(column);
  const std::optional<double> value = numeric(text);
  if (!value || *value < lowest || *value > highest)
    failStations(column + " is \"" + text + "\"; it is a number from " + doubleText(lowest) +
                 " to " + doubleText(highest) + " " + unit);
  return *value;
}

int StationRow::steps(const std::string& column, double lowest, double highest, double step,
                      const std::string& unit) {
  const double value = number(column, lowest, highest, unit);
  const double whole = std::round(value / step);
  constexpr double Tolerance = 1e-6;
  if (std::fabs(value / step - whole) > Tolerance)
    failStations(column + " " + doubleText(value) + " " + unit + " is no multiple of " +
                 doubleText(step));
  return static_cast<int>(whole);
}

std::optional<double> StationRow::optionalNumber(const std::string& column, double lowest,
                                                 double highest, const std::string& unit) {
  if (next_ < words_.size() && words_[next_] == "-") {
    ++next_;
    return std::nullopt;
  }
  return number(column, lowest, highest, unit);
}

bool StationRow::yes(const std::string& column) {
  const std::string text = word(column);
  if (text != "yes" && text != "no") failStations(column + " is \"" + text + "\"; it is yes or no");
  return text == "yes";
}

std::string StationRow::ident() {
  std::string text = word("ident");
  const auto fits = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); };
  if (text.size() > 5 || !std::all_of(text.begin(), text.end(), fits))
    failStations("ident is \"" + text + "\"; it has 1 to 5 capital letters and digits");
  return text;
}

std::string StationRow::name() {
  std::string text = word("name");
  while (next_ < words_.size()) text += " " + words_[next_++];
  if (text.size() > 24) failStations("name \"" + text + "\" is longer than 24 characters");
  return text;
}

Place StationRow::place() {
  const double latitude_deg = number("latitude", -90, 90, "degrees");
  return {latitude_deg, number("longitude", -180, 180, "degrees")};
}

double StationRow::elevation_m() {
  return number("elevation", -1500, 15000, "feet") * MetresPerFoot;
}

double StationRow::variation_deg() { return number("variation", -90, 90, "degrees"); }

}  // namespace vorlent
