#include "commands/engineCommands.h"
#include "commands/heldValues.h"
#include "commands/toggleFamilies.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// A lever of one engine, too, is followed by the number of engines.
template <int engine>
void setStartLeverAndHold(CommandContext& context, float level) {
  setStartLever(context, engine, level);
  ControlSet(context, ControlItem::StartLever) = level;
  selectEngine(context, AllEngines);
}

template <int engine>
void setMixtureCutOff(CommandContext& context, float level) {
  constexpr double Rich_pct = 100;
  setMixture(context, engine, toSingle(level * Rich_pct));
}

void startAll(CommandContext& context, float) {
  setMagnetoAndSelect(context, AllEngines, StartPosition);
}

/// An engine that runs is not started again.
template <int engine>
void start(CommandContext& context, float level) {
  if (level == 0 || context.store.Engines(engine).Combustion != 0) return;
  setMagnetoAndSelect(context, engine, StartPosition);
}

/// At either level. docs/peculiarities.md: reverse toggle.
void reverseThrust(CommandContext& context, float) {
  constexpr float Reverse_pct = -25;
  context.accessors.eng->SetThrottles(Reverse_pct);
}

template <int selector>
void feedAcross(CommandContext& context, float level) {
  context.accessors.srv->Crossfeed(level == 1 ? selector : 0);
}

constexpr CommandRow Rows[] = {
    {0, "Start lever 1", setStartLeverAndHold<1>},
    {1, "Start lever 2", setStartLeverAndHold<2>},
    {2, "Start lever 3", setStartLeverAndHold<3>},
    {3, "Start lever 4", setStartLeverAndHold<4>},
    {4, "Start levers all", setStartLeverAndHold<AllEngines>},
    {30, "Mixture all", setMixtureCutOff<AllEngines>},
    {31, "Mixture 1", setMixtureCutOff<1>},
    {32, "Mixture 2", setMixtureCutOff<2>},
    {33, "Mixture 3", setMixtureCutOff<3>},
    {34, "Mixture 4", setMixtureCutOff<4>},
    {35, "Magneto all", turnMagnetoTo<AllEngines>},
    {36, "Magneto 1", turnMagnetoTo<1>},
    {37, "Magneto 2", turnMagnetoTo<2>},
    {38, "Magneto 3", turnMagnetoTo<3>},
    {39, "Magneto 4", turnMagnetoTo<4>},
    {40, "Magneto all (second)", turnMagnetoTo<AllEngines>},
    {41, "Magneto 1 (second)", turnMagnetoTo<1>},
    {42, "Magneto 2 (second)", turnMagnetoTo<2>},
    {43, "Magneto 3 (second)", turnMagnetoTo<3>},
    {44, "Magneto 4 (second)", turnMagnetoTo<4>},
    {49, "Reverse thrust", reverseThrust},
    {55, "Start all engines", startAll},
    {56, "Start engine 1", start<1>},
    {57, "Start engine 2", start<2>},
    {58, "Start engine 3", start<3>},
    {59, "Start engine 4", start<4>},
    {63, "Propeller sync",
     [](auto& context, float level) { context.accessors.srv->PropSync(toInt16(level)); }},
    {64, "Crossfeed left to right", feedAcross<14>},
    {65, "Crossfeed right to left", feedAcross<15>},
};

}  // namespace

std::span<const CommandRow> engineToggleRows() { return Rows; }

}  // namespace vorlent
