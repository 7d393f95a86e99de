#include "Tuning.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/text.h"

namespace vorlent {
namespace {

/// In the order in which the server reads them.
const char* const keys[] = {"TurningRangeVor",
                            "TurningRangeWpt",
                            "RollControlFactor",
                            "PitchControlfactor",
                            "ClimbPitchFactor",
                            "PitchSensitivity",
                            "VspeedSensitivity",
                            "ThrottleControlFactor",
                            "MaxBankCourseDeviation",
                            "BankLimitLowAltitude",
                            "BankLimitHighAltitude",
                            "MaxTrackOffset",
                            "N1ToThr0",
                            "N1ToThr1",
                            "N1ToThr2"};

}  // namespace

std::string tuningText(const Tuning& tuning) {
  std::ostringstream text;
  text << "[ApConfig]\n";
  for (const char* key : keys) text << key << '=' << tuning.at(key) << '\n';
  return text.str();
}

Tuning tuningFrom(const std::string& text) {
  const IniDocument document(text);
  Tuning tuning;
  for (const char* key : keys)
    if (const auto value = document.value("ApConfig", key)) tuning[key] = numberOf(*value);
  return tuning;
}

double penalty(const Figure& figure) {
  constexpr double worst = 200;
  const double share = std::max(0.0, figure.value / figure.goal);
  if (share <= 1) return 0.3 * share;
  return 1 + std::log2(std::isfinite(share) ? std::min(share, worst) : worst);
}

double penalty(const std::vector<FlightCase>& flights, const Tuning& tuning) {
  const std::string text = tuningText(tuning);
  MeanPenalty mean;
  for (const FlightCase& flight : flights)
    for (const Figure& figure : flight.fly(text)) mean.add(figure);
  return mean.value();
}

}  // namespace vorlent
