#include "input/CommandTable.h"

namespace vorlent {

/// No lever does anything yet.
std::span<const CommandRow> analogRows() { return {}; }

}  // namespace vorlent
