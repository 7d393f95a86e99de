#pragma once

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/files.h"
#include "platform/SoundDevice.h"
#include "platform/SoundOutput.h"

namespace vorlent {

class SoundThread;

/// Gives a sound library that may keep a call waiting a thread of its own. A question that it has
/// not answered by the deadline counts as failed, and while it still hangs in one nothing more is
/// asked; everything else the thread does when it comes to it. Sounds of one file share its
/// samples.
class ThreadedSoundDevice : public SoundDevice {
 public:
  /// Whether the list ends with a device that always opens and plays nothing.
  enum class Silence { NotOffered, Offered };
  static constexpr std::chrono::milliseconds Deadline{1000};

  ThreadedSoundDevice(std::unique_ptr<SoundOutput> output, Silence silence,
                      std::chrono::milliseconds deadline = Deadline);
  /// A thread that hangs is left to itself.
  ~ThreadedSoundDevice() override;
  ThreadedSoundDevice(const ThreadedSoundDevice&) = delete;
  ThreadedSoundDevice& operator=(const ThreadedSoundDevice&) = delete;

  std::vector<std::string> devices() override;
  bool open(int position, std::intptr_t window) override;
  std::unique_ptr<SoundBuffer> createBuffer(const std::string& path) override;
  std::optional<std::string> news() override;

 private:
  struct LoadedWave {
    std::weak_ptr<const Wave> wave;
    FileStamp file;
  };

  /// What `question` gives in the thread; an empty answer when none comes in time. It runs even
  /// then, and is told whether somebody still waits for it.
  template <class Question>
  auto ask(Question question);
  std::vector<std::string> realDevices();
  std::shared_ptr<const Wave> waveOf(const std::string& path);

  std::shared_ptr<SoundThread> thread_;
  Silence silence_;
  std::chrono::milliseconds deadline_;
  std::thread running_;
  bool silent_ = false;  ///< the open device is the one that plays nothing
  /// Of the question that missed the deadline; true when it was answered after all.
  std::shared_ptr<std::atomic<bool>> late_;
  std::map<std::string, LoadedWave> waves_;
};

}  // namespace vorlent
