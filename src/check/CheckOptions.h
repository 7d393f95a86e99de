#pragma once

#include <string>
#include <vector>

#include "check/BridgeCheck.h"

namespace vorlent {

/// The arguments without the program's name. Raises CommandLineEnd.
BridgeCheck::Settings readCheckOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
