#include "input/CommandTable.h"

namespace vorlent {

/// No encoder does anything yet.
std::span<const CommandRow> encoderRows() { return {}; }

}  // namespace vorlent
