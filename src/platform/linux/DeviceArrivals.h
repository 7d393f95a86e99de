#pragma once

#include <memory>

struct udev;
struct udev_monitor;

namespace vorlent {

/// What udev announces of input devices, once its rules have given them their files and rights.
/// Where no udev runs nothing is ever announced.
class DeviceArrivals {
 public:
  /// Grows with the announcements since the first call; does not wait for any.
  unsigned count();

 private:
  void listen();

  struct Release {
    void operator()(udev* context) const;
    void operator()(udev_monitor* monitor) const;
  };
  std::unique_ptr<udev, Release> context_;
  std::unique_ptr<udev_monitor, Release> monitor_;
  bool listening_ = false;
  unsigned count_ = 0;
};

}  // namespace vorlent
