#pragma once

#include "commands/CommandTable.h"

/// The engine controls as the commands of all kinds work them. Engines are 1 to 4, or all.
namespace vorlent {

constexpr int AllEngines = 0;
/// The magneto switch's position that turns the starter.
constexpr int StartPosition = 4;

/// Tells the simulator which engine is meant by what comes next: the engine's number, or for all
/// the number of engines.
void selectEngine(CommandContext& context, int engine);
void setMagneto(CommandContext& context, int engine, float position);
/// The magneto, what is held for it, and the engine that is meant, in this order.
void setMagnetoAndSelect(CommandContext& context, int engine, float position);
/// The same as a row's action.
template <int engine>
void turnMagnetoTo(CommandContext& context, float position) {
  setMagnetoAndSelect(context, engine, position);
}
void setMixture(CommandContext& context, int engine, float percent);
/// The fuel levers of all four engines are moved, whether or not the aircraft has them. One byte,
/// cut to a whole number; raises Overflow outside 0..255.
void setStartLever(CommandContext& context, int engine, float position);

}  // namespace vorlent
