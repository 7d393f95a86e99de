#pragma once

namespace vorlent {

/// The controller boards and their sticks. Does nothing yet: no device is looked for or polled.
class clsJoyst {
 public:
  /// Builds all sticks from their files.
  void InitJoystick() {}
  /// Starts each stick's polling.
  void StartAllSticks() {}
  /// Stops and releases all sticks.
  void KillAllSticks() {}
};

}  // namespace vorlent
