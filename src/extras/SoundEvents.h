#pragma once

namespace vorlent {

/// When the aircraft's sounds start and stop. Does nothing yet: there is no sound device behind it.
class SoundEvents {
 public:
  /// The looped rumble and the two queued sounds, when the first client comes up.
  void startSounds() {}
  /// The engine starters and the ground sounds, at the end of each poll.
  void PollStep() {}
  /// Stops the rumble and empties the queues.
  void stopSounds() {}
};

}  // namespace vorlent
