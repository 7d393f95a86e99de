#include "autoflight/RandomFlight.h"

#include <algorithm>
#include <cmath>

#include "autoflight/RandomCommands.h"

namespace vorlent {
namespace {

using Twin = IndependentAutoflight;

double targetValue(const std::string& name, double dice, const Twin& t) {
  const auto between = [dice](double from, double to) { return from + (to - from) * dice; };
  const bool seldom = dice > 0.9;
  if (name == "apHeading") return seldom ? t.in.ApHeadingSim : between(0, 400);
  if (name.ends_with("ltitude")) return seldom ? t.in.ApAltitudeSim : between(-100, 42000);
  if (name == "apAirSpeed") return seldom ? double{t.target.apAirSpeed} : between(0, 500);
  if (name == "apMcpAirSpeed") return seldom ? t.in.ApIasSim : between(0, 500);
  if (name == "ApMachNumber") return between(0, 1);
  if (name == "apVertSpeed" && dice < 0.05) return -7900;
  if (name == "apVertSpeed") return seldom ? t.in.ApVsSim : between(-9000, 7500);
  if (name == "apBank" || name == "apBankLimit") return between(-3, 40);
  if (name == "apTurnRate") return between(-1, 3);
  if (name == "ResetRelay") return seldom ? 32760 : between(0, 12);
  if (name == "N1SwitchStatus") return std::floor(between(0, 6));
  return between(0, 110);
}

}  // namespace

std::string RandomFlight::give(const RandomCommand& command, double value) {
  last_ = std::string(command.name) + " = " + std::to_string(value);
  return both_.run([&](Server& s) { command.product(s, value); },
                   [&](Twin& t) { command.independent(t, value); });
}

std::string RandomFlight::command(Setters setters) {
  if (chance(0.3)) {
    const RandomCommand& target = oneOf(targetCommands());
    return give(target, targetValue(target.name, uniform(0, 1), both_.twin));
  }
  const RandomCommand* mode = &oneOf(modeCommands());
  while (setters == Setters::WithoutCapture && mode->name == std::string("apLocalizerCapture"))
    mode = &oneOf(modeCommands());
  return give(*mode, chance(0.6) ? 1 : 0);
}

std::string RandomFlight::retune() {
  const RandomTuning& which = oneOf(tunings());
  double value = uniform(which.lowest, which.highest);
  if (jump(0.1)) value = 0;
  if (jump(0.1)) value *= 10;
  return give(which.command, value);
}

std::string RandomFlight::tuneAll() {
  std::string found;
  for (const RandomTuning& each : tunings())
    found += give(each.command, (each.lowest + each.highest) / 2);
  return found;
}

void RandomFlight::move() {
  moveAir();
  moveAttitude();
  moveAltitude();
  moveRadios();
  moveEngines();
  if (chance(0.1)) moveSimulatorAutopilot();
  Twin::Inputs& in = both_.twin.in;
  if (chance(0.02)) in.Paused = 1 - in.Paused;
  if (in.Paused == 1 && chance(0.3)) in.Paused = 0;
  if (chance(0.02)) in.OnGround = 1 - in.OnGround;
  if (chance(0.02)) in.CycleRunning = !in.CycleRunning;
  both_.applyInputs();
}

float RandomFlight::drift(float value, double step, double lowest, double highest) {
  const double moved = jump(0.01) ? uniform(lowest, highest) : double{value} + uniform(-step, step);
  return static_cast<float>(std::clamp(moved, lowest, highest));
}

float RandomFlight::turned(float degrees, double step) {
  double moved = jump(0.01) ? uniform(0, 360) : double{degrees} + uniform(-step, step);
  if (moved < 0) moved += 360;
  if (moved >= 360) moved -= 360;
  return static_cast<float>(moved);
}

void RandomFlight::moveAir() {
  Twin::Inputs& in = both_.twin.in;
  in.Ias = drift(in.Ias, 1.5, wild_ ? 0 : 100, wild_ ? 450 : 400);
  if (jump(0.05)) in.Ias = static_cast<float>(both_.twin.memory.AvgIas);
  if (jump(0.01)) in.Ias = 0;
  if (jump(0.2) && in.Ias > 30)
    in.Ias = static_cast<float>(both_.twin.target.apAirSpeed + uniform(-6, 6));
  in.Ias = std::max(std::round(in.Ias * 128) / 128, 0.0F);  // the simulator's steps
  in.Tas = chance(0.02) ? 0 : static_cast<int>(in.Ias * 1.3F);
  in.Mach = static_cast<float>(in.Ias / 500.0 + uniform(-0.02, 0.02));
  in.WindSpeedKt = drift(in.WindSpeedKt, 4, 0, 200);
  in.WindDirection = turned(in.WindDirection, 10);
  if (chance(0.02)) in.FlapsControl = whole(0, 2) * 4096;
  if (chance(0.05)) in.ApMachSim = whole(0, 1) == 0 ? 0 : in.Mach;
}

void RandomFlight::moveAttitude() {
  Twin::Inputs& in = both_.twin.in;
  in.Pitch = drift(in.Pitch, 0.3, -25, 25);
  const double wantedPitch = both_.twin.target.apPitch;
  if (jump(0.3) && std::fabs(wantedPitch) < 60)
    in.Pitch = static_cast<float>(wantedPitch + uniform(-0.3, 0.3));
  if (jump(0.01)) in.Pitch = static_cast<float>(both_.twin.target.apPitch);
  in.Bank = turned(in.Bank, 2);
  static constexpr double Banks[] = {0, 1.5, 5, 6, 6.1, 90, 180, 180.5, 354, 359, 359.95};
  if (jump(0.05)) in.Bank = static_cast<float>(oneOf(Banks));
  if (jump(0.2)) in.Bank = static_cast<float>(uniform(0, 0.15));
  if (jump(0.05)) in.Bank = static_cast<float>(both_.twin.tune.apBank);
  if (!wild_ && in.Bank > 40 && in.Bank < 320) in.Bank = in.Bank < 180 ? 40 : 320;
  in.TrueHeading = turned(in.TrueHeading, 1);
  in.MagHeading = turned(in.TrueHeading, 15);
  if (chance(0.05)) in.MagHeading = static_cast<float>(uniform(-3, 3) + 360);
  if (in.MagHeading > 360 && chance(0.9)) in.MagHeading -= 360;
  static constexpr double Off[] = {0, 0.05, -0.05, 0.1, -0.1, 1, -1, 30, -30, 180, -180, 31};
  if (chance(0.3)) in.MagHeading = static_cast<float>(both_.twin.target.apHeading + oneOf(Off));
  if (in.MagHeading < 0) in.MagHeading += 360;
  in.MagVar = drift(in.MagVar, 0.2, -40, 40);
  for (int* input : {&in.ElevatorInput, &in.AileronInput})
    if (chance(0.2)) *input = whole(-16383, 16383);
  if (chance(0.05)) in.AileronInput = -in.AileronInput;
}

void RandomFlight::moveAltitude() {
  Twin::Inputs& in = both_.twin.in;
  const double climb_fpm = in.VerticalSpeed + uniform(-200, 200);
  static constexpr double Rates[] = {0,    1,   0.5, -1,  300,  -300, 301,
                                     -301, 450, 451, 600, -601, 1800};
  in.VerticalSpeed = static_cast<float>(std::clamp(climb_fpm, -3000.0, 3000.0));
  if (jump(0.05)) in.VerticalSpeed = static_cast<float>(oneOf(Rates));
  in.AircraftAltitude += in.VerticalSpeed / 60.0 * 0.4;
  static constexpr double Errors[] = {0,    20,   -20,  20.5,  -20.5, 50,  -50,  51,
                                      -51,  300,  -300, 301,   -301,  750, -750, -751,
                                      1000, 1001, -999, -1000, -1001, 3,   -3,   10};
  if (jump(0.15)) {
    // After such a jump the vertical speed counts as the simulator tells it.
    in.AircraftAltitude = both_.twin.apAltitude() - oneOf(Errors);
    if (chance(0.5)) in.VerticalSpeed = static_cast<float>(oneOf(Rates));
  }
  if (jump(0.01)) in.AircraftAltitude = uniform(-500, 45000);
  if (jump(0.01)) in.AircraftAltitude = 10000;
  in.AircraftAltitude = std::clamp(in.AircraftAltitude, -1000.0, 60000.0);
  in.RadioAltitude = static_cast<int>(in.AircraftAltitude) - (chance(0.5) ? 0 : 600);
  in.ElevatorTrimInput = jump(0.05) ? whole(-16384, 16383) : in.ElevatorTrimInput + whole(-9, 9);
  in.ElevatorTrimInput = std::clamp(in.ElevatorTrimInput, wild_ ? -49153 : -16383, 16383);
}

void RandomFlight::moveRadios() {
  Twin::Inputs& in = both_.twin.in;
  static constexpr int Needles[] = {0,   9,    -9,  10,   -10, 1,    -1,   124,
                                    125, -125, 126, -126, 127, -127, -128, 60};
  if (chance(0.1)) in.LocNeedle = chance(0.5) ? oneOf(Needles) : whole(-128, 127);
  if (chance(0.02)) in.Obs = whole(0, 360);
  if (chance(0.02)) in.IlsHeading = static_cast<float>(uniform(0, 360));
  if (chance(0.1)) in.DmeDistance = static_cast<float>(chance(0.3) ? 60 : uniform(0, 120));
  if (!jump(0.01)) return;
  // A wind of the airspeed's own size straight across the course.
  in.Obs = 0;
  in.LocNeedle = 0;
  in.WindSpeedKt = in.Ias;
  in.WindDirection = chance(0.5) ? 90 : 270;
}

void RandomFlight::moveEngines() {
  Twin::Inputs& in = both_.twin.in;
  for (auto& engine : in.engines) {
    engine.ThrustLever = drift(engine.ThrustLever, 3, -25, 105);
    engine.N1 = drift(engine.N1, 2, 0, 110);
  }
  if (chance(0.02)) in.EngineCount = whole(0, 4);
}

void RandomFlight::moveSimulatorAutopilot() {
  Twin::Inputs& in = both_.twin.in;
  in.ApHeadingSim = static_cast<float>(uniform(0, 360));
  in.ApAltitudeSim = whole(0, 40000);
  in.ApIasSim = whole(0, 400);
  in.ApVsSim = whole(-3000, 3000);
  in.ApSpeedHoldSim = whole(0, 1);
  in.ApBcHoldSim = whole(0, 1);
}

}  // namespace vorlent
