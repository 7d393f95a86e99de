#pragma once

#include <string>

#include "commandline/CommandLineEnd.h"
#include "platform/helper/DescriptorRoom.h"

namespace vorlent {

/// Raises CommandLineEnd where the process may open too few files to start.
inline void expectDescriptors(const std::string& program) {
  const std::string why = whyTooFewDescriptors();
  if (!why.empty()) throw CommandLineEnd{1, program + ": " + why + "\n"};
}

}  // namespace vorlent
