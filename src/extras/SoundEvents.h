#pragma once

#include <cstdint>
#include <string>

#include "base/IndexedArray.h"
#include "extras/SoundContext.h"

namespace vorlent {

/// When the aircraft's sounds start and stop, and how loud they are. In a poll each statement
/// stands for itself: a fault in it, as of a sound that was never loaded, is passed over.
class SoundEvents {
 public:
  explicit SoundEvents(const SoundContext& context) : context_(context) {}

  /// The looped rumble and the two queued sounds, when the first client comes up. A file that
  /// cannot be loaded is told on the status line and raised; those behind it are not loaded then.
  void startSounds();
  /// The engine starters and the ground sounds, at the end of each poll.
  void PollStep();
  /// Stops the rumble and empties the queues, where the rumble plays.
  void stopSounds();
  /// Stops the rumble and releases all sounds, where the rumble plays; says whether it did.
  bool stopRumble();

  std::int32_t RumbleId = 0;  ///< 0 when none, as the other ids
  std::int32_t Queue1Id = 0;
  std::int32_t Queue2Id = 0;
  IndexedArray<std::int32_t, 1, 4> StarterId;
  IndexedArray<bool, 1, 4> StarterPlaying;
  IndexedArray<std::int16_t, 1, 4> StarterCount;  ///< polls that the starter has turned
  bool WasOnGround = false;
  std::int16_t SoundPollCount = 0;

 private:
  clsSound& sound();
  std::string pathOf(const std::string& file) const;
  void queue(std::int32_t& id, const std::string& file, int number);
  void tellNews();
  void noteMagnetos();
  void StarterSound(int engine);
  void startStarter(int engine);
  void stopStarter(int engine);
  std::int16_t storedMagneto(int engine) const;
  bool isStarterOn(int engine) const;
  void GroundSounds();
  void panGroundSounds();
  void liftOff();
  void touchDown();
  void settleVolumes();
  bool anySoundLoaded();
  void setRumbleVolume();
  void setBumpVolume();

  SoundContext context_;
  /// Where each engine's magneto stood in the last poll in which its starter was off.
  IndexedArray<std::int16_t, 1, 4> magnetoBefore_;
};

}  // namespace vorlent
