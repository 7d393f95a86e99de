#pragma once

#include <span>

#include "commands/CommandTable.h"

/// The switches by family, each in the order of the codes. A switch's level, 0 or 1, is the state
/// that its item takes.
namespace vorlent {

/// The simulator's own autopilot, and what the server's has of switches.
std::span<const CommandRow> autopilotToggleRows();

/// Engines and fuel.
std::span<const CommandRow> engineToggleRows();

/// Flight controls, gear, lights, switches, and what is for the displays.
std::span<const CommandRow> systemToggleRows();

}  // namespace vorlent
