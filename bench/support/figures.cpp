#include "support/figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace vorlent {

double quantile(std::vector<double> values, double share) {
  if (values.empty()) throw std::runtime_error("nothing was measured");
  std::sort(values.begin(), values.end());
  const auto rank = std::ceil(share * static_cast<double>(values.size()));
  return values[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}

std::string fixed(double value, int digits) {
  std::string text(64, '\0');
  const int length = std::snprintf(text.data(), text.size(), "%.*f", digits, value);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void printRow(const std::string& what, const std::string& floor, const std::string& measured,
              const std::string& goal) {
  std::printf("| %s | %s | %s | %s |\n", what.c_str(), floor.empty() ? "-" : floor.c_str(),
              measured.c_str(), goal.c_str());
  std::fflush(stdout);
}

}  // namespace vorlent
