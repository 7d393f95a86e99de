#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vorlent {

class Operator;
class SoundBuffer;
class SoundDevice;

/// Plays the aircraft's wave files on one device. A sound is known by its place in a list that only
/// ResetBuffer shortens; element 0 stays empty. An id beyond the list raises SubscriptOutOfRange,
/// an empty element, as of a file that could not be loaded, ObjectNotSet.
class clsSound {
 public:
  explicit clsSound(SoundDevice& device);
  ~clsSound();

  /// Opens the device at this place of the list, from 1. One that cannot be opened is told in a
  /// box. Without an open device every sound that is loaded raises ObjectNotSet.
  void createDevice(std::int16_t position, std::intptr_t window, Operator& op);

  /// Loads the file, sets the volume where it is above 0, plays in a loop and gives the id. Raises
  /// what the loading raises; the list has an empty element more then.
  std::int32_t dxPlayLoop(const std::string& path, std::int16_t volume);
  /// Loads the file and gives the id; raises as dxPlayLoop.
  std::int32_t dxQueueWave(const std::string& path);
  /// Sets the volume where it is 1 or more and plays once, from where it stands.
  void dxPlayQueue(std::int32_t id, std::int16_t volume);
  /// Stops and goes back to the start; the id stays good.
  void dxPlayStop(std::int32_t id);
  /// 0 to 100; below 50 the sound is on one side, above on the other.
  void dxPlayPan(std::int32_t id, float pan);
  /// 0 to 100; above, the device refuses it with InvalidCall.
  void dxWaveVolume(std::int32_t id, float volume);
  /// Back to element 0 alone; what plays falls silent.
  int ResetBuffer();
  /// How many sounds are loaded; raises Overflow above 32767.
  std::int16_t Buffers() const;

 private:
  std::int32_t load(const std::string& path);
  SoundBuffer& buffer(std::int32_t id);

  SoundDevice& device_;
  bool open_ = false;
  std::vector<std::unique_ptr<SoundBuffer>> Buffers_;
};

/// The hundredths of a decibel that the device is given for a volume and a pan of 0 to 100.
int deviceVolume(float volume);
int devicePan(float pan);

}  // namespace vorlent
