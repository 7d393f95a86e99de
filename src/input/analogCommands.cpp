#include "input/analogFamilies.h"
#include "input/joinedRows.h"

namespace vorlent {

std::span<const CommandRow> analogRows() {
  static const std::vector<CommandRow> rows = joinedRows({autoflightAnalogRows()});
  return rows;
}

}  // namespace vorlent
