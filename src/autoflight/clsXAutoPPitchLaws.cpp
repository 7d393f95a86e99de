#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

PitchFeedback clsXAutoP::pitchFeedback() const {
  const modPublic& v = autoflight_.store;
  return {v.CalcVerticalSpeed, apPitchSensitivityDyn, v.Pitch};
}

void clsXAutoP::take(const PitchCommand& command) {
  apPitch(command.pitch_deg);
  if (command.relay) autoflight_.afds->ResetRelay(*command.relay);
}

void clsXAutoP::HoldAltitude(double altError_ft, double iasTrend_kt_s, double bankRate_deg_s) {
  const modPublic& v = autoflight_.store;
  const auto target =
      altitudeTarget({altError_ft, iasTrend_kt_s, v.CalcVerticalSpeed, apVspeedSensitivity,
                      apVspeedSensitivityFix, VsTarget_, apVertSpeedMax_});
  if (!target) return;
  VsTarget_ = target->verticalSpeed_fpm;
  if (target->relay) autoflight_.afds->ResetRelay(*target->relay);
  apNormbank_ = toSingle(bankSize(v.Bank));
  take(altitudePitch(VsTarget_, pitchFeedback(), apNormbank_, bankRate_deg_s));
}

void clsXAutoP::HoldVspeed(double bankRate_deg_s, double avgVerticalSpeed_fpm) {
  apNormbank_ = toSingle(bankSize(autoflight_.store.Bank));
  take(verticalSpeedPitch(apVertSpeed_, avgVerticalSpeed_fpm, pitchFeedback(), apNormbank_,
                          bankRate_deg_s));
}

void clsXAutoP::HoldAirspeedByPitch(double iasTrend_kt_s) {
  const modPublic& v = autoflight_.store;
  double target_kt = apAirSpeed_;
  if (autoflight_.xAutoT->apMachNumberHoldByRpm() > 0) {
    const double off = std::fabs(double{autoflight_.xAutoT->ApMachNumber()} - v.Mach);
    target_kt = v.Mach > autoflight_.xAutoT->ApMachNumber() ? v.Ias - 50 * off : v.Ias + 70 * off;
  }
  const auto pitch =
      speedPitch({target_kt, v.AvgIas, iasTrend_kt_s, v.CalcVerticalSpeed, v.Pitch}, pitchMemory_);
  if (pitch) apPitch(*pitch);
}

void clsXAutoP::HoldPitch() { KeepPitch4(); }

void clsXAutoP::KeepPitch4() {
  modPublic& v = autoflight_.store;
  const auto trim =
      keepPitch(pitchTrim_, {apPitch_, v.Pitch, v.ElevatorTrimInput, apPitchControlfactor});
  v.FdPitch = toSingle(double{v.Pitch} - apPitch_);
  if (trim) autoflight_.accessors.srv->TrimPosition(*trim);
}

}  // namespace vorlent
