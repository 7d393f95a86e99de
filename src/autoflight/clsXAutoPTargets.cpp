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

/// Feet per minute that the panel takes; the limits are not symmetric on purpose.
float panelVerticalSpeed(float feetPerMinute) {
  if (feetPerMinute >= 6000) return 6000;
  if (feetPerMinute <= -7900) return -8000;
  return toSingle(std::floor(double{feetPerMinute} * 100) / 100);
}

}  // namespace

void clsXAutoP::apHeading(float degrees) {
  if (degrees == apHeading_) return;
  apHeading_ = degrees;
  if (degrees != autoflight_.store.ApHeadingSim) autoflight_.accessors.autoP->apHeading(degrees);
}

float clsXAutoP::apAltitude() const { return toSingle(double{apAltitude_} - AltitudeBias_); }

void clsXAutoP::apAltitude(float feet) { apAltitude_ = toSingle(double{feet} + AltitudeBias_); }

float clsXAutoP::apMcpAltitude() const { return toSingle(double{apMcpAltitude_} - AltitudeBias_); }

void clsXAutoP::apMcpAltitude(float feet) {
  apMcpAltitude_ = toSingle(double{feet} + AltitudeBias_);
  if (double{feet} != autoflight_.store.ApAltitudeSim)
    autoflight_.accessors.autoP->apAltitude(feet);
  if (!autoflight::isOn(apAltitudeHold_)) apAltitude(feet);
}

void clsXAutoP::apAirSpeed(float knots) {
  if (knots == apAirSpeed_) return;
  apAirSpeed_ = knots;
  autoflight_.xAutoT->apAirSpeed(knots);
  ApMachNumber(0);
  if (autoflight_.store.ApMachSim == 0) return;
  autoflight_.accessors.autoP->ApMachNumber(0);
  autoflight_.accessors.autoP->apMachNumberHold(autoflight_.xAutoT->apChangeover());
}

void clsXAutoP::apMcpAirSpeed(float knots) {
  apMcpAirSpeed_ = knots;
  if (knots != static_cast<float>(autoflight_.store.ApIasSim))
    autoflight_.accessors.autoP->apAirSpeed(knots);
}

void clsXAutoP::ApMachNumber(float mach) {
  ApMachNumber_ = mach;
  autoflight_.xAutoT->ApMachNumber(mach);
}

void clsXAutoP::apVertSpeed(float feetPerMinute) {
  apVertSpeed_ = panelVerticalSpeed(feetPerMinute);
  if (double{apVertSpeed_} == autoflight_.store.ApVsSim) return;
  autoflight_.accessors.autoP->apVertSpeed(apVertSpeed_);
  apAltitude(apMcpAltitude());
}

void clsXAutoP::apRollControlFactor(float factor) {
  apRollControlFactor_ = workingRollFactor_ = factor;
}

void clsXAutoP::apBank(float degrees) {
  apBank_ = std::min(degrees, static_cast<float>(apBankLimit_));
}

void clsXAutoP::apBankLimit(float degrees) { apBankLimit_ = toInt16(degrees); }

void clsXAutoP::apTurnRate(float rate) {
  apTurnRate_ = rate;
  apBank_ = toSingle(turnRateBank(autoflight_.store.Tas, rate, apBankLimit_));
}

}  // namespace vorlent
