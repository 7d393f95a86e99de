#include "platform/linux/LinuxControllers.h"

namespace vorlent {

std::vector<ControllerInfo> LinuxControllers::devices() {
  std::vector<ControllerInfo> found;
  for (const auto& source : sources_) found.push_back(source->info());
  return found;
}

ControllerResult LinuxControllers::Acquire(std::size_t device) {
  return device < sources_.size() ? sources_[device]->Acquire() : ControllerResult::Unplugged;
}

ControllerResult LinuxControllers::Poll(std::size_t device) {
  return device < sources_.size() ? sources_[device]->Poll() : ControllerResult::Unplugged;
}

ControllerResult LinuxControllers::GetDeviceState(std::size_t device, ControllerState& state) {
  return device < sources_.size() ? sources_[device]->GetDeviceState(state)
                                  : ControllerResult::Unplugged;
}

}  // namespace vorlent
