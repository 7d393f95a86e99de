#include "autoflight/throttleLaws.h"

#include <algorithm>
#include <cmath>

namespace vorlent {

double GetN1Target(double lever_pct) {
  return -0.00198213 * (lever_pct * lever_pct) + 0.9820824 * lever_pct + 23.03027;
}

double leverForN1(const RpmInput& in) {
  const double error = in.target_pct - in.n1_pct;
  const double trend = std::fabs(in.trend_pct_s);
  if (trend >= std::fabs(error)) return in.lever_pct + error / 9 - in.trend_pct_s;
  if (trend <= 10) return in.lever_pct + error * 0.1;
  return in.lever_pct + error * 0.1 / in.trend_pct_s;
}

double leverForSpeed(const SpeedByThrottleInput& in) {
  const double base = std::max(in.lever_pct, 20.0);
  const double error = in.target_kt - in.averageIas_kt;
  const double trend = std::fabs(in.trend_kt_s);
  if (trend * 10 >= std::fabs(error)) return base + (error / 9 - in.trend_kt_s) * in.factor * 42.5;
  return base + error * in.factor / (trend > 1 ? trend : 1);
}

}  // namespace vorlent
