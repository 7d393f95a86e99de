#pragma once

#include <functional>

#include "platform/EventLoop.h"
#include "platform/Operator.h"

namespace vorlent {

class RuntimeError;

/// Every entry from the event loop (a timer's tick, a datagram, a control's event) goes through
/// run(): what the system's own handlers did not answer is shown and ends the process.
class FailureDomain {
 public:
  FailureDomain(EventLoop& eventLoop, Operator& op) : eventLoop_(eventLoop), operator_(op) {}

  void run(const std::function<void()>& work);
  /// `handler` behind run(), for the event loop to call.
  std::function<void()> guarded(std::function<void()> handler);
  /// Dispatches the events that wait now; goes no further when one of them ended the process.
  void pump();
  /// Shows a form modally and comes back when it is closed; as pump() when the process ended.
  void showModal(Form& form);
  bool ended() const { return ended_; }

 private:
  void end(int exitStatus);
  void endByError(const RuntimeError& error);
  void stopIfEnded() const;

  EventLoop& eventLoop_;
  Operator& operator_;
  bool ended_ = false;
  int exitStatus_ = 0;
};

}  // namespace vorlent
