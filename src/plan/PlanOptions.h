#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plan/FlightPlanner.h"

namespace vorlent {

/// What the planner is asked to do on its command line.
struct PlanOptions {
  std::string route;  ///< the file
  std::string host;   ///< of the server: dotted IPv4 or a name; empty means this machine
  std::uint16_t port = 5001;
  std::string name;   ///< of the machine in the greeting; empty means this machine's own
  std::string share;  ///< the folder; empty only when the plan is printed
  bool print = false;
  bool pilot = false;  ///< works the panel, too; localizer_MHz and the task's runway are there
  double localizer_MHz = 0;  ///< of the runway
  double flightSeconds = 1;  ///< in a second, as vorlent-sim's --speed
  PlanTask task;
};

/// The arguments without the program's name. Raises CommandLineEnd.
PlanOptions readPlanOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
