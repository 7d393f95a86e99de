#include "input/joinedRows.h"
#include "input/toggleFamilies.h"

namespace vorlent {

std::span<const CommandRow> toggleRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({autopilotToggleRows(), engineToggleRows(), systemToggleRows()});
  return rows;
}

}  // namespace vorlent
