#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/SoundDevice.h"

namespace vorlent {

/// A sound device that plays nothing and remembers everything: "open 1", "load rumble.wav",
/// "rumble.wav volume -10000", "... pan 2222", "... play", "... loop", "... stop", "... rewind",
/// "... release".
class RecordingSoundDevice : public SoundDevice {
 public:
  std::vector<std::string> devices() override { return names; }
  bool open(int position, std::intptr_t window) override;
  std::unique_ptr<SoundBuffer> createBuffer(const std::string& path) override;
  std::optional<std::string> news() override { return std::exchange(untold, std::nullopt); }

  std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

  std::vector<std::string> names{"Speakers", "Headset", "No sound"};
  bool opens = true;
  std::set<std::string> missing;  ///< files that are not there
  std::vector<std::string> calls;
  std::vector<std::string> paths;  ///< of what was loaded
  std::intptr_t window = 0;        ///< that the device was opened for
  std::optional<std::string> untold;
};

}  // namespace vorlent
