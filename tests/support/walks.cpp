#include "support/walks.h"

#include <cstdlib>

namespace vorlent {

bool shortWalks() { return std::getenv("VORLENT_SHORT_WALKS") != nullptr; }

int walkLength(int full) { return shortWalks() ? full / 10 : full; }

}  // namespace vorlent
