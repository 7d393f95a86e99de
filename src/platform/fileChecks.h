#pragma once

#include <string>

#include "platform/Operator.h"

namespace vorlent {

/// A missing file tells the operator and ends the process.
void CheckFileExists(Operator& op, const std::string& path, BoxIcon icon);

}  // namespace vorlent
