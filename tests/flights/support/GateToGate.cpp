#include "GateToGate.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "FlownRoute.h"
#include "autoflight/clsAfds.h"
#include "base/files.h"
#include "base/text.h"
#include "base/units.h"
#include "plan/PerfDatabase.h"
#include "plan/planRows.h"
#include "support/places.h"

namespace vorlent {
namespace {

constexpr double Longest_s = 3600;
constexpr int Interval_ms = 100;
constexpr double Look_s = Interval_ms / 1000.0;
constexpr double Localizer_MHz = 108.9;
const ArrivalRunway Westerleigh{{51.75, 0.1}, 265, 65.6};
const Endpoint Session{"127.0.0.1", 5001};
const Endpoint Planner{"127.0.0.1", 40001};

Condition onTheRunway(Condition condition) {
  condition.onRunway = true;
  return condition;
}

PerfDataRow rowOf(const PerfData& data) {
  const auto text = [](auto value) { return singleText(static_cast<float>(value), "."); };
  return {{"ClimbN1", text(data.ClimbN1)},
          {"MaxCruiseAlt", text(data.MaxCruiseAlt)},
          {"CruiseAlt", text(data.CruiseAlt)},
          {"FuelReserve", text(data.FuelReserve)},
          {"TripFuel", text(data.TripFuel)},
          {"ZeroFuelWeight", text(data.ZeroFuelWeight)},
          {"LandingWeight", text(data.LandingWeight)},
          {"TakeoffWeight", text(data.TakeoffWeight)},
          {"TakeoffN1", text(data.TakeoffN1)},
          {"FMCspeed", text(data.FMCspeed)},
          {"ClimbMach", text(data.ClimbMach)},
          {"DescentMach", text(data.DescentMach)}};
}

Place placeOf(const PlanPoint& point) {
  return {point.place.latitude_deg, point.place.longitude_deg};
}

Place placeOf(const Sample& sample) { return {sample.latitude_deg, sample.longitude_deg}; }

}  // namespace

PlannedFlight shippedFlight() {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.runway = Westerleigh;
  return planFlight(
      readXPlaneRoute(readFile(joinedPath(dataFolder(), "Routes/varnholt-westerleigh.fms"))), task);
}

GateToGate::GateToGate(const Condition& condition, const std::string& tuning)
    : flight_(onTheRunway(condition), tuning, rowOf(perfDataOf(plan_, 1))),
      pilot_(plan_, {Localizer_MHz, Westerleigh.course_deg}, Look_s,
             [this](const std::string& line) { told(line); }),
      session_(flight_.loop(), flight_.network(), {Session, Interval_ms, "display"}, plan_,
               {share_.path(), readFile(joinedPath(dataFolder(), "Templates/temp.mdb"))},
               [this](const std::string& line) { told(line); }) {
  connect();
}

/// The planner's socket is the one with port 0.
void GateToGate::connect() {
  flight_.onSent([this](const FakeNetwork::Sent& sent) {
    if (sent.fromPort == 0)
      flight_.network().deliver(sent.to.port, Planner, sent.text);
    else if (sent.to.port == Planner.port)
      flight_.network().deliver(0, {Session.address, sent.fromPort}, sent.text);
  });
  session_.steerBy(
      [this](const Record& record, std::size_t leg) { return pilot_.look(record, leg); });
  session_.start();
}

/// Each leg is told when its files stand in the share.
void GateToGate::told(const std::string& line) {
  told_.push_back(line);
  if (!line.starts_with("leg ")) return;
  for (const std::string name : {"EXEC", "PROF"}) flight_.share(name, share_.read("FMS/" + name));
  flight_.setPerformance(rowOf(perfDataOf(plan_, session_.leg())));
}

/// As a share would show it, each time with a later time.
void GateToGate::announce() {
  const std::string waypoint = flight_.takeActive();
  if (waypoint.empty()) return;
  share_.write("FMS/ACTIVE", waypoint + "\r\n");
  writtenAt_ += std::chrono::milliseconds(400);
  std::filesystem::last_write_time(share_ / "FMS/ACTIVE", writtenAt_);
}

void GateToGate::fly() {
  for (int n = 0; n < Longest_s / Look_s && !arrived(); ++n) {
    flight_.fly(Look_s);
    announce();
    note();
  }
}

void GateToGate::note() {
  notePhase();
  noteLnav();
  noteLeg();
}

void GateToGate::notePhase() {
  const int phase = flight_.afds().fmc.PhaseOfFlightEnum;
  if (!phases_.empty() && phases_.back() == phase) return;
  phases_.push_back(phase);
  if (phase != Phase::Descent) return;
  const auto top = std::ranges::find(plan_.points, "T/D", &PlanPoint::name);
  descentBegun_nm_ =
      distanceBetween_m(placeOf(*top), placeOf(flight_.now())) / MetresPerNauticalMile;
}

/// In the approach it goes off for the localizer.
void GateToGate::noteLnav() {
  const bool on = flight_.afds().LNAV() == 1;
  if (lnav_ && !on && flight_.afds().fmc.PhaseOfFlightEnum < Phase::Approach) ++lnavLost_;
  lnav_ = on;
}

void GateToGate::noteLeg() {
  const Sample& now = flight_.now();
  if (leg_ != session_.leg()) {
    leg_ = session_.leg();
    legBegun_s_ = now.time_s;
    const PlanPoint& behind = legEnd(plan_, leg_ - 1);
    if (behind.name == "E/D")
      endOfDescent_ = {std::fabs(now.altitude_ft - behind.target_ft),
                       std::fabs(now.speed_kt - now.targetSpeed_kt)};
  }
  if (leg_ > 1 && now.time_s > legBegun_s_ + 60 && lnav_)
    offLeg_nm_ = std::max(offLeg_nm_, std::fabs(offLeg(now)));
}

double GateToGate::offLeg(const Sample& sample) const {
  return crossTrack_nm(placeOf(legEnd(plan_, leg_ - 1)), placeOf(legEnd(plan_, leg_)),
                       placeOf(sample));
}

}  // namespace vorlent
