#include "support/FakeControllers.h"

namespace vorlent {

std::vector<ControllerInfo> FakeControllers::devices() {
  ++listings;
  listed_.clear();
  std::vector<ControllerInfo> found;
  for (std::size_t i = 0; i < all.size() && found.size() < Max; ++i) {
    all[i].acquired = false;
    if (!all[i].pluggedIn) continue;
    listed_.push_back(i);
    found.push_back({all[i].name, "port " + std::to_string(i)});
  }
  return found;
}

FakeControllers::Device* FakeControllers::present(std::size_t device) {
  if (device >= listed_.size()) return nullptr;
  Device& found = all.at(listed_[device]);
  if (!found.pluggedIn) found.acquired = false;
  return found.pluggedIn ? &found : nullptr;
}

ControllerResult FakeControllers::Acquire(std::size_t device) {
  Device* found = present(device);
  if (!found) return ControllerResult::Unplugged;
  found->acquired = true;
  return ControllerResult::Ok;
}

ControllerResult FakeControllers::absence(std::size_t device) const {
  return device < listed_.size() ? all.at(listed_[device]).whileAway : ControllerResult::Unplugged;
}

ControllerResult FakeControllers::Poll(std::size_t device) {
  Device* found = present(device);
  if (!found) return absence(device);
  if (!found->acquired) return ControllerResult::NotAcquired;
  if (!found->ready) return ControllerResult::NotReady;
  found->polled = found->state;
  ++found->polls;
  return ControllerResult::Ok;
}

ControllerResult FakeControllers::GetDeviceState(std::size_t device, ControllerState& state) {
  Device* found = present(device);
  if (!found) return absence(device);
  if (!found->acquired) return ControllerResult::NotAcquired;
  if (!found->ready) return ControllerResult::NotReady;
  state = found->polled;
  return ControllerResult::Ok;
}

}  // namespace vorlent
