#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "endtoend/Process.h"
#include "support/HeardSamples.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

namespace vorlent {

/// A PulseAudio server of its own with one device, which goes nowhere. Programs that are
/// started while it lives play on it.
class PulseSink {
 public:
  /// Throws when it does not come.
  explicit PulseSink(int channels = 2);

  void startAgain();
  void stop();
  void signal(int number) const { server_->signal(number); }
  std::string address() const { return "unix:" + folder_ / "native"; }

 private:
  bool answers() const;

  int channels_;
  TempFolder folder_;
  ScopedEnvironment home_{"HOME", folder_.path()};
  ScopedEnvironment runtime_{"PULSE_RUNTIME_PATH", folder_.path()};
  ScopedEnvironment address_{"PULSE_SERVER", address()};
  ScopedEnvironment driver_{"ALSOFT_DRIVERS", "pulse"};
  std::unique_ptr<Process> server_;
};

/// What a PulseSink's loudspeaker is given, recorded by parec from now on.
class SinkRecording {
 public:
  static constexpr int Rate_Hz = 22050;
  using Moment = HeardSamples::Moment;

  explicit SinkRecording(const PulseSink& sink);
  ~SinkRecording();
  SinkRecording(const SinkRecording&) = delete;
  SinkRecording& operator=(const SinkRecording&) = delete;

  /// Everything up to this moment has been recorded; throws when it does not come.
  void waitUntil(Moment moment);
  /// The first moment from `from` on at which either channel is louder, of 1.
  std::optional<Moment> firstAbove(double amplitude, Moment from);
  /// Mean level of a channel, dB against full scale.
  double level_dB(int channel, Moment from, Moment until);

 private:
  void read();

  int from_ = -1;
  pid_t recorder_ = -1;
  std::mutex mutex_;
  HeardSamples heard_{Rate_Hz};
  std::atomic<bool> ending_{false};
  std::thread reader_;
};

}  // namespace vorlent
