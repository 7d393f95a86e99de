#include <algorithm>
#include <cmath>
#include <optional>

#include "support/IndependentAutoflight.h"

namespace vorlent {
namespace {

using independent::over;
using independent::RadPerDeg;
using independent::signedAngle;

double arcSine(double x) {
  if (x == 1) return std::acos(-1.0) / 2;
  return std::atan(over(x, std::sqrt(1 - x * x)));
}

double tangent(double degrees) { return std::tan(degrees * RadPerDeg); }

}  // namespace

void IndependentAutoflight::SetBank(double wanted) {
  memory.apNormbank = signedAngle(in.Bank);
  const double bank = memory.apNormbank;
  const double factor = tune.workingRollFactor;
  double m = std::fabs(bank - wanted);
  if (in.AircraftAltitude < 10000)
    m = m * factor;
  else
    m = m * ((42000 - in.AircraftAltitude) * factor / 32000 + factor) / 2;

  const bool above = bank > wanted;
  const double x = above ? bank - wanted : wanted - bank;
  double output = 0;
  if (x > 0.02 && x < 0.1)
    output = above ? -m : m;
  else if (x > 0.1)
    output = above ? m : -m;
  memory.BankDeflection = m;
  AileronTrim(output * RadPerDeg);
  memory.FdBank = m;
}

void IndependentAutoflight::TurnToHeading() {
  const double heading = target.apHeading;
  const double d = signedAngle(in.MagHeading) - signedAngle(heading);
  const double c = std::fabs(d) > 180 ? -tune.apBank : double{tune.apBank};
  if (d == 0) {
    SetBank(0);
    return;
  }
  double e = std::fabs(heading - in.MagHeading);
  if (e > 360) e -= 360;
  if (e > 180) e = 360 - e;
  const double side = d < 0 ? -1 : 1;
  if (e > tune.apMaxBankCourseDeviation)
    SetBank(side * c);
  else if (e < 0.1)
    SetBank(0);
  else
    SetBank(side * over(c * e, tune.apMaxBankCourseDeviation));
}

double IndependentAutoflight::WindCorrection(double course) const {
  const double s = over(in.WindSpeedKt * std::sin((in.WindDirection - course) * RadPerDeg), in.Ias);
  double result = 0;
  if (std::fabs(s) <= 1) result = 57.2957795 * arcSine(s) + course;
  return result < 0 ? result + 360 : result;
}

bool IndependentAutoflight::LocalizerInRange() const {
  return std::abs(in.LocNeedle) < 10 &&
         std::fabs(target.apHeading - double{in.TrueHeading} - double{in.MagVar}) < 15;
}

void IndependentAutoflight::HoldRadioCourse() {
  const double n = in.LocNeedle;
  double t = target.CourseTarget;
  if (std::fabs(n) >= 127)
    t = in.TrueHeading;
  else if (std::fabs(n) >= 125)
    t = n < 0 ? target.CourseTarget - tune.apInterceptCourse
              : target.CourseTarget + tune.apInterceptCourse;
  else if (n != 0)
    t = (in.DmeDistance > 60 ? n * 1.2 : n) / tune.apInterceptCourse *
            tune.apInterceptCourseDeflection50 +
        target.CourseTarget;
  if (in.Ias != 0) target.apHeading = WindCorrection(t);
  trim.LastNeedle = n;
}

void IndependentAutoflight::HoldNav1() {
  tune.apInterceptCourse = 50;
  tune.apInterceptCourseDeflection50 = 30;
  target.CourseTarget = in.Obs;
  HoldRadioCourse();
  TurnToHeading();
}

void IndependentAutoflight::HoldLocalizer() {
  tune.apInterceptCourse = 30;
  tune.apInterceptCourseDeflection50 = 2.5;
  const double course = in.IlsHeading + 180.0 - in.MagVar;
  target.CourseTarget = course > 360 ? course - 360 : course;
  HoldRadioCourse();
  TurnToHeading();
}

void IndependentAutoflight::cwsRoll() {
  if (memory.SignedBank <= 6) {
    SetBank(0);
    memory.CwsBank = 0;
    return;
  }
  if (in.AileronInput != memory.LastAileronInput) {
    const bool increasing = std::fabs(memory.LastAileronInput) <= std::abs(in.AileronInput);
    if (!increasing || memory.SignedBank > memory.CwsBank) memory.CwsBank = memory.SignedBank;
  }
  SetBank(in.Bank < 180 ? double{memory.CwsBank} : -memory.CwsBank);
  memory.LastAileronInput = in.AileronInput;
}

void IndependentAutoflight::KeepPitch4() {
  const double T = target.apPitch;
  double E = T - in.Pitch;
  if (T != trim.LastTarget) {
    const double last = trim.LastTarget;
    trim.TargetDelta = E;
    trim.LastTarget = T;
    if (last == 99) {
      trim.TrimBase = (trim.TrimBase * 6 + trim.TrimWork) / 7;
    } else if (last == 0) {
      trim.PrevPitch = in.Pitch;
      trim.TrimBase = in.ElevatorTrimInput;
    } else {
      trim.TrimBase = in.ElevatorTrimInput;
      trim.PitchRate = 0;
    }
  }
  memory.FdPitch = -E;
  if (std::fabs(E) > 0.2) {
    const bool notMovingThere = E > 0 ? trim.PitchRate <= 0 : trim.PitchRate >= 0;
    if (notMovingThere) trim.TrimBase = trim.TrimBase + 2 * E * tune.apPitchControlfactor;
    TrimPosition(trim.TrimBase);
    const double moved = in.Pitch - trim.PrevPitch;
    trim.PitchRate = std::fabs(moved) > 0.001 ? moved : 0;
    trim.Counter = 0;
    trim.PrevError = E;
  } else {
    double size = std::fabs(E);
    if (E * trim.PrevError < 0) {
      E = -E;
      size = 0.01;
    }
    const double factor = tune.apPitchControlfactor;
    const double amount = std::fabs(trim.PitchRate) * (0.4 - size) * (factor * factor) * 28;
    if (E > 0) trim.TrimWork = trim.TrimBase - amount;
    if (E < 0) trim.TrimWork = trim.TrimBase + amount;
    if (E != 0) TrimPosition(trim.TrimWork);
  }
  trim.PrevPitch = in.Pitch;
  for (Single* trimmed : {&trim.TrimBase, &trim.TrimWork}) {
    if (std::fabs(*trimmed) <= 16383) continue;
    *trimmed = 16383;
    trim.LastTarget = 99;
  }
}

void IndependentAutoflight::HoldAltitude(double altError, double iasTrend, double bankRate) {
  const double A = std::fabs(altError);
  const double s = over(altError, A);
  const double t = std::clamp(iasTrend, -0.8, 0.8);
  const double V = memory.CalcVerticalSpeed;
  const double fix = tune.apVspeedSensitivityFix;
  const double sensitivity = tune.apVspeedSensitivity;
  if (A > 300) {
    target.VsTarget = std::pow(A, 1.9) * sensitivity * s / 10000;
  } else if (A > 50) {
    target.VsTarget = std::pow(std::fabs(altError - 110 * s * t), 1.9) * fix * s / 4000;
  } else if (A > 20) {
    const double shifted = altError > 0 ? altError - 140 * t : altError + 140 * t;
    target.VsTarget = std::pow(std::fabs(shifted), 1.9) * sensitivity * s / 7000;
    ResetRelay(3);
  } else if (std::fabs(V) > 600) {
    return;
  } else if (std::fabs(V) > 300) {
    const double size = V * V * sensitivity / 14000;
    target.VsTarget = V > 0 ? -size : size;
  } else if (V != 1) {
    const double size = V * V * fix / 7200;
    target.VsTarget = V > 1 ? -size : size;
  }
  if (std::fabs(target.VsTarget) > std::fabs(target.apVertSpeedMax))
    target.VsTarget = target.VsTarget > 0 ? double{target.apVertSpeedMax} : -target.apVertSpeedMax;

  memory.apNormbank = absoluteBank();
  const double bank = memory.apNormbank;
  const double gain = tune.apPitchSensitivityDyn;
  target.apPitch = over(target.VsTarget - V, gain) + in.Pitch;
  if (bank <= 1.5) return;
  ResetRelay(5);
  if (bank <= 5) return;
  double b = bank;
  if (bankRate > 0.2)
    b += 25;
  else if (bankRate < -0.25)
    b -= 25;
  target.apPitch = over(tangent(b) * 350 + target.VsTarget - V, gain) + in.Pitch;
}

void IndependentAutoflight::HoldVspeed(double bankRate, double average) {
  const double V = memory.CalcVerticalSpeed;
  const double d = V - average;
  const double gain = tune.apPitchSensitivityDyn;
  const double wanted = target.apVertSpeed - 3 * d;
  memory.apNormbank = absoluteBank();
  const double bank = memory.apNormbank;
  if (bank <= 5) {
    target.apPitch = over((wanted - V) * 1.2, gain) + in.Pitch;
  } else if (bankRate > 0.25) {
    target.apPitch = over((wanted + tangent(bank + 25) * 330 - V) * 1.2, gain) + in.Pitch;
    ResetRelay(5);
  } else if (bankRate < -0.25) {
    target.apPitch = over((wanted + tangent(bank - 15) * 330 - V) * 0.8, gain) + in.Pitch;
    ResetRelay(5);
  } else {
    target.apPitch = over((wanted + tangent(bank) * 330 - V) * 1.2, gain) + in.Pitch;
  }
}

void IndependentAutoflight::HoldAirspeedByPitch(double iasTrend) {
  double wanted = target.apAirSpeed;
  if (on.apMachNumberHoldByRpm > 0) {
    const double M = target.throttleMach;
    const double off = std::fabs(M - in.Mach);
    wanted = in.Mach > M ? in.Ias - 50 * off : in.Ias + 70 * off;
  }
  const double err = wanted - memory.AvgIas;
  if (std::fabs(err) > 2.5) {
    const bool remembers = memory.PitchMemoryFast != 0 && memory.PitchMemorySlow != 0;
    if (std::fabs(iasTrend) > 0.6 && remembers) {
      if (err > 0)
        target.apPitch = memory.PitchMemorySlow = iasTrend * 5 + memory.PitchMemoryFast;
      else
        target.apPitch = memory.PitchMemoryFast = iasTrend * 5 + memory.PitchMemorySlow;
    } else {
      target.apPitch = memory.PitchMemorySlow = memory.PitchMemoryFast = in.Pitch - err / 20;
    }
    return;
  }
  const bool fast = err > 0 && memory.CalcVerticalSpeed > 450 && iasTrend > 0;
  const bool slow = err <= 0 && iasTrend < 0;
  if (fast || slow) target.apPitch = in.Pitch - (err - 7 * iasTrend) / 7;
}

}  // namespace vorlent
