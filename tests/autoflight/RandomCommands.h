#pragma once

#include <span>

#include "support/IndependentAutoflight.h"

namespace vorlent {

struct Server;

/// One command, as the server and as the independent autoflight take it.
struct RandomCommand {
  const char* name;
  void (*product)(Server&, double);
  void (*independent)(IndependentAutoflight&, double);
};

struct RandomTuning {
  RandomCommand command;
  double lowest;
  double highest;
};

/// Every setter that takes 0 or 1, the usual ones more than once.
std::span<const RandomCommand> modeCommands();
/// Every setter of a target, a limit or a counter.
std::span<const RandomCommand> targetCommands();
std::span<const RandomTuning> tunings();

}  // namespace vorlent
