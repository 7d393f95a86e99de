#include <algorithm>
#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/rollLaws.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// Feet per minute that the panel takes. docs/peculiarities.md: vertical speed limits.
float panelVerticalSpeed(float feetPerMinute) {
  if (feetPerMinute >= 6000) return 6000;
  if (feetPerMinute <= -7900) return -8000;
  return toSingle(std::floor(double{feetPerMinute} * 100) / 100);
}

}  // namespace

void clsXAutoP::apHeading(float degrees) {
  if (degrees == targets_.heading_deg) return;
  targets_.heading_deg = degrees;
  if (degrees != autoflight_.store.ApHeadingSim) autoflight_.accessors.autoP->apHeading(degrees);
}

float clsXAutoP::apAltitude() const {
  return toSingle(double{targets_.biasedAltitude_ft} - autoflight::AltitudeBias_ft);
}

void clsXAutoP::apAltitude(float feet) {
  targets_.biasedAltitude_ft = toSingle(double{feet} + autoflight::AltitudeBias_ft);
}

float clsXAutoP::apMcpAltitude() const {
  return toSingle(double{targets_.biasedMcpAltitude_ft} - autoflight::AltitudeBias_ft);
}

void clsXAutoP::apMcpAltitude(float feet) {
  targets_.biasedMcpAltitude_ft = toSingle(double{feet} + autoflight::AltitudeBias_ft);
  if (double{feet} != autoflight_.store.ApAltitudeSim)
    autoflight_.accessors.autoP->apAltitude(feet);
  if (!autoflight::isOn(pitch_.altitudeHold)) apAltitude(feet);
}

void clsXAutoP::apAirSpeed(float knots) {
  if (knots == targets_.airSpeed_kt) return;
  targets_.airSpeed_kt = knots;
  autoflight_.xAutoT->apAirSpeed(knots);
  ApMachNumber(0);
  if (autoflight_.store.ApMachSim == 0) return;
  autoflight_.accessors.autoP->ApMachNumber(0);
  autoflight_.accessors.autoP->apMachNumberHold(autoflight_.xAutoT->apChangeover());
}

void clsXAutoP::apMcpAirSpeed(float knots) {
  targets_.mcpAirSpeed_kt = knots;
  if (knots != static_cast<float>(autoflight_.store.ApIasSim))
    autoflight_.accessors.autoP->apAirSpeed(knots);
}

void clsXAutoP::ApMachNumber(float mach) {
  targets_.mach = mach;
  autoflight_.xAutoT->ApMachNumber(mach);
}

void clsXAutoP::apVertSpeed(float feetPerMinute) {
  targets_.vertSpeed_fpm = panelVerticalSpeed(feetPerMinute);
  if (double{targets_.vertSpeed_fpm} == autoflight_.store.ApVsSim) return;
  autoflight_.accessors.autoP->apVertSpeed(targets_.vertSpeed_fpm);
  apAltitude(apMcpAltitude());
}

void clsXAutoP::apRollControlFactor(float factor) {
  turning_.controlFactor = turning_.workingFactor = factor;
}

void clsXAutoP::apBank(float degrees) {
  turning_.bank_deg = std::min(degrees, static_cast<float>(turning_.bankLimit_deg));
}

void clsXAutoP::apBankLimit(float degrees) { turning_.bankLimit_deg = toInt16(degrees); }

void clsXAutoP::apTurnRate(float rate) {
  turning_.turnRate = rate;
  turning_.bank_deg = toSingle(turnRateBank(autoflight_.store.Tas, rate, turning_.bankLimit_deg));
}

}  // namespace vorlent
