#pragma once

#include <span>
#include <string>
#include <string_view>

#include "simulator/SimulatorHost.h"
#include "simulator/dynamics/TwinJet.h"

namespace vorlent {

/// What vorlent-sim is asked to do on its command line.
struct SimulatorOptions {
  SimulatorHost::Options host;
  TwinJet::Settings flight;  ///< of the built-in aircraft
  std::string script;        ///< file of a scripted flight; empty means the built-in aircraft
  std::string trace;         ///< file of the trace; empty means none
  bool help = false;
};

/// The arguments without the program's name. Raises RuntimeError with a description for the user.
SimulatorOptions readSimulatorOptions(std::span<const std::string_view> arguments);

std::string_view simulatorUsage();

}  // namespace vorlent
