#pragma once

#include <span>

#include "input/CommandTable.h"

/// The push buttons by family, each in the order of the codes.
namespace vorlent {

/// COM, NAV, OBS, ADF, DME and transponder.
std::span<const CommandRow> radioButtonRows();

/// The autopilot, autothrottle and flight management of the server itself.
std::span<const CommandRow> autoflightButtonRows();

}  // namespace vorlent
