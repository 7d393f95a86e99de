#pragma once

#include <memory>

struct udev;
struct udev_monitor;

namespace vorlent {

/// What udev announces of input devices, once its rules have given them their files and rights.
/// Where no udev runs nothing is ever announced.
class DeviceArrivals {
 public:
  DeviceArrivals();
  ~DeviceArrivals();
  DeviceArrivals(const DeviceArrivals&) = delete;
  DeviceArrivals& operator=(const DeviceArrivals&) = delete;

  /// Grows with the announcements; does not wait for any.
  unsigned count();

 private:
  struct Release {
    void operator()(udev* context) const;
    void operator()(udev_monitor* monitor) const;
  };
  std::unique_ptr<udev, Release> context_;
  std::unique_ptr<udev_monitor, Release> monitor_;
  unsigned count_ = 0;
};

}  // namespace vorlent
