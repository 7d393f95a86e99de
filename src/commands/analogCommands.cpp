#include "commands/analogFamilies.h"
#include "commands/joinedRows.h"
#include "commands/leverConversions.h"

namespace vorlent {
namespace {

/// 61 is read like any lever. 86 is a reading that no command takes: it goes out for displays.
constexpr CommandRow Unassigned[] = {
    {61, "Not assigned", [](CommandContext&, float) {}, levers::whole<0>},
    {86, "Reading around the middle", nullptr, levers::aroundMiddle<500>},
};

}  // namespace

std::span<const CommandRow> analogRows() {
  static const std::vector<CommandRow> rows =
      joinedRows({autoflightAnalogRows(), radioAnalogRows(), controlAnalogRows(),
                  engineAnalogRows(), panelAnalogRows(), Unassigned});
  return rows;
}

}  // namespace vorlent
