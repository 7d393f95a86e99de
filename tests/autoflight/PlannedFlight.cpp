#include "autoflight/PlannedFlight.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "core/Server.h"
#include "core/singletons.h"

namespace vorlent {
namespace {

using Twin = IndependentAutoflight;

struct PlanCommand {
  const char* name;
  double likelihood;  ///< of being switched on
  void (*product)(Server&, std::int16_t);
  void (*independent)(Twin&, int);
};

constexpr PlanCommand PlanCommands[] = {
    {"LNAV", 0.8, [](Server& s, std::int16_t v) { s.autoflight.afds->LNAV(v); },
     [](Twin& t, int v) { t.LNAV(v); }},
    {"VNAV", 0.8, [](Server& s, std::int16_t v) { s.autoflight.afds->VNAV(v); },
     [](Twin& t, int v) { t.VNAV(v); }},
    {"apToGa", 0.4, [](Server& s, std::int16_t v) { s.autoflight.xAutoP->apToGa(v); },
     [](Twin& t, int v) { t.apToGa(v); }},
    {"apAltitudeHold", 0.7,
     [](Server& s, std::int16_t v) { s.autoflight.xAutoP->apAltitudeHold(v); },
     [](Twin& t, int v) { t.apAltitudeHold(v); }},
    {"FdActive", 0.7, [](Server& s, std::int16_t v) { s.store.FdActive = v; },
     [](Twin& t, int v) { t.memory.FdActive = v; }},
    {"LogVerbose", 0.5, [](Server& s, std::int16_t v) { s.store.LogVerbose = v != 0; },
     [](Twin& t, int v) { t.memory.LogVerbose = v; }},
};

double wrapped(double longitude) {
  if (longitude > 180) return longitude - 360;
  return longitude < -180 ? longitude + 360 : longitude;
}

}  // namespace

std::string PlannedFlight::command(Setters setters) {
  if (!dice_.chance(0.2)) {
    std::string found = flight_.command(setters);
    last_ = flight_.last();
    return found;
  }
  const PlanCommand& which = dice_.oneOf(PlanCommands);
  const int value = dice_.chance(which.likelihood) ? 1 : 0;
  last_ = std::string(which.name) + " = " + std::to_string(value);
  return both_.run([&](Server& s) { which.product(s, static_cast<std::int16_t>(value)); },
                   [&](Twin& t) { which.independent(t, value); });
}

std::string PlannedFlight::execute() {
  both_.putShare();
  return both_.run([](Server& s) { s.autoflight.afds->ExecFlightplan(1); },
                   [](Twin& t) { t.memory.ExecFlightplan = 1; });
}

std::string PlannedFlight::answer() {
  for (const std::string& waypoint : both_.lastActive) planner.hear(waypoint);
  return planner.wantsExecution() ? execute() : "";
}

void PlannedFlight::move() {
  flight_.move();
  if (both_.twin.plan.hasRow(both_.twin.leg.ToRow)) moveAlong();
  if (wild_) moveToThresholds();
  Twin::Inputs& in = both_.twin.in;
  in.GroundSpeed = std::max(0, in.Tas + dice_.whole(-60, 60));
  if (dice_.chance(0.02)) in.soundOfAircraft = !in.soundOfAircraft;
  if (in.OnGround == 1 && dice_.chance(0.2)) in.OnGround = 0;
  both_.applyInputs();
}

void PlannedFlight::moveAlong() {
  Twin::Inputs& in = both_.twin.in;
  if (dice_.chance(0.1)) aim();
  if (dice_.chance(0.005)) return jump();
  stand(in.Latitude + north_deg_ * dice_.uniform(0, 2),
        in.Longitude + east_deg_ * dice_.uniform(0, 2));
  if (!dice_.chance(0.2)) return;
  const double course = both_.twin.plan.row(both_.twin.leg.ToRow)[independent::Course];
  const double heading = std::fmod(course + dice_.uniform(-120, 120) + 720, 360);
  in.TrueHeading = static_cast<float>(std::max(heading, 0.0));
}

/// More or less at the waypoint.
void PlannedFlight::aim() {
  const Twin::Inputs& in = both_.twin.in;
  const independent::Row& to = both_.twin.plan.row(both_.twin.leg.ToRow);
  const double north = to[independent::Latitude] - double{in.Latitude} + dice_.uniform(-0.02, 0.02);
  const double east =
      wrapped(to[independent::Longitude] - double{in.Longitude}) + dice_.uniform(-0.02, 0.02);
  const double step_deg = dice_.uniform(0, 0.02);
  const double away = std::max(std::hypot(north, east), 1e-9);
  north_deg_ = north / away * step_deg;
  east_deg_ = east / away * step_deg;
}

void PlannedFlight::jump() {
  const auto& rows = both_.twin.plan.rows;
  const independent::Row& row = dice_.oneOf(rows);
  const double latitude = row[independent::Latitude];
  const double longitude = row[independent::Longitude];
  switch (dice_.whole(0, 3)) {
    case 0:
      return stand(latitude, longitude);
    case 1:
      return stand(dice_.uniform(-90, 90), dice_.uniform(-180, 180));
    case 2:
      return stand(dice_.chance(0.5) ? 90 : -90, longitude);
    default:
      return stand(latitude + dice_.uniform(-0.2, 0.2), longitude + dice_.uniform(-0.2, 0.2));
  }
}

void PlannedFlight::stand(double latitude, double longitude) {
  both_.twin.in.Latitude = static_cast<float>(std::clamp(latitude, -90.0, 90.0));
  both_.twin.in.Longitude = static_cast<float>(std::clamp(wrapped(longitude), -180.0, 180.0));
}

void PlannedFlight::standOnLeg() {
  const auto& rows = both_.twin.plan.rows;
  if (rows.size() < 2) return;
  stand((rows[0][independent::Latitude] + rows[1][independent::Latitude]) / 2 + 0.01,
        (rows[0][independent::Longitude] + rows[1][independent::Longitude]) / 2 + 0.01);
  both_.twin.in.OnGround = 0;
  both_.applyInputs();
}

/// To where the phases change.
void PlannedFlight::moveToThresholds() {
  static constexpr std::array<int, 14> Heights = {49,  50,  51,  99,  100, 101,  200,
                                                  201, 400, 401, 800, 801, 3000, 3001};
  static constexpr std::array<float, 6> Speeds = {10, 29, 30, 59, 60, 84};
  Twin::Inputs& in = both_.twin.in;
  const double cruise = both_.twin.memory.CruiseAlt;
  if (dice_.chance(0.03)) in.RadioAltitude = dice_.oneOf(Heights);
  if (dice_.chance(0.02)) in.Ias = dice_.oneOf(Speeds);
  if (dice_.chance(0.05) && cruise < 50000)
    in.AircraftAltitude = std::round(cruise + dice_.uniform(-800, 200));
  if (dice_.chance(0.02))
    in.AircraftAltitude = both_.twin.apMcpAltitude() + dice_.uniform(-300, 300);
}

}  // namespace vorlent
