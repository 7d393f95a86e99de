#include "commands/analogFamilies.h"
#include "commands/joinedRows.h"

namespace vorlent {
namespace {

constexpr CommandRow Unassigned[] = {notAssigned(61)};

}  // namespace

std::span<const CommandRow> analogRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({autoflightAnalogRows(), radioAnalogRows(), controlAnalogRows(),
                  engineAnalogRows(), panelAnalogRows(), Unassigned});
  return rows;
}

}  // namespace vorlent
