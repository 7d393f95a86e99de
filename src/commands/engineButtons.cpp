#include "commands/buttonFamilies.h"
#include "commands/engineCommands.h"
#include "commands/heldValues.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

template <int engine>
void flipStartLever(CommandContext& context, float) {
  flip(ControlSet(context, ControlItem::StartLever),
       [&](float position) { setStartLever(context, engine, position); });
  selectEngine(context, engine);
}

/// Mixture and magneto share one held value.
template <int engine>
void flipMixture(CommandContext& context, float) {
  constexpr float Rich_pct = 100;
  flip(ControlSet(context, ControlItem::Magneto),
       [&](float rich) { setMixture(context, engine, rich * Rich_pct); });
}

float flippedMagneto(CommandContext& context) {
  return ControlSet(context, ControlItem::Magneto) == 0 ? 1 : 0;
}

/// The held value stays, so that pressing again sends the same.
template <int engine>
void sendFlippedMagneto(CommandContext& context, float) {
  setMagneto(context, engine, flippedMagneto(context));
}

template <int engine>
void flipMagneto(CommandContext& context, float) {
  setMagnetoAndSelect(context, engine, flippedMagneto(context));
}

template <int engine, int by>
void turnMagneto(CommandContext& context, float) {
  step(ControlSet(context, ControlItem::Magneto), by);
  setMagneto(context, engine, ControlSet(context, ControlItem::Magneto));
  selectEngine(context, engine);
}

template <int engine>
void turnMagnetoToStart(CommandContext& context, float) {
  ControlSet(context, ControlItem::Magneto) = StartPosition;
  setMagneto(context, engine, StartPosition);
  selectEngine(context, engine);
  if (engine == AllEngines) return;
  context.store.Engines(engine).Starter = StartPosition;
  context.store.Engines(engine).RecordedStart = StartPosition;
}

template <int tank>
void selectTank(CommandContext& context, float) {
  context.accessors.srv->TankSelector(tank);
  ControlSet(context, ControlItem::Tank) = tank;
}

/// A selector that the simulator has at "off" goes back there.
void selectFirstTankUnlessOff(CommandContext& context, float value) {
  selectTank<1>(context, value);
  if (context.store.FuelSelector == 0) selectTank<0>(context, value);
}

constexpr CommandRow Rows[] = {
    {17, "Start lever 1", flipStartLever<1>},
    {18, "Start lever 2", flipStartLever<2>},
    {19, "Start lever 3", flipStartLever<3>},
    {20, "Start lever 4", flipStartLever<4>},
    {21, "Start levers all", flipStartLever<AllEngines>},
    {56, "Fuel selector all", selectTank<1>},
    {57, "Fuel selector all unless off", selectFirstTankUnlessOff},
    {58, "Fuel selector left", selectTank<2>},
    {59, "Fuel selector left aux", selectTank<4>},
    {61, "Fuel selector right", selectTank<3>},
    {62, "Fuel selector right aux", selectTank<5>},
    {69, "Mixture all", flipMixture<AllEngines>},
    {70, "Mixture 1", flipMixture<1>},
    {71, "Mixture 2", flipMixture<2>},
    {72, "Mixture 3", flipMixture<3>},
    {73, "Mixture 4", flipMixture<4>},
    {74, "Magneto all (not held)", sendFlippedMagneto<AllEngines>},
    {75, "Magneto 1 (not held)", sendFlippedMagneto<1>},
    {76, "Magneto 2 (not held)", sendFlippedMagneto<2>},
    {77, "Magneto 3 (not held)", sendFlippedMagneto<3>},
    {78, "Magneto 4 (not held)", sendFlippedMagneto<4>},
    {79, "Magneto all", flipMagneto<AllEngines>},
    {80, "Magneto 1", flipMagneto<1>},
    {81, "Magneto 2", flipMagneto<2>},
    {82, "Magneto 3", flipMagneto<3>},
    {83, "Magneto 4", flipMagneto<4>},
    {85, "Magneto all down", turnMagneto<AllEngines, -1>},
    {86, "Magneto all up", turnMagneto<AllEngines, 1>},
    {87, "Magneto 1 down", turnMagneto<1, -1>},
    {88, "Magneto 1 up", turnMagneto<1, 1>},
    {89, "Magneto 2 down", turnMagneto<2, -1>},
    {90, "Magneto 2 up", turnMagneto<2, 1>},
    {91, "Magneto 3 down", turnMagneto<3, -1>},
    {92, "Magneto 3 up", turnMagneto<3, 1>},
    {93, "Magneto 4 down", turnMagneto<4, -1>},
    {94, "Magneto 4 up", turnMagneto<4, 1>},
    {127, "Start all engines", turnMagnetoToStart<AllEngines>},
    {128, "Start engine 1", turnMagnetoToStart<1>},
    {129, "Start engine 2", turnMagnetoToStart<2>},
    {130, "Start engine 3", turnMagnetoToStart<3>},
    {131, "Start engine 4", turnMagnetoToStart<4>},
    {238, "Propeller sync",
     [](auto& context, float value) { context.accessors.srv->PropSync(toInt16(value)); }},
};

}  // namespace

std::span<const CommandRow> engineButtonRows() { return Rows; }

}  // namespace vorlent
