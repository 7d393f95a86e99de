#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/UdpSocket.h"

namespace vorlent {

class Tape;

/// Sockets that are given the datagrams of the recording; what is sent goes nowhere.
class ReplayNetwork : public Network {
 public:
  explicit ReplayNetwork(Tape& tape) : tape_(tape) {}

  std::unique_ptr<UdpSocket> createSocket() override;
  std::string localIp() override;
  std::string localHostName() override;
  std::vector<std::string> attachedNetworks() override;

  /// The sockets count from 0, in the order in which they were made; for one that is not there
  /// nothing happens.
  void deliver(std::uint32_t socket, const Endpoint& sender, const std::string& text) const;
  /// Does what a handler has left for a later turn.
  void continueOn(std::uint32_t socket) const;

 private:
  class Socket;
  Socket* at(std::uint32_t socket) const;

  Tape& tape_;
  std::vector<Socket*> sockets_;
};

}  // namespace vorlent
