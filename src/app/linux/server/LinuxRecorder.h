#pragma once

#include <chrono>
#include <ctime>
#include <string>

#include "base/files.h"
#include "platform/PlatformSettings.h"
#include "platform/linux/HelperProcess.h"
#include "platform/linux/RecorderProcess.h"
#include "tap/Recorder.h"

namespace vorlent {

/// "2026-11-22 13:16:00", in the zone that the computer is set to.
inline std::string localTimeText() {
  constexpr std::size_t Room = 32;
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  std::string text(Room, '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts));
  return text;
}

/// The recording of a server on Linux.
class LinuxRecorder {
 public:
  LinuxRecorder(const PlatformSettings& settings, const std::string& programFolder,
                const Ports& ports)
      : process_(helperProgram("vorlent-recorder"), nativePath(settings.Recorder),
                 settings.RecorderSize_MB),
        recorder_(ports, process_, [begin = Clock::now()] {
          return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin)
              .count();
        }) {
    recorder_.begin(localTimeText(), programFolder);
  }

  Recorder& recorder() { return recorder_; }

 private:
  using Clock = std::chrono::steady_clock;

  RecorderProcess process_;
  Recorder recorder_;
};

}  // namespace vorlent
