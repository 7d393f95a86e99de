#include "plan/Pilot.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/simulatorUnits.h"
#include "plan/planRows.h"

namespace vorlent {
namespace {

/// Push buttons, analog values and a switch by their command codes.
namespace Button {
enum {
  FlapsUp = 52,
  FlapsDown = 54,
  GearDown = 63,
  GearUp = 65,
  Autothrottle = 163,
  LevelChange = 167,
  Vnav = 168,
  Lnav = 169,
  Approach = 171,
  HeadingSelect = 172,
  AltitudeHold = 174,
  CommandA = 183,
  FlightDirector = 188,
  ToGa = 214,
};
}
namespace Dial {
enum {
  Elevator = 14,
  Spoilers = 48,
  Nav1 = 74,
  Course = 80,
  Altitude = 81,
  Heading = 82,
  Speed = 84
};
}
const Command ReleaseParkingBrake = {"T", 46, 0};

/// As the record tells them.
namespace Phase {
enum { Climb = 3, Cruise, BeforeDescent, Descent, Approach };
}

// Speeds of the type at the weights that it may land with, knots; estimates.
constexpr double Decision_kt = 135;
constexpr double Rotation_kt = 140;
constexpr double Intercept_kt = 170;
constexpr double Final_kt = 145;
/// Never the lower one beside the plan's.
constexpr double PanelSpeed_kt = 320;

constexpr double AutopilotHeight_ft = 500;
constexpr double Decision_ft = 50;
constexpr double HighAboveLevel_ft = 700;

std::string megahertz(double frequency) {
  const std::string text = std::to_string(std::lround(frequency * 100));
  return text.substr(0, text.size() - 2) + "." + text.substr(text.size() - 2);
}

std::string wholeText(double value) { return std::to_string(std::lround(value)); }

/// Between the ends of the leg the altitude runs straight.
double plannedAltitude_ft(const PlannedFlight& flight, std::size_t leg, double ahead_nm) {
  const PlanPoint& from = legEnd(flight, leg - 1);
  const PlanPoint& to = legEnd(flight, leg);
  const double share = std::clamp(ahead_nm / (to.way_nm - from.way_nm), 0.0, 1.0);
  return std::lerp(to.altitude_ft, from.altitude_ft, share);
}

double compass_deg(double direction) {
  const double turned = std::fmod(direction, 360);
  return turned > 0 ? turned : turned + 360;
}

}  // namespace

Pilot::Pilot(const PlannedFlight& flight, const Landing& landing, double look_s, Tell tell)
    : flight_(flight), landing_(landing), look_s_(look_s), tell_(std::move(tell)) {}

std::vector<Command> Pilot::look(const Record& record, std::size_t leg) {
  if (arrived_) return {};
  see(record, leg);
  prepare(record);
  rotate();
  cleanUp();
  cruise(record);
  holdLnav(record);
  descend(record);
  keepToProfile(record, leg);
  approach(record);
  land(record);
  time_s_ += look_s_;
  return std::exchange(commands_, {});
}

void Pilot::see(const Record& record, std::size_t leg) {
  if (record.number("OnGround") == 1) groundHeight_ft_ = record.number("RadioAltitude");
  now_.height_ft = record.number("RadioAltitude") - groundHeight_ft_;
  now_.altitude_ft = record.number("AircraftAltitude");
  now_.speed_kt = record.number("Ias");
  now_.pitch_deg = record.number("Pitch");
  now_.phase = static_cast<int>(record.number("PhaseOfFlightEnum"));
  now_.to = legEnd(flight_, leg).name;
  now_.afterDescent = legEnd(flight_, leg - 1).name == "E/D" || did("end of descent");
}

void Pilot::prepare(const Record& record) {
  constexpr double SpoolUp_s = 3;
  if (once("on the runway: flight director, autothrottle, TO/GA")) {
    dial(Dial::Nav1, landing_.localizer_MHz);
    const double course_deg = compass_deg(landing_.course_deg - record.number("MagVar"));
    dial(Dial::Course, std::round(course_deg));
    dial(Dial::Altitude, flight_.cruise_ft);
    dial(Dial::Speed, PanelSpeed_kt);
    say("NAV1 " + megahertz(landing_.localizer_MHz) + ", course " + wholeText(course_deg) +
        ", altitude " + wholeText(flight_.cruise_ft));
    if (record.number("FdActive") == 0) press(Button::FlightDirector);
    turn(record, "apAutoThrottle", true, Button::Autothrottle);
    turn(record, "apToGa", true, Button::ToGa);
  }
  if (time_s_ >= SpoolUp_s && once("brakes released")) commands_.push_back(ReleaseParkingBrake);
}

/// To 10 degrees by the elevator; when the autopilot takes over the column goes back.
void Pilot::rotate() {
  constexpr double Attitude_deg = 10;
  constexpr double Gain = 0.06;  // of the column's way a degree, and a degree a second
  constexpr double Most = 0.5;
  constexpr double Return_s = 6;
  constexpr double AtRest = 0.005;
  const double rate_deg_s = (now_.pitch_deg - lastPitch_deg_) / look_s_;
  lastPitch_deg_ = now_.pitch_deg;
  if (now_.speed_kt > Decision_kt) once("V1");
  if (now_.speed_kt > Rotation_kt) once("rotate");
  if (!did("rotate") || did("column released")) return;
  if (!did("command A, LNAV")) {
    elevator_ = std::clamp(Gain * (Attitude_deg - now_.pitch_deg - rate_deg_s), -Most, Most);
  } else {
    elevator_ *= std::exp(-look_s_ / Return_s);
    if (std::fabs(elevator_) < AtRest) {
      elevator_ = 0;
      once("column released");
    }
  }
  dial(Dial::Elevator, std::round(elevator_ * FullTravel));
}

void Pilot::cleanUp() {
  constexpr double GearUp_ft = 100;
  constexpr double FlapsUp_ft = 800;
  constexpr double Vnav_ft = 3000;
  struct Retraction {
    double from_kt;
    const char* step;
  };
  constexpr Retraction Retractions[] = {{180, "flaps 2"}, {195, "flaps 1"}, {210, "flaps up"}};
  if (now_.height_ft > GearUp_ft && once("gear up")) press(Button::GearUp);
  if (now_.height_ft > AutopilotHeight_ft && once("command A, LNAV")) {
    press(Button::CommandA);
    press(Button::Lnav);
  }
  if (now_.height_ft < FlapsUp_ft) return;
  for (const auto& [from_kt, step] : Retractions)
    if (now_.speed_kt > from_kt && once(step)) press(Button::FlapsUp);
  if (now_.height_ft > Vnav_ft && once("VNAV")) press(Button::Vnav);
}

/// The capture of the cruise altitude ends VNAV.
void Pilot::cruise(const Record& record) {
  if (now_.phase == Phase::Cruise && once("cruise")) turn(record, "VNAV", true, Button::Vnav);
}

/// Where LNAV gives up, the heading goes to the waypoint, and it gets another try from there.
void Pilot::holdLnav(const Record& record) {
  constexpr double Settle_s = 5;
  if (!did("LNAV holds")) {
    if (record.apBit("LNAV") && once("LNAV holds")) againAt_s_ = time_s_ + Settle_s;
    return;
  }
  if (record.apBit("LNAV") || did("approach") || now_.phase >= Phase::Approach) return;
  if (record.apBit("apHeadingHold")) {
    if (again("LNAV once more")) press(Button::Lnav);
  } else if (again("LNAV is off: heading to the waypoint")) {
    dial(Dial::Heading,
         std::round(compass_deg(record.number("CrsToNextWaypoint") - record.number("MagVar"))));
    press(Button::HeadingSelect);
  }
}

/// The panel's altitude lets the descent begin. A level that is reached ends VNAV.
void Pilot::descend(const Record& record) {
  const double end_ft = flight_.points.back().target_ft;
  if (now_.to == "T/D" && once("panel to " + wholeText(end_ft) + " feet"))
    dial(Dial::Altitude, end_ft);
  if (now_.phase == Phase::Descent) once("descent");
  if (isLevelTooHigh(record)) leaveLevel(record);
  if (now_.afterDescent) once("end of descent");
}

bool Pilot::isLevelTooHigh(const Record& record) const {
  constexpr double Descending_fpm = -300;
  const bool descent = now_.phase == Phase::Descent || now_.phase == Phase::Approach;
  return descent && !now_.afterDescent && !record.apBit("VNAV") &&
         record.number("VerticalSpeed") > Descending_fpm &&
         now_.altitude_ft > flight_.points.back().target_ft + HighAboveLevel_ft;
}

/// Altitude hold ends a capture. In the approach phase VNAV does not change the level any more.
void Pilot::leaveLevel(const Record& record) {
  if (!record.apBit("apAltitudeHold")) {
    if (again("altitude hold")) press(Button::AltitudeHold);
  } else if (now_.phase == Phase::Descent) {
    if (again("VNAV once more")) press(Button::Vnav);
  } else if (again("level change")) {
    press(Button::LevelChange);
  }
}

/// What is too high for a while goes by the speed brake. At a change of legs the record tells the
/// way to the last waypoint for a moment.
void Pilot::keepToProfile(const Record& record, std::size_t leg) {
  constexpr double TooHigh_ft = 300;
  constexpr double HighEnough_ft = 0;
  constexpr double While_s = 3;
  constexpr double Flight = 0.3;  // of the lever's way
  const bool descending = now_.phase == Phase::Descent || now_.phase == Phase::Approach;
  const double high_ft =
      now_.altitude_ft - plannedAltitude_ft(flight_, leg, record.number("DxToNextWaypoint"));
  const bool out =
      descending && !now_.afterDescent && high_ft > (brakes_ ? HighEnough_ft : TooHigh_ft);
  if (out == brakes_) profileKept_s_ = time_s_;
  if (time_s_ < profileKept_s_ + While_s) return;
  brakes_ = out;
  say(out ? "speed brake" : "speed brake in");
  dial(Dial::Spoilers, out ? Flight * FullTravel : 0);
}

void Pilot::flapsDown(double below_kt, const std::string& flaps) {
  if (now_.speed_kt < below_kt && once(flaps + " again")) press(Button::FlapsDown);
}

/// Level on the localizer.
void Pilot::approach(const Record& record) {
  constexpr double Alive = 100;  // of 127
  constexpr double TailWind_kt = 10;
  if (!now_.afterDescent) return;
  if (once("slowing down")) {
    turn(record, "VNAV", false, Button::Vnav);
    dial(Dial::Speed, Intercept_kt);
  }
  if (record.number("GroundSpeed") - record.number("Tas") > TailWind_kt && once("gear down"))
    press(Button::GearDown);
  flapsDown(230, "flaps 1");
  flapsDown(220, "flaps 2");
  flapsDown(210, "flaps 5");
  const double needle = record.number("NavRadios(1).LocNeedle");
  const bool level = now_.altitude_ft < flight_.points.back().target_ft + HighAboveLevel_ft / 2;
  if (level && needle != 0 && std::fabs(needle) < Alive && once("approach"))
    press(Button::Approach);
}

/// Gear and flaps wait for the glide path to come down; the slower speed for the path itself.
void Pilot::land(const Record& record) {
  constexpr double Alive = 115;  // of 127
  constexpr double Near = 40;
  const double glide = record.number("NavRadios(1).GsNeedle");
  if (!did("approach") || glide == 0) return;
  if (std::fabs(glide) < Alive && once("gear down")) press(Button::GearDown);
  if (std::fabs(glide) < Near && once("glide path")) dial(Dial::Speed, Final_kt);
  if (did("gear down")) {
    flapsDown(200, "flaps 10");
    flapsDown(195, "flaps 15");
  }
  if (did("glide path")) {
    flapsDown(175, "flaps 25");
  }
  arrived_ = did("glide path") && now_.height_ft < Decision_ft && once("50 feet above the runway");
}

bool Pilot::once(const std::string& step) {
  if (!done_.insert(step).second) return false;
  say(step);
  return true;
}

bool Pilot::again(const std::string& step) {
  constexpr double Patience_s = 10;
  if (time_s_ < againAt_s_) return false;
  againAt_s_ = time_s_ + Patience_s;
  say(step);
  return true;
}

void Pilot::say(const std::string& step) const {
  const long seconds = std::lround(time_s_);
  const std::string rest = std::to_string(seconds % 60);
  tell_(std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest + "  " +
        wholeText(now_.altitude_ft) + " ft  " + wholeText(now_.speed_kt) + " kt  " + step);
}

void Pilot::press(int button) { commands_.push_back({"P", static_cast<std::int16_t>(button), 1}); }

void Pilot::dial(int what, double value) {
  commands_.push_back({"A", static_cast<std::int16_t>(what), static_cast<float>(value)});
}

void Pilot::turn(const Record& record, const char* bit, bool on, int button) {
  if (record.apBit(bit) != on) press(button);
}

}  // namespace vorlent
