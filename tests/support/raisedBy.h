#pragma once

#include "base/RuntimeError.h"

namespace vorlent {

/// The number of the fault that the work raises, 0 when it raises none.
template <class Work>
int raisedBy(Work work) {
  try {
    work();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

}  // namespace vorlent
