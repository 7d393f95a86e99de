#pragma once

#include "platform/Controllers.h"

namespace vorlent {

/// One place in the list of controllers, and the device there while it is plugged in. The
/// operations are those of Controllers.
class ControllerSource {
 public:
  virtual ~ControllerSource() = default;
  virtual ControllerInfo info() const = 0;
  virtual ControllerResult Acquire() = 0;
  virtual ControllerResult Poll() = 0;
  virtual ControllerResult GetDeviceState(ControllerState& state) const = 0;
};

}  // namespace vorlent
