#pragma once

#include <span>

#include "input/CommandTable.h"

/// The levers by family, each in the order of the codes.
namespace vorlent {

/// The targets and trims of the server's own autopilot, as a mode control panel sends them.
std::span<const CommandRow> autoflightAnalogRows();

}  // namespace vorlent
