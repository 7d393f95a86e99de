#pragma once

#include <string>
#include <vector>

#include "simulator/SimulatorHost.h"
#include "simulator/dynamics/TwinJet.h"

namespace vorlent {

/// What vorlent-sim is asked to do on its command line.
struct SimulatorOptions {
  SimulatorHost::Options host;
  TwinJet::Settings flight;  ///< of the built-in aircraft
  std::string script;        ///< file of a scripted flight; empty means the built-in aircraft
  std::string trace;         ///< file of the trace; empty means none
};

/// The arguments without the program's name. Raises CommandLineEnd.
SimulatorOptions readSimulatorOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
