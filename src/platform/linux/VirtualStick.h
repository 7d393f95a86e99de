#pragma once

#include <string>
#include <utility>

#include "platform/linux/ControllerSource.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A controller that is a program: a SOCK_SEQPACKET socket that tells its state in packets of 80
/// bytes, the first one as soon as it is connected to.
class VirtualStick : public ControllerSource {
 public:
  VirtualStick(std::string folder, std::string name)
      : folder_(std::move(folder)), name_(std::move(name)) {}

  /// Connects, without acquiring. False when nobody listens.
  bool find();

  ControllerInfo info() const override { return {name_, "stick " + name_}; }
  ControllerResult Acquire() override;
  ControllerResult Poll() override;
  ControllerResult GetDeviceState(ControllerState& state) const override;

 private:
  ControllerResult result() const;
  /// Takes what waits there. False when the stick has gone and had nothing more to tell.
  bool receive();

  std::string folder_;
  std::string name_;
  Descriptor socket_;
  ControllerState state_;
  bool acquired_ = false;
  bool ready_ = false;  ///< a state has come since the stick was found
  ControllerResult absent_ = ControllerResult::NotAcquired;  ///< the result when not acquired
};

}  // namespace vorlent
