#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "platform/StatusLine.h"

namespace vorlent {

/// Runs `work` and lets its fault through, told on the status line as `what` with its description:
/// the box that ends the process does not say which file it was.
template <class Work>
void telling(StatusLine& status, const std::string& what, const Work& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    status.SetStatusText(1, what + ": " + error.description());
    throw;
  }
}

}  // namespace vorlent
