#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "platform/SoundOutput.h"

namespace vorlent {

/// What a buffer is to do. Its calls are counted: the thread carries out what has changed since it
/// looked last, so that a device that hangs never lets a queue grow.
struct WantedSound {
  enum class Play { Stopped, Once, Looping };

  std::shared_ptr<const Wave> wave;
  int volume = 0;
  int pan = 0;
  Play play = Play::Stopped;
  unsigned starts = 0;
  unsigned rewinds = 0;
};

/// The thread that works the sound library, and what it shares with the server. The lock is never
/// held during a call of the library, so the server waits for no device.
class SoundThread {
 public:
  using SoundId = std::uint64_t;

  explicit SoundThread(std::unique_ptr<SoundOutput> output) : output_(std::move(output)) {}

  /// The thread's life, until end().
  void run();

  // All that follows may be called from any thread.
  void ask(std::function<void(SoundThread&)> question);
  SoundId add(std::shared_ptr<const Wave> wave);
  void change(SoundId id, const std::function<void(WantedSound&)>& how);
  void remove(SoundId id);
  std::optional<std::string> takeNews();
  void end();
  /// The thread is through with everything within this time.
  bool endsWithin(std::chrono::milliseconds limit);

  // For questions, which run in the thread.
  SoundOutput& output() { return *output_; }
  void opened() { open_ = true; }

 private:
  /// What the thread has made of a wanted sound.
  struct Sound {
    WantedSound done;
    std::unique_ptr<SoundVoice> voice;
    std::size_t frame = 0;  ///< where it stands without a voice
  };
  using Changes = std::map<SoundId, std::optional<WantedSound>>;

  bool turn();
  bool somethingToDo() const { return ending_ || !questions_.empty() || !changed_.empty(); }
  Changes takeChanges();
  void carryOut(const Changes& changes);
  void carryOut(Sound& sound, const WantedSound& wanted);
  void begin(Sound& sound);
  static void halt(Sound& sound);
  void look();
  void lose();
  void findAgain();
  void tell(const std::string& line);

  std::unique_ptr<SoundOutput> output_;
  std::map<SoundId, Sound> sounds_;
  bool open_ = false;
  bool lost_ = false;
  std::chrono::steady_clock::time_point nextLook_{};
  std::chrono::steady_clock::time_point nextSearch_{};

  std::mutex mutex_;
  std::condition_variable wake_;
  std::condition_variable endedSignal_;
  std::deque<std::function<void(SoundThread&)>> questions_;
  std::map<SoundId, WantedSound> wanted_;
  std::set<SoundId> changed_;
  std::deque<std::string> news_;
  SoundId lastId_ = 0;
  bool ending_ = false;
  bool ended_ = false;
};

}  // namespace vorlent
