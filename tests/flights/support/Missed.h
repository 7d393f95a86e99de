#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// A figure that is known to miss its goal, and how far it may: a bound against getting worse.
struct Missed {
  std::string flight;
  std::string what;
  double bound;
};

/// Of tests/flights/missed.txt, and of missed-win32.txt where the tests run on Windows.
std::vector<Missed> missedFigures();

}  // namespace vorlent
