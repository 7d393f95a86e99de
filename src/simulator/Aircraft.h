#pragma once

#include "simulator/AircraftState.h"

namespace vorlent {

/// An aircraft that lives in an OffsetMemory: it reads its controls there and shows its state
/// there.
class Aircraft {
 public:
  virtual ~Aircraft() = default;
  /// Lets `dt_s` seconds pass, 0 or more.
  virtual void step(double dt_s) = 0;
  virtual AircraftState state() const = 0;
};

}  // namespace vorlent
