#include "platform/linux/VirtualStick.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <string_view>

#include "platform/StickDevice.h"
#include "platform/linux/StickSockets.h"
#include "platform/linux/UnixAddress.h"

namespace vorlent {
namespace {

/// A stick that sends without pause must not hold up those who poll; its later packets wait.
constexpr int MostPacketsAtOnce = 256;

}  // namespace

bool VirtualStick::find() {
  const auto address = unixAddress(folder_ + "/" + stickSocketName(name_));
  Descriptor found = newPacketSocket();
  if (!address || !connectTo(found, *address) || !isOwnPeer(found)) return false;
  socket_ = std::move(found);
  ready_ = false;
  return true;
}

ControllerResult VirtualStick::Acquire() {
  if (!socket_ && !find()) return absent_ = ControllerResult::Unplugged;
  acquired_ = true;
  return ControllerResult::Ok;
}

ControllerResult VirtualStick::Poll() {
  if (acquired_ && !receive()) {
    socket_ = Descriptor();
    acquired_ = false;
    absent_ = ControllerResult::Unplugged;
  }
  return result();
}

ControllerResult VirtualStick::GetDeviceState(ControllerState& state) const {
  if (result() == ControllerResult::Ok) state = state_;
  return result();
}

ControllerResult VirtualStick::result() const {
  if (!acquired_) return absent_;
  return ready_ ? ControllerResult::Ok : ControllerResult::NotReady;
}

bool VirtualStick::receive() {
  std::array<char, sizeof(ControllerState)> packet;
  bool told = false;
  for (int i = 0; i < MostPacketsAtOnce; ++i) {
    // With MSG_TRUNC the length is the packet's own, even when it does not fit.
    const ssize_t length = recv(socket_.number(), packet.data(), packet.size(), MSG_TRUNC);
    if (length < 0) return errno == EAGAIN || errno == EINTR;
    // The end is met again at the next poll: a button let go right before it must not stay held.
    if (length == 0) return told;
    if (static_cast<std::size_t>(length) > packet.size()) continue;
    if (const auto state = stateFromPacket({packet.data(), static_cast<std::size_t>(length)})) {
      state_ = *state;
      ready_ = told = true;
    }
  }
  return true;
}

}  // namespace vorlent
