#pragma once

#include <string>
#include <vector>

#include "platform/Controllers.h"

namespace vorlent {

/// Controllers that a test plugs in, moves and unplugs. Devices plugged in before devices() is
/// called are in the list; one that is unplugged keeps its number.
class FakeControllers : public Controllers {
 public:
  struct Device {
    std::string name;
    ControllerState state;  ///< what the next Poll() fetches
    bool pluggedIn = true;  ///< false: Acquire() and Poll() fail as of an unplugged device
    bool ready = true;      ///< false: no state has come yet
    /// What Poll() and GetDeviceState() say while it is unplugged.
    ControllerResult whileAway = ControllerResult::Unplugged;
    bool acquired = false;
    ControllerState polled{};
    int polls = 0;  ///< calls of Poll() that succeeded
  };

  /// Returns the device, at the end of the list; the reference stays good until the next one comes.
  Device& plugIn(const std::string& name = "Board") { return all.emplace_back(Device{name, {}}); }

  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

  std::vector<Device> all;
  int listings = 0;  ///< calls of devices()

 private:
  Device* present(std::size_t device);
  ControllerResult absence(std::size_t device) const;

  std::vector<std::size_t> listed_;  ///< a number's place in `all`
};

}  // namespace vorlent
