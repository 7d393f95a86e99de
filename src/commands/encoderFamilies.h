#pragma once

#include <span>

#include "commands/CommandTable.h"

/// The encoders by family, each in the order of the codes.
namespace vorlent {

/// Frequencies, courses and the transponder.
std::span<const CommandRow> radioEncoderRows();

/// The altimeter, the simulator's own autopilot, and what displays show.
std::span<const CommandRow> panelEncoderRows();

}  // namespace vorlent
