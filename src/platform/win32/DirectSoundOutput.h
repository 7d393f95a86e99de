#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/SoundOutput.h"

struct IDirectSound8;

namespace vorlent {

/// A wave in a sound buffer that is copied for each voice; the copies share its samples.
struct DirectSoundWave;

/// What DirectSound knows a device by, and what it calls it.
struct DirectSoundName {
  std::array<std::byte, 16> guid{};
  bool primary = true;  ///< the one that the system prefers, which has no GUID
  std::string description;
};

/// DirectSound 8.
class DirectSoundOutput : public SoundOutput {
 public:
  DirectSoundOutput() = default;
  ~DirectSoundOutput() override;
  DirectSoundOutput(const DirectSoundOutput&) = delete;
  DirectSoundOutput& operator=(const DirectSoundOutput&) = delete;

  std::vector<std::string> devices() override;
  bool open(std::size_t index, std::intptr_t window) override;
  bool openAgain() override;
  bool connected() override;
  void close() override;
  std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave> wave) override;

 private:
  std::shared_ptr<DirectSoundWave> waveOf(const std::shared_ptr<const Wave>& wave);

  std::vector<DirectSoundName> listed_;
  DirectSoundName chosen_;
  std::intptr_t window_ = 0;
  IDirectSound8* device_ = nullptr;
  std::map<const Wave*, std::weak_ptr<DirectSoundWave>> waves_;
};

}  // namespace vorlent
