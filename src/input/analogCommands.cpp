#include "input/analogFamilies.h"
#include "input/joinedRows.h"

namespace vorlent {

std::span<const CommandRow> analogRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({autoflightAnalogRows(), radioAnalogRows(), controlAnalogRows(),
                  engineAnalogRows(), panelAnalogRows()});
  return rows;
}

}  // namespace vorlent
