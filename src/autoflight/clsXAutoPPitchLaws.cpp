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

void clsXAutoP::FlyGS() {
  const modPublic& v = autoflight_.store;
  const NavRadio& nav = v.NavRadios(1);
  GlideslopeMemory& memory = memory_.glideslope;
  memory.easeAngleOfAttack(presentAngleOfAttack_deg());
  const bool alive = nav.GsFlag != 0;
  if (alive && meetsGlidePath(nav.GsNeedle)) apGsCapture(1);
  if (!isOn(apGsCapture())) {
    const double error_ft = memory.pressAltitude_ft - v.AircraftAltitude;
    apPitch(toSingle(memory.pitch_deg(0, levelCorrection_deg(error_ft, v.GroundSpeed))));
  } else if (canFollow(alive)) {
    const double correction_deg =
        glidePathCorrection_deg(nav.GsNeedle, v.RadioAltitude, v.GroundSpeed);
    apPitch(toSingle(memory.pitch_deg(-slopeOf_deg(nav.IlsSlope), correction_deg)));
  }
}

/// Tells a needle that has died, once.
bool clsXAutoP::canFollow(bool alive) {
  constexpr std::int32_t LastHeight_ft = 50;
  if (autoflight_.store.RadioAltitude <= LastHeight_ft) return false;
  if (!alive && !memory_.glideslope.lossTold)
    autoflight_.status.SetStatusText(1, "Glide path lost: the autopilot keeps the attitude");
  memory_.glideslope.lossTold = !alive;
  return alive;
}

double clsXAutoP::presentAngleOfAttack_deg() const {
  const modPublic& v = autoflight_.store;
  return angleOfAttack_deg({v.Pitch, v.CalcVerticalSpeed, static_cast<double>(v.GroundSpeed)});
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
