#include "input/buttonFamilies.h"
#include "input/joinedRows.h"

namespace vorlent {

std::span<const CommandRow> buttonRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({radioButtonRows(), autoflightButtonRows()});
  return rows;
}

}  // namespace vorlent
