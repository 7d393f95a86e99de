#include "input/analogFamilies.h"
#include "input/joinedRows.h"

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
