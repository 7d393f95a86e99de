#include "commands/buttonFamilies.h"
#include "commands/joinedRows.h"

namespace vorlent {
namespace {

constexpr CommandRow Unassigned[] = {notAssigned(60)};

}  // namespace

std::span<const CommandRow> buttonRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({radioButtonRows(), simulatorAutopilotButtonRows(), engineButtonRows(),
                  systemButtonRows(), autoflightButtonRows(), Unassigned});
  return rows;
}

}  // namespace vorlent
