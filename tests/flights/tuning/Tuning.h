#pragma once

#include <map>
#include <string>
#include <vector>

#include "../support/FlightCase.h"

namespace vorlent {

/// The keys of a tuning file's section ApConfig.
using Tuning = std::map<std::string, double>;

/// Raises std::out_of_range when a key is missing.
std::string tuningText(const Tuning& tuning);
/// The keys that were read from `text`.
Tuning tuningFrom(const std::string& text);

/// How bad a figure is: up to 0.3 within the goal, 1 and the logarithm of the excess beyond it.
double penalty(const Figure& figure);
/// The mean penalty of the figures that it was given. Those whose goal is 0 do not count: they have
/// no share of it.
class MeanPenalty {
 public:
  void add(const Figure& figure) {
    if (figure.goal <= 0) return;
    sum_ += penalty(figure);
    ++count_;
  }
  double value() const { return sum_ / count_; }

 private:
  double sum_ = 0;
  int count_ = 0;
};
/// That of all figures of these flights.
double penalty(const std::vector<FlightCase>& flights, const Tuning& tuning);

}  // namespace vorlent
