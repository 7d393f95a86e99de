#include "GateToGate.h"

#include <algorithm>
#include <cmath>

#include "autoflight/clsAfds.h"
#include "base/units.h"
#include "simulator/FlightScript.h"

namespace vorlent {
namespace {

constexpr double Cruise_ft = 20000;
constexpr double Platform_ft = 3000;
constexpr Place TopOfDescent{52.06, 2.25};
constexpr double Longest_s = 3600;
constexpr double Look_s = 0.2;  // how often the pilot looks
constexpr double Ground_ft = HomeRunway.elevation_m / MetresPerFoot;
constexpr double Wheels_ft = 9;  // the aircraft's place is that of its centre of gravity

PerfDataRow performance() {
  return {{"ClimbN1", "90"},   {"TakeoffN1", "95"},   {"MaxCruiseAlt", "350"}, {"CruiseAlt", "200"},
          {"FMCspeed", "280"}, {"ClimbMach", "0.74"}, {"DescentMach", "0.74"}};
}

Condition onTheRunway(Condition condition) {
  condition.onRunway = true;
  return condition;
}

}  // namespace

/// The legs keep away from north and south, where the distance from a leg along the meridian means
/// nothing.
Route routeToWesterleigh() {
  constexpr Place threshold{51.75, 0.10};
  constexpr double final_deg = 265;
  constexpr int cruise_ft = static_cast<int>(Cruise_ft);
  constexpr int platform_ft = static_cast<int>(Platform_ft);
  const auto before = [&threshold](double distance_nm) {
    return placeFrom(threshold, final_deg - 180, distance_nm * MetresPerNauticalMile);
  };
  return {{"XAVR", HomeRunway.threshold, 1500}, {"WPT1", {51.875, 4.65}, cruise_ft},
          {"WPT2", {51.86, 4.25}, cruise_ft},   {"WPT3", {51.97, 3.87}, cruise_ft},
          {"WPT4", {52.07, 3.45}, cruise_ft},   {"WPT5", {51.93, 3.08}, cruise_ft},
          {"WPT6", {51.92, 2.76}, cruise_ft},   {"WPT7", {52.03, 2.46}, cruise_ft},
          {"T/D", TopOfDescent, 17500},         {"WPT8", {52.07, 1.93}, 17500, 14},
          {"WPT9", {51.98, 1.60}, 13000},       {"WPT10", {51.93, 1.25}, 9000},
          {"WPT11", before(27), 5500},          {"E/D", before(14), platform_ft},
          {"RX-26", before(7), platform_ft},    {"XWES", threshold, 65}};
}

GateToGate::GateToGate(const Condition& condition, const std::string& tuning)
    : route_(onTheRunway(condition), routeToWesterleigh(), tuning, performance()) {
  prepare();
}

double GateToGate::height_ft() const { return route_.now().altitude_ft - Ground_ft - Wheels_ft; }

double GateToGate::distanceTo_nm(Place place) const {
  const Sample& s = route_.now();
  return distanceBetween_m(place, {s.latitude_deg, s.longitude_deg}) / MetresPerNauticalMile;
}

bool GateToGate::once(const std::string& step) { return done_.insert(step).second; }

void GateToGate::prepare() {
  Flight& flight = route_.flight();
  flight.dial(Dial::Altitude, Cruise_ft);
  flight.dial(Dial::Speed, 280);
  flight.memory().write<std::uint16_t>(0x0350, 0x0890);  // the landing system of XWES 26
  flight.memory().write<std::uint16_t>(0x0C4E, 262);     // its course, magnetic
  flight.press(Press::FlightDirector);
  flight.press(Press::Autothrottle);
  flight.press(Press::ToGa);
  route_.fly(2);
  flight.press(Press::ParkingBrake);
}

void GateToGate::fly() {
  for (int n = 0; n < Longest_s / Look_s && !landed_; ++n) {
    route_.fly(Look_s);
    note();
    pilot();
    landed_ = done_.contains("glide path") && height_ft() < 50;
  }
}

void GateToGate::note() {
  notePhase();
  noteLeg();
}

void GateToGate::notePhase() {
  const int phase = route_.flight().afds().fmc.PhaseOfFlightEnum;
  if (!phases_.empty() && phases_.back() == phase) return;
  phases_.push_back(phase);
  if (phase == Phase::Descent) descentBegun_nm_ = distanceTo_nm(TopOfDescent);
}

void GateToGate::noteLeg() {
  if (leg_ != route_.active()) {
    leg_ = route_.active();
    legBegun_s_ = route_.now().time_s;
    if (route_.from().name == "E/D")
      endOfDescent_ = {std::fabs(route_.now().altitude_ft - Platform_ft),
                       std::fabs(route_.now().speed_kt - route_.now().targetSpeed_kt)};
  }
  const bool settled = leg_ > 1 && route_.now().time_s > legBegun_s_ + 60;
  if (settled && route_.flight().afds().LNAV() == 1)
    offLeg_nm_ = std::max(offLeg_nm_, std::fabs(route_.crossTrack_nm(route_.now())));
}

void GateToGate::pilot() {
  rotate();
  cleanUp();
  descend();
  approach();
}

/// To 10 degrees by the elevator; at 500 feet the autopilot takes over and the column goes back.
void GateToGate::rotate() {
  constexpr double rotation_kt = 140;
  constexpr double attitude_deg = 10;
  Flight& flight = route_.flight();
  if (height_ft() > 500 && once("command")) {
    flight.press(Press::CommandA);
    flight.press(Press::Lnav);
  }
  const double pitch_deg = flight.now().pitch_deg;
  const double rate_deg_s = (pitch_deg - pitch_deg_) / Look_s;
  pitch_deg_ = pitch_deg;
  if (done_.contains("command"))
    elevator_ *= 0.97;
  else if (flight.now().speed_kt > rotation_kt)
    elevator_ = std::clamp(0.06 * (attitude_deg - pitch_deg) - 0.06 * rate_deg_s, -0.5, 0.5);
  flight.memory().write(0x0BB2, static_cast<std::int16_t>(std::lround(elevator_ * 16383)));
}

void GateToGate::cleanUp() {
  Flight& flight = route_.flight();
  const double speed_kt = flight.now().speed_kt;
  if (height_ft() > 100 && once("gear up")) flight.press(Press::GearUp);
  if (height_ft() < 800) return;
  for (const double limit_kt : {180.0, 195.0, 210.0})
    if (speed_kt > limit_kt && once("flaps up " + std::to_string(limit_kt)))
      flight.press(Press::FlapsUp);
  if (height_ft() > 3000 && once("VNAV")) flight.press(Press::Vnav);
}

/// The panel's altitude lets the descent begin. Each level that is reached ends VNAV: the pilot
/// engages it again for the next one, but for the last, to which he descends slowly by himself.
void GateToGate::descend() {
  Flight& flight = route_.flight();
  const std::string& to = route_.to().name;
  if (to == "T/D" && once("platform")) flight.dial(Dial::Altitude, Platform_ft);
  const bool levelled = flight.afds().fmc.PhaseOfFlightEnum == Phase::Descent &&
                        flight.afds().VNAV() == 0 && flight.autopilot().apAltitudeHold() == 1;
  const bool high = flight.now().altitude_ft > route_.to().altitude_ft + 700;
  const bool last = to == "E/D";
  if (levelled && high && !last && once("VNAV to " + to)) flight.press(Press::Vnav);
  if ((last || (levelled && !high && to == "WPT11")) && once("slow")) {
    if (flight.afds().VNAV() == 1) flight.press(Press::Vnav);
    flight.dial(Dial::Speed, 210);
  }
  if (last && once("last level")) flight.press(Press::LevelChange);
}

void GateToGate::flapsBelow(double speed_kt) {
  if (route_.now().speed_kt < speed_kt && once("flaps at " + std::to_string(speed_kt)))
    route_.flight().press(Press::FlapsDown);
}

void GateToGate::approach() {
  Flight& flight = route_.flight();
  const std::string& to = route_.to().name;
  if (!done_.contains("slow")) return;
  for (const double limit_kt : {230.0, 220.0, 215.0}) flapsBelow(limit_kt);
  if (to != "RX-26" && to != "XWES") return;
  if (once("approach speed")) flight.dial(Dial::Speed, 180);
  const double needle = flight.now().needle;
  const bool level = flight.now().altitude_ft < Platform_ft + 300;
  if (level && needle != 0 && std::fabs(needle) < 100 && once("approach"))
    flight.press(Press::Approach);
  const double glide = flight.now().glideNeedle;
  if (glide != 0 && std::fabs(glide) < 40 && once("glide path")) {
    flight.press(Press::GearDown);
    flight.dial(Dial::Speed, 145);
  }
  if (!done_.contains("glide path")) return;
  for (const double limit_kt : {178.0, 170.0, 160.0}) flapsBelow(limit_kt);
}

}  // namespace vorlent
