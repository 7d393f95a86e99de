#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "keeper/LastWords.h"
#include "platform/ProgramStarter.h"
#include "platform/SimulatorBus.h"

namespace vorlent {

/// Starts the server when the simulator is there, and again when it ended by itself.
///
///   Waiting --the simulator is there, and the pause is over--> Running
///   Running --status not 0, or a start that found no simulator--> Waiting
///   Running --any other end--> over
///
/// The pause before a start is 1 s after an end that the simulator explains, because it went or
/// another one came. A server that fails beside a simulator that stays is given twice the pause
/// each time, up to 30 s; a run of a minute makes it 1 s again.
class Keeper {
 public:
  static constexpr int FirstPause_ms = 1000;
  static constexpr int LongestPause_ms = 30'000;
  static constexpr int GoodRun_ms = 60'000;
  /// A start that finds no simulator is over by then.
  static constexpr int LongestStart_ms = 10'000;

  struct Events {
    /// What the server says, as it says it.
    std::function<void(const std::string& text)> onOutput;
    /// What the person who comes back should know, a sentence.
    std::function<void(const std::string& notice)> onNotice;
    /// The server ended by itself: how, and its last lines.
    std::function<void(const std::string& how, const std::string& lastWords)> onFailure;
  };

  Keeper(ProgramStarter& starter, std::string program, SimulatorBus& bus, Events events);

  /// To be called ten times a second or so. The status to end with, once all is over.
  std::optional<int> step(std::int64_t now_ms);
  /// Somebody wants an end: the server is asked for one, and none is started any more.
  void endInOrder();

 private:
  WindowHandle simulator();
  std::optional<int> wait();
  std::optional<int> watch();
  std::optional<int> serverEnded(int status);
  void failed(const std::string& how, bool simulatorStayed);

  ProgramStarter& starter_;
  std::string program_;
  SimulatorBus& bus_;
  Events events_;
  std::unique_ptr<StartedProgram> server_;
  LastWords words_;
  std::int64_t now_ms_ = 0;
  std::int64_t startedAt_ms_ = 0;
  std::int64_t endedAt_ms_ = 0;
  int pause_ms_ = 0;                    ///< before the next start
  int nextPause_ms_ = FirstPause_ms;    ///< after the next failure
  WindowHandle simulatorOfServer_ = 0;  ///< that it was started for
  bool ending_ = false;
  bool waitingTold_ = false;
};

}  // namespace vorlent
