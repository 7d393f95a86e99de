#pragma once

#include <span>

#include "commands/CommandTable.h"

/// The levers by family, each in the order of the codes.
namespace vorlent {

/// The targets and trims of the server's own autopilot, as a mode control panel sends them.
std::span<const CommandRow> autoflightAnalogRows();

/// Frequencies, courses and the transponder.
std::span<const CommandRow> radioAnalogRows();

/// The simulator's own autopilot, controls, brakes, flaps and spoilers.
std::span<const CommandRow> controlAnalogRows();

/// Throttles, propellers, mixtures, magnetos and fuel.
std::span<const CommandRow> engineAnalogRows();

/// What displays show and nothing is flown by.
std::span<const CommandRow> panelAnalogRows();

}  // namespace vorlent
