#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/IndependentNumbers.h"

/// The plan files, read a second time.
namespace vorlent::independent {

/// The fields of a row that mean something, by their number in the file.
enum Field : std::size_t {
  Name = 1,
  Course = 6,
  Distance = 10,
  Altitude = 18,
  Latitude = 23,
  Longitude = 24,
  VertexLat = 25,
  VertexLon = 26,
};
constexpr std::size_t FieldCount = 26;

/// One row, by the numbers of its fields: a text or a number each.
struct Row {
  std::array<std::string, FieldCount + 1> texts;
  std::array<double, FieldCount + 1> numbers{};

  Row() { texts[Name] = "     "; }
  double operator[](Field field) const { return numbers[field]; }
  std::string_view trimmedName() const { return trim(texts[Name]); }
};

/// What a client has on its share; what is not there is missing.
struct Share {
  std::optional<std::string> aircraft;  ///< named by its plan.cfg
  /// Of the aircraft's tuning file, values by their keys.
  std::map<std::string, double> tuning;
  std::optional<std::string> exec, prof;
  /// The first row of its database, texts by the names of the fields.
  std::optional<std::map<std::string, std::string>> performance;
};

struct Plan {
  std::vector<Row> rows, profile;
  Word MaxWaypointId, ProfileMaxId, TocRow, TodRow;

  /// Both files; a fault in them leaves what was read before it.
  void read(const Share& share);
  const Row& row(int number) const { return at(rows, number); }
  const Row& profileRow(int number) const { return at(profile, number); }
  bool hasRow(int number) const { return number >= 0 && std::size_t(number) < rows.size(); }

 private:
  static const Row& at(const std::vector<Row>& rows, int number);
  void readExec(std::string_view text);
  void readProf(std::string_view text);
};

}  // namespace vorlent::independent
