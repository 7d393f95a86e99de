#include "platform/linux/LinuxControllers.h"

#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/EvdevController.h"
#include "platform/linux/InputNodes.h"
#include "platform/linux/StickSockets.h"
#include "platform/linux/VirtualStick.h"

namespace vorlent {
namespace {

/// Empty when there is none that can be trusted.
std::string folderOfSticks() {
  try {
    return busFolder();
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace

void LinuxControllers::add(std::unique_ptr<ControllerSource> source) {
  if (sources_.size() < Max) sources_.push_back(std::move(source));
}

std::vector<ControllerInfo> LinuxControllers::devices() {
  sources_.clear();
  for (InputNode& node : inputNodes())
    add(std::make_unique<EvdevController>(std::move(node), arrivals_, searchInterval_));
  const std::string folder = folderOfSticks();
  for (const std::string& name : stickNames(folder))
    if (auto stick = std::make_unique<VirtualStick>(folder, name); stick->find())
      add(std::move(stick));
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
