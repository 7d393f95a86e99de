#include <algorithm>
#include <cmath>

#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modeFlags.h"
#include "autoflight/rollLaws.h"
#include "base/numbers.h"
#include "core/Server.h"
#include "simlink/clsAutoP.h"

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
  if (degrees == apHeading_) return;
  apHeading_ = degrees;
  if (degrees != server_.store.ApHeadingSim) server_.autoP->apHeading(degrees);
}

float clsXAutoP::apAltitude() const { return toSingle(double{apAltitude_} - AltitudeBias_); }

void clsXAutoP::apAltitude(float feet) { apAltitude_ = toSingle(double{feet} + AltitudeBias_); }

float clsXAutoP::apMcpAltitude() const { return toSingle(double{apMcpAltitude_} - AltitudeBias_); }

void clsXAutoP::apMcpAltitude(float feet) {
  apMcpAltitude_ = toSingle(double{feet} + AltitudeBias_);
  if (double{feet} != server_.store.ApAltitudeSim) server_.autoP->apAltitude(feet);
  if (!autoflight::isOn(apAltitudeHold_)) apAltitude(feet);
}

void clsXAutoP::apAirSpeed(float knots) {
  if (knots == apAirSpeed_) return;
  apAirSpeed_ = knots;
  server_.xAutoT->apAirSpeed(knots);
  ApMachNumber(0);
  if (server_.store.ApMachSim == 0) return;
  server_.autoP->ApMachNumber(0);
  server_.autoP->apMachNumberHold(server_.xAutoT->apChangeover());
}

void clsXAutoP::apMcpAirSpeed(float knots) {
  apMcpAirSpeed_ = knots;
  if (knots != static_cast<float>(server_.store.ApIasSim)) server_.autoP->apAirSpeed(knots);
}

void clsXAutoP::ApMachNumber(float mach) {
  ApMachNumber_ = mach;
  server_.xAutoT->ApMachNumber(mach);
}

void clsXAutoP::apVertSpeed(float feetPerMinute) {
  apVertSpeed_ = panelVerticalSpeed(feetPerMinute);
  if (double{apVertSpeed_} == server_.store.ApVsSim) return;
  server_.autoP->apVertSpeed(apVertSpeed_);
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
  apBank_ = toSingle(turnRateBank(server_.store.Tas, rate, apBankLimit_));
}

}  // namespace vorlent
