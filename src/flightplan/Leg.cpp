#include "flightplan/Leg.h"

#include <cmath>

#include "base/angles.h"
#include "base/numbers.h"
#include "flightplan/greatCircle.h"

namespace vorlent {
namespace {

using namespace angles;

GeoPoint pointOf(const FlightPlanRecord& row) { return {row.Latitude, row.Longitude}; }

/// One cycle's steps, in their order: each takes what those before it left in the leg.
class Update {
 public:
  Update(Leg& leg, PlanRows plan, const AircraftOnLeg& aircraft)
      : leg_(leg),
        plan_(plan),
        aircraft_(aircraft),
        here_{aircraft.Latitude, aircraft.Longitude},
        from_(planRow(plan, leg.LegFromRow)),
        to_(planRow(plan, leg.LegToRow)) {}

  void run() {
    anticipateTurn();
    measurePreviousCrossTrack();
    measureCrossTrack();
    findCrossing();
    findCourses();
    measureWaypoint();
    measureTurnPoint();
    leg_.DxFromPrevWpt = toSingle(GetDX(pointOf(from_), here_));
    leg_.InterceptSide = leg_.CourseDirect <= leg_.CourseGcProjection ? -1 : 1;
    leg_.PrevLatitude = aircraft_.Latitude;
    leg_.PrevLongitude = aircraft_.Longitude;
  }

 private:
  double legLatitude(double longitude_deg) const {
    return legLatitudeAt(longitude_deg, plan_, leg_);
  }

  /// By the tangent of half the turn, and ten seconds of flight.
  /// docs/peculiarities.md: courses without a turn.
  void anticipateTurn() {
    constexpr double TenSecondsPerHour = 360;
    const FlightPlanRecord* next = rowBehind(plan_, leg_);
    const double half = next ? std::fabs(double{next->Course} - to_.Course) / 2 : 0;
    const bool turns = half > 0 && half < 90;
    leg_.TurnAnticipation =
        turns ? toSingle(aircraft_.apTurnRangeWpt * std::tan(half * RadiansPerDegree) +
                         aircraft_.GroundSpeed_kt / TenSecondsPerHour)
              : 0;
  }

  /// docs/peculiarities.md: cross-track scale; south and west.
  void measurePreviousCrossTrack() {
    leg_.PrevGcLat = toSingle(legLatitude(leg_.PrevLongitude));
    if (leg_.PrevLatitude > 0 && leg_.PrevLongitude > 0)
      leg_.PrevCrossTrack = toSingle(GetDXRadians({leg_.PrevGcLat, leg_.PrevLongitude},
                                                  {leg_.PrevLatitude, leg_.PrevLongitude}));
    leg_.PrevCrossTrack =
        toSingle(leg_.PrevCrossTrack * std::sin(leg_.CourseDirect * RadiansPerDegree));
  }

  void measureCrossTrack() {
    gcLat_ = legLatitude(aircraft_.Longitude);
    leg_.CrossTrack = toSingle(GetDXRadians({gcLat_, aircraft_.Longitude}, here_));
  }

  void findCrossing() {
    const auto longitude = crossingLongitude(leg_.PrevCrossTrack, leg_.PrevLongitude,
                                             leg_.CrossTrack, aircraft_.Longitude);
    if (longitude) {
      leg_.CrossingLon = toSingle(*longitude);
      leg_.CrossingLat = toSingle(legLatitude(leg_.CrossingLon));
    }
    leg_.DxToCrossing = toSingle(GetDX(crossing(), here_));
  }

  void findCourses() {
    leg_.CourseGcProjection = toSingle(GetCourse(pointOf(to_), {gcLat_, aircraft_.Longitude}));
    leg_.CourseDirect = toSingle(GetCourse(pointOf(to_), here_));
    leg_.CourseToCrossing = toSingle(GetCourse(crossing(), here_));
  }

  void measureWaypoint() {
    leg_.PrevDxToNextWpt = leg_.DxToNextWpt;
    leg_.DxToNextWpt = toSingle(GetDX(pointOf(to_), here_));
  }

  /// docs/peculiarities.md: waypoint overhead.
  void measureTurnPoint() {
    const double longitude = double{to_.Longitude};
    const double turnLongitude =
        longitude -
        quotient((longitude - aircraft_.Longitude) * leg_.TurnAnticipation, leg_.DxToNextWpt);
    const double turnLatitude = legLatitude(turnLongitude);
    leg_.PrevDxToTurnPoint = leg_.DxToTurnPoint;
    leg_.DxToTurnPoint = toSingle(GetDX({turnLatitude, turnLongitude}, here_));
  }

  GeoPoint crossing() const { return {leg_.CrossingLat, leg_.CrossingLon}; }

  Leg& leg_;
  PlanRows plan_;
  const AircraftOnLeg& aircraft_;
  GeoPoint here_;
  const FlightPlanRecord& from_;
  const FlightPlanRecord& to_;
  double gcLat_ = 0;
};

}  // namespace

double turnDiameter_nm(double tas_kt) {
  constexpr double SixtyPi = 188.4955592153874;
  return 2 * tas_kt / SixtyPi;
}

double legLatitudeAt(double longitude_deg, PlanRows plan, const Leg& leg) {
  const FlightPlanRecord& row = planRow(plan, leg.LegFromRow);
  return GcLatAtLon(longitude_deg, {row.VertexLat, row.VertexLon});
}

const FlightPlanRecord* rowBehind(PlanRows plan, const Leg& leg) {
  const auto behind = static_cast<std::size_t>(leg.LegToRow) + 1;
  return behind < plan.size() ? &plan[behind] : nullptr;
}

void updateLeg(Leg& leg, PlanRows plan, const AircraftOnLeg& aircraft) {
  Update(leg, plan, aircraft).run();
}

void SequenceLeg(Leg& leg, std::int16_t LnavCriteria, std::int16_t MaxWaypointId,
                 std::int16_t ActiveFpIndex) {
  if (LnavCriteria > 0) return;
  leg.LegToRow = toInt16(leg.LegToRow + 1);
  if (leg.LegToRow > MaxWaypointId - 1) leg.LegToRow = toInt16(ActiveFpIndex + 1);
  leg.LegFromRow = toInt16(leg.LegToRow - 1);
}

}  // namespace vorlent
