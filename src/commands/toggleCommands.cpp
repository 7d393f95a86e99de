#include "commands/joinedRows.h"
#include "commands/toggleFamilies.h"

namespace vorlent {
namespace {

constexpr CommandRow Unassigned[] = {notAssigned(22)};

}  // namespace

std::span<const CommandRow> toggleRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({autopilotToggleRows(), engineToggleRows(), systemToggleRows(), Unassigned});
  return rows;
}

}  // namespace vorlent
