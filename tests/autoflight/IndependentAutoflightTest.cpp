#include <gtest/gtest.h>

#include "autoflight/PlannedFlight.h"
#include "autoflight/RandomFlight.h"
#include "support/walks.h"

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

/// Likewise with a display that plans.
class PlannedSequence {
 public:
  explicit PlannedSequence(std::uint32_t seed) : flight_(both, seed) {}

  std::string fly(int cycles) {
    flight_.planner.plan();
    both.putShare();
    both.twin.in.CycleRunning = true;
    both.applyInputs();
    if (const auto found = both.Init(); !found.empty()) return "start: " + found;
    for (int cycle = 0; cycle < cycles; ++cycle)
      if (const auto found = step(cycle); !found.empty())
        return "cycle " + std::to_string(cycle) + ", after " + flight_.last() + ": " + found;
    return "";
  }

  TwinAutoflight both;

 private:
  std::string step(int cycle) {
    std::string found;
    if (cycle == 0) found = flight_.execute();
    if (cycle < 30 || cycle % 100 == 0) found += flight_.retune();
    flight_.move();
    if (cycle % 3 == 0) found += flight_.command();
    found += both.AFDS();
    return found + flight_.answer();
  }

  PlannedFlight flight_;
};

void flyPlansAlike(std::uint32_t firstSeed, int sequences, int cycles) {
  for (int nth = 0; nth < sequences; ++nth) {
    const std::uint32_t seed = firstSeed + static_cast<std::uint32_t>(nth);
    const std::string found = PlannedSequence(seed).fly(cycles);
    if (!found.empty()) ADD_FAILURE() << "seed " << seed << ", " << found;
  }
}

TEST(IndependentAutoflight, StartsAndFliesShortSequencesAlike) { flyAlike(1, 60, 500); }
TEST(IndependentAutoflight, FliesLongSequencesAlike) { flyAlike(1001, 4, 30000); }

TEST(IndependentAutoflight, ReadsAndFliesShortPlansAlike) { flyPlansAlike(2001, 60, 500); }
TEST(IndependentAutoflight, ReadsAndFliesLongPlansAlike) {
  flyPlansAlike(3001, 4, walkLength(30000));
}

}  // namespace
}  // namespace vorlent
