#pragma once

#include <memory>
#include <string>

namespace vorlent {

class ClientAdmission;
class Commands;
class EventLoop;
class FailureDomain;
class Network;
class StatusLine;
class clsFSUIPC;
struct Autoflight;
struct modPublic;

/// What the sessions ask of the server around them.
class SessionHost {
 public:
  virtual ~SessionHost() = default;
  virtual bool AnyClientUp() const = 0;
  /// A client has greeted: what may be changed without clients only is locked.
  virtual void clientGreeted() = 0;
  /// What the first client of all sets going, before it has its reply.
  virtual void bringUpServer() = 0;
  /// The client has its reply and its stream.
  virtual void startPollTimer() = 0;
  /// As the main window shows it.
  virtual std::string cockpit() const = 0;
};

/// What the sessions stand on.
struct SessionContext {
  EventLoop& eventLoop;
  FailureDomain& failureDomain;
  Network& network;
  modPublic& store;
  StatusLine& status;
  clsFSUIPC& link;
  Autoflight& autoflight;
  const std::unique_ptr<Commands>& commands;
  ClientAdmission& admission;
  SessionHost& host;
};

}  // namespace vorlent
