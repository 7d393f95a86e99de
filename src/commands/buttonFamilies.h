#pragma once

#include <span>

#include "commands/CommandTable.h"

/// The push buttons by family, each in the order of the codes.
namespace vorlent {

/// COM, NAV, OBS, ADF, DME and transponder.
std::span<const CommandRow> radioButtonRows();

/// The simulator's own autopilot.
std::span<const CommandRow> simulatorAutopilotButtonRows();

/// Engines, fuel and propellers.
std::span<const CommandRow> engineButtonRows();

/// Flight controls, gear, lights, switches, altimeter, and what is for the displays.
std::span<const CommandRow> systemButtonRows();

/// The autopilot, autothrottle and flight management of the server itself.
std::span<const CommandRow> autoflightButtonRows();

}  // namespace vorlent
