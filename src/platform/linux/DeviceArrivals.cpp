#include "platform/linux/DeviceArrivals.h"

#include <libudev.h>

namespace vorlent {
namespace {

/// So that announcements without end cannot hold us.
constexpr int MostAtOnce = 256;

}  // namespace

void DeviceArrivals::Release::operator()(udev* context) const { udev_unref(context); }
void DeviceArrivals::Release::operator()(udev_monitor* monitor) const {
  udev_monitor_unref(monitor);
}

void DeviceArrivals::listen() {
  listening_ = true;
  context_.reset(udev_new());
  if (!context_) return;
  monitor_.reset(udev_monitor_new_from_netlink(context_.get(), "udev"));
  if (!monitor_) return;
  udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "input", nullptr);
  if (udev_monitor_enable_receiving(monitor_.get()) < 0) monitor_.reset();
}

unsigned DeviceArrivals::count() {
  if (!listening_) listen();
  for (int i = 0; monitor_ && i < MostAtOnce; ++i) {
    udev_device* const device = udev_monitor_receive_device(monitor_.get());
    if (device == nullptr) break;
    udev_device_unref(device);
    ++count_;
  }
  return count_;
}

}  // namespace vorlent
