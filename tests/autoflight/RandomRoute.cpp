#include "autoflight/RandomRoute.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "flightplan/sphere.h"

namespace vorlent {
namespace {

struct Start {
  double latitude;
  double longitude;
};

// Each quarter of the globe, the poles, where the equator and the zero meridian cross, and the
// 180th meridian.
constexpr Start Starts[] = {{50, 8},     {50, 8},       {41, -95},    {-33, 151},
                            {-23, -46},  {89.9, 30},    {-89.9, -70}, {0.05, 0.05},
                            {52, 179.9}, {-17, -179.9}, {64, -0.05},  {-0.1, -78}};

/// Where a flight of so many miles on a course leads; due east and west along the parallel.
FlightPlanRecord onwards(const FlightPlanRecord& from, double course_deg, double miles) {
  const double angle_deg = miles / 60;
  if (std::fmod(course_deg, 180) == 90) {
    const double shift = angle_deg * (course_deg == 90 ? 1 : -1);
    return sphere::waypoint("", from.Latitude, from.Longitude + shift);
  }
  const double lat = from.Latitude * sphere::degree;
  const double d = angle_deg * sphere::degree;
  const double course = course_deg * sphere::degree;
  const double north = std::sin(lat) * std::cos(d) + std::cos(lat) * std::sin(d) * std::cos(course);
  const double east = std::atan2(std::sin(course) * std::sin(d) * std::cos(lat),
                                 std::cos(d) - std::sin(lat) * north);
  return sphere::waypoint("", std::asin(north) / sphere::degree,
                          from.Longitude + (course_deg == 0 ? 0 : east / sphere::degree));
}

void wrap(float& longitude) {
  if (longitude > 180) longitude -= 360;
  if (longitude < -180) longitude += 360;
}

/// A leg of no length has no great circle.
void connect(FlightPlanRecord& from, FlightPlanRecord& to) {
  sphere::connect(from, to);
  for (float* angle : {&from.VertexLat, &from.VertexLon, &to.Course})
    if (!std::isfinite(*angle)) *angle = 0;
}

std::string nameOf(std::size_t row, std::size_t rows, Dice& dice) {
  static constexpr std::array<const char*, 9> Odd = {"RX-", " RX-1", " E/D",     "T/D",  "WP1",
                                                     "",    "A,B",   "LONGNAME", "T/C  "};
  if (dice.chance(0.05)) return dice.oneOf(Odd);
  if (row + 1 == rows && dice.chance(0.6)) return "RX-08";
  if (row + 2 >= rows && dice.chance(0.6)) return "E/D";
  return "WP" + std::to_string(row);
}

void fill(FlightPlanRecord& row, Dice& dice) {
  row.Altitude = dice.whole(0, 410) * 100;
  row.Distance = dice.chance(0.3) ? 0 : static_cast<float>(dice.whole(0, 60));
  row.Value4 = static_cast<float>(dice.uniform(-1e6, 1e6));
  row.Value20 = static_cast<std::int16_t>(dice.whole(-32768, 32767));
  row.Value22 = dice.whole(-1000000, 1000000);
  row.Text2 = dice.chance(0.5) ? "a, b" : "";
  if (dice.chance(0.01)) row.Altitude = dice.chance(0.5) ? 2147483647 : -2147483647 - 1;
  if (dice.chance(0.02)) row.VertexLat = static_cast<float>(dice.uniform(-400, 400));
  if (dice.chance(0.02)) row.Course = static_cast<float>(dice.uniform(-400, 400));
  if (dice.chance(0.01)) row.Course = 3e38F;
}

FlightPlanRecord profilePoint(const char* name, const FlightPlanRecord& before, Dice& dice) {
  FlightPlanRecord point = before;
  point.Name = name;
  point.Kind = "PRF";
  point.Altitude = dice.whole(100, 400) * 100;
  return point;
}

void put(Route& profile, const char* name, Dice& dice) {
  const auto at = static_cast<std::size_t>(dice.whole(0, static_cast<int>(profile.size()) - 1));
  const FlightPlanRecord point = profilePoint(name, profile[at], dice);
  profile.insert(profile.begin() + static_cast<std::ptrdiff_t>(at) + 1, point);
}

std::string real(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.9g", value);
  return text.data();
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::vector<std::string> fieldsOf(const FlightPlanRecord& row) {
  return {quoted(row.Name),    quoted(row.Text2),
          quoted(row.Text3),   real(row.Value4),
          real(row.Value5),    real(row.Course),
          real(row.Value7),    real(row.Value8),
          real(row.Value9),    real(row.Distance),
          real(row.Value11),   real(row.Value12),
          real(row.Value13),   real(row.Value14),
          real(row.Value15),   real(row.Value16),
          real(row.Value17),   std::to_string(row.Altitude),
          real(row.Value19),   std::to_string(row.Value20),
          quoted(row.Kind),    std::to_string(row.Value22),
          real(row.Latitude),  real(row.Longitude),
          real(row.VertexLat), real(row.VertexLon)};
}

std::vector<std::string> fieldsOf(const Route& route) {
  std::vector<std::string> fields{std::to_string(route.size() - 1)};
  for (const FlightPlanRecord& row : route)
    for (const std::string& field : fieldsOf(row)) fields.push_back(field);
  return fields;
}

constexpr std::size_t FieldsOfRow = 26;

/// A line a row, or a line a field, or all in one line.
std::string joined(const std::vector<std::string>& fields, Dice& dice) {
  static constexpr std::array<const char*, 5> LineEnds = {"\r\n", "\r\n", "\n", "\r", ","};
  const std::string lineEnd = dice.oneOf(LineEnds);
  const bool fieldALine = dice.chance(0.1);
  std::string text;
  for (std::size_t at = 0; at < fields.size(); ++at) {
    text += fields[at];
    const bool last = at + 1 == fields.size();
    if (last && dice.chance(0.3)) break;
    text += fieldALine || at % FieldsOfRow == 0 ? lineEnd : ",";
  }
  return text;
}

}  // namespace

Route randomRoute(Dice& dice) {
  const Start& start = dice.oneOf(Starts);
  Route route{sphere::waypoint("", start.latitude, start.longitude)};
  const int rows = dice.whole(2, 9);
  while (static_cast<int>(route.size()) < rows) {
    const double course = dice.chance(0.2) ? dice.whole(0, 3) * 90.0 : dice.uniform(0, 360);
    route.push_back(onwards(route.back(), course, dice.chance(0.05) ? 0 : dice.uniform(0.5, 40)));
  }
  for (FlightPlanRecord& row : route) wrap(row.Longitude);
  for (std::size_t row = 0; row + 1 < route.size(); ++row) connect(route[row], route[row + 1]);
  for (std::size_t row = 0; row < route.size(); ++row) {
    route[row].Name = nameOf(row, route.size(), dice);
    fill(route[row], dice);
  }
  return route;
}

Route randomProfile(const Route& route, Dice& dice) {
  Route profile = route;
  if (dice.chance(0.9)) put(profile, "T/C", dice);
  if (dice.chance(0.9)) put(profile, "T/D", dice);
  return profile;
}

std::string planFileOf(const Route& route, Dice& dice) { return joined(fieldsOf(route), dice); }

std::string oddPlanFileOf(const Route& route, Dice& dice) {
  static constexpr std::array<const char*, 14> Numbers = {
      "", "0", "0", "-1", "-32768", "32768", "2.5", "1", "1", "3.5", "NaN", "\"2\"", "40", "1e400"};
  std::vector<std::string> fields = fieldsOf(route);
  if (dice.chance(0.3))
    fields[0] = dice.oneOf(Numbers);
  else if (dice.chance(0.8))
    fields[static_cast<std::size_t>(dice.whole(0, static_cast<int>(fields.size()) - 1))] =
        oddNumber(dice);
  else
    fields.resize(static_cast<std::size_t>(dice.whole(1, static_cast<int>(fields.size()))));
  std::string text = joined(fields, dice);
  if (dice.chance(0.1)) text.resize(static_cast<std::size_t>(dice.uniform(0, double(text.size()))));
  return text;
}

std::string oddNumber(Dice& dice) {
  static constexpr std::array<const char*, 26> Texts = {
      "NaN",   "nan",   "-nan(ind)", "1.#QNAN", "inf",   "-Infinity",  "",    "--",   "1e39",
      "-1e39", "1e400", "1e-46",     "1e-400",  "40000", "2147483648", "1 2", "0x10", "1,000",
      "1.5.2", "+7",    " 12 ",      "\"5\"",   "2.5",   "-3.5",       "-0",  ".5"};
  return dice.oneOf(Texts);
}

}  // namespace vorlent
