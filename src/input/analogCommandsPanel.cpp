#include "base/numbers.h"
#include "core/Server.h"
#include "input/analogFamilies.h"

namespace vorlent {
namespace {

template <int word>
void setPanelWord(CommandContext& context, float value) {
  context.server.store.PanelWord(word) = toInt16(value);
}

constexpr CommandRow Rows[] = {
    {0, "Rose", [](auto& c, float value) { c.server.store.RadioValues(12) = value; }},
    {90, "Display value", [](auto& c, float value) { c.server.store.StateValues(21) = value; }},
    {102, "Panel word 10", setPanelWord<10>},
    {103, "Panel word 11", setPanelWord<11>},
    {104, "Panel word 12", setPanelWord<12>},
    {105, "Panel word 13", setPanelWord<13>},
    {106, "Panel word 14", setPanelWord<14>},
    {107, "Panel value", [](auto& c, float value) { c.server.store.ClientValueC = value; }},
    {999, "Display event", [](auto& c, float value) { c.server.store.StateValues(20) = value; }},
};

}  // namespace

std::span<const CommandRow> panelAnalogRows() { return Rows; }

}  // namespace vorlent
