#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/Controllers.h"

namespace vorlent {

struct Sticks;
struct Triple;

/// The controller boards, and the sticks that stand for them.
class clsJoyst {
 public:
  explicit clsJoyst(Sticks& sticks) : sticks_(sticks) {}

  /// Looks for the boards. False, told on the status line, when there are none; `count` is 0..8.
  bool DInput_Init(std::int16_t& count);
  /// Fetches a board's state; with any result but Ok `state` is left as it is.
  ControllerResult read(std::size_t device, ControllerState& state);

  /// Polls each stick in use at the period of the main window's box. Raises TypeMismatch or
  /// Overflow for a box that holds no number.
  void StartAllSticks();
  /// Stops and releases the sticks in use. Never raises.
  void KillAllSticks();

  /// Carries out what a stick's tick has put together, and empties it.
  /// `afterEach` is told behind each triple.
  void ProcessStickMessage(const std::function<void()>& afterEach = nullptr);
  /// Carries out a line of triples; a code or value that is no number ends it there. An encoder's
  /// code above 1000 presses its key too.
  void ProcessLocalStick(std::string_view line, const std::function<void()>& afterEach = nullptr);

 private:
  std::size_t sticksInUse() const;
  void pressEncoderKey(const Triple& triple);
  void closeWindows(std::size_t stick);

  Sticks& sticks_;
};

}  // namespace vorlent
