#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// The value that `share` of all values (0..1) do not exceed; 0.5 gives the median. Raises
/// std::runtime_error when there are none.
double quantile(std::vector<double> values, double share);

/// `value` with this many digits behind the point.
std::string fixed(double value, int digits);

/// One row of the table that bench/run.sh collects. An empty floor is shown as "-".
void printRow(const std::string& what, const std::string& floor, const std::string& measured,
              const std::string& goal);

}  // namespace vorlent
