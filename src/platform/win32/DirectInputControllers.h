#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Controllers.h"

namespace vorlent {

/// The game controllers of DirectInput 8, in the order of their device paths, which name the port.
class DirectInputControllers : public Controllers {
 public:
  DirectInputControllers();
  ~DirectInputControllers() override;

  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

 private:
  struct System;
  struct Device;

  std::unique_ptr<System> system_;
  std::vector<Device> devices_;
};

}  // namespace vorlent
