#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "display/Command.h"
#include "display/Greeting.h"
#include "display/RecordReader.h"
#include "platform/EventLoop.h"
#include "platform/UdpSocket.h"

namespace vorlent {

/// One display's session with a server: greets until it is answered, takes records and replies, and
/// greets again when the server ends the session or falls silent.
///
///   Calling --record or reply--> Live --"Xterm"--> Ended --record or reply--> Live
///                                Live --no datagram for a while--> Silent --record or reply-->
///                                Live
///
/// Nothing for three seconds, or three intervals if those are longer, is silence. All but
/// Live greet every second, Silent at once: the server that comes back serves within a second.
class DisplayClient {
 public:
  struct Settings {
    Endpoint server;
    int interval_ms = 100;  ///< MinInterval_ms..MaxInterval_ms
    std::string name;       ///< the machine name of the greeting
    /// Under which the same server may answer as well. All are greeted until one does.
    std::vector<std::string> otherAddresses = {};
  };
  struct Events {
    std::function<void(const Record&)> onRecord;
    std::function<void(const GreetingReply&)> onReply;
    /// What a user should know, one sentence. The same sentence does not come twice in a row.
    std::function<void(const std::string&)> onNotice;
  };

  /// Raises RuntimeError when the settings cannot be a greeting or no socket can be bound.
  DisplayClient(EventLoop& loop, Network& network, Settings settings, Events events);

  /// Sends the first greeting.
  void start();
  /// False when they did not leave this machine, which is told. Raises RuntimeError as
  /// commandMessage().
  bool send(std::span<const Command> commands);
  /// The answer of a server that knows of a fault is a notice.
  void askForTuning();
  /// The answer of a server that did not carry out all of the last commands is a notice.
  void askForDropped();

 private:
  enum class State { Calling, Live, Ended, Silent };

  void tick();
  void greet();
  bool send(const Endpoint& receiver, const std::string& datagram);
  bool isServer(const Endpoint& sender) const;
  void receive(const Endpoint& sender, const std::string& datagram);
  void receiveRecord(const std::string& datagram);
  void receiveOther(const std::string& datagram);
  void becomeLive();
  void leaveLive(State state, const std::string& notice);
  int silenceLimit_s() const;
  void notify(const std::string& notice);
  std::string serverText() const;

  Settings settings_;
  Events events_;
  std::vector<std::string> addresses_;  ///< of the server
  std::string greeting_;
  RecordReader reader_;
  State state_ = State::Calling;
  int silence_s_ = 0;
  std::string lastNotice_;
  std::unique_ptr<UdpSocket> socket_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace vorlent
