#include <gtest/gtest.h>

#include "autoflight/RandomFlight.h"

namespace vorlent {
namespace {

/// Flies one seed from a start of its own and gives the first difference.
std::string firstDifference(std::uint32_t seed, int cycles) {
  TwinAutoflight both;
  RandomFlight flight(both, seed);
  if (const auto found = both.Init(); !found.empty()) return "start: " + found;
  for (int cycle = 0; cycle < cycles; ++cycle) {
    const std::string where = "cycle " + std::to_string(cycle) + ", ";
    if (cycle < 30 || cycle % 100 == 0) {
      const auto found = flight.retune();
      if (!found.empty()) return where + flight.last() + ": " + found;
    }
    flight.move();
    if (cycle % 3 == 0) {
      const auto found = flight.command();
      if (!found.empty()) return where + flight.last() + ": " + found;
    }
    const auto found = both.AFDS();
    if (!found.empty()) return where + "after " + flight.last() + ": " + found;
  }
  return "";
}

void flyAlike(std::uint32_t firstSeed, int sequences, int cycles) {
  for (int nth = 0; nth < sequences; ++nth) {
    const std::uint32_t seed = firstSeed + static_cast<std::uint32_t>(nth);
    const std::string found = firstDifference(seed, cycles);
    if (!found.empty()) ADD_FAILURE() << "seed " << seed << ", " << found;
  }
}

TEST(IndependentAutoflight, StartsAndFliesShortSequencesAlike) { flyAlike(1, 60, 500); }
TEST(IndependentAutoflight, FliesLongSequencesAlike) { flyAlike(1001, 4, 30000); }

}  // namespace
}  // namespace vorlent
