#include "commands/encoderFamilies.h"
#include "commands/joinedRows.h"

namespace vorlent {
namespace {

constexpr CommandRow Unassigned[] = {notAssigned(8)};

}  // namespace

std::span<const CommandRow> encoderRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({radioEncoderRows(), panelEncoderRows(), Unassigned});
  return rows;
}

}  // namespace vorlent
