#include "input/CommandTable.h"

namespace vorlent {

/// No button does anything yet.
std::span<const CommandRow> buttonRows() { return {}; }

}  // namespace vorlent
