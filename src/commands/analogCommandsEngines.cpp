#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsXAutoT.h"
#include "base/controls.h"
#include "base/numbers.h"
#include "commands/analogFamilies.h"
#include "commands/engineCommands.h"
#include "commands/heldValues.h"
#include "commands/leverConversions.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

void setTank(CommandContext& context, float tank) {
  context.accessors.srv->TankSelector(tank);
  ControlSet(context, ControlItem::Tank) = tank;
}

/// One lever for all stops short of the full travel.
void setAllMixtures(CommandContext& context, float percent) {
  setMixture(context, AllEngines, percent >= 100 ? 99 : percent);
}

template <int engine>
void setOneMixture(CommandContext& context, float percent) {
  setMixture(context, engine, percent);
}

void setAllPropellers(CommandContext& context, float percent) {
  context.accessors.eng->SetPropAdvanceAll(percent);
}

template <int engine>
void setPropeller(CommandContext& context, float percent) {
  context.accessors.eng->PropAdvance(engine, percent);
}

/// So that levers never fight an autothrottle that flies.
bool leversAreOff(CommandContext& context) {
  const clsXAutoT& at = *context.autoflight.xAutoT;
  return at.apAutoThrottle() != 0 && (autoflight::isOn(at.apAirspeedHoldByRpm()) ||
                                      at.apAutoThrottle() < 1 || autoflight::isOn(at.apRpmHold()));
}

void setAllThrottles(CommandContext& context, float percent) {
  if (!leversAreOff(context)) context.accessors.eng->SetThrottles(percent);
}

template <int engine>
void setThrottle(CommandContext& context, float percent) {
  if (!leversAreOff(context)) context.accessors.eng->Throttle(engine, percent);
}

/// What a selector shows for a tank code; null where it goes on showing what it shows. The left
/// selector has no text for 6.
const char* sourceText(int selector, std::int16_t code) {
  switch (code) {
    case 1:
      return "off";
    case 2:
      return "Left Aux";
    case 3:
      return "Left Main";
    case 4:
      return "Right Main";
    case 5:
      return "Right Aux";
    case 6:
      return selector == 2 ? "Disabled" : nullptr;
    default:
      return nullptr;
  }
}

template <int selector>
void setFuelSource(CommandContext& context, float code) {
  const FuelSelectorBoxes& boxes = context.fuelSelectors;
  if (boxes.enabled.Value() != 1) return;
  std::int16_t& source = context.store.SwitchPair(selector);
  source = toInt16(code);
  TextBox& shown = selector == 1 ? boxes.left : boxes.right;
  if (const char* text = sourceText(selector, source)) shown.Text(text);
}

constexpr CommandRow Rows[] = {
    {23, "Fuel tank selector", setTank, levers::whole<7>},
    {24, "Magnetos all (3 positions)", turnMagnetoTo<AllEngines>, levers::whole<2>},
    {25, "Magneto engine 1 (3 positions)", turnMagnetoTo<1>, levers::whole<2>},
    {26, "Magneto engine 2 (3 positions)", turnMagnetoTo<2>, levers::whole<2>},
    {27, "Magneto engine 3 (3 positions)", turnMagnetoTo<3>, levers::whole<2>},
    {28, "Magneto engine 4 (3 positions)", turnMagnetoTo<4>, levers::whole<2>},
    {29, "Magnetos all (5 positions)", turnMagnetoTo<AllEngines>, levers::magneto},
    {30, "Magneto engine 1 (5 positions)", turnMagnetoTo<1>, levers::magneto},
    {31, "Magneto engine 2 (5 positions)", turnMagnetoTo<2>, levers::magneto},
    {32, "Magneto engine 3 (5 positions)", turnMagnetoTo<3>, levers::magneto},
    {33, "Magneto engine 4 (5 positions)", turnMagnetoTo<4>, levers::magneto},
    {34, "Mixture all", setAllMixtures, levers::allMixtures},
    {35, "Mixture engine 1", setOneMixture<1>, levers::mixture<1>},
    {36, "Mixture engine 2", setOneMixture<2>, levers::mixture<2>},
    {37, "Mixture engine 3", setOneMixture<3>, levers::mixture<3>},
    {38, "Mixture engine 4", setOneMixture<4>, levers::mixture<4>},
    {43, "Propeller all", setAllPropellers, levers::whole<100>},
    {44, "Propeller engine 1", setPropeller<1>, levers::whole<100>},
    {45, "Propeller engine 2", setPropeller<2>, levers::whole<100>},
    {46, "Propeller engine 3", setPropeller<3>, levers::whole<100>},
    {47, "Propeller engine 4", setPropeller<4>, levers::whole<100>},
    {49, "Throttle all", setAllThrottles, levers::allThrottles},
    {50, "Throttle engine 1", setThrottle<1>, levers::throttle<1>},
    {51, "Throttle engine 2", setThrottle<2>, levers::throttle<2>},
    {52, "Throttle engine 3", setThrottle<3>, levers::throttle<3>},
    {53, "Throttle engine 4", setThrottle<4>, levers::throttle<4>},
    {54, "Throttle all with reverse", setAllThrottles, levers::allThrottlesWithReverse},
    {55, "Throttle engine 1 with reverse", setThrottle<1>, levers::throttleWithReverse<1>},
    {56, "Throttle engine 2 with reverse", setThrottle<2>, levers::secondThrottleWithReverse},
    {57, "Throttle engine 3 with reverse", setThrottle<3>, levers::throttleWithReverse<3>},
    {58, "Throttle engine 4 with reverse", setThrottle<4>, levers::throttleWithReverse<4>},
    {62, "Fuel selector left", setFuelSource<1>, levers::whole<4, 1>},
    {63, "Fuel selector right", setFuelSource<2>, levers::whole<4, 1>},
};

}  // namespace

std::span<const CommandRow> engineAnalogRows() { return Rows; }

}  // namespace vorlent
