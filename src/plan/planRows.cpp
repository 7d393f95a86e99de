#include "plan/planRows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

#include "base/numbers.h"
#include "base/text.h"
#include "plan/sphere.h"

namespace vorlent {
namespace {

using Points = std::vector<PlanPoint>;

bool isWaypoint(const PlanPoint& point) { return point.kind == PlanPoint::Kind::Waypoint; }

Points waypointsOf(const PlannedFlight& flight) {
  Points waypoints;
  std::copy_if(flight.points.begin(), flight.points.end(), std::back_inserter(waypoints),
               isWaypoint);
  return waypoints;
}

std::string padded(std::string name) {
  name.resize(FlightPlanRecord::NameLength, ' ');
  return name;
}

/// Straight on, the autoflight would anticipate nothing, and the beginning of a descent would hang
/// on the rounding of the last digit: a turn of this size gives it its ten seconds.
constexpr double LeastTurn_deg = 0.02;

double courseAhead_deg(const Points& points, std::size_t row) {
  const GeoPoint at = points[row - 1].place;
  const double ahead = sphere::courseAtStart_deg(at, points[row].place);
  const double before = sphere::courseAtEnd_deg(points[row - 2].place, at);
  if (std::fabs(ahead - before) >= LeastTurn_deg) return ahead;
  return before < 180 ? before + LeastTurn_deg : before - LeastTurn_deg;
}

/// Of the leg that ends at the row; at the first row, of the leg that begins there.
double courseOf(const Points& points, std::size_t row) {
  if (row == 0) return sphere::courseAtStart_deg(points[0].place, points[1].place);
  if (row == 1) return sphere::courseAtEnd_deg(points[0].place, points[1].place);
  return courseAhead_deg(points, row);
}

/// The great circle of the leg that begins at the row; at the last row, of the one that ends there.
GeoPoint vertexOf(const Points& points, std::size_t row) {
  const std::size_t from = std::min(row, points.size() - 2);
  return sphere::northernmostPoint(points[from].place, points[from + 1].place);
}

/// A leg begins on the side of the 180th meridian on which it runs on.
double longitudeOf(const Points& points, std::size_t row) {
  const double longitude = points[row].place.longitude_deg;
  if (row != 0 || std::fabs(longitude) < 180) return longitude;
  return std::copysign(180.0, points[1].place.longitude_deg);
}

FlightPlanRecord recordOf(const Points& points, std::size_t row) {
  const PlanPoint& point = points[row];
  const GeoPoint vertex = vertexOf(points, row);
  FlightPlanRecord record;
  record.Name = padded(point.name);
  record.Course = toSingle(courseOf(points, row));
  record.Distance = toSingle(point.descent_nm);
  record.Altitude = toInt32(point.target_ft);
  record.Kind = isWaypoint(point) ? "" : "PRF";
  record.Latitude = toSingle(point.place.latitude_deg);
  record.Longitude = toSingle(longitudeOf(points, row));
  record.VertexLat = toSingle(vertex.latitude_deg);
  record.VertexLon = toSingle(vertex.longitude_deg);
  return record;
}

std::vector<FlightPlanRecord> recordsOf(const Points& points) {
  std::vector<FlightPlanRecord> records;
  for (std::size_t row = 0; row < points.size(); ++row) records.push_back(recordOf(points, row));
  return records;
}

/// Puts down field after field.
class FieldWriter {
 public:
  void text(std::string_view value) { field("\"" + std::string(value) + "\""); }
  void whole(std::int64_t value) { field(std::to_string(value)); }
  /// The fewest digits that give the same single back, without an exponent.
  void real(float value) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed);
    field({digits.data(), end.ptr});
  }
  void reals(std::initializer_list<float> values) {
    for (const float value : values) real(value);
  }
  void endLine() {
    out_ += "\r\n";
    begun_ = false;
  }
  std::string take() { return std::move(out_); }

 private:
  void field(const std::string& value) {
    if (begun_) out_ += ',';
    out_ += value;
    begun_ = true;
  }

  std::string out_;
  bool begun_ = false;
};

void writeRecord(FieldWriter& to, const FlightPlanRecord& row) {
  to.text(trimmed(row.Name));
  to.text(row.Text2);
  to.text(row.Text3);
  to.reals({row.Value4, row.Value5, row.Course, row.Value7, row.Value8, row.Value9, row.Distance,
            row.Value11, row.Value12, row.Value13, row.Value14, row.Value15, row.Value16,
            row.Value17});
  to.whole(row.Altitude);
  to.real(row.Value19);
  to.whole(row.Value20);
  to.text(row.Kind);
  to.whole(row.Value22);
  to.reals({row.Latitude, row.Longitude, row.VertexLat, row.VertexLon});
  to.endLine();
}

}  // namespace

std::size_t legCount(const PlannedFlight& flight) {
  const auto waypoints = std::count_if(flight.points.begin(), flight.points.end(), isWaypoint);
  return static_cast<std::size_t>(waypoints) - 1;
}

const PlanPoint& legEnd(const PlannedFlight& flight, std::size_t leg) {
  return *std::find_if(flight.points.begin(), flight.points.end(),
                       [&leg](const PlanPoint& p) { return isWaypoint(p) && leg-- == 0; });
}

double legSpeed_kt(const PlannedFlight& flight, std::size_t leg) {
  return std::min(legEnd(flight, leg - 1).speed_kt, legEnd(flight, leg).speed_kt);
}

std::vector<FlightPlanRecord> execRows(const PlannedFlight& flight, std::size_t leg) {
  Points waypoints = waypointsOf(flight);
  waypoints.erase(waypoints.begin(), waypoints.begin() + static_cast<std::ptrdiff_t>(leg) - 1);
  return recordsOf(waypoints);
}

std::vector<FlightPlanRecord> profRows(const PlannedFlight& flight, std::size_t leg) {
  const PlanPoint* const from = &legEnd(flight, leg - 1);
  return recordsOf({flight.points.begin() + (from - flight.points.data()), flight.points.end()});
}

std::string planFileText(const std::vector<FlightPlanRecord>& rows) {
  FieldWriter writer;
  writer.whole(std::ssize(rows) - 1);
  writer.endLine();
  for (const FlightPlanRecord& row : rows) writeRecord(writer, row);
  return writer.take();
}

}  // namespace vorlent
