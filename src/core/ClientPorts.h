#pragma once

#include <cstdint>
#include <string>

namespace vorlent {

class frmConnect;
class frmMainClient;
struct Server;

/// The main window's part that binds the sessions to their ports, by the boxes for the address and
/// the lowest port.
class ClientPorts {
 public:
  /// Higher ones cannot be typed: a port is a signed 16-bit number here.
  static constexpr int HighestPort = 32766;
  /// 0 would leave the choice to the system.
  static constexpr int LowestPort = 1;

  ClientPorts(Server& server, frmMainClient& form) : server_(server), form_(form) {}

  /// Binds each session to its port; tells the operator what stands in the way.
  void SetSocks();
  /// The address box has been left: the first session moves there.
  void takeAddress();
  /// The port's box has been left.
  void takeBasePort();

 private:
  void bindAllSessions(const std::string& ip);
  bool BindSock(frmConnect& session, std::int16_t port, const std::string& address);

  void tellStaleAddress(const std::string& address);

  Server& server_;
  frmMainClient& form_;
  int bound_ = 0;  ///< how many sessions the last SetSocks() has bound
};

}  // namespace vorlent
