#include "commands/analogFamilies.h"
#include "commands/heldValues.h"
#include "commands/leverConversions.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr CommandRow Rows[] = {
    {0, "Rose", [](auto& c, float value) { RadioSet(c, Radio::Rose) = value; }, levers::whole<360>},
    {90, "Display value",
     [](auto& c, float value) { ControlSet(c, ControlItem::DisplayValue) = value; }},
    {102, "Panel word 10", setPanelWord<10>},
    {103, "Panel word 11", setPanelWord<11>},
    {104, "Panel word 12", setPanelWord<12>},
    {105, "Panel word 13", setPanelWord<13>},
    {106, "Panel word 14", setPanelWord<14>},
    {107, "Panel value", [](auto& c, float value) { c.store.ClientValueC = value; },
     levers::aroundMiddle<80>},
    {999, "Display event",
     [](auto& c, float value) { ControlSet(c, ControlItem::DisplayEvent) = value; }},
};

}  // namespace

std::span<const CommandRow> panelAnalogRows() { return Rows; }

}  // namespace vorlent
