#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/AddressRanges.h"

namespace vorlent {

class EventLoop;
class Network;
class StatusLine;

/// Who may greet and command, and what a client may not send. The others are told on the status
/// line, a line a second at most, and dropped.
class ClientAdmission {
 public:
  /// `clientNetworks`: addresses and networks, comma separated; empty lets in the networks that
  /// this machine is directly attached to, and loopback.
  ClientAdmission(EventLoop& eventLoop, Network& network, StatusLine& status,
                  const std::string& clientNetworks, bool networkKeys);

  /// Tells what of the list is neither an address nor a network.
  void tellFaults() const;
  /// False, told on the status line, for an address that may not talk to this server.
  bool admits(const std::string& address, int slot);
  /// Clients may send keystroke codes.
  bool networkKeys() const { return networkKeys_; }
  /// Tells that something of a client was dropped, unless that has just been told of another.
  void tellDropped(const std::string& what);

 private:
  void readAttachedNetworks();
  bool isDue(std::optional<std::uint32_t>& last_ms) const;

  EventLoop& eventLoop_;
  Network& network_;
  StatusLine& status_;
  bool networkKeys_;
  bool attached_ = false;  ///< the ranges are those of the machine's own networks
  AddressRanges ranges_;
  std::string faults_;
  std::optional<std::uint32_t> lastRead_ms_;
  std::optional<std::uint32_t> lastTold_ms_;
};

}  // namespace vorlent
