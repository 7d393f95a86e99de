#pragma once

#include <memory>
#include <vector>

#include "platform/Controllers.h"
#include "platform/linux/ControllerSource.h"

namespace vorlent {

/// The controllers of a Linux machine: the boards that are plugged in, then the virtual sticks.
class LinuxControllers : public Controllers {
 public:
  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

 private:
  void add(std::unique_ptr<ControllerSource> source);

  std::vector<std::unique_ptr<ControllerSource>> sources_;
};

}  // namespace vorlent
