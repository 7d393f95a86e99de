#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/rollLaws.h"
#include "base/numbers.h"
#include "base/units.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr Intercept VorIntercept{50, 30};
constexpr Intercept LocalizerIntercept{30, 2.5F};

}  // namespace

void clsXAutoP::SetBank(double target_deg) {
  modPublic& v = autoflight_.store;
  memory_.normbank_deg = toSingle(signedDegrees(v.Bank));
  const Aileron aileron =
      aileronFor(memory_.normbank_deg, target_deg, v.AircraftAltitude, turning_.workingFactor);
  memory_.bankDeflection_deg = toSingle(aileron.deflection);
  autoflight_.accessors.srv->AileronTrim(aileron.output * CoarseRadiansPerDegree);
  v.FdBank = memory_.bankDeflection_deg;
}

void clsXAutoP::TurnToHeading() {
  SetBank(turnBank(targets_.heading_deg, autoflight_.store.MagHeading, turning_.bank_deg,
                   tuning.apMaxBankCourseDeviation));
}

void clsXAutoP::HoldBank(double bank_deg) { SetBank(bank_deg); }

void clsXAutoP::HoldHeading() { TurnToHeading(); }

double clsXAutoP::WindCorrection(double course_deg) const {
  const modPublic& v = autoflight_.store;
  return windCorrection(course_deg, v.WindSpeedKt, v.WindDirection, v.Ias);
}

void clsXAutoP::HoldWpt(float& courseGc, float& /*courseDirect*/, float& crossTrack,
                        std::int16_t side) {
  const modPublic& v = autoflight_.store;
  crossTrack = toSingle(double{crossTrack} * 60 * CoarseDegreesPerRadian);
  memory_.courseTarget_deg = courseGc;
  double course = trackCourse({crossTrack, memory_.courseTarget_deg, side, tuning.apMaxTrackOffset,
                               tuning.apIntCourseDeflectionWpt, v.TrueHeading});
  if (v.Ias != 0) course = WindCorrection(course);
  targets_.heading_deg = toSingle(course - v.MagVar);
  TurnToHeading();
}

void clsXAutoP::HoldNav1() {
  intercept = VorIntercept;
  memory_.courseTarget_deg = autoflight_.store.NavRadios(1).Obs;
  HoldRadioCourse();
  TurnToHeading();
}

void clsXAutoP::HoldLocalizer() {
  intercept = LocalizerIntercept;
  const modPublic& v = autoflight_.store;
  const double course = double{v.NavRadios(1).IlsHeading} + 180 - v.MagVar;
  memory_.courseTarget_deg = toSingle(course > 360 ? course - 360 : course);
  HoldRadioCourse();
  TurnToHeading();
}

void clsXAutoP::HoldRadioCourse() {
  const modPublic& v = autoflight_.store;
  const NavRadio& radio = v.NavRadios(1);
  const double course = beamCourse({radio.LocNeedle, memory_.courseTarget_deg, radio.DmeDistance,
                                    intercept.apInterceptCourse,
                                    intercept.apInterceptCourseDeflection50, v.TrueHeading});
  // docs/peculiarities.md: radio course without variation.
  if (v.Ias != 0) targets_.heading_deg = toSingle(WindCorrection(course));
  memory_.trim.LastNeedle = radio.LocNeedle;
}

bool clsXAutoP::LocalizerInRange() const {
  const modPublic& v = autoflight_.store;
  // docs/peculiarities.md: localizer's variation.
  const double off = double{targets_.heading_deg} - v.TrueHeading - v.MagVar;
  return std::abs(v.NavRadios(1).LocNeedle) < 10 && std::fabs(off) < 15;
}

}  // namespace vorlent
