#pragma once

#include <memory>
#include <string>

#include "platform/UdpSocket.h"

namespace vorlent {

class DatagramTurn;

/// Sockets that deliver through the event loop of the program's QCoreApplication. They bind to
/// dotted IPv4 addresses only ("0.0.0.0" is every address of the machine, port 0 any free port),
/// never share an address and port, and send from the port they are bound to. Of one turn of the
/// event loop the datagrams of all of them take 5 ms at the most; what overflows a socket meanwhile
/// is lost.
class QtNetwork : public Network {
 public:
  /// `ownIp`: the machine's own address; empty takes the first IPv4 address of an interface that is
  /// up and not loopback, and 127.0.0.1 without one.
  explicit QtNetwork(std::string ownIp = {});
  ~QtNetwork() override;

  std::unique_ptr<UdpSocket> createSocket() override;
  std::string localIp() override;
  std::string localHostName() override;
  std::vector<std::string> attachedNetworks() override;

 private:
  std::string ownIp_;
  std::shared_ptr<DatagramTurn> turn_;
};

}  // namespace vorlent
