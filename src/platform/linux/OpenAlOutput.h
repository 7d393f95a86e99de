#pragma once

#include <AL/al.h>
#include <AL/alc.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/SoundOutput.h"

namespace vorlent {

/// A wave in the sound library's hands: the left channel and the right one, each a stereo buffer
/// whose other channel is silent.
struct OpenAlWave;

/// OpenAL Soft. A voice is two sources, one a channel, each with its own gain; each goes straight
/// to its loudspeaker, past what would place it in the room.
class OpenAlOutput : public SoundOutput {
 public:
  OpenAlOutput() = default;
  ~OpenAlOutput() override;
  OpenAlOutput(const OpenAlOutput&) = delete;
  OpenAlOutput& operator=(const OpenAlOutput&) = delete;

  std::vector<std::string> devices() override;
  bool open(std::size_t index, std::intptr_t window) override;
  bool openAgain() override;
  bool connected() override;
  void close() override;
  std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave> wave) override;

 protected:
  /// The device of this name and what its context asks of it, for the tests' own device.
  virtual ALCdevice* openDevice(const std::string& name);
  virtual const ALCint* contextAttributes() const { return nullptr; }
  ALCdevice* device() { return device_; }

 private:
  std::shared_ptr<OpenAlWave> waveOf(const std::shared_ptr<const Wave>& wave);

  std::vector<std::string> names_;
  std::string name_;
  ALCdevice* device_ = nullptr;
  ALCcontext* context_ = nullptr;
  std::map<const Wave*, std::weak_ptr<OpenAlWave>> waves_;
};

}  // namespace vorlent
