#include "replay/nearNames.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::size_t MostNames = 5;
constexpr std::size_t MostSlips = 3;
/// In short names a slip is much.
constexpr std::size_t LettersToASlip = 3;

/// How many letters must be put in, taken out or changed (Levenshtein's distance, row by row).
std::size_t slips(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, changed}));
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> nearNames(std::string_view typed, const std::vector<std::string>& names) {
  const std::string meant = upperCase(typed);
  const std::size_t most = std::min(MostSlips, meant.size() / LettersToASlip);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::string upper = upperCase(name);
    const bool holds = !meant.empty() && upper.find(meant) != std::string::npos;
    const std::size_t distance = holds ? 0 : slips(meant, upper);
    if (distance <= most) near.emplace_back(distance, name);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  near.resize(std::min(near.size(), MostNames));
  std::vector<std::string> found;
  found.reserve(near.size());
  for (auto& [distance, name] : near) found.push_back(std::move(name));
  return found;
}

}  // namespace vorlent
