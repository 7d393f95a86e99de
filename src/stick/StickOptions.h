#pragma once

#include <optional>
#include <string>
#include <vector>

#include "stick/Step.h"

namespace vorlent {

struct StickOptions {
  std::string name = "stick";
  std::optional<int> hold_ms;  ///< how long after the steps; without it until the input ends
  std::vector<Step> steps;
};

/// The arguments without the program's name. Raises CommandLineEnd.
StickOptions stickOptionsFrom(const std::vector<std::string>& arguments);

}  // namespace vorlent
