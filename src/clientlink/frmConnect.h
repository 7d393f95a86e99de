#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/controls.h"
#include "clientlink/SessionContext.h"
#include "platform/FormTimer.h"
#include "platform/UdpSocket.h"

namespace vorlent {

struct Triple;

/// One client's session: a socket on a port of its own and a timer that sends the latest record.
///
///   idle --greeting--> live --IsUp(false)--> ending --tick--> idle
///                      live <--Stop/Start button--> paused (TimerConn off)
///
/// A live session belongs to the address that greeted. Its stream goes to the port from which that
/// address spoke last, so that a restarted display takes its stream up again.
class frmConnect : public Form {
 public:
  frmConnect(const SessionContext& context, int index);

  std::int16_t MyID() const { return MyID_; }
  void MyID(std::int16_t slot) { MyID_ = slot; }
  /// The greeting has been handled: later datagrams are commands.
  bool Started() const { return Started_; }
  void Started(bool started) { Started_ = started; }
  /// Cleared to end the session.
  bool IsUp() const { return IsUp_; }
  void IsUp(bool up) { IsUp_ = up; }
  /// The machine name that the client gave, as it came: check it before it goes into a path.
  const std::string& FmcName() const { return FmcName_; }
  /// The address of the client that greeted, empty before.
  const std::string& remoteHost() const { return client_.address; }

  /// Moves the session's socket there. Raises what UdpSocket::bind does; the session has no port
  /// then.
  void bind(std::uint16_t port, const std::string& address);
  /// 0 while the socket is bound to none.
  std::uint16_t Port() const { return Port_; }
  /// How long ago the client said something, as long as Started().
  std::uint32_t silence_ms() const { return context_.eventLoop.tickCount_ms() - lastHeard_ms_; }

  /// Ends a session that has been started at once, as it would at its next tick.
  void end();

  /// One attempt; a datagram that the system does not take is lost.
  void SendFsData(const std::string& data);

  FormTimer& TimerConn() { return TimerConn_; }
  UdpSocket& Winsock() { return *Winsock_; }

 private:
  void dataArrival(const Endpoint& sender, const std::string& text);
  /// Runs `work` as part of a datagram: a fault in it drops the rest.
  void handled(const std::function<void()>& work);
  void handleDatagram();
  bool belongsToSession(const Endpoint& sender);
  void greet(std::string text);
  void readPlan();
  std::string greetingReply() const;
  void walkCommands(std::string_view text);
  void carryOutOfClient(const Triple& triple);
  void timerTick();
  void handleSocketError(int number, const std::string& description);

  SessionContext context_;
  std::int16_t MyID_ = 0;
  bool Started_ = false;
  bool IsUp_ = false;
  std::string FmcName_;
  Endpoint client_;
  std::string dropped_;  ///< of the last message of commands
  std::uint16_t Port_ = 0;
  std::uint32_t lastHeard_ms_ = 0;
  std::unique_ptr<UdpSocket> Winsock_;
  FormTimer TimerConn_;
};

}  // namespace vorlent
