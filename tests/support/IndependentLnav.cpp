#include <cmath>

#include "support/IndependentAutoflight.h"

namespace vorlent {

using independent::GetCourse;
using independent::GetDX;
using independent::GetDXRadians;
using independent::milesOf;
using independent::over;
using independent::RadPerDeg;
using independent::signedAngle;

namespace {

bool isTowardLeg(double course, double heading, int side) {
  const double d = course - heading;
  if (std::fabs(d) >= 90) return false;
  return side < 1 ? d > 0 : d < 0;
}

bool isBetween(double x, double a, double b) { return (a < x && x < b) || (b < x && x < a); }

independent::Place placeOf(const independent::Row& row) {
  return {row[independent::Latitude], row[independent::Longitude]};
}

}  // namespace

double IndependentAutoflight::GcLatAtLon(double lon) const {
  const Row& from = fromRow();
  return independent::GcLatAtLon(lon, {from[independent::VertexLat], from[independent::VertexLon]});
}

void IndependentAutoflight::legGeometry() {
  anticipateTurn();
  const double gcLat = trackTheCircle();
  crossTheCircle();
  const Place wpt = placeOf(toRow());
  const Place crossing{leg.CrossingLat, leg.CrossingLon};
  leg.DxToCrossing = GetDX(crossing, here());
  leg.CourseGcProjection = GetCourse(wpt, {gcLat, here().lon});
  leg.CourseDirect = GetCourse(wpt, here());
  leg.CourseToCrossing = GetCourse(crossing, here());
  leg.PrevDxToNextWpt = leg.DxToNextWpt;
  leg.DxToNextWpt = GetDX(wpt, here());
  passTheTurnPoint();
  leg.DxFromPrevWpt = GetDX(placeOf(fromRow()), here());
  leg.InterceptSide = leg.CourseDirect <= leg.CourseGcProjection ? -1 : 1;
  leg.PrevLatitude = in.Latitude;
  leg.PrevLongitude = in.Longitude;
}

void IndependentAutoflight::anticipateTurn() {
  tune.apTurnRangeWpt = 2 * in.Tas / 188.4955592153874;
  leg.TurnAnticipation = 0;
  if (!plan.hasRow(leg.ToRow + 1)) return;
  const Row& next = plan.row(leg.ToRow + 1);
  const double h = std::fabs(next[independent::Course] - toRow()[independent::Course]) / 2;
  if (h > 0 && h < 90)
    leg.TurnAnticipation = tune.apTurnRangeWpt * std::tan(h * RadPerDeg) + in.GroundSpeed / 360.0;
}

/// Gives the latitude of the great circle where the aircraft is.
double IndependentAutoflight::trackTheCircle() {
  const double lon = leg.PrevLongitude;
  leg.PrevGcLat = GcLatAtLon(lon);
  if (leg.PrevLatitude > 0 && leg.PrevLongitude > 0)
    leg.PrevCrossTrack = GetDXRadians({leg.PrevGcLat, lon}, {leg.PrevLatitude, lon});
  leg.PrevCrossTrack = leg.PrevCrossTrack * std::sin(leg.CourseDirect * RadPerDeg);
  const double gcLat = GcLatAtLon(here().lon);
  leg.CrossTrack = GetDXRadians({gcLat, here().lon}, here());
  return gcLat;
}

void IndependentAutoflight::crossTheCircle() {
  const double before = leg.PrevCrossTrack;
  const double now = leg.CrossTrack;
  if (before == now) return;
  const double lon = here().lon * RadPerDeg;
  const double lonBefore = leg.PrevLongitude * RadPerDeg;
  leg.CrossingLon = (lon * before - lonBefore * now) / (before - now) * independent::DegPerRad;
  leg.CrossingLat = GcLatAtLon(leg.CrossingLon);
}

void IndependentAutoflight::passTheTurnPoint() {
  const double wptLon = toRow()[independent::Longitude];
  const double lon = wptLon - over((wptLon - here().lon) * leg.TurnAnticipation, leg.DxToNextWpt);
  const double lat = GcLatAtLon(lon);
  leg.PrevDxToTurnPoint = leg.DxToTurnPoint;
  leg.DxToTurnPoint = GetDX({lat, lon}, here());
}

int IndependentAutoflight::legCheck() {
  if (in.RadioAltitude <= 50) return 1;
  return milesOf(leg.PrevCrossTrack) <= tune.apMaxTrackOffset ? nearTheTrack() : offTheTrack();
}

int IndependentAutoflight::nearTheTrack() {
  if (leg.DxToNextWpt > tune.apMaxTrackOffset) return 1;
  if (memory.ActiveFpIndex != 0) return 0;
  if (leg.PrevDxToTurnPoint <= 0 || leg.DxToTurnPoint <= leg.PrevDxToTurnPoint) return 1;
  if (!plan.hasRow(leg.ToRow + 1)) return 1;
  const Row& next = plan.row(leg.ToRow + 1);
  announce(next);
  memory.LogVerbose = 1;
  logTheLeg("DX within turningrange");
  return 1;
}

int IndependentAutoflight::offTheTrack() {
  const double course = signedAngle(toRow()[independent::Course]);
  if (!isTowardLeg(course, signedAngle(in.TrueHeading), leg.InterceptSide))
    return loseTheLeg("Impossible Intercept");
  const Place from = placeOf(fromRow());
  const Place to = placeOf(toRow());
  if (isBetween(leg.CrossingLat, from.lat, to.lat) && isBetween(leg.CrossingLon, from.lon, to.lon))
    return 1;
  return loseTheLeg("Past Crossing Intercept");
}

int IndependentAutoflight::loseTheLeg(const std::string& why) {
  memory.MessageId = 1;
  if (on.LNAV) LNAV(0);
  if (memory.LogVerbose) logTheLeg(why);
  return 0;
}

void IndependentAutoflight::logTheLeg(const std::string& why) {
  const std::string name(toRow().trimmedName());
  const Place wpt = placeOf(toRow());
  log.push_back({why, "", {}});
  log.push_back({"", name, {}});
  log.push_back({"", "", {wpt.lat, wpt.lon}});
  log.push_back({"", "", {here().lat, here().lon}});
  log.push_back({"Waypoint: ", name, {}});
  log.push_back({"Course in GC proj:", "", {leg.CourseGcProjection}});
  log.push_back({"Course directly to wpt:", "", {leg.CourseDirect}});
  log.push_back({"Course to crossing:", "", {leg.CourseToCrossing}});
  log.push_back({"Dx to CG proj:", "", {milesOf(leg.CrossTrack)}});
  log.push_back({"Dx to Crossing:", "", {leg.DxToCrossing}});
  log.push_back({"DxToNextWpt:", "", {leg.DxToNextWpt}});
}

void IndependentAutoflight::SequenceLeg() {
  if (leg.Criteria > 0) return;
  leg.ToRow = leg.ToRow + 1;
  if (leg.ToRow > plan.MaxWaypointId - 1) leg.ToRow = memory.ActiveFpIndex + 1;
  leg.FromRow = leg.ToRow - 1;
}

void IndependentAutoflight::flyLnav() {
  if (!on.apLocalizerHold && !on.apNav1Hold) {
    SequenceLeg();
    if (on.apWaypointHold == 1) HoldWpt();
  } else if (LocalizerInRange()) {
    LNAV(0);
  }
  if (on.apNav1Hold == 1) {
    HoldNav1();
    capture(false);
  }
  if (on.apLocalizerHold == 1) {
    HoldLocalizer();
    capture(false);
  }
}

/// Radians are held against nautical miles here, as the limit is told.
void IndependentAutoflight::HoldWpt() {
  const double limited = leg.CrossTrack < leg.DxFromPrevWpt ? leg.CrossTrack : leg.DxFromPrevWpt;
  const Single crossTrack = milesOf(limited);
  target.CourseTarget = leg.CourseGcProjection;
  double t = target.CourseTarget;
  if (crossTrack >= tune.apMaxTrackOffset)
    t = in.TrueHeading;
  else if (crossTrack > 0)
    t = leg.InterceptSide * crossTrack / tune.apMaxTrackOffset * tune.apIntCourseDeflectionWpt +
        target.CourseTarget;
  if (in.Ias != 0) t = WindCorrection(t);
  target.apHeading = t - in.MagVar;
  TurnToHeading();
}

}  // namespace vorlent
