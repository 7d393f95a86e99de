#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/linux/ControllerSource.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/DeviceArrivals.h"
#include "platform/linux/InputNodes.h"

struct libevdev;

namespace vorlent {

/// A controller as the kernel's input layer shows it. What is plugged in at the connection later on
/// is taken for the same controller.
class EvdevController : public ControllerSource {
 public:
  /// `arrivals` outlives this. While the device is away, Acquire() looks for it when udev has
  /// announced something, and else every `searchInterval`.
  EvdevController(InputNode node, DeviceArrivals& arrivals,
                  std::chrono::milliseconds searchInterval)
      : node_(std::move(node)), arrivals_(arrivals), searchInterval_(searchInterval) {}

  ControllerInfo info() const override { return {node_.name, node_.connection}; }
  ControllerResult Acquire() override;
  ControllerResult Poll() override;
  ControllerResult GetDeviceState(ControllerState& state) const override;

 private:
  using Clock = std::chrono::steady_clock;
  struct Release {
    void operator()(libevdev* device) const;
  };

  bool open(const std::string& path);
  bool findAgain();
  bool searchIsDue();
  /// False when the device is gone.
  bool readEvents();
  ControllerResult lost();

  InputNode node_;
  DeviceArrivals& arrivals_;
  const std::chrono::milliseconds searchInterval_;
  Descriptor file_;
  std::unique_ptr<libevdev, Release> device_;
  ControllerState state_;
  ControllerResult absent_ = ControllerResult::NotAcquired;  ///< the result without a device
  Clock::time_point nextSearch_{};
  unsigned arrivalsSeen_ = 0;  ///< at the last search
};

}  // namespace vorlent
