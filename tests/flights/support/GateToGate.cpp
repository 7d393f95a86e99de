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
constexpr double DescentAt_nm = 13;  // before WPT10
constexpr double Longest_s = 3600;
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

Route routeToDrosselby() {
  constexpr int cruise_ft = static_cast<int>(Cruise_ft);
  constexpr int platform_ft = static_cast<int>(Platform_ft);
  Route route{{"XAVR", HomeRunway.threshold, 1500}, {"WPT1", {51.875, 4.65}, cruise_ft},
              {"WPT2", {51.86, 4.15}, cruise_ft},   {"WPT3", {52.05, 3.70}, cruise_ft},
              {"WPT4", {52.35, 3.50}, cruise_ft},   {"WPT5", {52.70, 3.60}, cruise_ft},
              {"WPT6", {52.98, 4.00}, cruise_ft},   {"WPT7", {53.10, 4.60}, cruise_ft},
              {"WPT8", {53.11, 5.25}, cruise_ft},   {"WPT9", {53.00, 5.90}, cruise_ft}};
  route.push_back({"T/D", {52.94, 6.25}, 16000, 0, true});
  route.push_back({"WPT10", {52.90, 6.50}, 16000, DescentAt_nm});
  route.push_back({"WPT11", {52.72, 6.95}, 9000});
  route.push_back({"E/D", {52.42267, 6.82}, platform_ft});
  route.push_back({"RX-27", {52.42267, 6.49}, platform_ft});
  route.push_back({"XADR", {52.42267, 6.32637}, 65});
  return route;
}

GateToGate::GateToGate(const Condition& condition, const std::string& tuning)
    : route_(onTheRunway(condition), routeToDrosselby(), tuning, performance()) {
  prepare();
}

double GateToGate::height_ft() const { return route_.now().altitude_ft - Ground_ft - Wheels_ft; }

double GateToGate::toWaypoint_nm() const {
  const Sample& s = route_.now();
  return distanceBetween_m(route_.to().place, {s.latitude_deg, s.longitude_deg}) /
         MetresPerNauticalMile;
}

bool GateToGate::once(const std::string& step) { return done_.insert(step).second; }

void GateToGate::prepare() {
  Flight& flight = route_.flight();
  flight.dial(Dial::Altitude, Cruise_ft);
  flight.dial(Dial::Speed, 250);
  flight.press(Press::FlightDirector);
  flight.press(Press::Autothrottle);
  flight.press(Press::ToGa);
  route_.fly(2);
  flight.press(Press::ParkingBrake);
}

void GateToGate::fly() {
  for (int n = 0; n < Longest_s && !landed_; ++n) {
    route_.fly(1);
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
  if (phase == Phase::Descent) descentBegun_nm_ = std::fabs(toWaypoint_nm() - DescentAt_nm);
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

/// Up to 12 degrees by the elevator; at 500 feet the autopilot takes over and the column goes back.
void GateToGate::rotate() {
  constexpr double rotation_kt = 145;
  constexpr double attitude_deg = 12;
  Flight& flight = route_.flight();
  if (height_ft() > 500 && once("command")) {
    flight.press(Press::CommandA);
    flight.press(Press::Lnav);
  }
  const bool flown = done_.contains("command");
  if (flown)
    elevator_ *= 0.7;
  else if (flight.now().speed_kt > rotation_kt)
    elevator_ = std::clamp(elevator_ + 0.01 * (attitude_deg - flight.now().pitch_deg), -0.3, 0.6);
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

/// The panel's altitude lets the descent begin.
void GateToGate::descend() {
  if (route_.to().name == "WPT10" && once("platform"))
    route_.flight().dial(Dial::Altitude, Platform_ft);
}

void GateToGate::approach() {
  Flight& flight = route_.flight();
  const std::string& to = route_.to().name;
  const double speed_kt = flight.now().speed_kt;
  if (to == "E/D" && toWaypoint_nm() < 6 && once("slow")) {
    flight.press(Press::Vnav);
    flight.press(Press::Speed);
    flight.dial(Dial::Speed, 190);
  }
  if (!done_.contains("slow")) return;
  for (const double limit_kt : {225.0, 215.0, 205.0})
    if (speed_kt < limit_kt && once("flaps " + std::to_string(limit_kt)))
      flight.press(Press::FlapsDown);
  if (to == "RX-27" && std::fabs(flight.now().needle) < 100 && flight.now().needle != 0 &&
      once("approach"))
    flight.press(Press::Approach);
  if (done_.contains("approach") && flight.now().altitude_ft < Platform_ft - 200 &&
      once("glide path")) {
    flight.press(Press::GearDown);
    flight.press(Press::FlapsDown);
    flight.dial(Dial::Speed, 160);
  }
  if (done_.contains("glide path"))
    for (const double limit_kt : {170.0, 166.0, 163.0})
      if (speed_kt < limit_kt && once("landing flaps " + std::to_string(limit_kt)))
        flight.press(Press::FlapsDown);
  if (done_.contains("landing flaps " + std::to_string(163.0)) && once("threshold speed"))
    flight.dial(Dial::Speed, 145);
}

}  // namespace vorlent
