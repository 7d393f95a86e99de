#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "stick/Step.h"

namespace vorlent {

struct StickOptions {
  std::string name = "stick";
  std::optional<int> hold_ms;  ///< how long after the steps; without it until the input ends
  std::vector<Step> steps;
};

/// What `vorlent-stick --help` prints.
extern const std::string_view stickUsage;

/// The arguments without the program's name. Nothing when only help was asked for. Raises
/// StepError.
std::optional<StickOptions> stickOptionsFrom(const std::vector<std::string>& arguments);

}  // namespace vorlent
