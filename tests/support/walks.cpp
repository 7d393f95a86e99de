#include "support/walks.h"

#include <cstdlib>

namespace vorlent {

bool shortWalks() { return std::getenv("VORLENT_SHORT_WALKS") != nullptr; }

bool allFlights() { return std::getenv("VORLENT_ALL_FLIGHTS") != nullptr; }

int walkLength(int full) { return shortWalks() ? full / 10 : full; }

}  // namespace vorlent
