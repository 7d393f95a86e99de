#include "input/CommandTable.h"

namespace vorlent {

/// No toggle does anything yet.
std::span<const CommandRow> toggleRows() { return {}; }

}  // namespace vorlent
