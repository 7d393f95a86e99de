#include "platform/linux/EvdevController.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>

#include <cerrno>

#include "platform/linux/EvdevState.h"

namespace vorlent {
namespace {

/// More than the kernel keeps for one reader, so that a device that never stops cannot hold us.
constexpr int MostEventsAtOnce = 4096;

}  // namespace

void EvdevController::Release::operator()(libevdev* device) const { libevdev_free(device); }

ControllerResult EvdevController::Acquire() {
  if (device_) return ControllerResult::Ok;
  // Once it has been away, the board at its path can be another one, equal to it.
  const bool first = absent_ == ControllerResult::NotAcquired;
  if (first ? open(node_.path) : findAgain()) return ControllerResult::Ok;
  return absent_ = ControllerResult::Unplugged;
}

ControllerResult EvdevController::Poll() {
  if (!device_) return absent_;
  pollfd waiting{file_.number(), POLLIN, 0};
  if (poll(&waiting, 1, 0) < 0) return errno == EINTR ? ControllerResult::Ok : lost();
  if (waiting.revents & (POLLHUP | POLLERR | POLLNVAL)) return lost();
  if (waiting.revents & POLLIN) {
    if (!readEvents()) return lost();
    state_ = evdevState(device_.get());
  }
  return ControllerResult::Ok;
}

ControllerResult EvdevController::GetDeviceState(ControllerState& state) const {
  if (!device_) return absent_;
  state = state_;
  return ControllerResult::Ok;
}

bool EvdevController::open(const std::string& path) {
  file_ = Descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  libevdev* device = nullptr;
  if (!file_ || libevdev_new_from_fd(file_.number(), &device) != 0) return false;
  device_.reset(device);
  state_ = evdevState(device);
  return true;
}

bool EvdevController::findAgain() {
  if (!searchIsDue()) return false;
  for (const InputNode& node : inputNodes())
    if (node.connection == node_.connection && open(node.path)) return true;
  return false;
}

/// Not every arrival is announced: there may be no udev, or the device's file may be given to us
/// later.
bool EvdevController::searchIsDue() {
  const auto now = Clock::now();
  const unsigned arrivals = arrivals_.count();
  if (arrivals == arrivalsSeen_ && now < nextSearch_) return false;
  arrivalsSeen_ = arrivals;
  nextSearch_ = now + searchInterval_;
  return true;
}

bool EvdevController::readEvents() {
  unsigned mode = LIBEVDEV_READ_FLAG_NORMAL;
  for (int i = 0; i < MostEventsAtOnce; ++i) {
    input_event event{};
    const int result = libevdev_next_event(device_.get(), mode, &event);
    if (result == LIBEVDEV_READ_STATUS_SYNC) {
      // The kernel dropped events: what has changed meanwhile is fetched from the device.
      mode = LIBEVDEV_READ_FLAG_SYNC;
    } else if (result == -EAGAIN) {
      if (mode == LIBEVDEV_READ_FLAG_NORMAL) return true;
      mode = LIBEVDEV_READ_FLAG_NORMAL;
    } else if (result < 0 && result != -EINTR) {
      return false;
    }
  }
  return true;
}

ControllerResult EvdevController::lost() {
  device_.reset();
  file_ = Descriptor();
  return absent_ = ControllerResult::Unplugged;
}

}  // namespace vorlent
