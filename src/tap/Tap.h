#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "recording/Event.h"
#include "recording/EventQueue.h"

namespace vorlent {

/// Where all that goes through the tapped ports is told, with its time.
class Tap {
 public:
  /// Microseconds since the recording began, never less than the last time.
  using Clock = std::function<std::int64_t()>;

  Tap(RecorderLink& link, Clock clock) : link_(link), clock_(std::move(clock)), queue_(link) {}

  void tell(recorded::What what);
  void answer(recorded::Call call, std::int64_t number, std::string text = {}) {
    tell(recorded::Answered{call, number, std::move(text)});
  }
  /// The server is about to wait, or time has passed: what was told is sent on.
  void flush();
  void end();

  /// What `ask` gives; a RuntimeError is told as the call's, and goes on.
  template <class Ask>
  auto asked(recorded::Call call, Ask ask) {
    try {
      return ask();
    } catch (const RuntimeError& error) {
      tell(recorded::Raised{call, error.number(), error.description()});
      throw;
    }
  }

 private:
  RecorderLink& link_;
  Clock clock_;
  EventQueue queue_;
};

}  // namespace vorlent
