#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/numbers.h"
#include "platform/StatusLine.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

PitchFeedback clsXAutoP::pitchFeedback() const {
  const modPublic& v = autoflight_.store;
  return {v.CalcVerticalSpeed, gains.apPitchSensitivityDyn, v.Pitch};
}

void clsXAutoP::take(const PitchCommand& command) {
  apPitch(command.pitch_deg);
  if (command.relay) autoflight_.afds->ResetRelay(*command.relay);
}

void clsXAutoP::HoldAltitude(double altError_ft, double iasTrend_kt_s, double bankRate_deg_s) {
  const modPublic& v = autoflight_.store;
  const auto target = altitudeTarget({altError_ft, iasTrend_kt_s, v.CalcVerticalSpeed,
                                      gains.apVspeedSensitivity, tuning.apVspeedSensitivityFix,
                                      memory_.vsTarget_fpm, targets_.vertSpeedMax_fpm});
  if (!target) return;
  memory_.vsTarget_fpm = target->verticalSpeed_fpm;
  if (target->relay) autoflight_.afds->ResetRelay(*target->relay);
  memory_.normbank_deg = toSingle(bankSize(v.Bank));
  take(altitudePitch(memory_.vsTarget_fpm, pitchFeedback(), memory_.normbank_deg, bankRate_deg_s));
}

void clsXAutoP::HoldVspeed(double bankRate_deg_s, double avgVerticalSpeed_fpm) {
  memory_.normbank_deg = toSingle(bankSize(autoflight_.store.Bank));
  take(verticalSpeedPitch(targets_.vertSpeed_fpm, avgVerticalSpeed_fpm, pitchFeedback(),
                          memory_.normbank_deg, bankRate_deg_s));
}

void clsXAutoP::HoldAirspeedByPitch(double iasTrend_kt_s) {
  const modPublic& v = autoflight_.store;
  double target_kt = targets_.airSpeed_kt;
  if (autoflight_.xAutoT->apMachNumberHoldByRpm() > 0) {
    const double off = std::fabs(double{autoflight_.xAutoT->ApMachNumber()} - v.Mach);
    target_kt = v.Mach > autoflight_.xAutoT->ApMachNumber() ? v.Ias - 50 * off : v.Ias + 70 * off;
  }
  const auto pitch =
      speedPitch({target_kt, v.AvgIas, iasTrend_kt_s, v.CalcVerticalSpeed, v.Pitch}, memory_.speed);
  if (pitch) apPitch(*pitch);
}

void clsXAutoP::FlyGS(double bankRate_deg_s, double avgVerticalSpeed_fpm) {
  const auto target_fpm = glideslopeTarget_fpm();
  if (!target_fpm) return;
  memory_.normbank_deg = toSingle(bankSize(autoflight_.store.Bank));
  take(verticalSpeedPitch(*target_fpm, avgVerticalSpeed_fpm, pitchFeedback(), memory_.normbank_deg,
                          bankRate_deg_s));
}

/// Nothing where the attitude is kept.
std::optional<double> clsXAutoP::glideslopeTarget_fpm() {
  constexpr std::int32_t LastHeight_ft = 50;
  const modPublic& v = autoflight_.store;
  const NavRadio& nav = v.NavRadios(1);
  GlideslopeMemory& memory = memory_.glideslope;
  const bool alive = nav.GsFlag != 0;
  if (alive && meetsGlidePath(nav.GsNeedle)) apGsCapture(1);
  if (!isOn(apGsCapture())) return levelTarget_fpm(memory.pressAltitude_ft - v.AircraftAltitude);
  if (v.RadioAltitude <= LastHeight_ft) return std::nullopt;
  if (!alive && !memory.lossTold)
    autoflight_.status.SetStatusText(1, "Glide path lost: the autopilot keeps the attitude");
  memory.lossTold = !alive;
  if (!alive) return std::nullopt;
  return glidePathTarget_fpm({static_cast<double>(nav.GsNeedle), nav.IlsSlope,
                              static_cast<double>(v.GroundSpeed),
                              static_cast<double>(v.RadioAltitude)});
}

void clsXAutoP::HoldPitch() { KeepPitch4(); }

void clsXAutoP::KeepPitch4() {
  modPublic& v = autoflight_.store;
  const auto pass = keepPitch(memory_.trim, {targets_.pitch_deg, v.Pitch, v.ElevatorTrimInput,
                                             tuning.apPitchControlfactor});
  v.FdPitch = toSingle(double{v.Pitch} - targets_.pitch_deg);
  if (pass.trim) autoflight_.accessors.srv->TrimPosition(*pass.trim);
  memory_.trim = pass.after;
}

}  // namespace vorlent
