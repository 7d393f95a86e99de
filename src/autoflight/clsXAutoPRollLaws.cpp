#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/rollLaws.h"
#include "base/numbers.h"
#include "base/units.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

void clsXAutoP::SetBank(double target_deg) {
  modPublic& v = autoflight_.store;
  apNormbank_ = toSingle(signedDegrees(v.Bank));
  const Aileron aileron =
      aileronFor(apNormbank_, target_deg, v.AircraftAltitude, workingRollFactor_);
  BankDeflection_ = toSingle(aileron.deflection);
  autoflight_.accessors.srv->AileronTrim(aileron.output * CoarseRadiansPerDegree);
  v.FdBank = BankDeflection_;
}

void clsXAutoP::TurnToHeading() {
  SetBank(turnBank(apHeading_, autoflight_.store.MagHeading, apBank_, apMaxBankCourseDeviation));
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
  CourseTarget_ = courseGc;
  double course = trackCourse(
      {crossTrack, CourseTarget_, side, apMaxTrackOffset, apIntCourseDeflectionWpt, v.TrueHeading});
  if (v.Ias != 0) course = WindCorrection(course);
  apHeading_ = toSingle(course - v.MagVar);
  TurnToHeading();
}

void clsXAutoP::HoldNav1() {
  apInterceptCourse = 50;
  apInterceptCourseDeflection50 = 30;
  CourseTarget_ = autoflight_.store.NavRadios(1).Obs;
  HoldRadioCourse();
  TurnToHeading();
}

void clsXAutoP::HoldLocalizer() {
  apInterceptCourse = 30;
  apInterceptCourseDeflection50 = 2.5F;
  const modPublic& v = autoflight_.store;
  const double course = double{v.NavRadios(1).IlsHeading} + 180 - v.MagVar;
  CourseTarget_ = toSingle(course > 360 ? course - 360 : course);
  HoldRadioCourse();
  TurnToHeading();
}

void clsXAutoP::HoldRadioCourse() {
  const modPublic& v = autoflight_.store;
  const NavRadio& radio = v.NavRadios(1);
  const double course =
      beamCourse({radio.LocNeedle, CourseTarget_, radio.DmeDistance, apInterceptCourse,
                  apInterceptCourseDeflection50, v.TrueHeading});
  // docs/peculiarities.md: radio course without variation.
  if (v.Ias != 0) apHeading_ = toSingle(WindCorrection(course));
  pitchTrim_.LastNeedle = radio.LocNeedle;
}

bool clsXAutoP::LocalizerInRange() const {
  const modPublic& v = autoflight_.store;
  // docs/peculiarities.md: localizer's variation.
  const double off = double{apHeading_} - v.TrueHeading - v.MagVar;
  return std::abs(v.NavRadios(1).LocNeedle) < 10 && std::fabs(off) < 15;
}

}  // namespace vorlent
