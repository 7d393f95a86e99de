#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "platform/Controllers.h"
#include "platform/linux/ControllerSource.h"
#include "platform/linux/DeviceArrivals.h"

namespace vorlent {

/// The controllers of a Linux machine: the boards that are plugged in, then the virtual sticks.
class LinuxControllers : public Controllers {
 public:
  /// A board that is away is looked for as often as this, and at once when udev announces one.
  static constexpr std::chrono::milliseconds SearchInterval{250};

  explicit LinuxControllers(std::chrono::milliseconds searchInterval = SearchInterval)
      : searchInterval_(searchInterval) {}

  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

 private:
  void add(std::unique_ptr<ControllerSource> source);

  const std::chrono::milliseconds searchInterval_;
  DeviceArrivals arrivals_;
  std::vector<std::unique_ptr<ControllerSource>> sources_;
};

}  // namespace vorlent
