#include "input/buttonFamilies.h"
#include "input/joinedRows.h"

namespace vorlent {

std::span<const CommandRow> buttonRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({radioButtonRows(), simulatorAutopilotButtonRows(), engineButtonRows(),
                  systemButtonRows(), autoflightButtonRows()});
  return rows;
}

}  // namespace vorlent
