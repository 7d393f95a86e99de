#include "input/encoderFamilies.h"
#include "input/joinedRows.h"

namespace vorlent {

std::span<const CommandRow> encoderRows() {
  static const std::vector<CommandRow> rows = joinedRows({radioEncoderRows(), panelEncoderRows()});
  return rows;
}

}  // namespace vorlent
