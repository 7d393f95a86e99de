#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/RoundEarth.h"

namespace vorlent {

/// What is wrong with a table of stations.
struct StationTableError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

[[noreturn]] void failStations(const std::string& what);

/// The columns of a row, separated by blanks and taken from left to right. A column that is missing
/// or wrong raises StationTableError, which tells the column and what may stand there.
class StationRow {
 public:
  explicit StationRow(std::string_view line);

  bool isEmpty() const { return words_.empty(); }
  /// Raises when a column is left.
  void endHere() const;

  std::string word(const std::string& column);
  double number(const std::string& column, double lowest, double highest, const std::string& unit);
  /// The number of `step`s that make the value.
  int steps(const std::string& column, double lowest, double highest, double step,
            const std::string& unit);
  /// Nothing where the column holds "-".
  std::optional<double> optionalNumber(const std::string& column, double lowest, double highest,
                                       const std::string& unit);
  bool yes(const std::string& column);
  template <class Value, std::size_t Size>
  Value oneOf(const std::string& column,
              const std::array<std::pair<std::string_view, Value>, Size>& values) {
    const std::string text = word(column);
    std::string known;
    for (const auto& [name, value] : values) {
      if (name == text) return value;
      known += (known.empty() ? "" : ", ") + std::string(name);
    }
    throw StationTableError(column + " is \"" + text + "\"; it is one of " + known);
  }

  std::string ident();
  /// All that is left of the row.
  std::string name();
  Place place();
  double elevation_m();
  double variation_deg();

 private:
  std::vector<std::string> words_;
  std::size_t next_ = 0;
};

}  // namespace vorlent
