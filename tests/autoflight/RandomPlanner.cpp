#include "autoflight/RandomPlanner.h"

#include <array>

namespace vorlent {
namespace {

struct Range {
  const char* name;
  double lowest;
  double highest;
};

constexpr Range PerformanceFields[] = {{"ClimbN1", 60, 100},
                                       {"MaxCruiseAlt", 50, 410},
                                       {"CruiseAlt", 50, 410},
                                       {"FuelReserve", 0, 20000},
                                       {"TripFuel", 0, 40000},
                                       {"ZeroFuelWeight", 80000, 120000},
                                       {"LandingWeight", 80000, 130000},
                                       {"TakeoffWeight", 80000, 160000},
                                       {"TakeoffN1", 20, 100},
                                       {"FMCspeed", -20, 340},
                                       {"ClimbMach", 0.4, 0.9},
                                       {"DescentMach", 0.4, 0.9}};

constexpr Range TuningKeys[] = {{"TurningRangeVor", 1, 9},
                                {"TurningRangeWpt", 1, 9},
                                {"RollControlFactor", 0.1, 1},
                                {"PitchControlfactor", 5, 60},
                                {"ClimbPitchFactor", 0.01, 0.06},
                                {"PitchSensitivity", 100, 500},
                                {"VspeedSensitivity", 20, 200},
                                {"ThrottleControlFactor", 0.01, 0.2},
                                {"MaxBankCourseDeviation", 5, 60},
                                {"BankLimitLowAltitude", 5, 15},
                                {"BankLimitHighAltitude", 20, 35},
                                {"MaxTrackOffset", 0.5, 6},
                                {"N1ToThr0", 0, 1},
                                {"N1ToThr1", 0, 1},
                                {"N1ToThr2", 0, 1}};

std::string padded(std::string name) {
  name.resize(5, ' ');
  return name;
}

}  // namespace

void RandomPlanner::plan() {
  route_ = randomRoute(dice_);
  putFiles();
  putAircraft();
  putPerformance();
  if (dice_.chance(0.3)) spoil();
}

void RandomPlanner::planWell() {
  route_ = randomRoute(dice_);
  putFiles();
}

void RandomPlanner::putFiles() {
  share_.exec = planFileOf(route_, dice_);
  share_.prof = planFileOf(randomProfile(route_, dice_), dice_);
}

void RandomPlanner::putAircraft() {
  static constexpr std::array<const char*, 4> Aircraft = {"737-300", "737-400", "737-700X", "DC-3"};
  share_.aircraft = dice_.oneOf(Aircraft);
  if (dice_.chance(0.1)) share_.aircraft.reset();
  share_.tuning.clear();
  for (const Range& key : TuningKeys)
    if (!dice_.chance(0.02)) share_.tuning[key.name] = dice_.uniform(key.lowest, key.highest);
}

void RandomPlanner::putPerformance() {
  share_.performance.reset();
  if (dice_.chance(0.1)) return;
  auto& fields = share_.performance.emplace();
  for (const Range& field : PerformanceFields) {
    if (dice_.chance(0.1)) continue;
    const double value = dice_.uniform(field.lowest, field.highest);
    fields[field.name] = dice_.chance(0.05) ? oddNumber(dice_) : std::to_string(value);
  }
}

void RandomPlanner::spoil() {
  if (dice_.chance(0.5)) share_.exec = oddPlanFileOf(route_, dice_);
  if (dice_.chance(0.5)) share_.prof = oddPlanFileOf(route_, dice_);
  if (dice_.chance(0.05)) share_.exec.reset();
  if (dice_.chance(0.05)) share_.prof.reset();
}

void RandomPlanner::hear(const std::string& waypoint) {
  if (deafFor_ > 0 || answerIn_ > 0) return;
  if (route_.size() < 3 || padded(route_[2].Name) != waypoint) return;
  const double mood = dice_.uniform(0, 1);
  answerIn_ = mood < 0.2 ? dice_.whole(2, 60) : 1;
  again_ = mood > 0.8;
  withAnother_ = mood > 0.4 && mood < 0.5;
  if (mood < 0.3 || mood > 0.4) return;
  answerIn_ = 0;
  deafFor_ = dice_.whole(50, 400);
}

bool RandomPlanner::wantsExecution() {
  if (deafFor_ > 0) --deafFor_;
  if (answerIn_ > 0 && --answerIn_ == 0) {
    answer();
    return true;
  }
  if (dice_.chance(0.003)) {
    plan();
    return true;
  }
  return dice_.chance(0.001);
}

void RandomPlanner::answer() {
  ++answers;
  if (withAnother_)
    plan();
  else if (route_.size() > 2)
    route_.erase(route_.begin());
  if (!withAnother_) putFiles();
  if (again_) answerIn_ = 1;
  again_ = withAnother_ = false;
}

}  // namespace vorlent
