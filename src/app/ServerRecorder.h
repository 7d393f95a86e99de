#pragma once

#include <chrono>
#include <string>

#include "base/files.h"
#include "platform/PlatformSettings.h"
#include "tap/Recorder.h"

namespace vorlent {

/// The recording of a server, by the way to this system's recorder.
template <class Link>
class ServerRecorder {
 public:
  /// `helper` is the path of vorlent-recorder; `local_time` is "2026-11-22 13:16:00".
  ServerRecorder(const std::string& helper, const std::string& local_time,
                 const PlatformSettings& settings, const std::string& programFolder,
                 const Ports& ports)
      : link_(helper, nativePath(settings.Recorder), settings.RecorderSize_MB),
        recorder_(ports, link_, [begin = Clock::now()] {
          return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin)
              .count();
        }) {
    recorder_.begin(local_time, programFolder);
  }

  Recorder& recorder() { return recorder_; }

 private:
  using Clock = std::chrono::steady_clock;

  Link link_;
  Recorder recorder_;
};

}  // namespace vorlent
