#include "core/ClientPorts.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "clientlink/frmConnect.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "platform/Operator.h"
#include "platform/UdpSocket.h"

namespace vorlent {
namespace {

/// `port` as a socket takes it; raises InvalidCall for one that is none.
std::uint16_t socketPort(int port) {
  if (port < 0 || port > UINT16_MAX) throw RuntimeError(RuntimeError::InvalidCall);
  return static_cast<std::uint16_t>(port);
}

/// Which port and address a box is about.
std::string place(int port, const std::string& address) {
  return "\n\nPort " + std::to_string(port) + ", address " + address;
}

}  // namespace

/// An address that the operator typed binds the first session alone. docs/peculiarities.md: typed
/// address.
void ClientPorts::SetSocks() {
  modPublic& v = server_.store;
  Operator& op = server_.ports.op;
  if (server_.connect.empty()) return;
  try {
    const std::string ip = server_.ports.network.localIp();
    if (form_.txtIP.Text().empty() || form_.txtIP.Text() == ip)
      bindAllSessions(ip);
    else if (!BindSock(*server_.connect[0], v.BasePort, form_.txtIP.Text()))
      v.SockOk = false;
  } catch (const RuntimeError& error) {
    const std::string where = place(v.BasePort + bound_, form_.txtIP.Text());
    switch (error.number()) {
      case SocketError::ProtocolNotSupported:
        op.messageBox("Please check your network setup. Protocols not available?" + where,
                      BoxIcon::Critical, "Vorlent");
        break;
      case SocketError::AddressInUse:
        op.messageBox(
            "IP Address in use, maybe for Vorlent or another Tarnwick on this machine?" + where,
            BoxIcon::Critical, "Vorlent");
        break;
      case SocketError::AddressNotAvailable:
        op.messageBox("IP Address does not exist on this machine" + where, BoxIcon::Critical,
                      "Vorlent");
        break;
      default:
        op.messageBox(error.description() + where, BoxIcon::Exclamation, "Vorlent");
    }
  }
}

void ClientPorts::bindAllSessions(const std::string& ip) {
  modPublic& v = server_.store;
  form_.txtIP.Text(ip);
  v.SockOk = true;
  bound_ = 0;
  for (const auto& session : server_.connect) {
    session->bind(socketPort(v.BasePort + bound_), ip);
    session->MyID(static_cast<std::int16_t>(bound_++));
  }
}

bool ClientPorts::BindSock(frmConnect& session, std::int16_t port, const std::string& address) {
  modPublic& v = server_.store;
  try {
    session.bind(socketPort(port), address);
    v.SockOk = true;
    v.BindError = false;
    return true;
  } catch (const RuntimeError&) {
    tellStaleAddress(address);
    server_.ports.op.messageBox(
        "Incorrect PC Name or IP address,\nplease empty IP box and restart Vorlent" +
            place(port, address),
        BoxIcon::Plain, "Vorlent");
    v.BindError = true;
    return false;
  }
}

/// An address that was right once, until the network gave this machine another one.
void ClientPorts::tellStaleAddress(const std::string& address) {
  const std::string own = server_.ports.network.localIp();
  if (address != own)
    form_.SetStatusText(1, "Address " + address + " is none of this machine, which has " + own +
                               ": empty the IP box and start again");
}

void ClientPorts::takeAddress() {
  form_.txtIP.Text(upperCase(form_.txtIP.Text()));
  if (server_.connect.empty()) return;
  server_.store.SockOk = BindSock(*server_.connect[0], server_.store.BasePort, form_.txtIP.Text());
}

void ClientPorts::takeBasePort() {
  const auto port = numeric(form_.txtPort.Text());
  if (port && *port >= LowestPort && *port < HighestPort + 1)
    server_.store.BasePort = toInt16(*port);
  else
    form_.txtPort.Text("");
}

}  // namespace vorlent
